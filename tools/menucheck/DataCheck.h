#pragma once

#include "tools/menucheck/ScriptNotes.h"

namespace menucheck {

/// What all scripts together name besides elements: files, images, numbers of texts. They are read,
/// not run, so that what no screen happens to use is checked too.
class NamedData {
public:
    void gather(const zel::MenuConfigFile& script, const ScriptNotes& notes);
    /// Faults of images, fonts and sounds that don't load. REQUIRES: the scripts have run.
    void checkFiles(Findings& findings) const;
    /// Warnings of files in Pictures that nothing shows. One that is only preloaded isn't shown.
    void checkPictures(Findings& findings) const;
    /// Faults of the tables in Language: texts that are missing, empty, there twice or not used.
    void checkLanguages(Findings& findings) const;

private:
    std::map<zel::String, Source> images, fonts, sounds;
    std::set<zel::String> shown; // images and files, lowered
    std::map<int32_t, Source> texts;
};

/// The codes of the tables in Language.
std::vector<zel::String> languageCodes();

} // namespace menucheck
