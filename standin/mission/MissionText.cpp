#include "standin/mission/MissionText.h"

#include <algorithm>

namespace standin {

namespace {

constexpr std::string_view FirstLine = "# Mission File Version";
constexpr std::string_view LastLine = "# end of file";
// Characters inside quotes that break the loader of the newest game in the simulator's series.
constexpr std::string_view Forbidden = ";={}";
constexpr size_t DeepestNesting = 16; // editor files have four

bool isNameCharacter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') ||
           (character >= '0' && character <= '9') || character == '_';
}

bool isName(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isNameCharacter);
}

std::string_view trimmed(std::string_view text) {
    const size_t start = text.find_first_not_of(' ');
    if (start == text.npos)
        return {};
    return text.substr(start, text.find_last_not_of(' ') - start + 1);
}

std::string quotedName(std::string_view name) { return "'" + std::string(name) + "'"; }

/// Builds the blocks line by line. Each step returns the fault, or an empty text.
class TextParser {
public:
    explicit TextParser(std::vector<MissionBlock>& blocks) : blocks(blocks) {}

    std::string take(std::string_view line, int32_t number);
    std::string finish(int32_t& line) const;

private:
    std::string takeComment(std::string_view line);
    std::string takeStatement(std::string_view statement);
    std::string takeEntry(std::string_view statement, size_t equals);
    std::string takeRow(std::string_view statement);
    std::string open();
    std::string close();
    std::string waitingName() const;

    std::vector<MissionBlock>& blocks;
    std::vector<MissionBlock> stack; // the blocks that are open, outermost first
    std::string pendingName;         // a bare name whose "{" is still to come
    int32_t pendingLine = 0;
    int32_t number = 0;
    bool ended = false;
};

std::string TextParser::take(std::string_view line, int32_t lineNumber) {
    number = lineNumber;
    line = trimmed(line);
    if (number == 1)
        return line.substr(0, FirstLine.size()) == FirstLine
                   ? ""
                   : "a mission begins with '# Mission File Version = 1.0;'";
    if (line.empty())
        return {};
    if (ended)
        return "text after '# end of file'";
    if (line == "{")
        return open();
    if (!pendingName.empty())
        return waitingName();
    if (line == "}")
        return close();
    if (line.front() == '#')
        return takeComment(line);
    if (line.back() == ';')
        return takeStatement(line.substr(0, line.size() - 1));
    if (!isName(line))
        return "the line ends without ';'";
    pendingName = line;
    pendingLine = number;
    return {};
}

std::string TextParser::waitingName() const {
    return quotedName(pendingName) + " in line " + std::to_string(pendingLine) +
           " is neither a block (no '{' follows) nor a line that ends in ';'";
}

std::string TextParser::takeComment(std::string_view line) {
    if (line != LastLine)
        return "only the first and the last line may begin with '#'";
    if (!stack.empty())
        return "the file ends inside the block " + quotedName(stack.back().name) + " of line " +
               std::to_string(stack.back().line);
    ended = true;
    return {};
}

std::string TextParser::takeStatement(std::string_view statement) {
    if (stack.empty())
        return "a line outside of every block";
    const size_t equals = statement.find('=');
    return equals == statement.npos ? takeRow(statement) : takeEntry(statement, equals);
}

std::string TextParser::takeEntry(std::string_view statement, size_t equals) {
    const std::string_view key = trimmed(statement.substr(0, equals));
    const std::string_view value = trimmed(statement.substr(equals + 1));
    if (!isName(key))
        return "no key in front of '='";
    if (value.empty())
        return std::string(key) + " has no value";
    const std::string of = " in the value of " + std::string(key);
    if (const size_t place = value.find_first_of(Forbidden); place != value.npos)
        return quotedName(value.substr(place, 1)) + of;
    if (value.front() == '"') {
        if (value.size() < 2 || value.back() != '"')
            return "no closing quote" + of;
        if (value.find('"', 1) != value.size() - 1)
            return "a quote" + of;
    } else if (value.find('"') != value.npos) {
        return "a quote" + of;
    }
    stack.back().entries.push_back({std::string(key), std::string(value), number});
    return {};
}

