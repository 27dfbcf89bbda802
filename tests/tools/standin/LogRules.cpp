#include "tests/tools/standin/LogRules.h"

#include <algorithm>
#include <cstdlib>
#include <set>

#include <gtest/gtest.h>

namespace standin {

namespace {

constexpr const char* PieceHead = "T:0 AType:15 VER:18\r\n";

bool holds(const std::set<int32_t>& set, int32_t id) { return set.count(id) != 0; }

LogLine parse(const std::string& text) {
    LogLine line;
    line.text = text;
    std::string key;
    size_t start = 0;
    for (size_t place = 0; place <= text.size();) {
        const size_t blank = std::min(text.find(' ', place), text.size());
        const size_t colon = text.find(':', place);
        if (colon < blank) {
            if (!key.empty())
                line.values[key] = text.substr(start, place - 1 - start);
            key = text.substr(place, colon - place);
            start = colon + 1;
        }
        place = blank + 1;
    }
    if (!key.empty())
        line.values[key] = text.substr(start);
    line.tick = line.number("T");
    line.type = line.number("AType");
    return line;
}

/// What the rules ask about, gathered line by line.
class Rules {
public:
    explicit Rules(const std::vector<LogLine>& lines) : lines(lines), human(humanPartOf(lines)) {}

    void check(bool finished);

private:
    void checkStart();
    void checkNames();
    void checkFights();
    void checkHumanSums() const;
    void checkEnd();
    void checkTarget(const LogLine& line);

    const std::vector<LogLine>& lines;
    const HumanPart human;
    std::set<int32_t> named;
    std::map<int32_t, int32_t> planeOfBody;
    std::set<int32_t> deadBodies;
    std::map<int32_t, int32_t> losses; // by what was lost
};

void Rules::check(bool finished) {
    checkStart();
    checkNames();
    checkFights();
    checkHumanSums();
    EXPECT_EQ(human.ended, finished);
    EXPECT_EQ(human.finished, finished);
    if (finished)
        checkEnd();
    for (size_t i = 1; i < lines.size(); ++i)
        EXPECT_GE(lines[i].tick, lines[i - 1].tick) << lines[i].text;
}

/// 0, the flights, and at tick 5 the human's plane, body and sortie, one behind the other.
void Rules::checkStart() {
    ASSERT_GT(lines.size(), 5U);
    EXPECT_EQ(lines[0].type, 0);
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), [](auto& line) { return line.type == 0; }),
              1);
    size_t i = 1;
    for (; lines[i].type == 11; ++i)
        EXPECT_EQ(lines[i].tick, 1);
    EXPECT_GT(i, 2U) << "two flights at least";
    ASSERT_LT(i + 2, lines.size());
    for (const size_t k : {i, i + 1, i + 2})
        EXPECT_EQ(lines[k].tick, 5);
    EXPECT_EQ(lines[i].type * 10000 + lines[i + 1].type * 100 + lines[i + 2].type, 121210);
    EXPECT_EQ(lines[i].number("ID"), lines[i + 2].number("PLID"));
    EXPECT_EQ(lines[i + 1].number("ID"), lines[i + 2].number("PID"));
    EXPECT_EQ(lines[i + 1].number("PID"), lines[i].number("ID"));
    const auto isPlace = [](auto& line) { return line.type == 17; };
    const auto first = std::find_if(lines.begin(), lines.end(), isPlace);
    ASSERT_NE(first, lines.end());
    EXPECT_EQ(first->tick, 58);
}

/// Each object has one line of type 12, in front of the first that tells of it.
void Rules::checkNames() {
    for (const LogLine& line : lines) {
        if (line.type != 12)
            for (const char* key : {"AID", "TID", "ID", "PLID", "BOTID", "PID"}) {
                const bool names = line.values.count(key) != 0 && line.number(key) != -1;
                EXPECT_TRUE(!names || holds(named, line.number(key))) << line.text;
            }
        if (line.type != 12)
            continue;
        const int32_t id = line.number("ID");
        const int32_t parent = line.number("PID");
        EXPECT_TRUE(named.insert(id).second) << "named twice: " << line.text;
        EXPECT_GT(id, 9999);
        EXPECT_LT(id, 10000000);
        EXPECT_LE(line.values.at("NAME").size(), 31U);
        if (parent == -1)
            continue;
        EXPECT_EQ(line.values.at("TYPE"), "Common Bot");
        EXPECT_EQ(line.values.at("NAME"), "");
        EXPECT_TRUE(holds(named, parent)) << "a body before its plane: " << line.text;
        planeOfBody[id] = parent;
    }
}

