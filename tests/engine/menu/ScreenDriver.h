#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "engine/menu/HandledMenu.h"
#include "engine/menu/style/Layout.h"
#include "engine/window/ZelLoop.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"

/// An element of a script that a test writes.
struct ScriptElement {
    const char* name;
    const char* kind; // "textarea", or a kind of widgets
    zel::PixelRect place;
    const char* added = ""; // what follows its name where it is added
};

/// A script of a layout "l" of these elements, which are added in this order: its last section is
/// onenter.
std::string scriptOf(std::initializer_list<ScriptElement> elements);

/// Runs a menu program without a window, on a clock of its own, by the names of its widgets. As
/// long as it lives, the locale is the given one, whatever the machine's is.
class ScreenDriver {
public:
    struct Script {
        const char* menu; // each becomes a line of the list, in this order
        std::string text; // of Menus/NAME.ini
    };
    /// A program of these scripts alone, in a folder of its own.
    explicit ScreenDriver(std::initializer_list<Script> scripts);
    /// The program in that folder.
    explicit ScreenDriver(const std::string& folder, const char* locale = "en_GB.UTF-8");
    ~ScreenDriver();

    /// One frame after that many milliseconds.
    void step(int32_t milliseconds = 10);
    /// Frames until the state is active, nothing is left to deliver and no fade runs; false if that
    /// takes more than ten seconds.
    bool untilIdle(const char* state);

    /// Moves the test's clock forward to that time, in milliseconds; does nothing if it is past it.
    static void waitUntil(uint32_t time);
    /// Moves the test's clock by `milliseconds`, forward or back, without a frame.
    static void shiftClock(int32_t milliseconds);

    void moveTo(int32_t x, int32_t y);
    void button(bool down);
    void wheel(bool up); // one step, and a frame
    /// Moves the pointer to the widget's middle, presses, releases: four frames.
    void press(const char* widget);
    void key(int32_t symbol, char character = 0, bool shift = false);

    zel::HandledMenu& menu() const; // the active one
    zel::Widget* widget(const char* name) const { return menu().getWidget(name); }
    std::string text(const char* name) const;

    LogCapture log;
    std::vector<zel::ScriptFault> faults;

    static constexpr int32_t LevelOfAll = 7;

private:
    void start(const std::string& folder, const char* locale = "en_GB.UTF-8");

    TemporaryFolder temporary; // the scripts' folder, and the player's
    zel::String localeBefore;
    std::string folderBefore;
    std::unique_ptr<zel::ZelLoop> loop;
};
