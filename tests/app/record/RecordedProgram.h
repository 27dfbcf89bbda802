#pragma once

#include <string>

#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "app/mission/MissionGenerator.h"
#include "app/record/CareerRecord.h"
#include "app/war/WarAdvance.h"
#include "tests/support/PinnedRun.h"

/// A program with a career and its record, from its start to its end.
struct RecordedProgram {
    RecordedProgram() { career.observer = &record; }
    void begin(int32_t service = ServiceGerman) {
        career.createCareer(service);
        goOn();
    }
    /// A period, and a move of the player on its last day.
    void goOn() {
        advanceWar(career, &generator);
        const int32_t other =
            (career.player().squadron + 1) % static_cast<int32_t>(career.squadrons.size());
        career.swapPilots(career.playerPilot, career.squadron(other).slots[0]);
    }
    /// How much is in the tables, and what comes last.
    std::string figures() {
        SqliteFile& file = record.read(career);
        std::string text;
        for (const char* table : {"victory", "posting", "base", "gap"}) {
            SqliteStatement rows(file, std::string("SELECT count(*), max(id) FROM ") + table);
            EXPECT_TRUE(rows.next()) << file.problem().view();
            text += std::string(table) + " " + std::to_string(rows.number(0)) + "/" +
                    std::to_string(rows.number(1)) + " ";
        }
        return text;
    }
    int32_t date() const { return career.calendar().dateNumber(); }
    bool save() { return career.writeSave(SaveFileName); }
    bool load() { return career.loadFile(SaveFileName); }

    CareerRecord record;
    Database career;
    MissionGenerator generator;
};

struct RecordTest : testing::Test {
    static constexpr const char* SaveFile = "user/Saves/savegame_v03.wty";
    static constexpr const char* RecordFile = "user/Saves/record.db";

    std::string path() const { return run.userFolder() + "/Saves/record.db"; }
    /// The file as a player's tool sees it.
    int64_t inFile(const std::string& sql) const {
        SqliteFile file;
        file.open(path(), SqliteFile::MustExist);
        const int64_t number = file.number(sql.c_str());
        EXPECT_FALSE(file.failed()) << file.problem().view();
        return number;
    }
    PinnedRun run{11};
};
