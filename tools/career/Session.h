#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "app/book/BookTables.h"
#include "app/career/CareerLock.h"
#include "app/career/Database.h"
#include "app/career/Wording.h"
#include "app/record/CareerRecord.h"
#include "app/report/Flight.h"
#include "app/war/InvitationLetter.h"
#include "engine/core/String.h"
#include "tools/career/CareerStart.h"
#include "tools/career/Doctor.h"
#include "tools/career/Progress.h"
#include "tools/career/RecordLines.h"
#include "tools/career/ShelfCommands.h"

/// One run of the career program: the objects that the window's program holds, and the commands on
/// them. Each command returns true on success; otherwise problem() is the one line that says why.
class Session {
public:
    /// waitSeconds: how long report() waits for the simulator's log. keepsRecord: what happens is
    /// written to the record of the war.
    Session(bool quiet, int32_t waitSeconds, bool keepsRecord = true)
        : quiet(quiet), waitSeconds(waitSeconds), keepsRecord(keepsRecord),
          flight(keepsRecord ? &record : nullptr), progress(!quiet) {
        career.lock = &lock;
        career.observer = keepsRecord ? static_cast<CareerObserver*>(&record) : &nobody;
    }

    /// Creates a career and fights the war up to its start. It isn't saved yet.
    bool newCareer(const CareerStart& start);
    /// The squadrons in which a career of that start can begin.
    bool squadrons(const CareerStart& start) {
        return sayAll(squadronsOf(career, BookTables::instance(), start));
    }
    bool load();
    bool save();
    bool status();
    bool mission();
    bool fly();
    bool report();
    /// Moves the war on by that many periods.
    bool advance(int32_t periods);
    /// Repeats mission, flight and report, and accepts invitations, up to that date (yyyymmdd) or
    /// the end of the war.
    bool until(int32_t date);
    bool squadron();
    bool aces();
    bool showInvitation();
    bool acceptInvitation();
    bool refuseInvitation();
    bool flights();
    /// The combat report of that flight, the last one for 0, with its reasons.
    bool why(int32_t number);
    using BookLines =
        std::function<std::vector<zel::String>(SqliteFile&, const Database&, const BookTables&)>;
    /// Prints the lines that the function reads from the record, or that there are none. If `fault`
    /// is given, having none is that error.
    bool showBook(const BookLines& linesOf, const zel::String& fault = {}) {
        return sayRecord([&](SqliteFile& t) { return linesOf(t, career, BookTables::instance()); },
                         fault);
    }
    /// The victories of the pilots whose names contain that text; those of the player and his
    /// predecessors for an empty one.
    bool victories(const zel::String& name);
    bool postings() {
        return sayRecord([&](SqliteFile& t) { return postingLines(t, career.player().squadron); });
    }
    /// Writes the log book as a web page. file: as below.
    bool writeBook(const zel::String& file) { return writeFile(file, true); }
    /// Writes the record as JSON. file: with its path, as an earlier one of that name is replaced.
    bool exportRecord(const zel::String& file) { return writeFile(file, false); }
    /// Checks everything that a career needs and prints what to do. fixes: see Doctor.h. False if
    /// something is wrong.
    bool doctor(bool fixes) {
        const zel::String why = Doctor(fixes, quiet).examine();
        return why.empty() || fail(why);
    }
    /// Ends what another run left half done among the careers. Call this first. On error: false,
    /// and the reason is in the log.
    bool tidy() { return shelf.tidy(); }
    /// Runs a command on the shelf and prints its lines.
    bool onShelf(const std::function<bool(ShelfCommands&)>& command);

    const zel::String& problem() const { return trouble; }

private:
    bool fail(const zel::String& why);
    bool needCareer();
    bool needSimulator();
    bool needRecord();
    bool sayRecord(const std::function<std::vector<zel::String>(SqliteFile&)>& linesOf,
                   const zel::String& fault = {});
    bool writeFile(const zel::String& file, bool isPage);
    void say(const zel::String& line) const;
    bool sayAll(const std::vector<zel::String>& lines) const; // always true
    void sayFile(const Wording& wording, const zel::String& file) const;
    void sayOrders(const MissionOrders& orders) const;
    void advanceOnePeriod();
    zel::String nextStep(bool areOrdersOut) const;

    /// Without a record the saves' checksums have to be noted elsewhere.
    struct WithoutRecord : CareerObserver {
        bool onSaving(const Database& /*career*/, std::string_view /*content*/) override {
            return false;
        }
    };

    bool quiet;
    int32_t waitSeconds;
    bool keepsRecord;
    zel::String trouble;
    CareerLock lock;
    Database career;
    CareerRecord record;
    WithoutRecord nobody;
    ShelfCommands shelf{career, record};
    Flight flight;
    InvitationLetter letter;
    Progress progress;
};
