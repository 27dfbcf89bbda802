#include <algorithm>
#include <cstring>
#include <filesystem>

#include <gtest/gtest.h>

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/InvitationSchedule.h"
#include "tests/support/CareerInvariants.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace fs = std::filesystem;

namespace {

/// A career as small as can be: a French and a German squadron, one file of each kind, three data
/// lines. The player is a German.
class SaveFile : public testing::Test {
protected:
    SaveFile() {
        world.addSquadron("101003", "date=19151101 aircraft=nieuport11\ndate=19160301\n");
        world.addPilot("Karl Falke", "date=19151201 unit=101003\n");
        world.pin(career);
        career.readDataFiles();
        career.year = 1917;
        career.month = 4;
        career.day = 21;
        career.addSquadron(France);
        career.addSquadron(Germany);
        zel::copyText(career.squadrons[0].key, "101003");
        career.squadrons[0].squadronFile = 0;
        career.playerPilot = 13;
        scheduleInvitation(career, 2);
    }

    std::string stored() {
        EXPECT_TRUE(career.storeFile(SaveFileName));
        return world.savedBytes();
    }
    std::string savePath() const { return world.folder.path() + "/user/" + SaveFileName; }
    /// Whether a file of these bytes loads into `other`.
    bool loads(std::string_view bytes) {
        fs::remove(savePath()); // some file systems are slow to write a file over
        world.folder.write(std::string("user/") + SaveFileName, bytes);
        return other.loadFile(SaveFileName);
    }
    /// The file beside the save file with that ending.
    std::string beside(const char* ending) const {
        return world.folder.read(std::string("user/") + SaveFileName + ending);
    }
    /// The log line for a refused file.
    std::string refusal(std::string_view bytes) {
        const LogCapture log;
        EXPECT_FALSE(loads(bytes));
        EXPECT_FALSE(other.hasCareer());
        EXPECT_NE(other.careerNumber, 0);
        return log.text();
    }

