#include "tools/career/CommandReader.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "app/career/Calendar.h"
#include "app/career/CareerRepair.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/NewCareer.h"
#include "engine/core/System.h"
#include "engine/core/TextEncoding.h"
#include "tools/career/BookCommands.h"
#include "tools/career/CommandLine.h"
#include "tools/career/Session.h"

namespace {

// A career can begin up to the month before the Armistice, and go on as long as it can be saved.
constexpr int32_t LastMonthToBegin = FirstDayOfPeace / 100 - 1;  // yyyymm
constexpr int32_t LastDayOfCareer = LastSaveYear * 10000 + 1231; // yyyymmdd

struct ServiceName {
    std::string_view name;
    int32_t service;
};
constexpr ServiceName Services[] = {
    {"french", ServiceFrench}, {"english", ServiceEnglish}, {"german", ServiceGerman}};

/// "1915 12" for 191512, as it is typed.
std::string inWords(int32_t month) {
    return std::to_string(month / 100) + " " + std::to_string(month % 100);
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

template <bool (Session::*Run)()>
std::string CommandReader::addPlain(std::string_view /*command*/) {
    add(Run);
    return {};
}

template <bool (ShelfCommands::*Run)()>
std::string CommandReader::addOnShelf(std::string_view /*command*/) {
    add([](Session& session) {
        return session.onShelf([](ShelfCommands& shelf) { return (shelf.*Run)(); });
    });
    return {};
}

template <auto LinesOf> std::string CommandReader::addFromBook(std::string_view /*command*/) {
    add([](Session& session) { return session.showBook(LinesOf); });
    return {};
}

const CommandReader::NamedReader* CommandReader::find(std::string_view word) {
    static constexpr NamedReader Readers[] = {
        {"new", &CommandReader::readStart},
        {"squadrons", &CommandReader::readStart},
        {"load", &CommandReader::addPlain<&Session::load>},
        {"save", &CommandReader::addPlain<&Session::save>},
        {"status", &CommandReader::addPlain<&Session::status>},
        {"mission", &CommandReader::addPlain<&Session::mission>},
        {"fly", &CommandReader::addPlain<&Session::fly>},
        {"report", &CommandReader::addPlain<&Session::report>},
        {"until", &CommandReader::readUntil},
        {"advance", &CommandReader::readAdvance},
        {"invitation", &CommandReader::readInvitation},
        {"squadron", &CommandReader::addPlain<&Session::squadron>},
        {"aces", &CommandReader::addPlain<&Session::aces>},
        {"flights", &CommandReader::addPlain<&Session::flights>},
        {"postings", &CommandReader::addPlain<&Session::postings>},
        {"victories", &CommandReader::readVictories},
        {"why", &CommandReader::readWhy},
        {"pilot", &CommandReader::readPilot},
        {"logbook", &CommandReader::addFromBook<logBookPage>},
        {"diary", &CommandReader::addFromBook<diaryPage>},
        {"record", &CommandReader::addFromBook<serviceRecord>},
        {"letter", &CommandReader::addFromBook<letterPage>},
        {"end", &CommandReader::addFromBook<endPage>},
        {"export", &CommandReader::readFile},
        {"book", &CommandReader::readFile},
        {"careers", &CommandReader::addOnShelf<&ShelfCommands::careers>},
        {"pages", &CommandReader::addOnShelf<&ShelfCommands::pages>},
        {"take", &CommandReader::readCareer},
        {"putaway", &CommandReader::readCareer},
        {"page", &CommandReader::readPage},
        {"doctor", &CommandReader::readDoctor},
    };
    const auto* const reader =
        std::find_if(std::begin(Readers), std::end(Readers),
                     [word](const NamedReader& known) { return known.name == word; });
    return reader == std::end(Readers) ? nullptr : reader;
}

std::string CommandReader::readAll() {
    if (words.empty())
        return "no command given";
    std::string wrong;
    while (wrong.empty() && !atEnd()) {
        const std::string& command = words[next++];
        const NamedReader* reader = find(command);
        wrong = reader == nullptr ? "unknown command: " + command : (this->*reader->read)(command);
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
    const bool isDate = takeNumber(FirstMonthOfCareer / 100, LastMonthToBegin / 100, year) &&
                        takeNumber(1, 12, month);
    const int32_t start = year * 100 + month;
    if (!isDate || start < FirstMonthOfCareer || start > LastMonthToBegin)
        return std::string(command) + " wants a year and a month from " +
               inWords(FirstMonthOfCareer) + " to " + inWords(LastMonthToBegin);
    const bool begins = command == "new";
    beginsCareer = beginsCareer || begins;
    add([=, chosen = CareerStart{service->service, year, month, call.name, call.squadron}](
            Session& session) {
        return begins ? session.newCareer(chosen) : session.squadrons(chosen);
    });
    return {};
}

std::string CommandReader::readUntil(std::string_view /*command*/) {
    int32_t date = 0;
    const bool isNumber = takeNumber(FirstDayOfCareer, LastDayOfCareer, date);
    const int32_t month = date / 100 % 100;
    const int32_t day = date % 100;
    if (!isNumber || day < 1 || day > Calendar::daysInMonth(date / 10000, month))
        return "until wants a date as YYYYMMDD";
    add([=](Session& session) { return session.until(date); });
    return {};
}

std::string CommandReader::readAdvance(std::string_view /*command*/) {
    int32_t periods = 1;
    const bool wantsNumber = peek().find_first_of("0123456789") == 0;
    if (!takeNumber(1, 1000, periods) && wantsNumber)
        return "advance wants 1 to 1000 periods";
    add([=](Session& session) { return session.advance(periods); });
    return {};
}

std::string CommandReader::readInvitation(std::string_view /*command*/) {
    const std::string_view answer = peek();
    if (answer == "accept")
        add(&Session::acceptInvitation);
    else if (answer == "refuse")
        add(&Session::refuseInvitation);
    else
        add(&Session::showInvitation);
    next += answer == "accept" || answer == "refuse" ? 1 : 0;
    return {};
}

std::string CommandReader::readVictories(std::string_view /*command*/) {
    const bool hasName = !atEnd() && !isCommand(peek());
    const zel::String name = hasName ? typedName(words[next++]) : zel::String();
    add([=](Session& session) { return session.victories(name); });
    return {};
}

std::string CommandReader::readWhy(std::string_view /*command*/) {
    const bool wantsNumber = peek().find_first_of("0123456789") == 0;
    int32_t number = 0;
    if (wantsNumber && !takeNumber(1, INT32_MAX, number))
        return "why wants the number of a flight";
    add([=](Session& session) { return session.why(number); });
    return {};
}

std::string CommandReader::readPilot(std::string_view /*command*/) {
    if (atEnd() || isCommand(peek()))
        return "pilot wants a name or a part of one";
    const zel::String name = typedName(words[next++]);
    add([=](Session& session) {
        return session.showBook(
            [&](SqliteFile& record, const Database& career, const BookTables& tables) {
                return pilotPage(record, career, tables, name.view());
            },
            "No pilot of this war is called " + name);
    });
    return {};
}

std::string CommandReader::readFile(std::string_view command) {
    if (atEnd() || isCommand(peek()))
        return std::string(command) + " wants the name of a file";
    // Done before the program changes its working directory.
    const zel::String file = zel::system::absolutePath(words[next++]);
    const bool isPage = command == "book";
    add([=](Session& session) {
        return isPage ? session.writeBook(file) : session.exportRecord(file);
    });
    return {};
}

std::string CommandReader::readDoctor(std::string_view /*command*/) {
    hasDoctor = true;
    add([fixes = call.fixes](Session& session) { return session.doctor(fixes); });
    return {};
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

std::string CommandReader::readPage(std::string_view /*command*/) {
    if (peek().find_first_of("0123456789") != 0)
        return "page wants a date as YYYYMMDD, or the name of a page";
    const zel::String name = words[next++];
    add([=](Session& session) {
        return session.onShelf([=](ShelfCommands& shelf) { return shelf.turnBack(name); }) &&
               session.load();
    });
    return {};
}
