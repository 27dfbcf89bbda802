#pragma once

#include <string>

#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "app/record/CareerRecord.h"
#include "app/record/Shelf.h"
#include "tests/support/SmallCareer.h"

/// A program with a career, its record and the shelf.
struct ShelfProgram {
    ShelfProgram() { career.observer = &record; }
    /// A new career whose player has that name, saved or not.
    void begin(const char* name) {
        career.createCareer(ServiceGerman);
        zel::copyText(career.player().name, name);
    }
    /// Gives it another day, and something for the record.
    void goOn(int32_t days = 1) {
        Calendar date = career.calendar();
        date.addDays(days);
        career.year = date.getYear();
        career.month = date.getMonth();
        career.day = date.getDay();
        career.observer->onBaseChange(career);
    }
    bool load() { return career.loadFile(SaveFileName); }
    int64_t bases() { return record.read(career).number("SELECT count(*) FROM base"); }
    /// "1 Hans Braun" for each career, the current one with "*", those put away with "-".
    std::string list() const {
        std::string text;
        for (const ShelvedCareer& one : shelf.careers())
            text += std::to_string(one.number) + " " + std::string(one.summary.pilot.view()) +
                    (one.isCurrent   ? "*"
                     : one.isPutAway ? "-"
                                     : "") +
                    "\n";
        return text;
    }

    /// The pages of a career by their names; those that are damaged with "!".
    std::string pages(size_t of = 0) const {
        std::string text;
        for (const SavePage& page : Shelf::pages(shelf.careers()[of]))
            text += std::string(page.name.view()) + (page.isWhole ? " " : "! ");
        return text;
    }
    bool turnBack(const char* name, size_t of = 0) {
        const ShelvedCareer one = shelf.careers()[of];
        for (const SavePage& page : Shelf::pages(one))
            if (page.name == name)
                return shelf.turnBack(one, page);
        return false;
    }

    CareerRecord record;
    Database career;
    Shelf shelf{career, record};
};

struct ShelfTest : testing::Test {
    ShelfTest() { world.addHistory(); }
    std::string user(const std::string& name) const { return world.folder.file("user/" + name); }
    SmallWorld world;
};
