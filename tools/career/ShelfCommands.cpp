#include "tools/career/ShelfCommands.h"

#include <cstdio>

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "engine/core/System.h"
#include "tools/career/SessionWording.h"

namespace {

/// "2026-03-14 21:40", the same in all languages.
zel::String timeText(const zel::WallTime& time) {
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d", time.year, time.month, time.day,
                  time.hour, time.minute);
    return text;
}

/// The last part of a path, as it is shown.
zel::String lastName(const zel::String& path) {
    const std::string_view text = path;
    return zel::system::shownText(text.substr(text.find_last_of("\\/") + 1));
}

zel::String careerLine(const ShelvedCareer& one) {
    const SaveSummary& save = one.summary;
    if (!save.isReadable)
        return textOf(wording::CareerUnreadable,
                      {one.number, lastName(one.folder), lastName(save.file) + " " + save.fault});
    const zel::String pilot =
        save.squadron.empty() ? save.pilot : textOf(wording::PilotOf, {save.pilot, save.squadron});
    zel::String line = textOf(wording::CareerOnShelf, {one.number, pilot, dateInLanguage(save.date),
                                                       save.victories, save.missions});
    if (one.isCurrent)
        line = textOf(wording::CareerIsCurrent, {line});
    if (one.isPutAway)
        line = textOf(wording::CareerIsPutAway, {line});
    if (save.state == CareerState::Fallen)
        line = textOf(wording::CareerIsFallen, {line});
    else if (save.state == CareerState::WarOver)
        line = textOf(wording::CareerIsOver, {line});
    return line;
}

zel::String pageLine(const SavePage& page) {
    const SaveSummary& save = page.summary;
    const zel::String written = timeText(save.written);
    if (!save.isReadable)
        return textOf(wording::PageUnreadable, {page.name, lastName(save.file), written});
    const zel::String line =
        textOf(wording::PageOfCareer,
               {page.name, dateInLanguage(save.date), save.victories, save.missions, written});
    return page.isWhole ? line : textOf(wording::PageIsDamaged, {line});
}

} // namespace

bool ShelfCommands::fail(const zel::String& why) {
    trouble = why;
    return false;
}

/// Whether dropping the career in memory loses nothing.
bool ShelfCommands::mayLeave() {
    return (!career.isUnsaved && career.isSaved(SaveFileName)) ||
           fail("The career in memory has changed since the last save: save it first");
}

bool ShelfCommands::careers() {
    Problem unread;
    for (const ShelvedCareer& one : shelf.careers(unread))
        lines.push_back(careerLine(one));
    if (!unread.empty())
        return fail(unread.english());
    if (lines.empty())
        lines.push_back(textOf(wording::NoCareers));
    return true;
}

bool ShelfCommands::take(int32_t number) {
    if (!mayLeave())
        return false;
    if (!shelf.take(number))
        return fail(shelf.problem().english());
    lines.push_back(textOf(wording::Taken, {number}));
    return true;
}

bool ShelfCommands::putAway(int32_t number) {
    if (!mayLeave())
        return false;
    if (!shelf.putAway(number))
        return fail(shelf.problem().english());
    lines.push_back(textOf(wording::HasPutAway, {number}));
    return true;
}

bool ShelfCommands::findCurrent(ShelvedCareer& current) {
    const std::vector<ShelvedCareer> all = shelf.careers();
    if (all.empty() || !all.front().isCurrent)
        return fail("There is no current career");
    current = all.front();
    return true;
}

bool ShelfCommands::pages() {
    ShelvedCareer current;
    if (!findCurrent(current))
        return false;
    for (const SavePage& page : Shelf::pages(current))
        lines.push_back(pageLine(page));
    return true;
}

bool ShelfCommands::turnBack(const zel::String& name) {
    ShelvedCareer current;
    if (!mayLeave() || !findCurrent(current))
        return false;
    for (const SavePage& page : Shelf::pages(current)) {
        if (page.name != name)
            continue;
        if (!shelf.turnBack(current, page))
            return fail(shelf.problem().english());
        lines.push_back(textOf(wording::TurnedBack, {name}));
        return true;
    }
    return fail("There is no page " + name + ": pages lists them");
}
