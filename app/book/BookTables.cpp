#include "app/book/BookTables.h"

#include <algorithm>
#include <string_view>

#include "app/book/CsvFile.h"
#include "app/career/CareerTexts.h"
#include "app/career/Nation.h"

namespace {

constexpr const char* Folder = "Data\\Book\\";
constexpr int32_t LeastWeight = 1;
constexpr int32_t MostWeight = 5;

/// A word of a table and what it means.
template <typename Value> struct Meaning {
    std::string_view word;
    Value value;
};
constexpr Meaning<int32_t> Nations[] = {
    {"France", France}, {"England", England}, {"USA", Usa}, {"Germany", Germany}};
constexpr Meaning<Branch> Branches[] = {
    {"any", Branch::Any}, {"army", Branch::Army}, {"navy", Branch::Navy}};
constexpr Meaning<AwardRow::Holders> HolderWords[] = {
    {"all", AwardRow::All}, {"officers", AwardRow::Officers}, {"men", AwardRow::Men}};
constexpr Meaning<Worn> WornWords[] = {
    {"ribbon", Worn::Ribbon}, {"bar", Worn::Bar}, {"none", Worn::None}};
constexpr Meaning<bool> CountedWords[] = {{"all", false}, {"own", true}};
constexpr Meaning<Fate> Fates[] = {{"survived", Fate::Survived},
                                   {"killed", Fate::Killed},
                                   {"died", Fate::Died},
                                   {"captured", Fate::Captured},
                                   {"wounded", Fate::Wounded}};

/// The meaning of a field; false, with a log line, for a word that has none.
template <typename Value, size_t Size>
bool read(const CsvFile& row, size_t field, const Meaning<Value> (&meanings)[Size], Value& value) {
    for (const Meaning<Value>& meaning : meanings) {
        if (meaning.word != row.text(field))
            continue;
        value = meaning.value;
        return true;
    }
    row.logRow("\"" + zel::String(row.text(field)) + "\" is unknown here");
    return false;
}

template <typename Row> void sortByDate(std::vector<Row>& rows) {
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Row& a, const Row& b) { return a.date < b.date; });
}

} // namespace

BookTables::BookTables(const zel::String& folder) {
    readRanks(folder + "ranks.csv");
    readAwards(folder + "awards.csv");
    readAces(folder + "aces.csv");
    readVictories(folder + "victories_by_day.csv");
    readEvents(folder + "events.csv");
}

const BookTables& BookTables::instance() {
    static const BookTables tables(Folder);
    return tables;
}

void BookTables::readRanks(const zel::String& file) {
    CsvFile table(file, "nation,branch,level,rank,short,from,until,officer,start,months,victories,"
                        "flights,certainty,source");
    while (table.next()) {
        RankRow row;
        row.level = table.number(2);
        row.name = table.text(3);
        row.shortName = table.text(4);
        row.from = table.date(5);
        row.until = table.date(6);
        row.isOfficer = table.number(7) != 0;
        row.isStart = table.number(8) != 0;
        row.months = table.number(9);
        row.victories = table.number(10);
        row.flights = table.number(11);
        if (read(table, 0, Nations, row.nation) && read(table, 1, Branches, row.branch) &&
            row.from != 0 && row.until != 0)
            ranks.push_back(row);
    }
}

void BookTables::readAwards(const zel::String& file) {
    CsvFile table(file, "key,nation,from,until,branch,for,after,victories,counted,flights,"
                        "flights_alone,place,worn,letters,certainty,source");
    while (table.next()) {
        AwardRow row;
        row.key = table.text(0);
        row.from = table.date(2);
        row.until = table.date(3);
        row.after = table.text(6);
        row.victories = table.number(7);
        row.flights = table.number(9);
        row.flightsAlone = table.number(10);
        row.place = table.number(11);
        row.letters = table.text(13);
        if (read(table, 1, Nations, row.nation) && read(table, 4, Branches, row.branch) &&
            read(table, 5, HolderWords, row.holders) &&
            read(table, 8, CountedWords, row.countsOwn) && read(table, 12, WornWords, row.worn) &&
            row.from != 0 && row.until != 0)
            awards.push_back(row);
    }
}

void BookTables::readAces(const zel::String& file) {
    CsvFile table(file, "name,nation,born,victories,fate,fate_date,acepotential,source");
    while (table.next()) {
        RealAce ace;
        ace.name = table.text(0);
        ace.born = table.number(2);
        ace.victories = table.number(3);
        ace.fateDate = table.text(5).empty() ? 0 : table.date(5);
        if (!read(table, 1, Nations, ace.nation) || !read(table, 4, Fates, ace.fate))
            continue;
        aceByName.emplace(ace.name, aces.size());
        aces.push_back(ace);
    }
}

void BookTables::readVictories(const zel::String& file) {
    CsvFile table(file, "name,date,victim_type,source");
    while (table.next()) {
        const auto ace = aceByName.find(table.text(0));
        RealVictory victory{table.date(1), 0, table.text(2)};
        if (ace == aceByName.end())
            table.logRow("nobody in aces.csv has this name");
        if (ace == aceByName.end() || victory.date == 0)
            continue;
        victory.ace = int32_t(ace->second);
        victories.push_back(victory);
    }
    sortByDate(victories);
    for (const RealVictory& victory : victories)
        aces[victory.ace].victoryDays.push_back(victory.date);
}

void BookTables::readEvents(const zel::String& file) {
    constexpr std::string_view Texts = "text_";
    constexpr size_t FirstText = 2;
    CsvFile table(file, "date,place,text_en,text_*,weight,source", true);
    for (const std::string& name : table.header())
        if (name.rfind(Texts, 0) == 0)
            eventLanguages.push_back(name.substr(Texts.size()));
    while (table.next()) {
        WarEvent event;
        event.date = table.date(0);
        event.place = table.text(1);
        for (size_t language = 0; language < eventLanguages.size(); ++language)
            event.texts.push_back(table.text(FirstText + language));
        event.weight =
            std::clamp(table.number(FirstText + eventLanguages.size()), LeastWeight, MostWeight);
        if (event.date != 0 && !event.texts[0].empty())
            events.push_back(event);
    }
    sortByDate(events);
}

const RealAce* BookTables::ace(const zel::String& name) const {
    const auto found = aceByName.find(name);
    return found == aceByName.end() ? nullptr : &aces[found->second];
}

const AwardRow* BookTables::award(std::string_view key) const {
    const auto found = std::find_if(awards.begin(), awards.end(),
                                    [&](const AwardRow& row) { return row.key == key; });
    return found == awards.end() ? nullptr : &*found;
}

int32_t BookTables::realScore(const RealAce& ace, int32_t date) {
    const auto& days = ace.victoryDays;
    if (date >= FirstDayOfPeace || (ace.fateDate != 0 && ace.fate != Fate::Wounded &&
                                    ace.fate != Fate::Survived && date >= ace.fateDate))
        return ace.victories;
    if (days.empty())
        return -1;
    // Some lists of days lack a victory or have one too many: the total is more reliable.
    const auto known = int32_t(std::upper_bound(days.begin(), days.end(), date) - days.begin());
    return std::min(known, ace.victories);
}
