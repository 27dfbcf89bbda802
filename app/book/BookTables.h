#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "engine/core/String.h"

/// The part of a service whose ranks and decorations are its own. Britain's two become one on
/// 1 April 1918, France and the United States have one.
enum class Branch : uint8_t { Any, Army, Navy };

/// A rank of a service, and when it is usually reached.
struct RankRow {
    int32_t nation = 0; // its code
    Branch branch = Branch::Any;
    int32_t level = 0; // comparable within the nation; 1 is the lowest
    zel::String name;  // "Second Lieutenant", the same in all languages
    zel::String shortName;
    int32_t from = 0; // yyyymmdd, as is until
    int32_t until = 0;
    bool isOfficer = false;
    bool isStart = false;  // with which a pilot comes to his first squadron
    int32_t months = 0;    // of service; with victories and flights 0: nobody is promoted to it
    int32_t victories = 0; // for promotion after these months
    int32_t flights = 0;   // at least
};

enum class Worn : uint8_t {
    Ribbon, // and a medal
    Bar,    // on the ribbon of the decoration before it
    None,
};

/// A decoration, or another honour, and when it is usually given.
struct AwardRow {
    enum Holders : uint8_t { All, Officers, Men };

    std::string key;    // "dso"; of the pictures too
    int32_t nation = 0; // its code
    int32_t from = 0;   // yyyymmdd, as is until
    int32_t until = 0;
    Branch branch = Branch::Any;
    Holders holders = All;
    std::string after;        // key of one that he must hold; empty for none
    int32_t victories = 0;    // required
    bool countsOwn = false;   // only victories since the decoration began count
    int32_t flights = 0;      // at least
    int32_t flightsAlone = 0; // this many flights count instead of victories; 0: never
    int32_t place = 0;        // in the order in which they are worn, 1 is the highest
    Worn worn = Worn::None;
    zel::String letters; // after the name: "DSO"; empty if there are none
};

enum class Fate : uint8_t { Survived, Killed, Died, Captured, Wounded };

/// An ace of history, as he really was.
struct RealAce {
    zel::String name;      // as the career's pilots have it
    int32_t nation = 0;    // its code
    int32_t born = 0;      // year; 0 if unknown
    int32_t victories = 0; // in the whole war
    Fate fate = Fate::Survived;
    int32_t fateDate = 0;             // yyyymmdd; 0 if unknown
    std::vector<int32_t> victoryDays; // yyyymmdd, ascending; empty for most
};

/// A victory in the real war.
struct RealVictory {
    int32_t date = 0; // yyyymmdd
    int32_t ace = 0;  // index of the aces
    zel::String victim;
};

/// Something that happened in the real war.
struct WarEvent {
    int32_t date = 0; // yyyymmdd
    zel::String place;
    std::vector<zel::String> texts; // by BookTables::eventLanguages, empty without a translation
    int32_t weight = 0;             // 1 to 5, the most important
};

/// The tables that the book of the war compares a career with. Rows that make no sense are logged
/// and left out; a missing file leaves its table empty.
class BookTables {
public:
    /// folder: with a separator at its end.
    explicit BookTables(const zel::String& folder);
    /// Those of the program, read from Data at the first call. Only the screens and the command
    /// line call it; they pass the tables on.
    static const BookTables& instance();

    /// The ace of that name; null for none.
    const RealAce* ace(const zel::String& name) const;
    /// The decoration of that key; null for none.
    const AwardRow* award(std::string_view key) const;
    /// How many he had brought down in the real war up to that day; -1 if his victories aren't
    /// known by day, unless his flying or the war was over by then.
    static int32_t realScore(const RealAce& ace, int32_t date);

    std::vector<RankRow> ranks;   // in the file's order
    std::vector<AwardRow> awards; // likewise
    std::vector<RealAce> aces;
    std::vector<RealVictory> victories; // by date
    std::vector<WarEvent> events;       // likewise
    /// Codes of the languages of the events, as the table's header has them; English first.
    std::vector<std::string> eventLanguages;

private:
    void readRanks(const zel::String& file);
    void readAwards(const zel::String& file);
    void readAces(const zel::String& file);
    void readVictories(const zel::String& file);
    void readEvents(const zel::String& file);

    std::map<zel::String, size_t> aceByName;
};
