#pragma once

#include <string_view>

#include "engine/core/FileFault.h"
#include "engine/core/String.h"
#include "engine/core/SystemFiles.h"

namespace zel {

/// A file that is replaced as a whole: at every moment, also after a power cut, its name has either
/// the old content or the new one.
///
/// The content goes into a draft in the same folder, whose name belongs to this process alone
/// ("NAME.PROCESS-NUMBER.new"). It is written, synced and renamed, and the folder is synced. A
/// link is followed to its target, and the permissions of the replaced file are kept. On error the
/// draft is removed, and the old file stays as it was.
class WholeFile {
public:
    explicit WholeFile(const String& name);
    /// Removes a draft that wasn't committed.
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    /// Writes the whole content into the draft and syncs it. On error: false and fault().
    /// REQUIRES: it wasn't called before.
    [[nodiscard]] bool write(std::string_view content);
    /// Renames the draft to the file's name. The file before it is kept under the path `backup`, in
    /// place of what has that name, or replaced if that is empty. On error: false and fault(). If
    /// only the sync of the folder failed, the new file is in its place all the same. REQUIRES:
    /// write() has succeeded.
    [[nodiscard]] bool commit(const String& backup = {});

    FileFault fault() const { return why; }

private:
    bool fail();

    String target;
    String draft; // empty if there is none
    FileFault why = FileFault::None;
};

/// Both steps in one. What was replaced is kept under the path `backup` if that isn't empty.
[[nodiscard]] FileFault writeFileWhole(const String& name, std::string_view content,
                                       const String& backup = {});

/// Drafts of that file that were left when a program was killed or the power was cut, newest
/// first, with their paths. Those of running programs are not among them, except for this one's.
std::vector<String> leftDrafts(const String& name);
/// Removes the drafts of all files of a folder that were left, except for those of the file of that
/// name: they may be all that there is of it. Does nothing without such a folder.
void removeLeftDrafts(const String& folder, std::string_view except);

} // namespace zel
