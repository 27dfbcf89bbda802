#include "tests/standin/log/LogRules.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>
#include <tuple>

#include <gtest/gtest.h>

#include "tests/support/Texts.h"

namespace standin {

namespace {

constexpr const char* PieceHead = "T:0 AType:15 VER:18\r\n";

bool holds(const std::set<int32_t>& set, int32_t id) { return set.count(id) != 0; }

LogLine parse(const std::string& text) {
    LogLine line;
    line.text = text;
    std::string* value = nullptr;
    std::istringstream stream(text + " ");
    for (std::string token; std::getline(stream, token, ' ');) {
        if (const size_t colon = token.find(':'); colon != token.npos)
            *(value = &line.values[token.substr(0, colon)]) = token.substr(colon + 1);
        else if (value != nullptr)
            *value += " " + token;
    }
    line.tick = line.number("T");
    line.type = line.number("AType");
    return line;
}

/// What the rules ask about, gathered line by line.
class Rules {
public:
    explicit Rules(const std::vector<LogLine>& lines) : lines(lines), human(humanPartOf(lines)) {}

    void check(bool finished) {
        checkStart();
        for (size_t i = 0; i < lines.size(); ++i) {
            EXPECT_TRUE(i == 0 || lines[i].tick >= lines[i - 1].tick) << lines[i].text;
            checkNames(lines[i]);
            if (lines[i].type >= 1 && lines[i].type <= 3)
                checkTarget(lines[i]);
            checkPlace(lines[i]);
        }
        checkHumanSums();
        EXPECT_EQ(human.ended, finished);
        EXPECT_EQ(human.finished, finished);
        if (finished)
            checkEnd();
    }

private:
    using Iterator = std::vector<LogLine>::const_iterator;
    static auto isOfType(int32_t type) {
        return [type](const LogLine& line) { return line.type == type; };
    }

    /// 0, the flights, and at tick 5 the human's plane, body and sortie, one after the other.
    void checkStart() const {
        ASSERT_GT(lines.size(), 5U);
        EXPECT_EQ(lines[0].type, 0);
        EXPECT_EQ(std::count_if(lines.begin(), lines.end(), isOfType(0)), 1);
        size_t i = 1;
        for (; lines[i].type == 11; ++i)
            EXPECT_EQ(lines[i].tick, 1);
        EXPECT_GT(i, 2U) << "two flights at least";
        ASSERT_LT(i + 2, lines.size());
        const LogLine &plane = lines[i], &body = lines[i + 1], &sortie = lines[i + 2];
        EXPECT_EQ(plane.type * 10000 + body.type * 100 + sortie.type, 121210);
        EXPECT_TRUE(plane.tick == 5 && sortie.tick == 5);
        EXPECT_EQ(plane.number("ID"), sortie.number("PLID"));
        EXPECT_EQ(body.number("ID"), sortie.number("PID"));
        EXPECT_EQ(body.number("PID"), plane.number("ID"));
        const auto first = std::find_if(lines.begin(), lines.end(), isOfType(17));
        ASSERT_NE(first, lines.end());
        EXPECT_EQ(first->tick, 58);
    }

    /// Each object has one line of type 12, before the first event that names it.
    void checkNames(const LogLine& line) {
        if (line.type != 12) {
            for (const char* key : {"AID", "TID", "ID", "PLID", "BOTID", "PID"}) {
                const bool names = line.values.count(key) != 0 && line.number(key) != -1;
                EXPECT_TRUE(!names || holds(named, line.number(key))) << line.text;
            }
            return;
        }
        const int32_t id = line.number("ID");
        const int32_t parent = line.number("PID");
        EXPECT_TRUE(named.insert(id).second) << "named twice: " << line.text;
        EXPECT_TRUE(id > 9999 && id < 10000000) << line.text;
        EXPECT_LE(line.values.at("NAME").size(), 31U);
        if (parent == -1)
            return;
        EXPECT_TRUE(line.values.at("TYPE") == "Common Bot" && line.values.at("NAME").empty());
        EXPECT_TRUE(holds(named, parent)) << "a body before its plane: " << line.text;
        planeOfBody[id] = parent;
    }

    /// Hits and damage appear only if the human is involved.
    void checkTarget(const LogLine& line) {
        const int32_t attacker = line.number("AID");
        const int32_t target = line.number("TID");
        EXPECT_TRUE(target != -1 && attacker != target) << line.text;
        EXPECT_EQ(planeOfBody.count(attacker), 0U) << "a body attacks: " << line.text;
        const auto isHuman = [&](int32_t id) { return id == human.plane || id == human.body; };
        EXPECT_TRUE(line.type == 3 || isHuman(attacker) || isHuman(target)) << line.text;
        EXPECT_TRUE(line.type != 1 || attacker != -1) << line.text;
        if (line.type == 2) {
            const double damage = std::atof(line.values.at("DMG").c_str());
            EXPECT_TRUE(damage >= 0.005 && damage <= 1.0) << line.text;
        }
        if (line.type != 3)
            return;
        const bool isBody = planeOfBody.count(target) != 0;
        EXPECT_LE(++losses[target], isBody ? 1 : 2) << line.text;
        if (isBody)
            deadBodies.insert(target);
    }

