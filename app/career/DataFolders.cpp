#include "app/career/DataFolders.h"

#include <map>

#include "engine/core/Directory.h"
#include "engine/core/System.h"

namespace {

std::string withoutEnding(const std::string& fileName) {
    const size_t length = fileName.size();
    return length > 4 && fileName[length - 4] == '.' ? fileName.substr(0, length - 4) : fileName;
}

/// The records by their names as the career keeps them.
using RecordNumbers = std::map<std::string, size_t>;

void addFolder(const zel::String& folder, bool isCustom, RecordNumbers& records,
               std::vector<DataFile>& files) {
    const zel::Directory directory(folder, "*.*");
    for (int32_t i = 0; i < directory.count(); ++i) {
        if (directory.isDirectory(i))
            continue;
        const zel::String fileName = directory.name(i);
        const std::string name = withoutEnding(fileName.c_str());
        const size_t record =
            records.try_emplace(name.substr(0, LongestRecordName), records.size()).first->second;
        files.push_back({folder + fileName, name, record, isCustom});
    }
}

} // namespace

std::vector<DataFile> listDataFiles(const zel::String& delivered, const zel::String& custom) {
    RecordNumbers records;
    std::vector<DataFile> files;
    addFolder(delivered, false, records, files);
    // Most players have no folder of their own, which is not worth a line in the log.
    if (zel::system::isDirectory(custom))
        addFolder(custom, true, records, files);
    return files;
}
