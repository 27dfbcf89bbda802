#include "app/career/SavePages.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>

#include "app/career/Checksum.h"
#include "app/career/UnrecordedSaves.h"
#include "app/career/Wording.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"

namespace {

constexpr const char* DamagedMark = "damaged"; // in place of the checksum
constexpr std::string_view RecordStart = "record ";
constexpr std::string_view RecordEnding = ".db";
constexpr size_t LastPages = 10; // that are kept whatever their date

/// A file of the folder Pages, by its name: "0012 19170610 0123456789abcdef.wty". The later page
/// has the higher number.
struct PageFile {
    int32_t number = 0;
    int32_t date = 0;     // yyyymmdd
    std::string checksum; // or DamagedMark

    bool wasWhole() const { return checksum != DamagedMark; }
    int32_t month() const { return date / 100; }
    zel::String name() const {
        char text[64];
        std::snprintf(text, sizeof text, "%04d %08d %.16s.wty", number, date, checksum.c_str());
        return text;
    }
};

zel::String folderOf(const zel::String& path) {
    const std::string_view text = path;
    return text.substr(0, text.find_last_of("\\/") + 1);
}

zel::String pagesFolder(const zel::String& save) { return folderOf(save) + PagesFolder + "/"; }

bool startsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}
bool endsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

bool readName(const std::string& name, PageFile& page) {
    char checksum[17] = {};
    if (std::sscanf(name.c_str(), "%d %8d %16[0-9a-z]", &page.number, &page.date, checksum) != 3)
        return false;
    page.checksum = checksum;
    return page.name() == name;
}

void logFault(const zel::String& what) {
    zel::log(what + ": " + zel::faultText(zel::system::lastFault()), "Database", zel::LogError);
}

/// The files of Pages, newest first; others in it are left alone. No folder has none. False, with a
/// log line, if the folder can't be read.
bool listPages(const zel::String& save, std::vector<PageFile>& pages) {
    std::vector<zel::system::DirectoryEntry> entries;
    if (!zel::system::listDirectory(pagesFolder(save), entries) &&
        zel::system::lastFault() != zel::FileFault::Missing) {
        logFault("The earlier saves in " + pagesFolder(save) + " can't be listed");
        return false;
    }
    for (const zel::system::DirectoryEntry& entry : entries)
        if (PageFile page; !entry.isDirectory && readName(entry.name, page))
            pages.push_back(page);
    std::sort(pages.begin(), pages.end(),
              [](const PageFile& a, const PageFile& b) { return a.number > b.number; });
    return true;
}

/// The same, none if the folder can't be read.
std::vector<PageFile> listedPages(const zel::String& save) {
    std::vector<PageFile> pages;
    listPages(save, pages);
    return pages;
}

/// The content of a save; nothing if it can't be read, or is none. Valid until the next call: the
/// buffer is kept, because allocating megabytes costs more than reading them.
CheckedBytes contentOf(const zel::String& file) {
    static std::string content;
    zel::FileFault fault = zel::readFileWhole(file, content);
    if (fault == zel::FileFault::DiskError) // perhaps not again
        fault = zel::readFileWhole(file, content);
    if (fault != zel::FileFault::None || !saveFault(content).empty())
        content.clear();
    return content;
}

/// The content of the present save or of the one before it; nothing if it isn't whole. Valid until
/// the next call.
CheckedBytes wholeContent(const zel::String& save, const zel::String& file,
                          const RecordedMatch& recorded) {
    const CheckedBytes content = contentOf(file);
    const bool isChanged =
        !content.empty() && recorded(content) == SaveMatch::Changed && !isKnownWhole(save, content);
    return isChanged ? CheckedBytes() : content;
}

bool isWholePage(const zel::String& file, const PageFile& page) {
    if (!page.wasWhole())
        return false;
    const CheckedBytes content = contentOf(file);
    return !content.empty() && content.checksum() == page.checksum;
}

int32_t dateOf(std::string_view content) {
    int32_t date[3] = {}; // year, month, day
    if (content.size() >= 12 + sizeof date)
        content.copy(reinterpret_cast<char*>(date), sizeof date, 12);
    return Calendar(date[0], date[1], date[2]).dateNumber();
}

