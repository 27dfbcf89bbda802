#include <functional>
#include <map>

#include <gtest/gtest.h>

#include "engine/window/Keyboard.h"
#include "engine/window/Mouse.h"
#include "engine/window/Platform.h"
#include "engine/window/Window.h"
#include "tests/engine/window/Events.h"
#include "tests/engine/window/ManualClock.h"

namespace zel {

namespace {

class InputTest : public testing::Test {
protected:
    InputTest() {
        platform.clearInput();
        motion(100, 100);
    }
    ~InputTest() override {
        platform.clearInput();
        platform.setAppState(-1);
    }

    void motion(int32_t x, int32_t y) { platform.handleEvent(motionEvent(x, y, 3, -2)); }
    void button(int32_t number, bool down) { platform.handleEvent(buttonEvent(number, down)); }
    void key(SDLKey symbol, uint16_t unicode, bool down, int32_t modifiers = KMOD_NONE) {
        platform.handleEvent(keyEvent(symbol, unicode, down, modifiers));
    }
    /// Each letter is one of the actions.
    void perform(std::string_view steps) {
        for (const char step : steps)
            actions.at(step)();
    }
    static bool tapped(int32_t width = 20) { return Mouse::wasTapped(1, 90, 90, width, 20); }

    ManualClock clock;
    Platform& platform = Platform::getInstance();
    const std::map<char, std::function<void()>> actions = {
        {'d', [this] { button(1, true); }},
        {'u', [this] { button(1, false); }},
        {'m', [this] { motion(120, 100); }}, // 20 pixels to the right
        {'h', [this] { motion(100, 100); }}, // home again
        {'(', [this] { platform.beginInputFrame(); }},
        {')', [this] { platform.endInputFrame(); }},
        {'f', [this] { platform.forgetPresses(); }},
        {'c', [] { Mouse::consumeHits(); }},
        {'b', [this] { clock.advance(1500); }}, // the program is busy
    };
};

TEST_F(InputTest, NumbersTheButtons) {
    button(SDL_BUTTON_LEFT, true);
    EXPECT_TRUE(Mouse::isButtonDown(1));
    button(2, true);
    EXPECT_TRUE(Mouse::isButtonDown(3)) << "SDL's middle button";
    EXPECT_FALSE(Mouse::isButtonDown(2));
    button(3, true);
    EXPECT_TRUE(Mouse::isButtonDown(2));
    for (uint8_t number = 8; number < 16; ++number)
        button(number, true); // side buttons and tilting wheels, which have no slot
    button(17, false);        // the number counts modulo 16
    EXPECT_FALSE(Mouse::isButtonDown(1));
    EXPECT_FALSE(Mouse::isButtonDown(-1));
    EXPECT_FALSE(Mouse::isButtonDown(8));
    EXPECT_FALSE(Mouse::isButtonHit(8));
}

TEST_F(InputTest, AHitIsAPressAndARelease) {
    button(1, false);
    EXPECT_FALSE(Mouse::isButtonHit(1)) << "a release without its press";
    button(1, true);
    EXPECT_FALSE(Mouse::isButtonHit(1));
    button(1, false);
    EXPECT_FALSE(Mouse::isButtonDown(1));
    EXPECT_TRUE(Mouse::isButtonHit(1));
    EXPECT_FALSE(Mouse::isButtonHit(1)) << "it is reported once";
    button(1, true);
    Mouse::consumeHits();
    button(1, false);
    EXPECT_FALSE(Mouse::isButtonHit(1)) << "the press was consumed";
}

TEST_F(InputTest, FollowsTheMouse) {
    Mouse::getMoveX();
    Mouse::getMoveY();
    motion(10, 20);
    motion(30, 40);
    EXPECT_EQ(Mouse::getX(), 30);
    EXPECT_EQ(Mouse::getY(), 40);
    EXPECT_EQ(Mouse::getMoveX(), 6);
    EXPECT_EQ(Mouse::getMoveX(), 0);
    EXPECT_EQ(Mouse::getMoveY(), -4);
    for (const uint8_t wheel : {4, 4, 5, 4}) {
        button(wheel, true);
        button(wheel, false);
    }
    EXPECT_EQ(Mouse::takeWheel(), 2);
    EXPECT_EQ(Mouse::takeWheel(), 0);
}

TEST_F(InputTest, AClickThatNoFrameSawIsATap) {
    perform("du");
    EXPECT_FALSE(tapped()) << "not before the next look";
    platform.beginInputFrame();
    EXPECT_TRUE(tapped());
    EXPECT_TRUE(tapped()) << "for everybody who looks";
    EXPECT_FALSE(Mouse::wasTapped(2, 90, 90, 20, 20));
    EXPECT_FALSE(Mouse::wasTapped(1, 101, 90, 20, 20));
    EXPECT_FALSE(Mouse::wasTapped(1, 80, 90, 20, 20)) << "it ends before 100";
    Mouse::consumeHits();
    EXPECT_FALSE(tapped()) << "until somebody takes it";
    platform.endInputFrame();
}

TEST_F(InputTest, KnowsATapFromOtherClicks) {
    const struct {
        const char* steps;
        int32_t width; // of the tapped area, from ten pixels left of the press
        bool isTap;
        const char* what;
    } cases[] = {
        {"du()", 20, false, "the look before took it"},
        {"dmu", 20, false, "it ends elsewhere"},
        {"mdhu", 20, false, "it begins elsewhere"},
        {"dmu", 40, true, "in the same place still"},
        {"d()u", 20, false, "a frame saw it"},
        {"d(u)", 20, true, "it ends while half of the widgets had their turn"},
        {"duf", 20, false, "pressed in a fade"},
        {"dfu", 20, false, "begun in a fade, ended after it"},
        {"duc", 20, false, "taken before a frame saw it"},
        {"dcu", 20, false, "its press was taken"},
        {"()dub", 20, false, "tapped while the program was busy"},
    };
    for (const auto& [steps, width, isTap, what] : cases) {
        platform.clearInput();
        motion(100, 100);
        perform(steps);
        platform.beginInputFrame();
        EXPECT_EQ(tapped(width), isTap) << what;
        platform.endInputFrame();
    }
    key(SDLK_ESCAPE, 27, true);
    platform.forgetPresses();
    EXPECT_TRUE(Keyboard::takeKeys().empty());
}

TEST_F(InputTest, GivesTheLastKeyOnce) {
    key(SDLK_a, 'a', true);
    key(SDLK_b, 'B', true, KMOD_LSHIFT);
    EXPECT_TRUE(Keyboard::isKeyDown(SDLK_a));
    const KeyPress last = Keyboard::getKey();
    EXPECT_EQ(last.symbol, SDLK_b);
    EXPECT_EQ(last.character, 'B');
    EXPECT_TRUE(last.printable);
    EXPECT_EQ(Keyboard::getKey().symbol, 0);
    EXPECT_FALSE(Keyboard::getKey().printable);
    key(SDLK_a, 0, false);
    EXPECT_FALSE(Keyboard::isKeyDown(SDLK_a));
    EXPECT_FALSE(Keyboard::isKeyDown(5000));
}

TEST_F(InputTest, AKeyThatIsLetGoIsNoLongerTheLast) {
    const struct {
        SDLKey pressed;
        uint16_t pressedCharacter;
        SDLKey released;
        uint16_t releasedCharacter;
        int32_t last;
        const char* what;
    } cases[] = {
        {SDLK_x, 'x', SDLK_x, 0, 0, "its symbol"},
        {SDLK_x, 'x', SDLK_y, 'x', 0, "its character"},
        {SDLK_x, 'x', SDLK_y, 0, SDLK_x, "another key"},
        {SDLK_LEFT, 0, SDLK_y, 0, 0, "no character is the same as no character"},
    };
    for (const auto& step : cases) {
        platform.clearInput();
        key(step.pressed, step.pressedCharacter, true);
        key(step.released, step.releasedCharacter, false);
        EXPECT_EQ(Keyboard::getKey().symbol, step.last) << step.what;
    }
}

TEST_F(InputTest, AKeyThatIsHeldIsPressedOnce) {
    key(SDLK_x, 'x', true);
    EXPECT_EQ(Keyboard::getKey().symbol, SDLK_x);
    key(SDLK_x, 'x', true); // as the system repeats it
    EXPECT_EQ(Keyboard::getKey().symbol, 0);
    EXPECT_EQ(Keyboard::getKey().unicode, 0);
    EXPECT_EQ(Keyboard::takeKeys().size(), 2U) << "texts take both";
    key(SDLK_x, 0, false);
    key(SDLK_x, 'x', true);
    EXPECT_EQ(Keyboard::getKey().symbol, SDLK_x);
}

TEST_F(InputTest, QueuesWhatIsTyped) {
    key(SDLK_h, 'h', true);
    key(SDLK_h, 'h', true);
    key(SDLK_TAB, '\t', true, KMOD_RSHIFT);
    const std::vector<KeyPress> keys = Keyboard::takeKeys();
    ASSERT_EQ(keys.size(), 3U);
    EXPECT_FALSE(keys[0].repeated);
    EXPECT_TRUE(keys[1].repeated);
    EXPECT_EQ(keys[2].symbol, KeyTab);
    EXPECT_TRUE(keys[2].shift);
    EXPECT_TRUE(Keyboard::takeKeys().empty());
    for (int32_t count = 0; count < 100; ++count)
        key(SDLK_a, 'a', true);
    EXPECT_EQ(Keyboard::takeKeys().size(), 64U) << "nobody took them";
}

TEST_F(InputTest, CountsQuitEvents) {
    EXPECT_FALSE(Window::pollQuit());
    for (int32_t count = 0; count < 200; ++count)
        platform.handleEvent(quitEvent());
    EXPECT_EQ(platform.getQuitEvents(), 127);
    EXPECT_TRUE(Window::pollQuit());
}

TEST_F(InputTest, TellsWhereTheAttentionIs) {
    EXPECT_TRUE(Window::hasMouseFocus() && Window::hasInputFocus() && Window::isActive())
        << "without a window";
    platform.setAppState(5);
    EXPECT_TRUE(Window::hasMouseFocus());
    EXPECT_FALSE(Window::hasInputFocus());
    EXPECT_TRUE(Window::isActive());
}

} // namespace

} // namespace zel