    SmallWorld world;
    Database other;
    Database career; // the instance
};

int32_t numberAt(const std::string& bytes, size_t offset) {
    int32_t value = 0;
    std::memcpy(&value, &bytes[offset], sizeof value);
    return value;
}

std::string with(std::string bytes, size_t offset, int32_t value) {
    std::memcpy(&bytes[offset], &value, sizeof value);
    return bytes;
}

constexpr const char* NoSave = " w 0 [Database] File Saves/savegame_v03.wty is no save game\n";
constexpr const char* Newer =
    " w 0 [Database] File Saves/savegame_v03.wty requires a newer version\n";

// Where each part begins: each array after its count.
constexpr size_t Squadrons = 40;
constexpr size_t Pilots = Squadrons + 2 * 360 + 4;
constexpr size_t Lines = Pilots + 24 * 88 + 4;
constexpr size_t SquadronFiles = Lines + 3 * 269 + 4;
constexpr size_t PilotFiles = SquadronFiles + 1168 + 4;
constexpr size_t Invitation = PilotFiles + 1120;

// The fields that a new career leaves at 0; the saves that DatabaseTest compares have all others.
TEST_F(SaveFile, LaysTheRecordsOutAsTheFormatSays) {
    career.unusedA = 5;
    career.unusedB = 6;
    career.previousInvitation = 1;
    career.pilots[1].missions = 0x5678;
    career.pilots[1].historic = 1;
    career.dataLines[1].applied = 1;
    career.pilotFiles[0].pilotIndex = 1;
    career.pilotFiles[0].joined = 1;
    const std::string bytes = stored();
    ASSERT_EQ(bytes.size(), Invitation + 16);
    const std::pair<size_t, int32_t> expected[] = {
        {8, 13},
        {24, 5},
        {28, 6},
        {Pilots + 88 + 76, 0x5678 | 1 << 16}, // missions, historic, fill
        {Lines + 269, 1},
        {PilotFiles + 64, 1},       // pilotIndex
        {PilotFiles + 68, 1 << 16}, // reserved, joined
        {Invitation, 1917},
        {Invitation + 4, 6},
        {Invitation + 8, -2},
        {Invitation + 12, 1},
    };
    for (const auto& [offset, value] : expected)
        EXPECT_EQ(numberAt(bytes, offset), value) << offset;
}

TEST_F(SaveFile, SaysWhyItRefusesAFile) {
    const std::string bytes = stored();
    for (const std::string& start :
         {"WTSW" + bytes.substr(4), "wtsv" + bytes.substr(4), std::string(), bytes.substr(0, 7)})
        EXPECT_EQ(refusal(start), NoSave);
    for (const int32_t version : {3, 1, 0, -1})
        EXPECT_EQ(refusal(with(bytes, 4, version)), Newer) << version;
    EXPECT_EQ(refusal(with(bytes, 4, 3).substr(0, 8)), Newer);
    EXPECT_EQ(refusal(with("WTSW" + bytes.substr(4), 4, 3)), NoSave) << "the magic comes first";
    for (const auto& [offset, value] :
         {std::pair{12, 1914}, {12, 1920}, {12, -1}, {16, 0}, {16, 13}, {20, 0}, {20, 31}})
        EXPECT_EQ(refusal(with(bytes, size_t(offset), value)), NoSave)
            << "a date of no war " << value;
    EXPECT_EQ(refusal(with(bytes, 36, 0)), NoSave) << "no squadrons";
    EXPECT_EQ(refusal(with(with(bytes, 32, 0), 4, 3)), Newer) << "and then draws a number itself";
    fs::remove(savePath());
    const LogCapture log;
    EXPECT_FALSE(other.loadFile(SaveFileName));
    EXPECT_EQ(log.text(), NoSave) << "a missing file";
}

// Cuts the file at every length: without all its pilots a career is refused, otherwise what is left
// is used.
TEST_F(SaveFile, ReadsAFileCutAtAnyLength) {
    const std::string bytes = stored();
    const LogCapture log(1);
    for (size_t length = bytes.size(); length-- > 0;) {
        fs::resize_file(savePath(), length);
        const bool loaded = other.loadFile(SaveFileName);
        EXPECT_EQ(loaded, length >= Pilots + 24 * 88) << length;
        EXPECT_EQ(loaded ? loadedCareerFaults(other) : "", "") << length;
        EXPECT_EQ(other.hasCareer(), loaded) << length;
        EXPECT_NE(other.careerNumber, 0) << length;
        if (loaded && length >= Lines) {
            EXPECT_EQ(other.dataLines.size(), std::min<size_t>((length - Lines) / 269, 3))
                << length;
        }
    }
    const LogCapture warnings;
    EXPECT_TRUE(loads(bytes + "more"));
    EXPECT_EQ(other.repairs.surplus, 4);
    EXPECT_TRUE(loads(with(bytes, Lines - 4, -1))) << "no such count can be";
    EXPECT_EQ(other.dataLines.size(), (bytes.size() - Lines) / 269);
    EXPECT_TRUE(loads(bytes.substr(0, Invitation)));
    EXPECT_TRUE(other.invitationSquadron < 0 && other.previousInvitation < 0)
        << "or squadron 0 would invite him at once";
    EXPECT_EQ(warnings.linesWith("Saves/savegame_v03.wty ends early"), 2) << warnings.text();
}

TEST_F(SaveFile, RepairsWhateverAByteMayDo) {
    const std::string bytes = stored();
    const LogCapture log(0);
    size_t loaded = 0;
    for (size_t place = 8; place < bytes.size(); ++place) {
        std::string damaged = bytes;
        damaged[place] = static_cast<char>(~damaged[place]);
        if (!loads(damaged))
            continue;
        ++loaded;
        ASSERT_EQ(loadedCareerFaults(other), "") << place;
        if (place % 64 != 0)
            continue;
        // And the career goes on.
        other.storeFile(SaveFileName);
        ASSERT_TRUE(career.loadFile(SaveFileName)) << place;
        career.pilots[size_t(career.squadrons[0].slots[0])].alive = 0;
        career.activateSquadrons(1917, 5, 1);
        career.applyHistory();
        aceLines(career);
        squadronLines(career);
        ASSERT_EQ(loadedCareerFaults(career), "") << place;
    }
    EXPECT_GT(loaded, bytes.size() - 40) << "nearly always there is a career to go on with";
}

/// A change of a file, and what repairs it.
struct Damage {
    size_t offset;
    int32_t value;
    const char* line;        // of the log; empty for none
    bool isRestored = false; // bit for bit, since another record knows what was there
};

/// The career with a pilot of the history, in the first squadron, whose record is the last.
class DamagedSaveFile : public SaveFile {
protected:
    DamagedSaveFile() {
        career.pilots[3].alive = 0;
        career.applyHistory();
        bytes = stored();
    }
    int32_t flipped(size_t offset, int32_t bits) const { return numberAt(bytes, offset) ^ bits; }
    void expectRepairs(const std::vector<Damage>& damages) {
        for (const Damage& damage : damages) {
            const LogCapture log;
            ASSERT_TRUE(loads(with(bytes, damage.offset, damage.value)));
            EXPECT_TRUE(*damage.line == 0 ? log.text().empty() : log.linesWith(damage.line) == 1)
                << damage.offset << ": " << log.text();
            EXPECT_EQ(loadedCareerFaults(other), "") << damage.offset;
            EXPECT_TRUE(other.storeFile("Saves/other"));
            EXPECT_TRUE(!damage.isRestored || world.folder.read("user/Saves/other") == bytes)
                << damage.offset;
        }
    }

