#include "app/screens/BookTexts.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>

#include "app/book/BookTables.h"
#include "app/book/Citation.h"
#include "app/book/LogBookText.h"
#include "app/book/SavedHonours.h"
#include "app/book/Standing.h"
#include "app/career/CareerTexts.h"
#include "app/record/ShelfFolders.h"
#include "app/screens/ScreenWording.h"
#include "engine/core/System.h"

namespace {

constexpr int32_t SpineLetters = 36; // as wide as the label
constexpr int32_t CardLetters = 44;  // on two lines of the card
constexpr const char* Dagger = " \x86";

// Column widths of a page's row, in letters: the typewriter face has a single advance.
constexpr int32_t DateColumn = 15;
constexpr int32_t FlightsColumn = 9;
constexpr int32_t RowLetters = 46;

zel::String twoDigits(int32_t number) {
    return (number < 10 ? zel::String("0") : zel::String()) + number;
}

zel::String timeOfDay(const zel::WallTime& time) {
    return twoDigits(time.hour) + ":" + twoDigits(time.minute);
}

bool isKnown(const zel::WallTime& time) { return time.year > 0; }

/// "to-day, 21:40", "13 Mar, 22:55" of this year, "13 Mar 2025" of another.
zel::String savedText(const zel::WallTime& saved) {
    if (!isKnown(saved))
        return {};
    const zel::WallTime now = zel::wallTime();
    if (saved.year != now.year)
        return shortDate({saved.year, saved.month, saved.day});
    if (saved.month == now.month && saved.day == now.day)
        return textOf(wording::SavedToday, {timeOfDay(saved)});
    return textOf(wording::SavedThisYear, {saved.day, shortMonth(saved.month), timeOfDay(saved)});
}

/// The text and blanks up to that many letters, but at least one.
zel::String spaced(const zel::String& text, int32_t letters) {
    return text + zel::String(std::string(size_t(std::max(1, letters - text.length())), ' '));
}

zel::String folderName(const ShelvedCareer& book) {
    const std::string_view folder = nameOfFolder(book.folder);
    const std::string_view name = folder.substr(std::min(folder.find(' '), folder.size()));
    const bool isNamed = !book.isCurrent && name.size() > 1 && name.substr(1) != UnknownPilot;
    return isNamed ? zel::String(name.substr(1)) : textOf(wording::UnreadableBook);
}

/// The first of them that fits, or the last one, cut.
zel::String firstToFit(std::initializer_list<zel::String> titles, int32_t letters) {
    for (const zel::String& title : titles)
        if (title.length() <= letters)
            return title;
    return cutTo(*std::prev(titles.end()), size_t(letters));
}

zel::String cardTitle(const Honours& honours, const zel::String& pilot) {
    return firstToFit({titleOf(honours, pilot), shortTitleOf(honours, pilot),
                       shortTitleOf(honours, shortName(pilot))},
                      CardLetters);
}

} // namespace

zel::String bookTitle(const LogBookOfCareer& book) {
    return book.summary.isReadable ? cardTitle(book.honours, book.summary.pilot) : folderName(book);
}

zel::String pageTitle(const LogBookOfCareer& book, const SaveSummary& page) {
    return cardTitle(savedHonours(recordIn(book.folder), page, BookTables::instance()), page.pilot);
}

zel::String spineText(const LogBookOfCareer& book) {
    const bool hasFallen = book.summary.isReadable && book.summary.state == CareerState::Fallen;
    const zel::String ending = hasFallen ? Dagger : "";
    const int32_t room = SpineLetters - ending.length();
    if (!book.summary.isReadable)
        return firstToFit({folderName(book)}, room);
    const zel::String& pilot = book.summary.pilot;
    const bool isTitled = book.honours.rank() != nullptr;
    return firstToFit({shortTitleOf(book.honours, pilot),
                       isTitled ? shortTitleOf(book.honours, shortName(pilot)) : pilot},
                      room) +
           ending;
}

zel::String unreadableText(const ShelvedCareer& book) {
    const zel::String& file = book.summary.file;
    const zel::String shown =
        zel::String(nameOfFolder(book.folder)) + "/" + zel::String(nameOfFolder(file));
    return joined(
        {textOf(book.summary.isOtherVersion ? wording::OtherVersionBook : wording::CantBeRead),
         zel::system::shownText(shown)},
        "\n");
}

zel::String serviceLines(const SaveSummary& summary) {
    return joined(
        {serviceName(summary.nation, branchOfUnit(summary.unit), summary.date.dateNumber()),
         summary.squadron,
         summary.base.empty() ? zel::String() : textOf(wording::NearBase, {summary.base})},
        "\n");
}

zel::String figuresText(const SaveSummary& summary) {
    return textOf(wording::BookFigures, {countText(wording::Victories, summary.victories),
                                         countText(wording::Missions, summary.missions)});
}

zel::String warLines(const SaveSummary& summary) {
    return joined({bookDate(summary.date), figuresText(summary)}, "\n");
}

zel::String railLines(const LogBookOfCareer& book) {
    return book.summary.isReadable ? joined({spineText(book), bookDate(book.summary.date)}, "\n")
                                   : folderName(book);
}

zel::String pageLines(const SaveSummary& summary) {
    return joined({summary.squadron, warLines(summary)}, "\n");
}

zel::String lastFlownText(const zel::WallTime& written) {
    if (!isKnown(written))
        return {};
    return textOf(wording::LastFlown,
                  {bookDate({written.year, written.month, written.day}), timeOfDay(written)});
}

zel::String pageText(const SavePage& page) {
    const SaveSummary& summary = page.summary;
    zel::String row = textOf(wording::DamagedPage);
    if (summary.isReadable) {
        row = spaced(shortDate(summary.date), DateColumn) +
              spaced(zel::String(summary.missions), FlightsColumn) + summary.victories;
    }
    const zel::String saved = savedText(summary.written);
    return saved.empty() ? row : spaced(row, RowLetters - saved.length()) + saved;
}
