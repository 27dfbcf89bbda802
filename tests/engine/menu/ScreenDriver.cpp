#include "tests/engine/menu/ScreenDriver.h"

#include <algorithm>

#include "engine/core/Clock.h"
#include "engine/core/Registry.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "engine/window/StatesMachine.h"
#include "tests/engine/menu/TestApp.h"
#include "tests/engine/window/Events.h"

namespace {

// A stopped clock would block code that waits for it, so it creeps after this many readings in one
// frame. Until then it is stopped, so that pictures that depend on the time are the same in every
// run.
uint32_t now = 0;
uint32_t readings = 0;                   // in this frame
constexpr const char* Locale = "LC_ALL"; // overrides all others
constexpr uint32_t PatientReadings = 20000;
constexpr uint32_t ReadingsPerMillisecond = 1000;

uint32_t crept() {
    return readings > PatientReadings ? (readings - PatientReadings) / ReadingsPerMillisecond : 0;
}

uint32_t testTicks() {
    ++readings;
    return now + crept();
}

void send(const SDL_Event& event) { zel::Platform::getInstance().handleEvent(event); }

} // namespace

std::function<void()>& whenMenusAreLoaded() {
    static std::function<void()> call;
    return call;
}

std::string scriptOf(std::initializer_list<ScriptElement> elements) {
    std::string script = "init:\nlayout.definelayout l\n";
    std::string entering = "setlayout l\nonenter:\n";
    for (const auto& [name, kind, place, added] : elements) {
        const bool isText = std::string_view(kind) == "textarea";
        const std::string element = isText ? "textarea" : "widget";
        const std::string define = "layout.define" + element;
        script += define + " " + name + (isText ? "" : std::string(" ") + kind) + "\n";
        script += define + "position " + std::to_string(place.x) + " " + std::to_string(place.y);
        script += "\n" + define + "size " + std::to_string(place.width) + " " +
                  std::to_string(place.height) + "\n";
        entering += "add" + element + " " + name + " " + added + "\n";
    }
    return script + entering;
}

ScreenDriver::ScreenDriver(std::initializer_list<Script> scripts) : log(LevelOfAll) {
    std::string list;
    for (const Script& script : scripts) {
        const std::string name = script.menu;
        list += name + "\n";
        temporary.write("Menus/" + name.substr(0, name.find(' ')) + ".ini", script.text);
    }
    temporary.write("Menus/init.lst", list);
    start(temporary.path());
}

ScreenDriver::ScreenDriver(const std::string& folder, const char* locale) : log(LevelOfAll) {
    start(folder, locale);
}

void ScreenDriver::start(const std::string& folder, const char* locale) {
    localeBefore = zel::system::environment(Locale);
    zel::system::setEnvironment(Locale, locale);
    zel::Platform::getInstance().clearInput();
    now = 0;
    readings = 0;
    zel::setTickSource(testTicks);
    folderBefore = zel::system::currentDirectory().c_str();
    zel::system::changeDirectory(folder);
    zel::setUserDirectory(temporary.file("user") + "/");
    zel::Registry::reset();
    zel::MenuConfigFile::setFaultSink(
        [this](const zel::ScriptFault& fault) { faults.push_back(fault); });
    loop = std::make_unique<zel::ZelLoop>();
}

ScreenDriver::~ScreenDriver() {
    loop.reset();
    whenMenusAreLoaded() = nullptr;
    zel::MenuConfigFile::setFaultSink(nullptr);
    zel::setUserDirectory("");
    zel::system::setEnvironment(Locale, localeBefore);
    zel::system::changeDirectory(folderBefore);
    zel::setTickSource(nullptr);
}

void ScreenDriver::step(int32_t milliseconds) {
    now += static_cast<uint32_t>(milliseconds) + crept();
    readings = 0;
    loop->step();
}

bool ScreenDriver::untilIdle(const char* state) {
    const zel::StatesMachine& machine = zel::StatesMachine::getInstance();
    for (int32_t frame = 0; frame < 1000; ++frame) {
        const zel::State* active = machine.getActiveState();
        if (active != nullptr && active->getName() == state && machine.isSettled())
            return true;
        step();
    }
    return false;
}

void ScreenDriver::waitUntil(uint32_t time) { now = std::max(now, time); }

void ScreenDriver::shiftClock(int32_t milliseconds) { now += static_cast<uint32_t>(milliseconds); }

void ScreenDriver::moveTo(int32_t x, int32_t y) { send(motionEvent(x, y)); }

void ScreenDriver::button(bool down) { send(buttonEvent(SDL_BUTTON_LEFT, down)); }

void ScreenDriver::wheel(bool up) {
    for (const bool down : {true, false})
        send(buttonEvent(up ? SDL_BUTTON_WHEELUP : SDL_BUTTON_WHEELDOWN, down));
    step();
}

void ScreenDriver::press(const char* name) {
    const zel::PixelRect place = widget(name)->getBounds().currentRect();
    moveTo(place.x + place.width / 2, place.y + place.height / 2);
    step();
    for (const bool down : {true, false}) {
        button(down);
        step();
    }
    step();
}

void ScreenDriver::key(int32_t symbol, char character, bool shift) {
    const int32_t modifiers = shift ? KMOD_LSHIFT : KMOD_NONE;
    for (const bool down : {true, false})
        send(keyEvent(symbol, static_cast<Uint8>(character), down, modifiers));
    step();
}

zel::HandledMenu& ScreenDriver::menu() const {
    return dynamic_cast<zel::HandledMenu&>(*zel::StatesMachine::getInstance().getActiveState());
}

std::string ScreenDriver::text(const char* name) const {
    if (const zel::Widget* element = widget(name))
        return element->getText().c_str();
    const zel::TextArea* area = menu().getTextArea(name);
    return area != nullptr ? area->getText().c_str() : "";
}