void Rules::checkTarget(const LogLine& line) {
    const int32_t attacker = line.number("AID");
    const int32_t target = line.number("TID");
    EXPECT_NE(target, -1) << line.text;
    EXPECT_NE(attacker, target) << line.text;
    EXPECT_EQ(planeOfBody.count(attacker), 0U) << "a body attacks: " << line.text;
    const auto isHuman = [&](int32_t id) { return id == human.plane || id == human.body; };
    EXPECT_TRUE(line.type == 3 || isHuman(attacker) || isHuman(target)) << line.text;
    EXPECT_TRUE(line.type != 1 || attacker != -1) << line.text;
    if (line.type != 3)
        return;
    const bool isBody = planeOfBody.count(target) != 0;
    EXPECT_LE(++losses[target], isBody ? 1 : 2) << line.text;
    if (isBody)
        deadBodies.insert(target);
}

/// Hits and damage with a human part alone; take-offs, landings, places and bodies his alone.
void Rules::checkFights() {
    for (const LogLine& line : lines) {
        if (line.type >= 1 && line.type <= 3)
            checkTarget(line);
        const bool isSpaced = line.text.find(", ") != std::string::npos;
        EXPECT_EQ(isSpaced, line.type == 5 || line.type == 6) << line.text;
        if (line.type == 5 || line.type == 6) {
            EXPECT_EQ(line.number("PID"), human.plane) << line.text;
        } else if (line.type == 17) {
            EXPECT_EQ(line.number("ID"), human.plane) << line.text;
        } else if (line.type == 16) {
            EXPECT_EQ(line.number("BOTID"), human.body) << line.text;
        }
        if (line.type == 2) {
            const double damage = std::atof(line.values.at("DMG").c_str());
            EXPECT_GE(damage, 0.005) << line.text;
            EXPECT_LE(damage, 1.0) << line.text;
        }
    }
}

/// The damage of a plane or a man comes to about 1 when it is the end of him, and not before.
void Rules::checkHumanSums() const {
    if (human.dead) {
        EXPECT_EQ(human.wounds, 1000);
    } else {
        EXPECT_LT(human.wounds, 977);
    }
    if (human.planeLost) {
        EXPECT_GE(human.damage, 982);
        EXPECT_LE(human.damage, 1001);
    } else {
        EXPECT_LT(human.damage, 982);
    }
}

/// 4 (for a dead man sometimes twice), 16, 7; then the computer's pilots who live, each once.
void Rules::checkEnd() {
    const auto isEnd = [](const LogLine& line) { return line.type == 7; };
    const auto end = std::find_if(lines.begin(), lines.end(), isEnd);
    ASSERT_NE(end, lines.end());
    ASSERT_GT(end - lines.begin(), 2);
    EXPECT_EQ(end->text, "T:" + std::to_string(end->tick) + " AType:7 ");
    const LogLine& body = *(end - 1);
    const LogLine& sortie = *(end - 2);
    EXPECT_EQ(body.type, 16);
    EXPECT_EQ(body.tick, end->tick - 1);
    EXPECT_EQ(sortie.type, 4);
    EXPECT_EQ(sortie.tick, end->tick - 2);
    EXPECT_EQ(sortie.number("PLID"), human.plane);
    const auto sorties =
        std::count_if(lines.begin(), end, [](const LogLine& line) { return line.type == 4; });
    EXPECT_LE(sorties, human.dead ? 2 : 1);
    std::set<int32_t> living;
    for (auto line = end + 1; line != lines.end(); ++line) {
        EXPECT_EQ(line->tick, end->tick) << line->text;
        EXPECT_TRUE(line->type == 12 || line->type == 4) << line->text;
        const bool isNew = line->type != 4 || living.insert(line->number("PID")).second;
        EXPECT_TRUE(isNew) << line->text;
    }
    for (const auto& [pilot, plane] : planeOfBody)
        EXPECT_EQ(holds(living, pilot), !holds(deadBodies, pilot) && plane != human.plane) << pilot;
}

void checkPieces(const std::vector<std::string>& pieces) {
    for (size_t i = 0; i < pieces.size(); ++i) {
        const std::string& piece = pieces[i];
        EXPECT_EQ(piece.rfind(PieceHead, 0), 0U) << "piece " << i;
        ASSERT_GE(piece.size(), 2U);
        EXPECT_EQ(piece.substr(piece.size() - 2), "\r\n") << "piece " << i;
        for (size_t place = 0; place < piece.size(); ++place) {
            const char character = piece[place];
            const bool isEnd = character == '\n' && piece[place - 1] == '\r';
            const bool beforeEnd = character == '\r' && piece[place + 1] == '\n';
            EXPECT_TRUE(isEnd || beforeEnd || (character >= ' ' && character <= '~'))
                << "piece " << i << ", byte " << place;
        }
        // About 1474 ticks a piece, so the bounds widen with their number.
        const int32_t low = static_cast<int32_t>(i) * 1450;
        const int32_t high = static_cast<int32_t>(i + 1) * 1500;
        for (const LogLine& line : linesOf({piece})) {
            EXPECT_GE(line.tick, i == 0 ? 0 : low) << line.text;
            EXPECT_LE(line.tick, high) << line.text;
        }
    }
}

} // namespace

int32_t LogLine::number(const std::string& key) const {
    const auto found = values.find(key);
    return found == values.end() ? 0 : std::atoi(found->second.c_str());
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
