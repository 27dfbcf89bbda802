#pragma once

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "standin/StandIn.h"
#include "tests/engine/menu/GoldenPicture.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/support/TemporaryFolder.h"

/// Makes it the player's own folder.
void setHome(const std::string& folder);

/// Where one player's files are: what one run of the program leaves here, the next one finds.
struct PlayerHome {
    /// `simulator`: the name of the simulator's folder, which is made as the stand-in makes it.
    explicit PlayerHome(const std::string& simulator = "simulator");

    std::string simulatorFolder() const { return folder.path() + "/" + simulator; }
    std::string mission() const;
    std::string save() const { return folder.read("user/Saves/savegame_v03.wty"); }

    TemporaryFolder folder;
    std::string simulator;
};

/// The application over the delivered data, driven by the names of its widgets; all that is left to
/// chance follows from the seed.
class CareerDriver {
public:
    enum class How { Pointer, Keys, Name };

    explicit CareerDriver(const PlayerHome& home, uint32_t seed = 1, bool inWindow = false,
                          const char* locale = "en_GB.UTF-8");
    ~CareerDriver();
    CareerDriver(const CareerDriver&) = delete;
    CareerDriver& operator=(const CareerDriver&) = delete;

    /// Presses the widget and waits for the state; the message reports what failed. The new screen
    /// must have no plate that ends the program, or puts a career away, where the widget was:
    /// players press twice. Letters on the way are read, and the player goes on with a successor.
    testing::AssertionResult go(const std::string& widget, const std::string& state,
                                How how = How::Name);
    /// Steps "widget>State", separated by blanks; "widget" alone stays on the screen and must
    /// change a text or a kind there, or disappear, when pressed.
    testing::AssertionResult walk(const std::string& steps, How how = How::Name);
    /// Goes from the main menu to the squadron office. `way`: the steps up to the enlistment.
    testing::AssertionResult begin(const std::string& way);
    /// Goes from the squadron office to the orders. An invitation is refused.
    testing::AssertionResult toOrders();
    /// Goes on to the page that waits for the flight.
    testing::AssertionResult takeOff();
    /// Flies the mission that was written.
    testing::AssertionResult fly(const standin::FlightOptions& options = {});
    /// The strongest other squadron of the player's nation invites him, now. Returns its index.
    int32_t invite();
    /// The player is back at his desk, nine seconds later.
    void look();
    /// Goes from the waiting page via the report to the squadron office.
    testing::AssertionResult comeBack();
    /// Goes from the report via the war diary, or the end of the war, to the squadron office.
    testing::AssertionResult closeReport();

    /// What the window shows, with the pointer out of the way.
    Picture shot();

    std::string text(const char* element) const { return screens->text(element); }
    std::string state() const { return screens->menu().getName().c_str(); }
    zel::Widget* widget(const std::string& name) const { return screens->widget(name.c_str()); }

    std::unique_ptr<ScreenDriver> screens;
    const PlayerHome& home;

private:
    void press(const std::string& widget, How how);
    std::string allTexts() const;
    zel::String homeBefore; // of this machine, while the driver has its own
    /// Reads the letters that may come before that page; false if they lead elsewhere.
    bool readLetters(const std::string& target);
    /// The plate that ends the program or puts a career away and overlaps that rectangle; empty for
    /// none.
    std::string endAt(const zel::PixelRect& place) const;
};

/// As long as it lives, the window is in front with the pointer in it. If it isn't drawn, only
/// shots are: drawing takes most of a test's time.
struct InFront {
    explicit InFront(bool isDrawn = true);
    ~InFront();
};

/// The program in a home of its own, for a test to begin.
struct CareerScreens : testing::Test {
    PlayerHome home;
    CareerDriver driver{home};
};
