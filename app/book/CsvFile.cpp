#include "app/book/CsvFile.h"

#include <algorithm>

#include "app/career/Calendar.h"
#include "engine/core/Log.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/TextEncoding.h"

namespace {

constexpr int32_t LongestTable = 16 << 20; // bytes

std::vector<std::string> namesIn(std::string_view header) {
    std::vector<std::string> names(1);
    for (const char c : header)
        if (c == ',')
            names.emplace_back();
        else
            names.back() += c;
    return names;
}

/// Whether the header matches; "text_*" matches any number of columns that begin with "text_".
bool fits(const std::vector<std::string>& names, const std::vector<std::string>& wanted) {
    size_t at = 0;
    for (const std::string& name : wanted) {
        if (name.back() == '*')
            while (at < names.size() && names[at].rfind(name.substr(0, name.size() - 1), 0) == 0)
                ++at;
        else if (at == names.size() || names[at++] != name)
            return false;
    }
    return at == names.size();
}

} // namespace

CsvFile::CsvFile(const zel::String& name, std::string_view header, bool mayBeMissing) : name(name) {
    if (!zel::readTextFile(name, LongestTable, content)) {
        content.clear();
        if (!mayBeMissing)
            zel::log("The table " + name + " can't be read", "Book", zel::LogWarning);
        return;
    }
    place = std::min(content.find_first_of("\r\n"), content.size());
    names = namesIn(std::string_view(content).substr(0, place));
    if (fits(names, namesIn(header)))
        return;
    names.clear();
    zel::log("The table " + name + " must begin with \"" + zel::String(header) + "\"", "Book",
             zel::LogWarning);
    content.clear();
}

bool CsvFile::next() {
    while (place < content.size()) {
        // The end of the line before.
        place += content.compare(place, 2, "\r\n") == 0 ? 2 : 1;
        line += line == 0 ? 2 : 1;
        const size_t end = std::min(content.find_first_of("\r\n", place), content.size());
        const std::string_view row = std::string_view(content).substr(place, end - place);
        place = end;
        if (row.empty())
            continue;
        if (split(row) && fields.size() == names.size())
            return true;
        logRow("the row must have " + zel::String(int32_t(names.size())) + " fields");
    }
    return false;
}

/// False for a quote that has no end.
bool CsvFile::split(std::string_view row) {
    fields.assign(1, {});
    bool isQuoted = false;
    for (size_t i = 0; i < row.size(); ++i) {
        const bool isDoubled = isQuoted && row.substr(i, 2) == "\"\"";
        if (isDoubled)
            fields.back() += row[i++];
        else if (row[i] == '"')
            isQuoted = !isQuoted;
        else if (row[i] == ',' && !isQuoted)
            fields.emplace_back();
        else
            fields.back() += row[i];
    }
    return !isQuoted;
}

int32_t CsvFile::number(size_t field) const {
    if (fields[field].find_first_not_of("0123456789") == std::string::npos)
        return zel::toInt(fields[field]);
    logRow("\"" + zel::String(fields[field]) + "\" is not a number");
    return 0;
}

int32_t CsvFile::date(size_t field) const {
    const int32_t number = zel::toInt(fields[field]);
    const int32_t day = number % 100;
    if (fields[field].size() == 8 && day >= 1 &&
        day <= Calendar::daysInMonth(number / 10000, number / 100 % 100))
        return number;
    logRow("\"" + zel::String(fields[field]) + "\" is not a date");
    return 0;
}

void CsvFile::logRow(const zel::String& what) const {
    zel::log(name + ", line " + line + ": " + what, "Book", zel::LogWarning);
}