    /// Take-offs, landings, positions and bodies are only the human's; the first two have blanks in
    /// their positions.
    void checkPlace(const LogLine& line) const {
        const bool isSpaced = line.text.find(", ") != std::string::npos;
        EXPECT_EQ(isSpaced, line.type == 5 || line.type == 6) << line.text;
        const std::tuple<int32_t, const char*, int32_t> humans[] = {{5, "PID", human.plane},
                                                                    {6, "PID", human.plane},
                                                                    {17, "ID", human.plane},
                                                                    {16, "BOTID", human.body}};
        for (const auto& [type, key, id] : humans)
            EXPECT_TRUE(line.type != type || line.number(key) == id) << line.text;
    }

    /// The damage of a plane or a man adds up to about 1 at his end, and not before.
    void checkHumanSums() const {
        EXPECT_TRUE(human.dead ? human.wounds == 1000 : human.wounds < 977) << human.wounds;
        EXPECT_EQ(human.planeLost, human.damage >= 982) << human.damage;
        EXPECT_LE(human.damage, 1001);
    }

    /// 4 (for a dead man sometimes twice), 16, 7; then the computer's pilots who live, each once.
    void checkEnd() const {
        const auto end = std::find_if(lines.begin(), lines.end(), isOfType(7));
        ASSERT_NE(end, lines.end());
        ASSERT_GT(end - lines.begin(), 2);
        EXPECT_EQ(end->text, "T:" + std::to_string(end->tick) + " AType:7 ");
        const LogLine& body = *(end - 1);
        const LogLine& sortie = *(end - 2);
        EXPECT_TRUE(body.type == 16 && body.tick == end->tick - 1) << body.text;
        EXPECT_TRUE(sortie.type == 4 && sortie.tick == end->tick - 2) << sortie.text;
        EXPECT_EQ(sortie.number("PLID"), human.plane);
        EXPECT_LE(std::count_if(lines.begin(), end, isOfType(4)), human.dead ? 2 : 1);
        std::set<int32_t> living;
        for (auto line = end + 1; line != lines.end(); ++line) {
            EXPECT_EQ(line->tick, end->tick) << line->text;
            EXPECT_TRUE(line->type == 12 || line->type == 4) << line->text;
            const bool isNew = line->type != 4 || living.insert(line->number("PID")).second;
            EXPECT_TRUE(isNew) << line->text;
        }
        for (const auto& [pilot, plane] : planeOfBody)
            EXPECT_EQ(holds(living, pilot), !holds(deadBodies, pilot) && plane != human.plane)
                << pilot;
    }

    const std::vector<LogLine>& lines;
    const HumanPart human;
    std::set<int32_t> named;
    std::map<int32_t, int32_t> planeOfBody;
    std::set<int32_t> deadBodies;
    std::map<int32_t, int32_t> losses; // by what was lost
};

/// Plain text in lines of CR LF after the head. About 1474 ticks a piece, so the bounds widen with
/// their number.
void checkPieces(const std::vector<std::string>& pieces) {
    for (size_t i = 0; i < pieces.size(); ++i) {
        const std::string& piece = pieces[i];
        EXPECT_EQ(piece.rfind(PieceHead, 0), 0U) << "piece " << i;
        for (size_t place = 0; place < piece.size();) {
            const size_t end = piece.find("\r\n", place);
            ASSERT_NE(end, piece.npos) << "piece " << i << " ends inside a line";
            for (; place < end; ++place)
                EXPECT_TRUE(piece[place] >= ' ' && piece[place] <= '~') << i << ", byte " << place;
            place = end + 2;
        }
        for (const LogLine& line : linesOf({piece}))
            EXPECT_TRUE(line.tick >= (i == 0 ? 0 : int32_t(i) * 1450) &&
                        line.tick <= int32_t(i + 1) * 1500)
                << line.text;
    }
}

} // namespace

int32_t LogLine::number(const std::string& key) const {
    const auto found = values.find(key);
    return found == values.end() ? 0 : std::atoi(found->second.c_str());
}

std::vector<std::string> readPieces(const std::string& path) {
    std::vector<std::string> pieces;
    for (;;) {
        const std::string file = path + "[" + std::to_string(pieces.size()) + "].txt";
        if (!std::filesystem::exists(file))
            return pieces;
        pieces.push_back(fileText(file));
    }
}

std::vector<LogLine> linesOf(const std::vector<std::string>& pieces) {
    std::vector<LogLine> lines;
    for (const std::string& piece : pieces)
        for (size_t start = 0; start < piece.size();) {
            const size_t end = std::min(piece.find("\r\n", start), piece.size());
            LogLine line = parse(piece.substr(start, end - start));
            if (line.type != 15)
                lines.push_back(std::move(line));
            start = end + 2;
        }
    return lines;
}

HumanPart humanPartOf(const std::vector<LogLine>& lines) {
    HumanPart part;
    for (const LogLine& line : lines) {
        const int32_t target = line.number("TID");
        if (line.type == 10) {
            part.plane = line.number("PLID");
            part.body = line.number("PID");
        } else if (line.type == 2) {
            const int32_t damage =
                static_cast<int32_t>(std::atof(line.values.at("DMG").c_str()) * 1000 + 0.5);
            (target == part.body ? part.wounds : part.damage) +=
                target == part.body || target == part.plane ? damage : 0;
        } else if (line.type == 3) {
            part.dead = part.dead || target == part.body;
            part.planeLost = part.planeLost || target == part.plane;
        }
        part.finished = part.finished || line.type == 16;
        part.ended = part.ended || line.type == 7;
    }
    return part;
}

void expectRules(const std::vector<std::string>& pieces, bool finished) {
    checkPieces(pieces);
    const std::vector<LogLine> lines = linesOf(pieces);
    Rules(lines).check(finished);
}

} // namespace standin