    static constexpr size_t First = Squadrons;
    static constexpr size_t Second = Squadrons + 360;
    static constexpr size_t Falke = Pilots + 24 * 88;
    static constexpr size_t DataLines = Falke + 88 + 4;
    static constexpr size_t Files = DataLines + 3 * 269 + 4;
    static constexpr size_t FalkesFile = Files + 1168 + 4;
    static constexpr size_t Inviting = FalkesFile + 1120;
    std::string bytes;
};

TEST_F(DamagedSaveFile, RepairsWhatLeadsNowhere) {
    constexpr const char* Player = "the player was in no squadron";
    constexpr const char* Places = "places in squadrons were wrong";
    constexpr const char* PilotIndices = "pilots had no such file or squadron";
    constexpr const char* References = "references of the data files";
    constexpr const char* Invitations = "values of the invitation";
    expectRepairs({
        {8, 13, "", true}, // as it was
        {8, 25, Player},
        {8, -1, Player}, // nobody knows his nation
        // Slots and counts.
        {Second + 232 + 4, -1, Places, true}, // the player's own
        {First + 232, 25, Places, true},
        {First + 232, 1, Places},
        {First + 232, 14, Places, true},
        {First + 232 + 12 * 4, 14, Places, true}, // a thirteenth
        {First + 227, flipped(First + 227, 0xF3), Places, true},
        {First + 227, flipped(First + 227, 0x08), Places, true},
        {Pilots + 64, 1, Places, true},
        {Pilots + 64, 2, PilotIndices, true},
        {Pilots + 3 * 88 + 68, flipped(Pilots + 3 * 88 + 68, 1), Places, true}, // is dead
        // Files and their pilots.
        {Pilots + 80, 1, PilotIndices, true},
        {Pilots + 80, 0, References, true},
        {Falke + 80, -1, References, true},
        {First + 228, flipped(First + 228, 0x7F), References, true},
        {Files + 144, 3, References},
        {FalkesFile + 64, 25, References, true},
        {FalkesFile + 64, 2, References, true},
        {FalkesFile + 68, 0, References, true}, // not joined
        // The invitation.
        {Inviting + 4, 13, Invitations},
        {Inviting + 8, 2, Invitations},
        {Inviting + 8, 0, Invitations}, // an enemy squadron
        {Inviting + 8, 1, Invitations}, // his own
        {Inviting + 12, -3, Invitations},
        {Inviting + 8, -1, ""},
        {32, 0, ""}, // no number: the next new career draws one
    });
    EXPECT_EQ(other.careerNumber, 0) << "as saved: the last case";
}

TEST_F(DamagedSaveFile, RepairsWhatNoCareerHolds) {
    constexpr const char* Values = "names, nations and figures";
    expectRepairs({
        {First + 208, flipped(First + 208, 2), Values, true}, // an American squadron
        {Second + 208, flipped(Second + 208, 8), Values},
        {First + 64, flipped(First + 64, 1), Values, true}, // its key
        {Files, flipped(Files, 1), Values, true},
        {Files + 64, flipped(Files + 64, 1), Values, true},
        {First + 128, flipped(First + 128, 0x40), Values, true}, // its base
        {First + 192, flipped(First + 192, 4), Values, true},
        {First + 196, -1, Values, true}, // no number
        {First + 204, flipped(First + 204, 0x40000000), Values, true},
        {Pilots + 70, flipped(Pilots + 70, 0x800), Values, true}, // nation
        {Pilots + 72, flipped(Pilots + 72, 0x40), Values, true},  // skill
        {Pilots + 74, flipped(Pilots + 74, 0x400), Values, true}, // victories
        {Pilots + 76, flipped(Pilots + 76, 0x8000), Values, true},
        {Pilots + 78, flipped(Pilots + 78, 1), Values, true}, // of the history
        {Falke, 0x0A6C6C61, Values, true},                    // a line end in his name
        {Pilots, 0x1B6C6C61, Values},
        {Pilots + 40, 0x41, Values}, // a letter after the name's end, and the last possible one
        {Pilots + 60, 0x410000, Values},
        {FalkesFile + 16, 0x7F, Values},
        {DataLines, flipped(DataLines, 2), Values, true}, // applied
    });
}

TEST_F(SaveFile, KeepsTheFileBeforeAndADamagedOneAside) {
    const LogCapture log(4);
    const std::string first = stored();
    EXPECT_TRUE(log.holds("   0 [Database] storeFile" + world.folder.path() +
                          "/user\\Saves/savegame_v03.wty\n"))
        << log.text();
    career.day = 22;
    const std::string second = stored();
    EXPECT_TRUE(second != first && beside(".bak") == first);

    const std::string damaged = with(second, 8, -1);
    ASSERT_TRUE(loads(damaged));
    EXPECT_TRUE(other.writeSave(SaveFileName));
    EXPECT_TRUE(beside(".damaged") == damaged && beside(".bak") == first);
    const std::string repaired = world.savedBytes();
    EXPECT_TRUE(other.writeSave(SaveFileName));
    EXPECT_TRUE(beside(".bak") == repaired) << "once";
}

TEST_F(SaveFile, LeavesTheOldFileWhenItCannotWrite) {
    const std::string whole = stored();
    const LogCapture log;
    EXPECT_TRUE(other.storeFile(SaveFileName)) << "always true";
    EXPECT_FALSE(other.writeSave(SaveFileName));
    EXPECT_EQ(log.linesWith("!! 0 [Database] There is no career"), 2) << log.text();
    for (const char* ending : {".bak/x", ".damaged/x"})
        world.folder.write(std::string("user/") + SaveFileName + ending, "a folder in the way");
    career.day = 22;
    EXPECT_TRUE(career.storeFile(SaveFileName));
    EXPECT_FALSE(career.writeSave(SaveFileName));
    EXPECT_EQ(log.linesWith("!! 0 [Database] The career can't be written"), 2) << log.text();
    EXPECT_TRUE(world.savedBytes() == whole);
    const std::string damaged = with(whole, 8, -1);
    ASSERT_TRUE(loads(damaged));
    EXPECT_FALSE(other.writeSave(SaveFileName));
    EXPECT_TRUE(world.savedBytes() == damaged) << "it is all that the player has";
}

} // namespace
