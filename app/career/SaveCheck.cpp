#include "app/career/SaveCheck.h"

#include "app/career/SaveFormat.h"

zel::String saveFaultText(const SaveCheck& check) {
    switch (check.fault) {
    case SaveFault::None:
        return {};
    case SaveFault::Missing:
        return "there is none";
    case SaveFault::Unread:
        return zel::String("it can't be read: ") + zel::faultText(check.reason);
    case SaveFault::NoSave:
        return "it is no save game";
    case SaveFault::OtherVersion:
        return zel::String("it is a save of version ") + check.version +
               ", and this program reads version " + SaveVersion;
    case SaveFault::Lost:
        return check.match == SaveMatch::Changed
                   ? "it was changed or damaged outside of Wingtally, and too much of it is lost"
                   : "too much of it is lost";
    }
    return {};
}
