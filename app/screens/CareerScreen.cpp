#include "app/screens/CareerScreen.h"

#include "app/career/CareerLock.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/Wording.h"
#include "app/record/Shelf.h"
#include "app/screens/MenuNotification.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/State.h"
#include "engine/window/StatesMachine.h"

namespace {

bool careerIsOpen = false;
Shelf* shelf = nullptr;

} // namespace

bool CareerScreen::isOpen() { return careerIsOpen; }

void CareerScreen::setOpen(bool open) { careerIsOpen = open; }

void CareerScreen::setShelf(Shelf* saves) { shelf = saves; }

bool CareerScreen::isReopened() {
    const zel::State* before = zel::StatesMachine::getInstance().getPreviousState();
    return before != nullptr && before->getName() == "MenuNotificationUnsaved";
}

void CareerScreen::saveBefore(zel::Widget& leaving, const zel::String& back) {
    const Database* career = runningCareer();
    if (career != nullptr && career->isReadOnly && career->isSaved(SaveFileName))
        return; // nothing has changed
    if (zel::String problem; !save(problem))
        MenuNotification::divert(leaving, "MenuNotificationSave", problem, back);
}

bool CareerScreen::save(zel::String& problem) {
    const Database* career = runningCareer();
    if (career == nullptr || shelf == nullptr || shelf->save())
        return true;
    if (career->isReadOnly) {
        problem = career->isUnsaved ? shelf->problem().text() : heldElsewhereText(*career->lock);
        return false;
    }
    const zel::String file = zel::system::absolutePath(zel::getUserDirectory() + SaveFileName);
    const zel::String reason = career->writeFault == zel::FileFault::None
                                   ? shelf->problem().text()
                                   : faultSentence(career->writeFault);
    problem = zel::system::shownText(file) + "\n" + reason;
    return false;
}

Database* CareerScreen::runningCareer() {
    Database* career = Database::instance();
    return career != nullptr && career->hasCareer() ? career : nullptr;
}

void CareerScreen::showDate() {
    if (const Database* career = runningCareer())
        setText("date", dateInLanguage(career->calendar()));
}

void CareerScreen::showSquadron() {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    setText("airport", baseText(*career));
    if (const zel::String name = squadronText(*career); !name.empty())
        setText("squadron", name);
}

void CareerScreen::showImage(const zel::String& name, const zel::String& imageName) {
    zel::Widget* widget = getWidget(name);
    if (widget == nullptr)
        return;
    const zel::Image* image =
        imageName.empty() ? nullptr : zel::ImageHandler::getInstance().getImage(imageName);
    widget->setVisible(image != nullptr);
    widget->setActive(false);
    if (image == nullptr)
        return;
    for (int32_t look = 0; look < zel::LookCount; ++look)
        widget->setImage(static_cast<zel::WidgetLook>(look), image);
}

void CareerScreen::showLines(const char* prefix, const std::vector<zel::String>& lines) {
    for (size_t i = 0; i < lines.size(); ++i)
        setText(zel::String(prefix) + int32_t(i + 1), lines[i]);
}

void CareerScreen::showRows(int32_t first, size_t count, int32_t most) {
    for (int32_t row = 0; row < most; ++row)
        setVisible(zel::String("row") + (first + row), row < int32_t(count));
}
