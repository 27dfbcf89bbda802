#include "tools/makedata/TableText.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>

namespace tables {

namespace {

std::vector<std::string> split(const std::string& text, char delimiter) {
    std::vector<std::string> parts(1);
    for (char character : text) {
        if (character == delimiter)
            parts.emplace_back();
        else
            parts.back() += character;
    }
    return parts;
}

bool hasBlankAtEnd(const std::string& field) {
    return !field.empty() && (field.front() == ' ' || field.back() == ' ');
}

} // namespace

LineSource::LineSource(const std::string& folder, const std::string& file,
                       tools::Findings& findings)
    : file(file), path(folder + "/" + file), findings(findings) {
    std::ifstream stream(std::filesystem::path(folder) / file, std::ios::binary);
    if (!stream)
        findings.emplace_back(path, 0, "the file can't be read");
    for (std::string text; std::getline(stream, text);) {
        if (!text.empty() && text.back() == '\r')
            text.pop_back();
        lines.push_back(text);
    }
}

void LineSource::report(size_t index, const std::string& message, const std::string& suggestion) {
    findings.emplace_back(path, static_cast<int32_t>(index) + 1, message, suggestion);
}

CsvTable::CsvTable(const std::string& folder, const std::string& file, std::string_view header,
                   tools::Findings& findings)
    : LineSource(folder, file, findings) {
    if (lines.empty())
        return;
    if (lines[0] != header) {
        report(0, "the header must be \"" + std::string(header) + "\"");
        return;
    }
    const size_t fieldCount = split(lines[0], ',').size();
    for (size_t i = 1; i < lines.size(); ++i)
        addRow(i, fieldCount);
}

void CsvTable::addRow(size_t index, size_t fieldCount) {
    const std::string& line = lines[index];
    const auto isPlain = [](char character) { return character >= ' ' && character <= '~'; };
    if (!std::all_of(line.begin(), line.end(), isPlain))
        return report(index, "a character outside of ASCII");
    std::vector<std::string> fields = split(line, ',');
    if (fields.size() != fieldCount)
        return report(index, std::to_string(fields.size()) + " fields instead of " +
                                 std::to_string(fieldCount));
    for (const std::string& field : fields)
        if (hasBlankAtEnd(field))
            return report(index, "blanks around \"" + field + "\"");
    rows.push_back({index, std::move(fields)});
}

} // namespace tables
