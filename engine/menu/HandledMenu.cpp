#include "engine/menu/HandledMenu.h"

#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/Shutdown.h"
#include "engine/menu/MenuEventHandler.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/StatesMachine.h"

namespace zel {

namespace {

constexpr const char* HandledMenuCategory = "HandledMenu";

} // namespace

HandledMenu::HandledMenu(const String& name, int32_t flags)
    : StandardMenu(name, flags), locals(name) {
    static_assert(std::size(EventSections) == SectionCount);
    hasSection.fill(true);
    const String file = String("Menus/") + name + ".ini";
    if (!script.load(file))
        log(String("Menu script ") + file + " not found", HandledMenuCategory, LogError);
    runSection(Init);
}

HandledMenu::~HandledMenu() {
    runSection(Deinit);
    MenuEventHandler::forgetMenu(*this);
}

void HandledMenu::runSection(EventSection section) {
    if (hasSection[section] && !script.executeSection(EventSections[section], this))
        hasSection[section] = false;
}

void HandledMenu::update() {
    StandardMenu::update();
    MenuEventHandler::notify(*this, MenuCallback::Update);
}

void HandledMenu::renderMiddle() { MenuEventHandler::notify(*this, MenuCallback::Render); }

void HandledMenu::reset() {
    StandardMenu::reset();
    runSection(ResetSection);
    MenuEventHandler::notify(*this, MenuCallback::Reset);
}

void HandledMenu::onFirstEnter() {
    runSection(Preload);
    StandardMenu::onFirstEnter();
    runSection(FirstEnter);
    MenuEventHandler::notify(*this, MenuCallback::FirstEnter);
}

void HandledMenu::onEnter() {
    runSection(Preload);
    StandardMenu::onEnter();
    runSection(Enter);
    MenuEventHandler::notify(*this, MenuCallback::Enter);
}

void HandledMenu::onEntered() {
    StandardMenu::onEntered();
    runSection(Entered);
    MenuEventHandler::notify(*this, MenuCallback::Entered);
}

void HandledMenu::onLeaving() {
    StandardMenu::onLeaving();
    runSection(Leaving);
    MenuEventHandler::notify(*this, MenuCallback::Leaving);
}

void HandledMenu::onLeave() {
    StandardMenu::onLeave();
    runSection(Leave);
    MenuEventHandler::notify(*this, MenuCallback::Leave);
}

void HandledMenu::onPause() {
    StandardMenu::onPause();
    runSection(Pause);
    MenuEventHandler::notify(*this, MenuCallback::Pause);
}

void HandledMenu::onContinue() {
    StandardMenu::onContinue();
    runSection(Continue);
    MenuEventHandler::notify(*this, MenuCallback::Continue);
}

void HandledMenu::onEvent(Widget* widget, int32_t eventType) {
    if (widget == nullptr)
        return;
    script.executeSection(String("onhit ") + widget->getName(), this);
    StandardMenu::onEvent(widget, eventType);
    script.executeSection("onevent", this);
    MenuEventHandler::onEvent(*this, widget, eventType);
}

void HandledMenu::onKey(const KeyPress& key) { MenuEventHandler::onKey(*this, key); }

bool HandledMenu::query() { return MenuEventHandler::query(*this); }

ScriptVariables& HandledMenu::globals() {
    static ScriptVariables variables{String()};
    return variables;
}

std::vector<std::unique_ptr<HandledMenu>>& HandledMenu::ownedMenus() {
    static std::vector<std::unique_ptr<HandledMenu>> menus;
    return menus;
}

bool HandledMenu::loadMenuList(const String& fileName) {
    setShutdownStep(ShutdownStep::Menus, releaseShared);
    File file(fileName, FileRead);
    if (!file.isOpen()) {
        log(String("Menu list ") + fileName + " not found", HandledMenuCategory, LogError);
        return false;
    }
    while (file.hasLine()) {
        const std::vector<String> words = splitWords(trimmed(file.lineView(), ' '));
        if (words.empty())
            continue;
        const String option = words.size() > 1 ? words[1].toLower() : String("noalpha");
        if (option != "alpha" && option != "noalpha")
            log(fileName + ":" + file.lineNumber() + ": unknown word " + words[1],
                HandledMenuCategory, LogWarning);
        const int32_t flags = option == "alpha" ? DrawnOnTop : None;
        ownedMenus().push_back(std::make_unique<HandledMenu>(words[0], flags));
    }
    return true;
}

void HandledMenu::releaseMenus() {
    while (!ownedMenus().empty())
        ownedMenus().pop_back();
}

void HandledMenu::releaseShared() {
    globals().clear();
    MenuEventHandler::clear();
    Widget::lastWidgetHit = nullptr;
}

std::vector<HandledMenu*> HandledMenu::getMenus() {
    std::vector<HandledMenu*> menus;
    for (const std::unique_ptr<HandledMenu>& menu : ownedMenus())
        menus.push_back(menu.get());
    return menus;
}

String HandledMenu::getFirstMenuName() {
    return ownedMenus().empty() ? String("blackScreen") : ownedMenus().front()->getName();
}

} // namespace zel
