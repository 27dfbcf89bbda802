#include "tools/career/CommandReader.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "app/career/Calendar.h"
#include "app/career/Database.h"
#include "app/career/NewCareer.h"
#include "engine/core/System.h"
#include "engine/core/TextEncoding.h"
#include "tools/career/BookCommands.h"
#include "tools/career/CommandLine.h"
#include "tools/career/Session.h"

namespace {

struct ServiceName {
    std::string_view name;
    int32_t service;
};
constexpr ServiceName Services[] = {
    {"french", ServiceFrench}, {"english", ServiceEnglish}, {"german", ServiceGerman}};

struct Plain {
    std::string_view name;
    bool (Session::*run)();
};
constexpr Plain PlainCommands[] = {
    {"load", &Session::load},         {"save", &Session::save}, {"status", &Session::status},
    {"mission", &Session::mission},   {"fly", &Session::fly},   {"report", &Session::report},
    {"squadron", &Session::squadron}, {"aces", &Session::aces}, {"flights", &Session::flights},
    {"postings", &Session::postings},
};

struct FromBook {
    std::string_view name;
    std::vector<zel::String> (*linesOf)(SqliteFile&, const Database&);
};
constexpr FromBook BookCommands[] = {
    {"logbook", logBookPage}, {"diary", diaryPage}, {"record", serviceRecord},
    {"letter", letterPage},   {"end", endPage},
};

bool isCommand(std::string_view word) {
    constexpr std::string_view Others[] = {
        "new",     "until", "advance", "invitation", "victories", "export", "careers",   "take",
        "putaway", "pages", "page",    "why",        "pilot",     "book",   "squadrons", "doctor"};
    return std::find(std::begin(Others), std::end(Others), word) != std::end(Others) ||
           std::any_of(std::begin(BookCommands), std::end(BookCommands),
                       [&](const FromBook& known) { return known.name == word; }) ||
           std::any_of(std::begin(PlainCommands), std::end(PlainCommands),
                       [&](const Plain& known) { return known.name == word; });
}

} // namespace

zel::String typedName(const std::string& given) {
    return zel::windows1252Text(zel::system::shownText(given));
}

void CommandReader::add(std::function<bool(Session&)> command) {
    call.commands.push_back(std::move(command));
}

bool CommandReader::takeNumber(int32_t least, int32_t most, int32_t& value) {
    const std::string_view word = peek();
    int32_t number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (word.empty() || error != std::errc() || end != word.data() + word.size() ||
        number < least || number > most)
        return false;
    value = number;
    ++next;
    return true;
}

std::string CommandReader::readAll() {
    if (words.empty())
        return "no command given";
    std::string wrong;
    while (wrong.empty() && !atEnd()) {
        const std::string_view command = words[next++];
        if (command == "new" || command == "squadrons")
            wrong = readStart(command);
        else if (command == "until")
            wrong = readUntil();
        else if (command == "advance")
            wrong = readAdvance();
        else if (command == "invitation")
            readInvitation();
        else if (command == "victories")
            readVictories();
        else if (command == "why")
            wrong = readWhy();
        else if (command == "pilot")
            wrong = readPilot();
        else if (command == "export" || command == "book")
            wrong = readFile(command);
        else if (command == "doctor")
            readDoctor();
        else if (command == "careers")
            addOnShelf(&ShelfCommands::careers);
        else if (command == "pages")
            addOnShelf(&ShelfCommands::pages);
        else if (command == "take" || command == "putaway")
            wrong = readCareer(command);
        else if (command == "page")
            wrong = readPage();
        else
            wrong = readPlain(command);
    }
    return wrong;
}

std::string CommandReader::readStart(std::string_view command) {
    const std::string_view name = atEnd() ? std::string_view() : words[next++];
    const ServiceName* service = nullptr;
    for (const ServiceName& known : Services)
        if (known.name == name)
            service = &known;
    if (service == nullptr)
        return std::string(command) + " wants french, english or german";
    int32_t year = 0;
    int32_t month = 0;
    const bool isDate = takeNumber(1915, 1918, year) && takeNumber(1, 12, month);
    const int32_t start = year * 100 + month;
    if (!isDate || start < FirstMonthOfCareer || start > 191810)
        return std::string(command) + " wants a year and a month from 1915 12 to 1918 10";
    const bool begins = command == "new";
    beginsCareer = beginsCareer || begins;
    add([=, chosen = CareerStart{service->service, year, month, call.name, call.squadron}](
            Session& session) {
        return begins ? session.newCareer(chosen) : session.squadrons(chosen);
    });
    return {};
}

