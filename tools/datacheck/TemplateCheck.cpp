#include "tools/datacheck/TemplateCheck.h"

#include <algorithm>
#include <set>
#include <string>

namespace datacheck {

namespace {

/// A block of the template with the keys that matter here.
struct TemplateBlock {
    zel::String type; // lowered
    int32_t line = 0;
    std::set<zel::String> keys; // lowered
    zel::String index;
};
using TemplateBlocks = std::vector<TemplateBlock>;

/// The top-level blocks, in order, without the keys of nested blocks.
TemplateBlocks readBlocks(const zel::String& file, Findings& findings) {
    TemplateBlocks blocks;
    int32_t depth = 0;
    TextLine previous{1, {}};
    for (const TextLine& line : readText(file, findings)) {
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
            blocks.back().keys.insert(key);
            if (key == "index" && sign < text.size())
                blocks.back().index = zel::String(text.substr(sign + 1)).trim(' ').trim(';');
        }
        previous = line;
    }
    if (depth != 0)
        findings.emplace_back(file, previous.number, "the braces \"{\" and \"}\" don't match");
    return blocks;
}

void checkIndices(const zel::String& file, const TemplateBlocks& blocks, Findings& findings) {
    std::set<int32_t> seen;
    for (const TemplateBlock& block : blocks) {
        if (block.type == "options")
            continue;
        if (block.index.toInt() < 1)
            findings.emplace_back(file, block.line, "the block has no Index above 0", "write one");
        else if (!seen.insert(block.index.toInt()).second)
            findings.emplace_back(file, block.line,
                                  "the block's Index " + block.index + " occurs twice");
        if (block.type.left(4) != "mcu_")
            findings.emplace_back(file, block.line,
                                  "the block is not logic (MCU_...) and would stay where it is "
                                  "when the mission is moved",
                                  "remove it");
    }
}

void checkAttackArea(const zel::String& file, const TemplateBlocks& blocks, Findings& findings) {
    const auto isArea = [](const TemplateBlock& block) {
        return block.type == "mcu_cmd_attackarea";
    };
    const auto area = std::find_if(blocks.begin(), blocks.end(), isArea);
    if (area == blocks.end()) {
        findings.emplace_back(file, 0, "there is no attack area", "add a block MCU_CMD_AttackArea");
        return;
    }
    const auto second = std::find_if(area + 1, blocks.end(), isArea);
    if (second != blocks.end())
        findings.emplace_back(file, second->line, "a second attack area", "leave one");
    for (const char* key : {"name", "xpos", "ypos", "zpos", "objects"})
        if (area->keys.count(key) == 0)
            findings.emplace_back(file, area->line,
                                  zel::String("the attack area has no line ") + key, "add it");
    // The generator gives an unnamed block the name and type of the one before it.
    if (area + 1 != blocks.end() && area[1].keys.count("name") == 0)
        findings.emplace_back(file, area[1].line,
                              "a block without Name follows the attack area and would be taken "
                              "for it",
                              "move it to the front");
}

} // namespace

void checkTemplate(const zel::String& dataFolder, Findings& findings) {
    const zel::String file = dataFolder + "/Missions/GenericTemplate.Mission";
    const size_t before = findings.size();
    const TemplateBlocks blocks = readBlocks(file, findings);
    if (blocks.empty()) {
        if (findings.size() == before)
            findings.emplace_back(file, 0, "the file has no blocks and is not a mission");
        return;
    }
    if (blocks[0].type != "options")
        findings.emplace_back(file, blocks[0].line, "the first block must be Options");
    checkIndices(file, blocks, findings);
    checkAttackArea(file, blocks, findings);
    const auto isBegin = [](const TemplateBlock& block) {
        return block.type == "mcu_tr_missionbegin";
    };
    if (std::none_of(blocks.begin(), blocks.end(), isBegin))
        findings.emplace_back(file, 0, "nothing starts the fight",
                              "add a block MCU_TR_MissionBegin");
}

} // namespace datacheck
