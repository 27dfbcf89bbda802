#pragma once

#include "tools/menucheck/ScriptNotes.h"

namespace menucheck {

/// Checks everything that scripts name except elements: files, images, text numbers. Scripts are
/// read, not run, so that data which no screen happens to use is checked too.
class NamedData {
public:
    void gather(const zel::MenuConfigFile& script, const ScriptNotes& notes);
    /// Reports images, fonts and sounds that don't load. REQUIRES: the scripts have run.
    void checkFiles(FindingLog& findings) const;
    /// Warns of files in Pictures that are never shown. Preloading alone doesn't count.
    void checkPictures(FindingLog& findings) const;
    /// Reports texts of the tables in Language that are missing, empty, duplicate or unused.
    void checkLanguages(FindingLog& findings) const;

private:
    std::map<zel::String, Source> images, fonts, sounds;
    std::set<zel::String> shown; // images and files, in lower case
    std::map<int32_t, Source> texts;
};

/// The language codes of the tables in Language.
std::vector<zel::String> languageCodes();

} // namespace menucheck