std::string TextParser::takeRow(std::string_view statement) {
    if (statement.find_first_of("\";{}") != statement.npos)
        return "neither 'Key = value;' nor a row of numbers";
    MissionRow row;
    row.line = number;
    row.separator = statement.find(':') != statement.npos ? ':' : ',';
    for (size_t start = 0; start <= statement.size();) {
        const size_t end = std::min(statement.find(row.separator, start), statement.size());
        row.values.emplace_back(trimmed(statement.substr(start, end - start)));
        start = end + 1;
    }
    if (row.values.size() < 2)
        return "neither 'Key = value;' nor a row of numbers";
    stack.back().rows.push_back(std::move(row));
    return {};
}

std::string TextParser::open() {
    if (pendingName.empty())
        return "'{' without a block name in the line before";
    if (stack.size() == DeepestNesting)
        return "blocks are nested too deep";
    MissionBlock block;
    block.name = std::move(pendingName);
    block.line = pendingLine;
    pendingName.clear();
    stack.push_back(std::move(block));
    return {};
}

std::string TextParser::close() {
    if (stack.empty())
        return "'}' without an open block";
    MissionBlock block = std::move(stack.back());
    stack.pop_back();
    (stack.empty() ? blocks : stack.back().children).push_back(std::move(block));
    return {};
}

std::string TextParser::finish(int32_t& line) const {
    if (!pendingName.empty()) {
        line = pendingLine;
        return waitingName();
    }
    if (!stack.empty()) {
        line = stack.back().line;
        return "the block " + quotedName(stack.back().name) + " is never closed";
    }
    return ended ? "" : "the file ends without '# end of file'";
}

std::string checkCharacters(std::string_view line) {
    for (const char character : line) {
        if (character == '\t')
            return "a tab; indent with blanks";
        if (character == '\r')
            return "a carriage return inside the line";
        if (character < ' ' || character > '~')
            return "a character outside of printable ASCII";
    }
    return {};
}

} // namespace

bool refuse(tools::Finding& finding, int32_t line, std::string_view reason) {
    finding = {"", line, reason};
    return false;
}

const MissionEntry* MissionBlock::find(std::string_view key) const {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const MissionEntry& entry) { return entry.key == key; });
    return found == entries.end() ? nullptr : &*found;
}

const MissionBlock* MissionBlock::child(std::string_view childName) const {
    const auto found =
        std::find_if(children.begin(), children.end(),
                     [&](const MissionBlock& block) { return block.name == childName; });
    return found == children.end() ? nullptr : &*found;
}

bool parseMissionText(std::string_view text, std::vector<MissionBlock>& blocks,
                      tools::Finding& finding) {
    blocks.clear();
    TextParser parser(blocks);
    int32_t number = 0;
    for (size_t start = 0; start < text.size();) {
        const size_t feed = text.find('\n', start);
        const bool isLast = feed == text.npos;
        const size_t end = isLast ? text.size() : feed;
        const bool isComplete = !isLast && end > start && text[end - 1] == '\r';
        const std::string_view line = text.substr(start, end - start - (isComplete ? 1 : 0));
        finding.line = ++number;
        finding.message = checkCharacters(line);
        if (finding.message.empty() && !isComplete && !(isLast && trimmed(line) == LastLine))
            finding.message = isLast ? "the file breaks off inside a line"
                                     : "the line ends in a bare line feed, not in CR LF";
        if (finding.message.empty())
            finding.message = parser.take(line, number);
        if (!finding.message.empty())
            return false;
        start = end + 1;
    }
    finding.line = std::max(number, 1);
    finding.message = number == 0 ? "the file is empty" : parser.finish(finding.line);
    return finding.message.empty();
}

bool unquoted(std::string_view value, std::string& text) {
    if (value.size() < 2 || value.front() != '"' || value.back() != '"')
        return false;
    text = value.substr(1, value.size() - 2);
    return true;
}

} // namespace standin
