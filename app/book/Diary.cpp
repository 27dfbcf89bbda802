#include "app/book/Diary.h"

#include <algorithm>
#include <map>
#include <set>

#include "app/book/DiaryWording.h"
#include "app/book/LogBookText.h"
#include "app/book/PilotRecord.h"
#include "app/book/RealWar.h"
#include "app/book/RowSearch.h"
#include "app/book/ServiceText.h"
#include "app/book/ServiceWording.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/record/Sqlite.h"

namespace {

constexpr size_t SquadronLines = 12;
constexpr size_t FrontLines = 6;
constexpr size_t MostNames = 4; // in one line

// Weights of the squadron's lines, to which victories are added.
constexpr int32_t OwnWeight = 1000;
constexpr int32_t HonourWeight = 950;
constexpr int32_t FallenWeight = 500;
constexpr int32_t ScoredWeight = 400;
constexpr int32_t PostedWeight = 100;

zel::String nameOf(const Database& career, int32_t pilot) {
    return zel::arrayText(career.pilot(pilot).name);
}

/// A mention isn't awarded; the text says he is mentioned.
zel::String awardedText(const AwardRow& award) {
    if (award.key == "mention")
        return textOf(wording::YouAreMentioned);
    if (award.key == "communique")
        return textOf(wording::YouAreNamed);
    return textOf(wording::YouAreAwarded, {awardText(award)});
}

void sortByWeight(std::vector<DiaryLine>& lines, size_t most) {
    std::stable_sort(lines.begin(), lines.end(),
                     [](const DiaryLine& a, const DiaryLine& b) { return a.weight > b.weight; });
    lines.resize(std::min(lines.size(), most));
}

/// A period's rows have the day on which it ended, a flight's that of the flight.
class DiaryReader {
public:
    DiaryReader(SqliteFile& record, const Database& career, const BookTables& tables, Diary& diary)
        : record(record), career(career), tables(tables), diary(diary) {}

    void read() {
        readFlight();
        readVictories();
        readPostings();
        if (flight > 0)
            addSquadron();
        else
            add(DiarySign::Joined, OwnWeight, career.playerPilot, textOf(wording::NothingYet));
        if (diary.squadron.empty())
            add(DiarySign::None, 0, -1, textOf(wording::QuietDays));
        sortByWeight(diary.squadron, SquadronLines);
        addFront();
    }

private:
    struct Score {
        int32_t count = 0;
        std::vector<zel::String> victims; // of the player
    };
    struct Death {
        int32_t pilot = -1;
        zel::String name;
        zel::String victor;
    };

    void readFlight() {
        SqliteStatement row(record, "SELECT number, date, pilot, squadron, injury, dead FROM flight"
                                    " ORDER BY number DESC LIMIT 1");
        diary.until = diary.from = career.calendar().dateNumber();
        squadron = career.player().squadron;
        own = career.playerPilot;
        if (!row.next())
            return;
        flight = row.integer(0);
        diary.from = row.integer(1);
        own = row.integer(2);
        squadron = row.integer(3);
        injury = row.number(5) == 0 ? row.integer(4) : 0;
    }

    void readVictories() {
        if (flight > 0) {
            SqliteStatement seen(
                record, "SELECT victor, victor_squadron, victim, victim_name,"
                        " victim_squadron, died FROM victory WHERE flight = ? ORDER BY id");
            seen.with(flight);
            takeVictories(seen);
        }
        SqliteStatement unseen(record, "SELECT victor, victor_squadron, victim, victim_name,"
                                       " victim_squadron, died FROM victory WHERE id >= ?"
                                       " AND flight IS NULL ORDER BY id");
        unseen.with(firstRowFrom(record, DatedTable::Victory, diary.from + 1));
        takeVictories(unseen);
    }

    void takeVictories(SqliteStatement& row) {
        while (row.next()) {
            const int32_t victor = row.integer(0);
            Score& score = scores[victor];
            ++score.count;
            if (victor == own)
                score.victims.push_back(row.text(3));
            if (row.integer(1) == squadron)
                ownVictors.insert(victor);
        }
    }

    void readPostings() {
        if (flight > 0)
            readDeathsOfFlight();
        SqliteStatement row(record, "SELECT kind, pilot, name, squadron, from_squadron,"
                                    " CASE WHEN other = pilot THEN '' ELSE other_name END"
                                    " FROM posting WHERE id >= ? ORDER BY id");
        row.with(firstRowFrom(record, DatedTable::Posting, diary.from + 1));
        while (row.next()) {
            const std::string_view kind = row.rawText(0);
            const int32_t pilot = row.integer(1);
            const bool isOwn = row.integer(3) == squadron;
            if (kind == "died")
                noteDeath(pilot, row.text(2), row.text(5), isOwn);
            else if (kind == "succeeded")
                add(DiarySign::Joined, OwnWeight - 1, pilot,
                    textOf(wording::YouAreNow, {titleOfPilot(pilot, row.text(2))}));
            else if (isOwn && pilot != career.playerPilot)
                arrivals.emplace_back(pilot, row.text(2));
            else if (kind == "transferred" && row.index(4) == squadron)
                addDeparture(pilot, row.text(2), row.integer(3));
        }
    }

