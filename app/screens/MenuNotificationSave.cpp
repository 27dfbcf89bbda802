#include "app/screens/MenuNotificationSave.h"

#include "app/career/Database.h"
#include "app/screens/ScreenWording.h"
#include "engine/menu/widgets/Widget.h"

void MenuNotificationSave::onEnter() {
    MenuNotification::onEnter();
    const Database* career = Database::instance();
    if (career == nullptr || !career->isReadOnly)
        return;
    setVisible("text1", false);
    setVisible("text3", false);
    setText("text2", textOf(career->isUnsaved ? wording::CloseAndSave : wording::CloseTheOther));
    setText("menuButton2", textOf(wording::LeaveUnsaved));
    if (zel::Widget* plate = getWidget("menuButton2"))
        plate->setTransition("MenuMain");
}
