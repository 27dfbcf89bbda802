#include "app/screens/MenuBlackScreen.h"

#include "app/career/Database.h"
#include "app/career/SaveFile.h"
#include "app/career/SaveFormat.h"
#include "app/screens/CareerDrawer.h"
#include "app/screens/ScreenWording.h"
#include "engine/menu/widgets/Widget.h"

namespace {

/// REQUIRES: a fault.
zel::String sentenceOf(const SaveCheck& check) {
    if (check.fault == SaveFault::Lost && check.match == SaveMatch::Changed)
        return textOf(wording::ChangedAndLost);
    const Wording& text = wording::SaveFaults[static_cast<int32_t>(check.fault) - 1];
    const zel::String sentence = textOf(text, {check.version, SaveVersion});
    return check.fault == SaveFault::Unread ? sentence + " " + faultSentence(check.reason)
                                            : sentence;
}

} // namespace

void MenuBlackScreen::onEnter() {
    const Database* career = Database::instance();
    if (career == nullptr)
        return;
    if (career->saveCheck.fault != SaveFault::None)
        setText("reason", sentenceOf(career->saveCheck));
    const bool hasEarlier = hasEarlierSave(*career, SaveFileName);
    const bool isUnread = career->saveCheck.fault == SaveFault::Unread;
    setVisible("text2", !hasEarlier);
    setVisible("text3", !hasEarlier && !isUnread);
    setVisible("text4", hasEarlier);
    setVisible("text5", isUnread);
    setVisible("menuButton1", isUnread);
    setVisible("menuButton2", hasEarlier);
}

void MenuBlackScreen::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    Database* career = Database::instance();
    if (career == nullptr)
        return;
    if (widget->getName() == "menuButton1")
        tryAgain(*widget);
    else if (widget->getName() != "menuButton2")
        return;
    else if (!career->loadBackup(SaveFileName))
        onEnter(); // it could be read a moment ago
    else
        setTransition(career->repairs.any() ? "MenuNotificationRepair" : drawer.firstScreen());
}

void MenuBlackScreen::tryAgain(zel::Widget& plate) {
    const zel::String next = drawer.open();
    if (next != menu->getName())
        return setTransition(next);
    plate.reset(); // the screen stays
    onEnter();
}