    void readDeathsOfFlight() {
        SqliteStatement row(
            record, "SELECT fallen.pilot, fallen.name, plane.squadron, victor.pilot,"
                    " victor.name, victor.type FROM flight_report AS fallen"
                    " JOIN flight_plane AS plane"
                    " ON plane.flight = fallen.flight AND plane.pilot = fallen.pilot"
                    " LEFT JOIN flight_report AS victor ON victor.flight = fallen.flight"
                    " AND victor.place = coalesce(fallen.shot_down_by, fallen.shot_down_by_own)"
                    " AND victor.place <> fallen.place"
                    " WHERE fallen.flight = ? AND fallen.dead = 1");
        row.with(flight);
        while (row.next()) {
            const int32_t pilot = row.integer(0);
            noteDeath(pilot, career.isPilot(pilot) ? nameOf(career, pilot) : row.text(1),
                      nameOfReport(career, row.index(3), row.text(4), row.text(5)),
                      row.integer(2) == squadron);
        }
    }

    void noteDeath(int32_t pilot, const zel::String& name, const zel::String& victor, bool isOwn) {
        if (isOwn)
            deaths.push_back({pilot, name, victor});
        if (career.isPilot(pilot) && career.pilot(pilot).shotdowns >= AceShotdowns)
            fallenAces.push_back(pilot);
    }

    void add(DiarySign sign, int32_t weight, int32_t pilot, const zel::String& text) {
        diary.squadron.push_back({sign, weight, pilot, text});
    }

    void addDeparture(int32_t pilot, const zel::String& name, int32_t to) {
        if (pilot == career.playerPilot)
            add(DiarySign::Left, HonourWeight - 2, pilot,
                isNamedUnit(career, to) ? textOf(wording::YouHaveLeft, {unitText(career, to)})
                                        : textOf(wording::YouHaveLeftForAnother));
        else
            add(DiarySign::Left, PostedWeight - 1, pilot,
                isNamedUnit(career, to) ? textOf(wording::HasLeft, {name, unitText(career, to)})
                                        : textOf(wording::HasLeftForAnother, {name}));
    }

    void addSquadron() {
        addOwn();
        for (const int32_t victor : ownVictors)
            if (victor != own)
                addScore(victor);
        for (const Death& death : deaths)
            addDeath(death);
        addArrivals();
    }

    void addOwn() {
        const auto score = scores.find(own);
        if (score != scores.end())
            add(DiarySign::Scored, OwnWeight, own,
                textOf(wording::YouBroughtDown,
                       {enumerated(score->second.victims),
                        countText(wording::Victories, career.pilot(own).shotdowns)}));
        if (injury > 0)
            add(DiarySign::None, OwnWeight - 2, own, woundText(injury));
        if (own != career.playerPilot)
            return;
        const PilotRecord player = readPilot(record, career, tables, own);
        const auto isNew = [&](int32_t date) { return date > diary.from && date <= diary.until; };
        for (const RankGiven& one : player.honours.promotions())
            if (isNew(one.date) && one.date > player.since)
                add(DiarySign::None, HonourWeight + 1, own,
                    textOf(wording::YouArePromoted, {one.rank->name}));
        for (const AwardGiven& one : player.honours.awards)
            if (isNew(one.date))
                add(DiarySign::None, HonourWeight - (one.award->worn == Worn::None ? 1 : 0), own,
                    awardedText(*one.award));
    }

    zel::String titleOfPilot(int32_t pilot, const zel::String& name) {
        return titleOf(readPilot(record, career, tables, pilot).honours, name);
    }

    void addScore(int32_t victor) {
        const Score& score = scores[victor];
        const int32_t all = career.pilot(victor).shotdowns;
        const zel::String now = countText(wording::Victories, score.count);
        add(DiarySign::Scored, ScoredWeight + 4 * score.count + all, victor,
            all == score.count ? textOf(wording::FirstScore, {nameOf(career, victor), now})
                               : textOf(wording::HasScored, {nameOf(career, victor), now, all}));
    }

