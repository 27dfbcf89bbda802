#include "engine/menu/StandardMenu.h"

#include "engine/core/Log.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/HighLevelScheduler.h"
#include "engine/window/Keyboard.h"
#include "engine/window/StateOverlay.h"
#include "engine/window/StatesMachine.h"

namespace zel {

namespace {

constexpr const char* StandardMenuCategory = "StandardMenu";
constexpr int32_t TaskPriority = 2; // runs in every frame

} // namespace

Widget* StandardMenu::addWidget(const String& name, const String& text, const String& transition) {
    Widget* widget = Menu::addWidget(name, text, transition);
    if (widget == nullptr)
        log(String("Failed to create Widget ") + name, StandardMenuCategory, LogWarning);
    else
        log(String("Added widget=") + name + " text=" + widget->getText() +
                " transition=" + widget->getTransition(),
            StandardMenuCategory, LogInfo);
    return widget;
}

TextArea* StandardMenu::addTextArea(const String& name, const String& text) {
    TextArea* area = Menu::addTextArea(name, text);
    if (area == nullptr)
        log(String("Failed to create TextArea ") + name, StandardMenuCategory, LogWarning);
    return area;
}

void StandardMenu::onFirstEnter() {
    if (isTask)
        return;
    isTask = true;
    HighLevelScheduler& scheduler = HighLevelScheduler::getInstance();
    scheduler.addTask(static_cast<UpdateAndRenderObject*>(this), this);
    scheduler.setTaskPriority(this, TaskPriority);
    scheduler.setTaskName(this, getName());
}

// A change of state during its fade skips onLeave(): its old elements must go first.
void StandardMenu::onEnter() {
    if (entered) {
        clearWidgets();
        clearTextAreas();
        leaveOverlays();
    }
    entered = true;
    StatesMachine::getInstance().setInputSettings(1, 15, 120, 0);
}

void StandardMenu::leaveOverlays() {
    for (StateOverlay* overlay : {getBackgroundOverlay(), getForegroundOverlay()}) {
        if (isOverlayUser && overlay != nullptr)
            overlay->removeUser();
    }
    isOverlayUser = false;
}

void StandardMenu::onLeave() {
    focus.clear(*this);
    clearWidgets();
    clearTextAreas();
    entered = isOverlayUser = false; // the machine removes the user itself
    ImageHandler::getInstance().releaseShortLived();
}

void StandardMenu::onContinue() {
    recreateElements();
    resetWidgets();
}

void StandardMenu::onEvent(Widget* widget, int32_t eventType) {
    if (widget == nullptr)
        return;
    log(String("onEvent: widget=") + widget->getName() + " et=" + eventType +
            " transition=" + widget->getTransition(),
        StandardMenuCategory, LogInfo);
    if (eventType == Widget::EventHit)
        focus.takeHit(*this, *widget);
}

// The machine adds the user once the state has been entered, before the first update.
void StandardMenu::update() {
    isOverlayUser = entered;
    Menu::update();
    const StatesMachine& machine = StatesMachine::getInstance();
    if (machine.getActiveState() != this || machine.getPhase() != StatesMachine::Idle)
        return;
    focus.follow(*this);
    const std::vector<KeyPress> keys = Keyboard::takeKeys();
    focus.takeKeys(*this, keys);
    for (const KeyPress& key : keys)
        onKey(key);
}

} // namespace zel
