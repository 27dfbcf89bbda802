#include "tools/datacheck/OtherFiles.h"

#include <algorithm>
#include <set>
#include <string>

#include "tools/datacheck/PilotCheck.h"

namespace datacheck {

namespace {

constexpr const char* Nations[] = {"France", "England", "Germany", "USA"};

/// The longest name of the list, as the line that holds it.
struct Longest {
    zel::String file;
    TextLine line{1, {}};
};

Longest checkList(const zel::String& file, Faults& faults) {
    Longest longest{file};
    std::set<std::string> seen;
    for (const TextLine& line : readText(file, faults)) {
        const std::string_view name = line.text.view();
        const zel::String reason = whyNoName(name);
        if (!reason.empty() && isPlain(name)) // the others have been reported
            faults.push_back({file, line.number, reason});
        if (!seen.insert(line.text.toLower().c_str()).second)
            faults.push_back({file, line.number, line.text + " is there twice: take one out"});
        if (line.text.length() > longest.line.text.length())
            longest.line = line;
    }
    return longest;
}

/// A block of mission text with the keys that matter here.
struct Block {
    zel::String type; // lowered
    int32_t line = 0;
    std::set<std::string> keys; // lowered
    zel::String index;
};

/// The blocks at the top level, in their order. Keys of blocks inside a block are not looked at.
std::vector<Block> readBlocks(const zel::String& file, Faults& faults) {
    std::vector<Block> blocks;
    int32_t depth = 0;
    TextLine previous{1, {}};
    for (const TextLine& line : readText(file, faults)) {
        const std::string_view text = line.text.view();
        const size_t sign = std::min(text.find('='), text.size());
        const zel::String key =
            zel::String(zel::trimmed(zel::trimmed(text.substr(0, sign), ' '), '\t')).toLower();
        if (key == "{" && ++depth == 1) {
            blocks.emplace_back();
            blocks.back().type = previous.text.trim(' ').trim('\t').toLower();
            blocks.back().line = previous.number;
        } else if (key == "}") {
            --depth;
        } else if (depth == 1) {
            blocks.back().keys.insert(key.c_str());
            if (key == "index" && sign < text.size())
                blocks.back().index = zel::String(text.substr(sign + 1)).trim(' ').trim(';');
        }
        previous = line;
    }
    if (depth != 0)
        faults.push_back(
            {file, previous.number, "the braces \"{\" and \"}\" don't pair: mend them"});
    return blocks;
}

void checkIndices(const zel::String& file, const std::vector<Block>& blocks, Faults& faults) {
    std::set<int32_t> seen;
    for (const Block& block : blocks) {
        if (block.type == "options")
            continue;
        if (block.index.toInt() < 1)
            faults.push_back({file, block.line, "the block has no Index above 0: write one"});
        else if (!seen.insert(block.index.toInt()).second)
            faults.push_back(
                {file, block.line, "the block's Index " + block.index + " is there twice"});
        if (block.type.left(4) != "mcu_")
            faults.push_back(
                {file, block.line,
                 "the block is no logic block (MCU_...) and would stay behind when the "
                 "mission is moved: take it out"});
    }
}

void checkAttackArea(const zel::String& file, const std::vector<Block>& blocks, Faults& faults) {
    const auto isArea = [](const Block& block) { return block.type == "mcu_cmd_attackarea"; };
    const auto area = std::find_if(blocks.begin(), blocks.end(), isArea);
    if (area == blocks.end()) {
        faults.push_back({file, 1, "there is no attack area: add a block MCU_CMD_AttackArea"});
        return;
    }
    const auto second = std::find_if(area + 1, blocks.end(), isArea);
    if (second != blocks.end())
        faults.push_back({file, second->line, "a second attack area: leave one"});
    for (const char* key : {"name", "xpos", "ypos", "zpos", "objects"})
        if (area->keys.count(key) == 0)
            faults.push_back(
                {file, area->line, zel::String("the attack area has no line ") + key + ": add it"});
    // The reader takes a block without a name for another of the kind before it.
    if (area + 1 != blocks.end() && area[1].keys.count("name") == 0)
        faults.push_back({file, area[1].line,
                          "a block without Name stands right behind the attack area and would be "
                          "taken for it: move it to the front"});
}

} // namespace

void checkNames(const zel::String& dataFolder, Faults& faults) {
    for (const char* nation : Nations) {
        const zel::String start = dataFolder + "/Names/" + nation;
        const Longest first = checkList(start + "_1st.txt", faults);
        const Longest last = checkList(start + "_2nd.txt", faults);
        const int32_t length = first.line.text.length() + 1 + last.line.text.length();
        if (length > LongestPilotName)
            faults.push_back({first.file, first.line.number,
                              first.line.text + " " + last.line.text + " has " + length +
                                  " characters, at most " + LongestPilotName +
                                  " fit into the simulator: take the longest names out"});
    }
}

void checkTemplate(const zel::String& dataFolder, Faults& faults) {
    const zel::String file = dataFolder + "/Missions/GenericTemplate.Mission";
    const size_t before = faults.size();
    const std::vector<Block> blocks = readBlocks(file, faults);
    if (blocks.empty()) {
        if (faults.size() == before)
            faults.push_back({file, 1, "the file holds no blocks: it is no mission"});
        return;
    }
    if (blocks[0].type != "options")
        faults.push_back({file, blocks[0].line, "the first block must be Options"});
    checkIndices(file, blocks, faults);
    checkAttackArea(file, blocks, faults);
    const bool begins = std::any_of(blocks.begin(), blocks.end(), [](const Block& block) {
        return block.type == "mcu_tr_missionbegin";
    });
    if (!begins)
        faults.push_back({file, 1, "nothing starts the fight: add a block MCU_TR_MissionBegin"});
}

} // namespace datacheck
