#pragma once

#include <map>
#include <string>
#include <vector>

namespace standin {

/// A line of a log, parsed independently: keys end with a colon and follow a blank.
struct LogLine {
    std::string text;
    int32_t tick = 0;
    int32_t type = 0;
    std::map<std::string, std::string> values;

    int32_t number(const std::string& key) const;
};

/// The files PATH[0].txt, PATH[1].txt and so on up to the first gap.
std::vector<std::string> readPieces(const std::string& path);

/// All lines of the pieces but those of type 15.
std::vector<LogLine> linesOf(const std::vector<std::string>& pieces);

/// The human's totals in a log.
struct HumanPart {
    int32_t plane = 0;
    int32_t body = 0;
    int32_t wounds = 0; // thousandths
    int32_t damage = 0; // thousandths
    bool dead = false;
    bool planeLost = false;
    bool finished = false; // type 16
    bool ended = false;    // type 7
};
HumanPart humanPartOf(const std::vector<LogLine>& lines);

/// Checks the rules that hold in every log of the simulator; each breach is a failure of the test.
/// `finished` asks for the end lines, which an interrupted flight lacks.
void expectRules(const std::vector<std::string>& pieces, bool finished);

} // namespace standin