/// Gives an earlier save a name in Pages as well, or instead where the file system has no second
/// names. `content` is the file's if it is whole, otherwise empty: then it is a damaged page. Where
/// a page of the same content is there already, nothing is done. On error: false.
bool keepAsPage(const zel::String& save, const zel::String& file, const CheckedBytes& content,
                std::vector<PageFile>& pages) {
    PageFile page;
    page.date = content.empty() ? 0 : dateOf(content.bytes());
    page.checksum = content.empty() ? DamagedMark : std::string(content.checksum().view());
    if (!content.empty() && std::any_of(pages.begin(), pages.end(), [&](const PageFile& kept) {
            return kept.checksum == page.checksum;
        }))
        return true;
    page.number = pages.empty() ? 1 : pages.front().number + 1;
    const zel::String folder = pagesFolder(save);
    // Synced before ".bak" is replaced, or a power cut could take both names of the file.
    if (!zel::system::createDirectory(folder) ||
        !zel::system::keepFileAs(file, folder + page.name()) || !zel::system::syncFolder(folder)) {
        logFault("The earlier save " + file + " can't be kept in " + folder);
        return false;
    }
    pages.insert(pages.begin(), page);
    return true;
}

/// Removes the pages that are neither among the last ones nor the last of their month. One that was
/// damaged is never removed, and one is whole before it takes the place of another.
void thinPages(const zel::String& save, const std::vector<PageFile>& pages) {
    std::map<int32_t, const PageFile*> lastOfMonth;
    size_t rank = 0;
    for (const PageFile& page : pages) {
        if (!page.wasWhole() || ++rank <= LastPages)
            continue;
        const auto [last, isNew] = lastOfMonth.try_emplace(page.month(), &page);
        if (isNew)
            continue;
        if (isWholePage(pagesFolder(save) + last->second->name(), *last->second)) {
            zel::system::removeFile(pagesFolder(save) + page.name());
            zel::system::removeFile(keptRecordOf(save, page.checksum));
        } else {
            last->second = &page;
        }
    }
}

SavePage pageOf(SavePage::Kind kind, const zel::String& file, bool isWhole,
                const Closing& closing) {
    SavePage page;
    page.kind = kind;
    page.summary = summaryOf(file, closing);
    page.isWhole = isWhole && page.summary.isReadable;
    return page;
}

/// Names the pages as the player calls them. Of one date the newest has the plain name.
void namePages(std::vector<SavePage>& pages) {
    std::map<int32_t, int32_t> counts;
    for (SavePage& page : pages) {
        const int32_t date = page.summary.date.dateNumber();
        const int32_t count = page.kind == SavePage::Present ? 0 : ++counts[date];
        const zel::String name = date == 0 ? zel::String("damaged") : zel::String(date);
        page.name = count == 0 ? zel::String("present") : count == 1 ? name : name + "-" + count;
    }
}

} // namespace

bool isKnownWhole(const zel::String& save, const CheckedBytes& content) {
    const zel::String& checksum = content.checksum();
    const std::vector<PageFile> pages = listedPages(save);
    return std::any_of(pages.begin(), pages.end(),
                       [&](const PageFile& page) { return page.checksum == checksum.view(); }) ||
           isUnrecorded(save, content);
}

std::vector<SavePage> savePages(const zel::String& save, const RecordedMatch& recorded,
                                const Closing& closing) {
    std::vector<SavePage> pages;
    zel::String backupChecksum;
    if (zel::system::fileStatus(save).exists)
        pages.push_back(
            pageOf(SavePage::Present, save, !wholeContent(save, save, recorded).empty(), closing));
    const zel::String backup = save + BackupEnding;
    if (zel::system::fileStatus(backup).exists) {
        const CheckedBytes content = wholeContent(save, backup, recorded);
        backupChecksum = content.checksum();
        pages.push_back(pageOf(SavePage::Backup, backup, !content.empty(), closing));
    }
    for (const PageFile& kept : listedPages(save)) {
        const zel::String file = pagesFolder(save) + kept.name();
        if (kept.checksum != backupChecksum.view())
            pages.push_back(pageOf(SavePage::Earlier, file, isWholePage(file, kept), closing));
    }
    namePages(pages);
    return pages;
}

