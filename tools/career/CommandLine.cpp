#include "tools/career/CommandLine.h"

#include <charconv>

#include "app/career/Calendar.h"
#include "app/career/Database.h"
#include "tools/career/Session.h"

namespace {

constexpr const char* Usage =
    R"(usage: wingtally-career [OPTION]... COMMAND...

Commands, which run in order:
  new SERVICE YEAR MONTH  begins a career; SERVICE is french, english or german,
                          from 1915 12 to 1918 10
  load | save             the career file in the user's folder
  status                  the career in a few lines, and what to do next
  mission                 writes the mission of the day into the simulator's folder
  fly                     has the stand-in simulator fly it
  report                  reads the simulator's log, shows the combat report,
                          carries it into the career and moves the war on
  advance [N]             moves the war on by N periods (1) without a flight
  until YYYYMMDD          mission, fly and report up to that day or the end of
                          the war; invitations are accepted
  squadron                the player's squadron
  aces                    the best pilots of the war
  invitation [accept|refuse]
                          the invitation to another squadron, and the answer

Options:
  --rof DIR     the simulator's folder
  --user DIR    where the career and the preferences are kept
  --data DIR    the folder that holds Data
  --seed N      the same call gives the same career
  --wait S      report waits up to S seconds for a log
  --quiet       says nothing unless something fails
  --verbose     shows the debug lines
  --help        shows this
)";

struct ServiceName {
    std::string_view name;
    int32_t service;
};
constexpr ServiceName Services[] = {
    {"french", ServiceFrench}, {"english", ServiceEnglish}, {"german", ServiceGerman}};

/// Goes through the arguments one by one.
class Arguments {
public:
    explicit Arguments(const std::vector<std::string_view>& words) : words(words) {}

    bool atEnd() const { return next == words.size(); }
    std::string_view take() { return words[next++]; }
    std::string_view peek() const { return atEnd() ? std::string_view() : words[next]; }

    /// A whole number of the range; false, taking nothing, if none follows.
    template <typename Number> bool takeNumber(Number least, Number most, Number& value) {
        const std::string_view word = peek();
        Number number = 0;
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
        if (word.empty() || error != std::errc() || end != word.data() + word.size() ||
            number < least || number > most)
            return false;
        value = number;
        ++next;
        return true;
    }

private:
    const std::vector<std::string_view>& words;
    size_t next = 0;
};

bool readNew(Arguments& arguments, CareerCall& call, std::string& error) {
    const std::string_view name = arguments.atEnd() ? std::string_view() : arguments.take();
    const ServiceName* service = nullptr;
    for (const ServiceName& known : Services)
        if (known.name == name)
            service = &known;
    if (service == nullptr) {
        error = "new wants french, english or german";
        return false;
    }
    int32_t year = 0;
    int32_t month = 0;
    const bool isDate =
        arguments.takeNumber(1915, 1918, year) && arguments.takeNumber(1, 12, month);
    const int32_t start = year * 100 + month;
    if (!isDate || start < 191512 || start > 191810) {
        error = "new wants a year and a month from 1915 12 to 1918 10";
        return false;
    }
    call.commands.emplace_back([=, chosen = service->service](Session& session) {
        return session.newCareer(chosen, year, month);
    });
    return true;
}

bool readUntil(Arguments& arguments, CareerCall& call, std::string& error) {
    int32_t date = 0;
    const bool isNumber = arguments.takeNumber(19151201, 19191231, date);
    const int32_t month = date / 100 % 100;
    const int32_t day = date % 100;
    if (!isNumber || day < 1 || day > Calendar::daysInMonth(date / 10000, month)) {
        error = "until wants a date as YYYYMMDD";
        return false;
    }
    call.commands.emplace_back([=](Session& session) { return session.until(date); });
    return true;
}

bool readAdvance(Arguments& arguments, CareerCall& call, std::string& error) {
    int32_t periods = 1;
    const bool wantsNumber = arguments.peek().find_first_of("0123456789") == 0;
    if (!arguments.takeNumber(1, 1000, periods) && wantsNumber) {
        error = "advance wants 1 to 1000 periods";
        return false;
    }
    call.commands.emplace_back([=](Session& session) { return session.advance(periods); });
    return true;
}

void readInvitation(Arguments& arguments, CareerCall& call) {
    if (arguments.peek() == "accept")
        call.commands.emplace_back(&Session::acceptInvitation);
    else if (arguments.peek() == "refuse")
        call.commands.emplace_back(&Session::refuseInvitation);
    else {
        call.commands.emplace_back(&Session::showInvitation);
        return;
    }
    arguments.take();
}

bool readCommand(std::string_view word, Arguments& arguments, CareerCall& call,
                 std::string& error) {
    struct Plain {
        std::string_view name;
        bool (Session::*run)();
    };
    constexpr Plain PlainCommands[] = {
        {"load", &Session::load},         {"save", &Session::save}, {"status", &Session::status},
        {"mission", &Session::mission},   {"fly", &Session::fly},   {"report", &Session::report},
        {"squadron", &Session::squadron}, {"aces", &Session::aces},
    };
    if (word == "new")
        return readNew(arguments, call, error);
    if (word == "until")
        return readUntil(arguments, call, error);
    if (word == "advance")
        return readAdvance(arguments, call, error);
    if (word == "invitation")
        readInvitation(arguments, call);
    else {
        for (const Plain& command : PlainCommands) {
            if (command.name != word)
                continue;
            call.commands.emplace_back(command.run);
            return true;
        }
        error = "unknown command: " + std::string(word);
        return false;
    }
    return true;
}

bool readOption(std::string_view word, Arguments& arguments, CareerCall& call, std::string& error) {
    struct Folder {
        std::string_view name;
        zel::String CareerCall::*place;
    };
    constexpr Folder Folders[] = {{"--rof", &CareerCall::rofDirectory},
                                  {"--user", &CareerCall::userDirectory},
                                  {"--data", &CareerCall::dataDirectory}};
    for (const Folder& folder : Folders) {
        if (folder.name != word)
            continue;
        if (arguments.peek().empty() || arguments.peek().substr(0, 2) == "--") {
            error = std::string(word) + " wants a folder";
            return false;
        }
        call.*folder.place = zel::String(arguments.take());
        return true;
    }
    uint32_t seed = 0;
    if (word == "--quiet")
        call.quiet = true;
    else if (word == "--verbose")
        call.verbose = true;
    else if (word == "--help")
        call.help = true;
    else if (word == "--seed" && arguments.takeNumber<uint32_t>(0, UINT32_MAX, seed))
        call.seed = seed;
    else if (word == "--wait" && arguments.takeNumber(0, 86400, call.waitSeconds))
        return true;
    else {
        error = word == "--seed" || word == "--wait" ? std::string(word) + " wants a number"
                                                     : "unknown option: " + std::string(word);
        return false;
    }
    return true;
}

} // namespace

bool readCareerCall(const std::vector<std::string_view>& words, CareerCall& call,
                    std::string& error) {
    Arguments arguments(words);
    while (!arguments.atEnd()) {
        const std::string_view word = arguments.take();
        const bool isOption = word.substr(0, 2) == "--";
        if (isOption ? !readOption(word, arguments, call, error)
                     : !readCommand(word, arguments, call, error))
            return false;
    }
    if (call.commands.empty() && !call.help) {
        error = "no command given";
        return false;
    }
    return true;
}

const char* careerUsage() { return Usage; }