std::string CommandReader::readUntil() {
    int32_t date = 0;
    const bool isNumber = takeNumber(FirstDayOfCareer, 19191231, date);
    const int32_t month = date / 100 % 100;
    const int32_t day = date % 100;
    if (!isNumber || day < 1 || day > Calendar::daysInMonth(date / 10000, month))
        return "until wants a date as YYYYMMDD";
    add([=](Session& session) { return session.until(date); });
    return {};
}

std::string CommandReader::readAdvance() {
    int32_t periods = 1;
    const bool wantsNumber = peek().find_first_of("0123456789") == 0;
    if (!takeNumber(1, 1000, periods) && wantsNumber)
        return "advance wants 1 to 1000 periods";
    add([=](Session& session) { return session.advance(periods); });
    return {};
}

void CommandReader::readInvitation() {
    if (peek() == "accept")
        add(&Session::acceptInvitation);
    else if (peek() == "refuse")
        add(&Session::refuseInvitation);
    else
        return add(&Session::showInvitation);
    ++next;
}

void CommandReader::readVictories() {
    const bool hasName = !atEnd() && !isCommand(peek());
    const zel::String name = hasName ? typedName(words[next++]) : zel::String();
    add([=](Session& session) { return session.victories(name); });
}

std::string CommandReader::readWhy() {
    const bool wantsNumber = peek().find_first_of("0123456789") == 0;
    int32_t number = 0;
    if (wantsNumber && !takeNumber(1, INT32_MAX, number))
        return "why wants the number of a flight";
    add([=](Session& session) { return session.why(number); });
    return {};
}

std::string CommandReader::readPilot() {
    if (atEnd() || isCommand(peek()))
        return "pilot wants a name or a part of one";
    const zel::String name = typedName(words[next++]);
    add([=](Session& session) {
        return session.showBook(
            [&](SqliteFile& record, const Database& career) {
                return pilotPage(record, career, name.view());
            },
            "No pilot of this war is called " + name);
    });
    return {};
}

std::string CommandReader::readFile(std::string_view command) {
    if (atEnd() || isCommand(peek()))
        return std::string(command) + " wants the name of a file";
    // Before the program changes its working directory.
    const zel::String file = zel::system::absolutePath(words[next++]);
    const bool isPage = command == "book";
    add([=](Session& session) {
        return isPage ? session.writeBook(file) : session.exportRecord(file);
    });
    return {};
}

void CommandReader::readDoctor() {
    hasDoctor = true;
    add([fixes = call.fixes](Session& session) { return session.doctor(fixes); });
}

void CommandReader::addOnShelf(bool (ShelfCommands::*command)()) {
    add([=](Session& session) {
        return session.onShelf([=](ShelfCommands& shelf) { return (shelf.*command)(); });
    });
}

std::string CommandReader::readCareer(std::string_view command) {
    int32_t number = 0;
    if (!takeNumber(1, INT32_MAX, number))
        return std::string(command) + " wants the number of a career";
    const bool takes = command == "take";
    add([=](Session& session) {
        return session.onShelf([=](ShelfCommands& shelf) {
            return takes ? shelf.take(number) : shelf.putAway(number);
        }) && (!takes || session.load());
    });
    return {};
}

std::string CommandReader::readPage() {
    if (peek().find_first_of("0123456789") != 0)
        return "page wants a date as YYYYMMDD, or the name of a page";
    const zel::String name = words[next++];
    add([=](Session& session) {
        return session.onShelf([=](ShelfCommands& shelf) { return shelf.turnBack(name); }) &&
               session.load();
    });
    return {};
}

std::string CommandReader::readPlain(std::string_view command) {
    for (const FromBook& known : BookCommands) {
        if (known.name != command)
            continue;
        add([linesOf = known.linesOf](Session& session) { return session.showBook(linesOf); });
        return {};
    }
    for (const Plain& known : PlainCommands) {
        if (known.name != command)
            continue;
        add(known.run);
        return {};
    }
    return "unknown command: " + std::string(command);
}
