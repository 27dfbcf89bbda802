#include "app/career/Wording.h"

#include <algorithm>
#include <string_view>

#include "app/aircraft/AircraftTable.h"
#include "engine/core/Language.h"

namespace {

constexpr bool haveTheirRows() {
    for (const Wording& name : wording::PlaneNames) {
        bool isFound = false;
        for (const Aircraft& row : AircraftRows)
            isFound = isFound || std::string_view(row.displayName) == name.english;
        if (!isFound)
            return false;
    }
    return true;
}
static_assert(haveTheirRows(),
              "a name to translate isn't a type's: nobody would see it translated");

} // namespace

zel::String textOf(const Wording& wording, std::initializer_list<zel::String> arguments) {
    const zel::String* translated = zel::Language::find(wording.number);
    const bool isTranslated = translated != nullptr && !translated->empty();
    return zel::fillMarks(isTranslated ? translated->view() : wording.english, arguments);
}

zel::String countText(const CountForms& forms, int32_t count) {
    return textOf(forms[std::clamp(count, 0, 2)], {count});
}

zel::String faultSentence(zel::FileFault fault) {
    return textOf(wording::FileFaults[static_cast<int32_t>(fault) - 1]);
}

zel::String nameInLanguage(const zel::String& english) {
    for (const Wording& plane : wording::PlaneNames)
        if (english == plane.english)
            return textOf(plane);
    for (const Wording& place : wording::PlaceNames)
        if (english == place.english)
            return textOf(place);
    return english;
}
