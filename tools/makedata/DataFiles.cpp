#include "tools/makedata/DataFiles.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace fs = std::filesystem;

namespace tables {

namespace {

constexpr const char* SquadronFolder = "Historical/Squadrons";
constexpr const char* PilotFolder = "Historical/Pilots";
constexpr const char* NameFolder = "Names";
constexpr const char* LineEnd = "\r\n";

/// The lines of each file, with the dates that they are sorted by.
using DatedLines = std::map<std::string, std::vector<std::pair<std::string, std::string>>>;

std::string datedStart(const std::string& from, const std::string& until, const char* action) {
    return "date=" + from + " until=" + until + " action=" + action;
}

void addFiles(DatedLines& lines, const std::string& folder, FileSet& files) {
    for (auto& [name, dated] : lines) {
        std::stable_sort(dated.begin(), dated.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        std::string& content = files[std::string(folder).append("/").append(name).append(".txt")];
        for (const auto& [date, line] : dated)
            content.append(line).append(LineEnd);
    }
}

DatedLines squadronLines(const Tables& tables) {
    DatedLines lines;
    for (const SquadronRow& row : tables.squadrons) {
        const char* const action = row.aircraft.empty() ? "unit" : "skin";
        std::string line = row.from.empty() ? std::string("action=") + action
                                            : datedStart(row.from, row.until, action);
        if (!row.aircraft.empty())
            line += " aircraft=" + row.aircraft;
        if (!row.skin.empty())
            line += " skin=" + row.skin;
        lines[row.key].emplace_back(row.from, line);
    }
    return lines;
}

DatedLines pilotLines(const Tables& tables) {
    DatedLines lines;
    for (const PostingRow& row : tables.postings) {
        std::string line = datedStart(row.from, row.until, "transfer") + " unit=" + row.key +
                           " acelevel=" + row.aceLevel;
        if (!row.acePotential.empty())
            line += " acepotential=" + row.acePotential;
        lines[row.name].emplace_back(row.from, line);
    }
    return lines;
}

bool holdsAlready(const fs::path& path, const std::string& content) {
    std::ifstream stream(path, std::ios::binary);
    return stream && std::string(std::istreambuf_iterator<char>(stream), {}) == content;
}

tools::Findings unwritable(const fs::path& path, const std::string& reason) {
    return {{path.string(), 0, reason}};
}

tools::Findings writeFile(const fs::path& path, const std::string& content) {
    if (holdsAlready(path, content))
        return {};
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream << content;
    stream.close();
    return stream ? tools::Findings() : unwritable(path, "the file can't be written");
}

/// Removes the files of the folder that are not in the set. name: the folder's name in the set.
tools::Findings removeStale(const fs::path& folder, const std::string& name, const FileSet& files) {
    std::error_code error;
    std::vector<fs::path> stale;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code unread;
        if (entry->is_regular_file(unread) &&
            files.count(name + "/" + entry->path().filename().string()) == 0)
            stale.push_back(entry->path());
    }
    for (const fs::path& path : stale)
        if (!error)
            fs::remove(path, error);
    return error ? unwritable(folder, error.message()) : tools::Findings();
}

} // namespace

FileSet makeFiles(const Tables& tables) {
    FileSet files;
    DatedLines squadrons = squadronLines(tables);
    addFiles(squadrons, SquadronFolder, files);
    DatedLines pilots = pilotLines(tables);
    addFiles(pilots, PilotFolder, files);
    for (const NameList& list : tables.nameLists) {
        std::string& content = files[std::string(NameFolder) + "/" + list.file];
        for (const std::string& name : list.names)
            content.append(name).append(LineEnd);
    }
    return files;
}

tools::Findings writeFiles(const FileSet& files, const std::string& folder) {
    for (const char* name : {SquadronFolder, PilotFolder, NameFolder}) {
        const fs::path path = fs::path(folder) / name;
        std::error_code error;
        fs::create_directories(path, error);
        if (error)
            return unwritable(path, error.message());
        if (tools::Findings findings = removeStale(path, name, files); !findings.empty())
            return findings;
    }
    for (const auto& [name, content] : files)
        if (tools::Findings findings = writeFile(fs::path(folder) / name, content);
            !findings.empty())
            return findings;
    return {};
}

} // namespace tables
