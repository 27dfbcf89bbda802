#include "app/book/RealWar.h"

#include <algorithm>
#include <map>

#include "app/book/DiaryWording.h"
#include "app/book/RowSearch.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Wording.h"
#include "engine/core/Language.h"

namespace {

constexpr size_t MostLines = 4;
constexpr int32_t DaysBefore = 30; // days that are searched if nothing happened

// Weights. An event of 5 is above all but the ends of the greatest aces.
constexpr int32_t EventWeight = 10; // for each step of its own
constexpr int32_t EndWeight = 12;   // plus half of his victories
constexpr int32_t DayWeight = 6;    // for each victory of a day, and a fifth of all he has by then
constexpr int32_t LeastOfDay = 2;   // victories that make a great day, unless it makes a round sum
constexpr int32_t RoundSum = 10;

struct DatedLine {
    int32_t date;
    DiaryLine line;
};

/// The text in the language in use, in English without a translation.
const zel::String& textIn(const BookTables& tables, const WarEvent& event) {
    const auto& languages = tables.eventLanguages;
    const auto own = std::find(languages.begin(), languages.end(), zel::Language::getCode().view());
    if (own == languages.end() || event.texts[own - languages.begin()].empty())
        return event.texts.front();
    return event.texts[own - languages.begin()];
}

std::string lastWord(const std::string& name) { return name.substr(name.rfind(' ') + 1); }

/// Whether the text has the word whole.
bool hasWord(const std::string& text, const std::string& word) {
    const auto isLetter = [&](size_t at) {
        return at < text.size() && text[at] >= 'a' && text[at] <= 'z';
    };
    for (size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
        if ((at == 0 || !isLetter(at - 1)) && !isLetter(at + word.size()))
            return true;
    return false;
}

/// Gathers what happened from one day up to, but not on, another.
class Days {
public:
    Days(const BookTables& tables, int32_t from, int32_t until)
        : tables(tables), from(from), until(until) {}

    std::vector<DatedLine> gather() {
        addEvents();
        addEnds();
        addVictories();
        return std::move(lines);
    }

private:
    void add(int32_t date, int32_t weight, const zel::String& text) {
        lines.push_back({date, {DiarySign::None, weight, -1, text}});
    }

    template <typename Row> static auto firstOf(const std::vector<Row>& rows, int32_t since) {
        return std::lower_bound(rows.begin(), rows.end(), since,
                                [](const Row& row, int32_t date) { return row.date < date; });
    }

    /// Whether an event of that day names him, by its English text: other languages decline names.
    /// A family name alone means the best of that name.
    bool isTold(int32_t date, const RealAce& ace) const {
        const std::string name = folded(ace.name.view());
        const std::string family = lastWord(name);
        for (auto event = firstOf(tables.events, date);
             event != tables.events.end() && event->date == date; ++event) {
            const std::string text = folded(event->texts.front().view());
            if (text.find(name) != std::string::npos)
                return true;
            if (hasWord(text, family) && isMeant(text, ace, family))
                return true;
        }
        return false;
    }

    bool isMeant(const std::string& text, const RealAce& ace, const std::string& family) const {
        return std::none_of(tables.aces.begin(), tables.aces.end(), [&](const RealAce& other) {
            const std::string name = folded(other.name.view());
            return &other != &ace && lastWord(name) == family &&
                   (other.victories > ace.victories || text.find(name) != std::string::npos);
        });
    }

    void addEvents() {
        for (auto event = firstOf(tables.events, from);
             event != tables.events.end() && event->date < until; ++event) {
            add(event->date, event->weight * EventWeight,
                textOf(wording::RealEvent, {dayText(event->date), textIn(tables, *event)}));
        }
    }

    void addEnds() {
        for (const RealAce& ace : tables.aces) {
            if (ace.fateDate < from || ace.fateDate >= until || ace.fate == Fate::Survived ||
                isTold(ace.fateDate, ace))
                continue;
            const size_t form = size_t(ace.fate) - size_t(Fate::Killed);
            add(ace.fateDate, EndWeight + ace.victories / 2,
                textOf(wording::RealEnds[form], {dayText(ace.fateDate), ace.name,
                                                 countText(wording::Victories, ace.victories)}));
        }
    }

    void addVictories() {
        std::map<std::pair<int32_t, int32_t>, int32_t> days; // by date and ace
        for (auto won = firstOf(tables.victories, from);
             won != tables.victories.end() && won->date < until; ++won)
            ++days[{won->date, won->ace}];
        for (const auto& [day, count] : days) {
            const RealAce& ace = tables.aces[day.second];
            const int32_t all = BookTables::realScore(ace, day.first);
            const bool isRound = all / RoundSum > (all - count) / RoundSum;
            if ((count < LeastOfDay && !isRound) || isTold(day.first, ace))
                continue;
            add(day.first, DayWeight * count + all / 5,
                textOf(wording::RealVictories,
                       {dayText(day.first), ace.name, countText(wording::Victories, count), all}));
        }
    }

    const BookTables& tables;
    int32_t from;
    int32_t until;
    std::vector<DatedLine> lines;
};

/// The most important of them, by date.
std::vector<DiaryLine> best(std::vector<DatedLine> lines, size_t most) {
    std::stable_sort(lines.begin(), lines.end(), [](const DatedLine& a, const DatedLine& b) {
        return a.line.weight > b.line.weight;
    });
    lines.resize(std::min(lines.size(), most));
    std::stable_sort(lines.begin(), lines.end(),
                     [](const DatedLine& a, const DatedLine& b) { return a.date < b.date; });
    std::vector<DiaryLine> chosen;
    chosen.reserve(lines.size());
    for (const DatedLine& dated : lines)
        chosen.push_back(dated.line);
    return chosen;
}

zel::String dayOf(int32_t date, const zel::String& month) {
    return date % 100 == 1 ? textOf(wording::FirstDay, {month})
                           : textOf(wording::DayOfMonth, {date % 100, month});
}

} // namespace

zel::String dayText(int32_t date) {
    const int32_t month = date / 100 % 100;
    return dayOf(date,
                 month >= 1 && month <= 12 ? textOf(wording::Months[month - 1]) : zel::String());
}

zel::String shortDayText(int32_t date) { return dayOf(date, shortMonth(date / 100 % 100)); }

std::vector<DiaryLine> realWar(const BookTables& tables, int32_t from, int32_t until) {
    std::vector<DatedLine> lines = Days(tables, from, until).gather();
    if (!lines.empty())
        return best(std::move(lines), MostLines);
    Calendar before = Calendar::ofNumber(from);
    before.subtractDays(DaysBefore);
    lines = Days(tables, before.dateNumber(), from).gather();
    if (!lines.empty()) {
        // The nearest day.
        const int32_t last =
            std::max_element(lines.begin(), lines.end(),
                             [](const DatedLine& a, const DatedLine& b) { return a.date < b.date; })
                ->date;
        lines.erase(std::remove_if(lines.begin(), lines.end(),
                                   [&](const DatedLine& one) { return one.date < last; }),
                    lines.end());
        return best(std::move(lines), 1);
    }
    return {{DiarySign::None, 0, -1, textOf(wording::NothingKnown)}};
}
