#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "app/career/Problem.h"
#include "app/career/SavePages.h"
#include "app/career/SaveSummary.h"
#include "engine/core/String.h"

class CareerRecord;
class Database;

// Where careers are in the user's folder; the one that can be played is in CurrentFolder. Each is a
// folder with its save, its record and its pages, and moves as a whole.
constexpr const char* ShelfFolder = "Careers";            // of the others, as "0003 Erich Sommer"
constexpr const char* PutAwayFolder = "Careers/Put away"; // of those that the player has put away

/// A career of the shelf, the current one included.
struct ShelvedCareer {
    int32_t number = 0;     // from 1; a career keeps it, and no other ever gets it
    bool isCurrent = false; // in Saves
    bool isPutAway = false;
    zel::String folder;  // its path
    SaveSummary summary; // not readable: it is listed, and left as it is
};

/// The careers of a player: one is current, the others are on the shelf.
///
/// A move is a rename of the career's whole folder, so that a program that is killed leaves every
/// career in exactly one place; tidy() ends what was interrupted. Each operation that moves the
/// current career closes the record first and empties the career in memory, so that it can't be
/// saved over another one: the caller saves before, and loads after.
///
/// On error an operation returns false, problem() says why, and all careers are where they were.
class Shelf {
public:
    /// Both belong to the caller and outlive this. The record may be one that observes nothing.
    Shelf(Database& career, CareerRecord& record) : career(career), record(record) {}

    /// Ends or takes back what another run of the program was doing when it was killed. Call it at
    /// the start, before anything is loaded. It costs next to nothing if there is nothing to do.
    bool tidy();

    /// All careers: the current one first, then those on the shelf and then those put away, each
    /// group by the time of the last save, newest first. The saves are not read whole. If a folder
    /// of careers can't be read, `unread` says which, and the others are given.
    std::vector<ShelvedCareer> careers(Problem& unread) const;
    /// The same; a folder that can't be read is logged.
    std::vector<ShelvedCareer> careers() const;
    /// The pages of a career, newest first; see savePages().
    static std::vector<SavePage> pages(const ShelvedCareer& of);

    /// Makes the career of that number the current one; the one that was current goes to the shelf.
    /// It may be one of those put away. Does nothing if it is current already. A career of another
    /// version is refused, and a damaged one without a whole page. REQUIRES: what is in memory is
    /// saved, or may be lost.
    [[nodiscard]] bool take(int32_t number);
    /// Moves the career to those put away. If it was the current one, none is current then. Does
    /// nothing if it is put away already. REQUIRES: as take().
    [[nodiscard]] bool putAway(int32_t number);
    /// Closes the book of the career in memory with a pilot who has fallen: it goes to the shelf,
    /// where its summary is his. Then no career is current. REQUIRES: it is saved.
    [[nodiscard]] bool close(int32_t fallen);
    /// How the current career was closed, if it was; see Closing.
    Closing closing() const;
    /// The current career goes on: it isn't closed.
    [[nodiscard]] bool reopen();
    /// Makes the page the career's present save; see returnToPage(). REQUIRES: as take(), and the
    /// page is one of pages(of).
    [[nodiscard]] bool turnBack(const ShelvedCareer& of, const SavePage& page);

    /// Saves the career in memory as the current one, which is what every save of the program is.
    /// The first save of a career that was begun in this run moves the one that is current to the
    /// shelf. On error the career in memory goes on, and the next save tries again.
    [[nodiscard]] bool save();

    /// Why the last operation failed.
    const Problem& problem() const { return trouble; }

private:
    bool fail(const Problem& why = {});
    bool holdsLock();
    std::optional<ShelvedCareer> find(int32_t number);
    zel::String shelve(const zel::String& folder, const char* place);
    void leaveCurrent();
    bool swapIn(const zel::String& incoming);
    bool settleIncoming();
    bool renumber(const zel::String& folder);
    bool write(const char* folder);

    Database& career;
    CareerRecord& record;
    Problem trouble;
    /// Number of the career in memory while its first save is in IncomingFolder.
    std::optional<int32_t> onItsWay;
};
