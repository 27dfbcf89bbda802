#include "engine/core/WholeFile.h"

#include <algorithm>
#include <charconv>

#include "engine/core/Directory.h"
#include "engine/core/System.h"

namespace zel {

namespace {

constexpr std::string_view DraftEnding = ".new";
constexpr int32_t MostDrafts = 100; // left by an earlier process with this one's id

size_t nameStart(std::string_view path) {
    const size_t separator = path.find_last_of("\\/");
    return separator == path.npos ? 0 : separator + 1;
}

/// Empty for the current folder.
String folderOf(const String& path) { return path.view().substr(0, nameStart(path)); }

/// The process that wrote a draft; 0 for one without a number. `rest`: the name between that of
/// the file and the ending.
uint32_t draftProcess(std::string_view rest) {
    uint32_t process = 0;
    if (!rest.empty() && rest.front() == '.')
        std::from_chars(rest.data() + 1, rest.data() + rest.size(), process);
    return process;
}

/// Whether that is the middle of a draft's name: nothing, or ".PROCESS-NUMBER".
bool isDraftMiddle(std::string_view rest) {
    return rest.empty() || (rest.front() == '.' && rest.size() > 1 &&
                            rest.find_first_not_of("0123456789-", 1) == rest.npos);
}

bool createDraft(system::NewFile& file, const String& target, String& draft) {
    const String start = target + "." + std::to_string(system::processId()) + "-";
    for (int32_t number = 1; number <= MostDrafts; ++number) {
        draft = start + number + String(DraftEnding);
        if (file.create(draft))
            return true;
        if (system::lastFault() != FileFault::Exists)
            break;
    }
    draft = "";
    return false;
}

bool isOfAnEndedProgram(uint32_t process) {
    return process == 0 || process == system::processId() || !system::isProcessRunning(process);
}

} // namespace

WholeFile::WholeFile(const String& name) : target(system::linkTarget(name)) {}

WholeFile::~WholeFile() {
    if (!draft.empty())
        system::removeFile(draft);
}

bool WholeFile::fail() {
    why = system::lastFault();
    if (!draft.empty())
        system::removeFile(draft);
    draft = "";
    return false;
}

bool WholeFile::write(std::string_view content) {
    system::NewFile file;
    const bool isWritten = createDraft(file, target, draft) &&
                           (!system::fileStatus(target).exists || file.copyPermissions(target)) &&
                           file.write(content) && file.sync() && file.close();
    return isWritten || fail();
}

bool WholeFile::commit(const String& backup) {
    const bool isRenamed = backup.empty() ? system::replaceFile(draft, target)
                                          : system::replaceFileKeeping(draft, target, backup);
    if (!isRenamed)
        return fail();
    draft = "";
    const String folder = folderOf(target);
    const String backupFolder = folderOf(backup);
    if (!system::syncFolder(folder) ||
        (!backup.empty() && backupFolder != folder && !system::syncFolder(backupFolder)))
        return fail();
    for (const String& left : leftDrafts(target))
        system::removeFile(left);
    return true;
}

FileFault writeFileWhole(const String& name, std::string_view content, const String& backup) {
    WholeFile file(name);
    if (file.write(content) && file.commit(backup))
        return FileFault::None;
    return file.fault();
}

std::vector<String> leftDrafts(const String& name) {
    const String target = system::linkTarget(name);
    const String folder = folderOf(target);
    const std::string_view own = target.view().substr(nameStart(target));
    std::vector<system::DirectoryEntry> entries;
    system::listDirectory(folder, entries);
    std::vector<std::pair<int64_t, String>> found;
    for (const system::DirectoryEntry& entry : entries) {
        const std::string_view file = entry.name;
        if (entry.isDirectory || file.size() < own.size() + DraftEnding.size() ||
            !equalsNoCase(file.substr(0, own.size()), own) ||
            file.substr(file.size() - DraftEnding.size()) != DraftEnding)
            continue;
        const std::string_view rest =
            file.substr(own.size(), file.size() - own.size() - DraftEnding.size());
        if (isDraftMiddle(rest) && isOfAnEndedProgram(draftProcess(rest)))
            found.emplace_back(system::fileStatus(folder + entry.name).changed,
                               folder + entry.name);
    }
    std::sort(found.begin(), found.end(),
              [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<String> paths;
    paths.reserve(found.size());
    for (const auto& [changed, path] : found)
        paths.push_back(path);
    return paths;
}

void removeLeftDrafts(const String& folder, std::string_view except) {
    std::vector<system::DirectoryEntry> entries;
    if (system::isDirectory(folder))
        system::listDirectory(folder, entries);
    for (const system::DirectoryEntry& entry : entries) {
        std::string_view name = entry.name;
        if (entry.isDirectory || name.size() < DraftEnding.size() ||
            name.substr(name.size() - DraftEnding.size()) != DraftEnding)
            continue;
        name.remove_suffix(DraftEnding.size());
        const size_t middle = std::min(name.rfind('.'), name.size());
        const uint32_t process = draftProcess(name.substr(middle));
        if (process != 0 && isDraftMiddle(name.substr(middle)) && isOfAnEndedProgram(process) &&
            name.substr(0, middle) != except)
            system::removeFile(folder + "/" + entry.name);
    }
}

} // namespace zel