    void addDeath(const Death& death) {
        const int32_t won = career.isPilot(death.pilot) ? career.pilot(death.pilot).shotdowns : 0;
        const zel::String victories = countText(wording::Victories, won);
        const bool isKnown = !death.victor.empty();
        zel::String text;
        if (death.pilot == own) {
            const zel::String title = titleOfPilot(own, death.name);
            text = isKnown ? textOf(wording::YouFellTo, {title, death.victor, victories})
                           : textOf(wording::YouFell, {title, victories});
        } else if (isKnown)
            text = won > 0 ? textOf(wording::FellToWith, {death.name, death.victor, victories})
                           : textOf(wording::FellToOne, {death.name, death.victor});
        else
            text = won > 0 ? textOf(wording::FellWith, {death.name, victories})
                           : textOf(wording::HasFallen, {death.name});
        add(DiarySign::Fallen, death.pilot == own ? OwnWeight : FallenWeight + won, death.pilot,
            text);
    }

    /// A few names a line. Only a line of one opens his page.
    void addArrivals() {
        for (size_t first = 0; first < arrivals.size(); first += MostNames) {
            const size_t end = std::min(first + MostNames, arrivals.size());
            std::vector<zel::String> some;
            for (size_t i = first; i < end; ++i)
                some.push_back(arrivals[i].second);
            add(DiarySign::Joined, PostedWeight, some.size() == 1 ? arrivals[first].first : -1,
                textOf(some.size() == 1 ? wording::HasCome : wording::HaveCome,
                       {enumerated(some)}));
        }
    }

    /// The best of each nation whose figures have changed, then the best of all.
    void addFront() {
        std::vector<DiaryLine>& lines = diary.front;
        for (const auto& [pilot, score] : scores)
            if (career.isPilot(pilot) && career.pilot(pilot).shotdowns >= AceShotdowns &&
                career.pilot(pilot).alive != 0)
                lines.push_back(frontScore(pilot, score.count));
        for (const int32_t pilot : fallenAces)
            lines.push_back(frontLoss(pilot));
        sortByWeight(lines, lines.size());
        std::set<int32_t> shown;
        std::stable_partition(lines.begin(), lines.end(), [&](const DiaryLine& line) {
            return shown.insert(career.pilot(line.pilot).nation).second;
        });
        lines.resize(std::min(lines.size(), FrontLines));
        sortByWeight(lines, FrontLines);
        if (lines.empty())
            lines.push_back({DiarySign::None, 0, -1,
                             textOf(flight > 0 ? wording::NoneOfThem : wording::NobodyScored)});
    }

    DiaryLine frontLine(int32_t pilot, const zel::String& text) const {
        return {DiarySign::None, career.pilot(pilot).shotdowns, pilot, text};
    }
    DiaryLine frontScore(int32_t pilot, int32_t count) const {
        const zel::String name = nameOf(career, pilot);
        if (!isNamedUnit(career, career.pilot(pilot).squadron))
            return frontLine(pilot,
                             textOf(wording::FrontScoreAlone, {name, victoriesOf(pilot), count}));
        return frontLine(
            pilot, textOf(wording::FrontScore, {name, unitOf(pilot), victoriesOf(pilot), count}));
    }
    DiaryLine frontLoss(int32_t pilot) const {
        const zel::String name = nameOf(career, pilot);
        if (!isNamedUnit(career, career.pilot(pilot).squadron))
            return frontLine(pilot, textOf(wording::FrontLossAlone, {name, victoriesOf(pilot)}));
        return frontLine(pilot,
                         textOf(wording::FrontLoss, {name, unitOf(pilot), victoriesOf(pilot)}));
    }
    zel::String unitOf(int32_t pilot) const {
        return unitText(career, career.pilot(pilot).squadron);
    }
    zel::String victoriesOf(int32_t pilot) const {
        return countText(wording::Victories, career.pilot(pilot).shotdowns);
    }

    SqliteFile& record;
    const Database& career;
    const BookTables& tables;
    Diary& diary;
    int32_t flight = 0;              // number of the last one; 0 for none
    int32_t squadron = -1, own = -1; // the player's squadron and pilot of that day
    int32_t injury = 0;              // his in that flight, in percent
    std::map<int32_t, Score> scores; // all who scored
    std::set<int32_t> ownVictors;    // of the squadron
    std::vector<Death> deaths;       // likewise
    std::vector<std::pair<int32_t, zel::String>> arrivals; // pilots and names
    std::vector<int32_t> fallenAces;                       // of all squadrons
};

} // namespace

Diary readDiary(SqliteFile& record, const Database& career, const BookTables& tables) {
    Diary diary;
    if (!career.hasCareer())
        return diary;
    DiaryReader(record, career, tables, diary).read();
    diary.real = realWar(tables, diary.from, diary.until);
    diary.war = readWarPart(record, career);
    if (record.failed()) {
        diary.from = diary.until = career.calendar().dateNumber();
        diary.squadron = {{DiarySign::None, 0, -1, textOf(wording::RecordUnreadable)}};
        diary.front.clear();
    }
    return diary;
}
