#include "app/career/Database.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "tests/app/screens/CareerDriver.h"

namespace {

constexpr const char* German1917 = "careers>MenuCareers another>MenuNewService "
                                   "menuButton3>MenuNewYear menuButton3>MenuNewMonth "
                                   "month4>MenuEnlist";
constexpr const char* Begin = "menuButton1>MenuNewCareer menuButton4>MenuGameMain";

struct EnlistmentScreen : CareerScreens {
    void SetUp() override {
        ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
        ASSERT_TRUE(driver.walk(German1917));
    }
    void type(const char* text) const {
        driver.screens->menu().setFocus("name");
        for (; *text != '\0'; ++text)
            driver.screens->key(0, *text);
        driver.screens->step();
    }
    void clearName() const {
        driver.widget("name")->setText("");
        driver.screens->step();
    }
    /// The row of the squadron of that name; empty for none.
    std::string rowOf(const std::string& squadron) const {
        for (int32_t i = 1; i <= 100; ++i)
            if (const std::string row = "squadron.row" + std::to_string(i);
                driver.widget(row) != nullptr && driver.text(row.c_str()).find(squadron) == 0)
                return row;
        return "";
    }
    bool mayReport() const { return driver.widget("menuButton1")->isActive(); }
};

TEST_F(EnlistmentScreen, TakesANameFromTheKeys) {
    EXPECT_TRUE(mayReport()) << "under the drawn name";
    clearName();
    EXPECT_EQ(driver.text("hint"), "A name is needed.");
    EXPECT_FALSE(mayReport());
    type("Max Immelmann");
    EXPECT_EQ(driver.text("hint"), "There is an ace of this name: Max Immelmann.");
    EXPECT_FALSE(mayReport());
    type("/");
    EXPECT_EQ(driver.text("hint"), "The simulator's log can't carry this character.");
    type("-K");
    EXPECT_EQ(driver.text("name"), "Max Immelmann-K");
    EXPECT_EQ(driver.text("hint"), "");
    EXPECT_TRUE(mayReport());
    type("xxxxxxxxxxxxxxxxx");
    EXPECT_EQ(driver.text("name").size(), 31U);
    EXPECT_EQ(driver.text("hint"), "A name has at most 31 letters.");
    EXPECT_TRUE(mayReport()) << "what is there is right";
    driver.screens->key(zel::KeyReturn, '\r');
    EXPECT_TRUE(driver.widget("another")->isFocused());
    driver.screens->step();
    EXPECT_EQ(driver.text("hint"), "") << "it was about a key";
}

TEST_F(EnlistmentScreen, LeadsIntoTheChosenSquadron) {
    clearName();
    type("J\xFCrgen-Friedrich von Hohenstein");
    EXPECT_FALSE(driver.widget("squadron.row1")->isActive()) << "the service chooses";
    ASSERT_TRUE(driver.walk("own"));
    const std::string row = rowOf("Jasta 11 ");
    ASSERT_NE(row, "");
    EXPECT_NE(driver.text(row.c_str()).find("M. von Richthofen"), std::string::npos);
    ASSERT_TRUE(driver.walk(row + " menuButton1>MenuNewCareer"));
    EXPECT_EQ(driver.text("menuButton3"), "Your pilot's name: J\xFCrgen-Friedrich von Hohenstein");
    EXPECT_FALSE(driver.widget("menuButton3")->getLabel().isCut());
    ASSERT_TRUE(driver.walk("menuBack>MenuEnlist"));
    EXPECT_EQ(driver.text("name"), "J\xFCrgen-Friedrich von Hohenstein") << "it is still filled in";
    EXPECT_EQ(driver.widget(row)->getKind(), "wideslipon");
    const std::string promised = driver.text(row.c_str()).substr(42, 15);
    ASSERT_TRUE(driver.walk(Begin));
    EXPECT_EQ(driver.text("squadron"), "Jasta 11");
    const std::string base = driver.text("airport").substr(std::string("Current base: ").size());
    EXPECT_EQ(promised.find(base), 0U) << promised << " and " << base;
    EXPECT_NE(driver.text("pilot").find("J\xFCrgen-Friedrich von Hohenstein"), std::string::npos);
    ASSERT_TRUE(driver.takeOff());
    EXPECT_NE(home.mission().find("Juergen-Friedrich von Hohenst"), std::string::npos);
}

// A player who leaves everything to the service gets the default career, whatever he has tried
// before.
TEST(Enlistment, LeavesTheServicesCareerAsItIs) {
    std::string saves[2];
    for (const bool hesitates : {false, true}) {
        const PlayerHome home;
        CareerDriver driver(home);
        ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
        ASSERT_TRUE(driver.walk(German1917));
        if (hesitates) {
            const std::string drawn = driver.text("name");
            ASSERT_TRUE(driver.walk("another another own squadron.row2 sent"));
            EXPECT_NE(driver.text("name"), drawn);
            driver.widget("name")->setText(drawn.c_str());
        }
        ASSERT_TRUE(driver.walk(Begin));
        saves[hesitates] = home.save();
    }
    EXPECT_GT(saves[0].size(), 500000U);
    EXPECT_TRUE(saves[0] == saves[1]);
}

} // namespace
