#include "engine/core/Registry.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "engine/core/UserDirectory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace std::string_literals;

class Registry : public testing::Test {
protected:
    Registry() {
        zel::setApplicationTitle("Wingtally");
        zel::setUserDirectory(folder.path() + "/user");
        zel::Registry::reset();
    }
    ~Registry() override {
        zel::setUserDirectory("");
        zel::Registry::reset();
    }
    bool isSaved() const { return std::filesystem::exists(folder.path() + "/user/prefs.dat"); }
    std::string saved() const { return folder.read("user/prefs.dat"); }

    TemporaryFolder folder;
};

// Length of the key with its zero, little-endian, and the key; likewise the value.
const std::string TwoEntries = "\5\0\0\0dh2a\0\1\0\0\0\0"
                               "\2\0\0\0x\0\3\0\0\0"s +
                               "10\0"s;

TEST_F(Registry, WritesTheFileInTheOrderOfTheKeys) {
    zel::Registry::set("x", "9");
    zel::Registry::set("dh2a", "");
    zel::Registry::set("x", "10");
    EXPECT_EQ(saved(), TwoEntries);
    zel::Registry::set("dh2", "1");
    EXPECT_EQ(saved(), "\4\0\0\0dh2\0\2\0\0\0"
                       "1\0"s +
                           TwoEntries)
        << "the shorter key first";
    zel::Registry::reset();
    EXPECT_EQ(zel::Registry::get("x", ""), "10");
    EXPECT_EQ(zel::Registry::get("dh2a", "unset"), "");
}

TEST_F(Registry, StoresNoDefaults) {
    EXPECT_EQ(zel::Registry::get("mapWestern", "1"), "1");
    EXPECT_FALSE(isSaved());
    EXPECT_EQ(zel::Registry::get("mapWestern", "0"), "0");
    EXPECT_TRUE(zel::Registry::isOn("mapWestern")) << "what is unset is on";
    zel::Registry::set("mapWestern", "0");
    EXPECT_FALSE(zel::Registry::isOn("mapWestern"));
}

TEST_F(Registry, DefersSaving) {
    zel::Registry::setDeferSave(true);
    zel::Registry::set("x", "10");
    zel::Registry::set("dh2a", "");
    EXPECT_FALSE(isSaved());
    zel::Registry::setDeferSave(false);
    EXPECT_FALSE(isSaved());
    zel::Registry::save();
    EXPECT_EQ(saved(), TwoEntries);
    zel::Registry::clear();
    EXPECT_EQ(zel::Registry::get("x", "none"), "none");
    zel::Registry::load();
    EXPECT_EQ(zel::Registry::get("x", "none"), "10");
}

TEST_F(Registry, ReadsADamagedFileAsFarAsItGoes) {
    for (size_t length = 0; length <= TwoEntries.size(); ++length) {
        folder.write("user/prefs.dat", TwoEntries.substr(0, length));
        const LogCapture log;
        zel::Registry::reset();
        EXPECT_EQ(zel::Registry::get("dh2a", "none"), length >= 14 ? "" : "none") << length;
        EXPECT_EQ(zel::Registry::get("x", "none"), length == 27 ? "10" : "none") << length;
        EXPECT_EQ(log.text().empty(), length == 0 || length == 14 || length == 27) << length;
    }
    ASSERT_EQ(TwoEntries.size(), 27u);
    for (const std::string& length : {"\0\0\0\0"s, "\xFF\xFF\xFF\xFF"s, "\xFF\xFF\xFF\x7F"s}) {
        folder.write("user/prefs.dat", "\2\0\0\0x\0\2\0\0\0"
                                       "7\0"s +
                                           TwoEntries + length + TwoEntries);
        const LogCapture log;
        zel::Registry::reset();
        EXPECT_EQ(zel::Registry::get("x", "none"), "10") << "the last of two entries";
        EXPECT_EQ(zel::Registry::get("", "none"), "none") << "nothing after the damage";
        EXPECT_EQ(log.linesWith(" [Registry] "), 1);
    }
}

TEST_F(Registry, LosesNothingWhenItCannotWrite) {
    folder.write("user", "a file in the way");
    const LogCapture log;
    zel::Registry::set("x", "10");
    const std::string line = "warning: cannot write " + folder.path() + "/user\\prefs.dat\n";
    EXPECT_EQ(log.text().find(line), 0u) << "on the console";
    EXPECT_EQ(log.linesWith("prefs.dat: the file or its folder is missing"), 1) << log.text();
    EXPECT_EQ(zel::Registry::get("x", "none"), "10");
}

TEST_F(Registry, KeepsTheFileThatWasNotWhole) {
    const std::string damaged = TwoEntries + "\5";
    folder.write("user/prefs.dat", damaged);
    folder.write("user/prefs.dat.bak", "the one before");
    const LogCapture log;
    zel::Registry::set("x", "11");
    EXPECT_EQ(folder.read("user/prefs.dat.damaged"), damaged);
    EXPECT_EQ(folder.read("user/prefs.dat.bak"), "the one before");
    const std::string repaired = saved();
    zel::Registry::set("x", "12");
    EXPECT_EQ(folder.read("user/prefs.dat.damaged"), damaged) << "only that one is damaged";
    EXPECT_EQ(folder.read("user/prefs.dat.bak"), repaired);
    // It exists but isn't read: it is larger than any player's choices.
    constexpr uintmax_t TooLong = (1 << 24) + 1;
    std::filesystem::resize_file(folder.file("user/prefs.dat"), TooLong);
    zel::Registry::reset();
    zel::Registry::set("x", "13");
    EXPECT_EQ(std::filesystem::file_size(folder.file("user/prefs.dat.damaged")), TooLong);
    EXPECT_EQ(log.linesWith("prefs.dat can't be read"), 1);
}

} // namespace