zel::String newestWholePage(const zel::String& save, const RecordedMatch& recorded,
                            const zel::String& before) {
    const std::vector<PageFile> pages = listedPages(save);
    const auto tried = std::find_if(pages.rbegin(), pages.rend(), [&](const PageFile& page) {
        return page.checksum == before.view();
    });
    zel::String backup = save + BackupEnding;
    const CheckedBytes content =
        tried == pages.rend() ? wholeContent(save, backup, recorded) : CheckedBytes();
    if (!content.empty() && (before.empty() || content.checksum() != before))
        return backup;
    for (auto page = tried.base(); page != pages.end(); ++page) {
        zel::String file = pagesFolder(save) + page->name();
        if (isWholePage(file, *page))
            return file;
    }
    return {};
}

zel::String keptRecordOf(const zel::String& save, const zel::String& checksum) {
    return pagesFolder(save) + RecordStart + checksum + RecordEnding;
}

std::vector<zel::String> keptRecords(const zel::String& save) {
    std::vector<zel::system::DirectoryEntry> entries;
    zel::system::listDirectory(pagesFolder(save), entries);
    std::vector<std::pair<int64_t, zel::String>> found;
    for (const zel::system::DirectoryEntry& entry : entries) {
        const std::string_view name = entry.name;
        const zel::String path = pagesFolder(save) + name;
        if (startsWith(name, RecordStart) && endsWith(name, RecordEnding))
            found.emplace_back(-zel::system::fileStatus(path).changed, path);
    }
    std::sort(found.begin(), found.end());
    std::vector<zel::String> paths;
    paths.reserve(found.size());
    for (const auto& [age, path] : found)
        paths.push_back(path);
    return paths;
}

bool keepBackupAsPage(const zel::String& save, const RecordedMatch& recorded) {
    const zel::String backup = save + BackupEnding;
    if (!zel::system::fileStatus(backup).exists)
        return true;
    const CheckedBytes content = wholeContent(save, backup, recorded);
    if (std::string bytes; content.empty() && // damaged, or it can't be read
                           zel::readFileWhole(backup, bytes) != zel::FileFault::None)
        return false;
    std::vector<PageFile> pages;
    if (!listPages(save, pages) || !keepAsPage(save, backup, content, pages))
        return false;
    thinPages(save, pages);
    return true;
}

bool returnToPage(const zel::String& save, const SavePage& page, const RecordedMatch& recorded,
                  Problem& problem) {
    const auto fail = [&](const Problem& why) {
        problem = why;
        return false;
    };
    if (page.kind == SavePage::Present)
        return fail(Problem(wording::PresentPage));
    const zel::String backup = save + BackupEnding;
    zel::String source = page.summary.file;
    const std::string bytes(wholeContent(save, source, recorded).bytes());
    const CheckedBytes content(bytes);
    // One that another program holds may be whole: it must not pass for a damaged one.
    for (const zel::String& file : {source, save, backup})
        if (std::string held; zel::readFileWhole(file, held) == zel::FileFault::Held)
            return fail(Problem(wording::PageNotTurned, {save}, zel::FileFault::Held));
    if (content.empty() || !page.isWhole)
        return fail(Problem(wording::DamagedPageFile, {source}));
    // A present save that isn't whole must not become the one before.
    const bool isDamaged =
        zel::system::fileStatus(save).exists && wholeContent(save, save, recorded).empty();
    const bool losesBackup = !isDamaged || page.kind == SavePage::Backup;
    std::vector<PageFile> pages;
    if (!listPages(save, pages) || (isDamaged && !keepAsPage(save, save, {}, pages)) ||
        (losesBackup && zel::system::fileStatus(backup).exists &&
         !keepAsPage(save, backup, wholeContent(save, backup, recorded), pages)))
        return fail(Problem(wording::SavesNotKept, {}, zel::system::lastFault()));
    if (page.kind == SavePage::Backup) {
        for (const PageFile& kept : pages)
            if (content.checksum() == zel::String(kept.checksum))
                source = pagesFolder(save) + kept.name();
    }
    // It loses its name, which alone may say that it is whole.
    if (recorded(content) == SaveMatch::Changed && !isUnrecorded(save, content))
        noteUnrecorded(save, content);
    const bool isReplaced = isDamaged ? zel::system::replaceFile(source, save)
                                      : zel::system::replaceFileKeeping(source, save, backup);
    if (!isReplaced || !zel::system::syncFolder(folderOf(save)) ||
        !zel::system::syncFolder(pagesFolder(save)))
        return fail(Problem(wording::PageNotTurned, {save}, zel::system::lastFault()));
    return true;
}
