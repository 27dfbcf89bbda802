#include "app/report/LogEvent.h"

#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "engine/core/Random.h"
#include "tests/app/report/FlightLog.h"

namespace {

constexpr std::pair<LogKey, const char*> Keys[] = {
    {LogKey::AType, "atype"}, {LogKey::Id, "id"},     {LogKey::Pid, "pid"},
    {LogKey::Name, "name"},   {LogKey::Type, "type"}, {LogKey::Country, "country"},
    {LogKey::Tid, "tid"},     {LogKey::Aid, "aid"},   {LogKey::Dmg, "dmg"},
    {LogKey::BotId, "botid"},
};

std::string trimmed(std::string text) {
    text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

/// A line's keys and values by the rule as it is worded: split at blanks, merge what has no colon
/// into the token before it, split at the first colon, cut a position clause off the key.
std::map<std::string, std::string> fieldsByTheRule(const std::string& line) {
    std::vector<std::string> tokens;
    for (size_t start = 0; start <= line.size();) {
        const size_t end = std::min(line.find(' ', start), line.size());
        const std::string token = line.substr(start, end - start);
        start = end + 1;
        if (token.find(':') != token.npos)
            tokens.push_back(token);
        else if (!tokens.empty())
            tokens.back() += " " + token;
    }
    std::map<std::string, std::string> fields;
    for (const std::string& token : tokens) {
        const size_t colon = token.find(':');
        std::string key = token.substr(0, colon);
        if (key.find('(') != key.npos && key.find(')') != key.npos)
            key = key.substr(key.find(')') + 1);
        for (char& character : key)
            character = zel::lower(character);
        fields[trimmed(key)] = trimmed(token.substr(colon + 1));
    }
    return fields;
}

/// Compares the values of all keys with the rule's, also where other text follows the line.
void expectByTheRule(const std::string& line) {
    const std::string longer = line + " ID:1" + std::string(100, ':');
    std::map<std::string, std::string> fields = fieldsByTheRule(line);
    for (const LogEvent& event : {LogEvent(line), LogEvent(longer, line.size())})
        for (const auto& [key, name] : Keys)
            ASSERT_EQ(std::string(event.value(key)), fields[name])
                << name << " of \"" << line << '"';
}

// The lines of a flight, whole and cut, other lines that simulators write, and random lines.
TEST(LogEvent, IsReadByTheRuleWhateverItHolds) {
    for (const std::string& piece : FlightPieces) {
        std::istringstream stream(piece);
        for (std::string line; std::getline(stream, line);)
            for (size_t length = 0; length <= line.size() && !HasFatalFailure(); ++length)
                expectByTheRule(line.substr(0, length));
    }
    for (const char* line : {"T:5 NAME:Nick:Squad  of two ", "stray words AType:5 PID:3",
                             "AType:3 TID:7 POS(1,2,3)AID:8", "AType:3 TID:7 POS(1,2AID:8",
                             "AType:10 (1.5,2.5,3.5) NAME:Me FORM:0", "XID:3 ID2:4"})
        expectByTheRule(line);
    zel::Random random(1);
    // clang-format off
    const char* const parts[] = {
        " ", " ", ":", ":", "  ", "ID", "pid", "AID", "tID", "NAME", "Type", "AType", "dmg",
        "BOTID", "country", "(", ")", "POS(1, 2,3)", "x", "12", "-0.5", "\t", "\xE9", "@", "[",
        "a much longer word"};
    // clang-format on
    for (int32_t i = 0; i < 20000 && !HasFatalFailure(); ++i) {
        std::string line;
        for (int32_t count = random.getInt(0, i % 60); count > 0; --count)
            line += parts[random.getInt(0, int32_t(std::size(parts)) - 1)];
        expectByTheRule(line);
    }
    expectByTheRule("NAME:" + std::string(60000, 'x') + " ID:5");
}

TEST(LogEvent, ReadsNumbersAsTheyAreWritten) {
    for (const char* text : {"0", "7", "-1", "+5", "007", "999999999", "1000000000", "2147483647",
                             "99999999999", "-99999999999", "12 POS(1,2,3)", "", "x", "1.5", "-"}) {
        const std::string line = std::string("ID:") + text + " PID:  " + text;
        const LogEvent event(line);
        EXPECT_EQ(event.number(LogKey::Id), zel::toInt(text)) << text;
        EXPECT_EQ(event.number(LogKey::Pid), zel::toInt(text)) << text;
    }
}

} // namespace
