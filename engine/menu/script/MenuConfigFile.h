#pragma once

#include <functional>
#include <vector>

#include "engine/core/String.h"

namespace zel {

class Menu;

/// A fault in a script, found while it is read or run.
struct ScriptFault {
    String file;
    String line; // number in the file, as an editor counts
    String text; // the whole report, as on the console
};

/// The script of a screen: sections of commands, one a line, that run at the screen's events.
/// docs/menu-scripts.md describes the language.
///
/// Bad lines are reported on the console and skipped. A menu owns the object.
class MenuConfigFile {
public:
    /// A line of the script: neither empty nor a comment. Headers and includes are kept.
    struct Line {
        String text;   // trimmed
        String number; // in its file
        int32_t file;  // index of the file
    };
    struct Section {
        String name;
        int32_t first, last; // indices of lines; last is below first if the section is empty
    };

    /// Creates the handlers of layouts and themes, which scripts need.
    MenuConfigFile();

    /// Reads a file and its includes, after what was read before. False, with nothing changed, if
    /// it can't be read.
    [[nodiscard]] bool load(const String& fileName);
    /// The same with the text in memory.
    void loadText(std::string_view text, const String& fileName);

    /// Runs the last section of that name, in any case. True if it has more than one line: a
    /// section of a single line runs too, but returns false.
    bool executeSection(const String& name, Menu* target);
    /// Runs one line, of the script or not; a null target and an empty line do nothing.
    void executeLine(const String& line, Menu* target);

    const std::vector<Section>& getSections() const { return sections; }
    const std::vector<Line>& getLines() const { return lines; }
    const String& fileOf(const Line& line) const { return files[line.file]; }
    const String& getFileName() const { return fileName; }
    /// The menu on which a section runs, or ran last; null before.
    Menu* getMenu() const { return menu; }

    /// Receives the reports of all scripts in place of the console; an empty function restores the
    /// console.
    static void setFaultSink(std::function<void(const ScriptFault&)> sink);
    /// Called before each line runs, for tools that must know what a line does.
    static void
    setLineObserver(std::function<void(const MenuConfigFile& script, const Line& line)> observer);

private:
    bool readInto(const String& name);
    void takeText(std::string_view text, const String& name);
    void takeLine(std::string_view text, int32_t number, int32_t file);
    void include(const String& name);
    void closeLastSection();
    void report(const String& text) const;
    void runLine(const String& line, Menu& target);
    void runWords(const std::vector<String>& words, Menu& target);

    String fileName;
    std::vector<String> files;
    std::vector<Line> lines;
    std::vector<Section> sections;
    std::vector<int32_t> opened; // files being read, outermost first
    Menu* menu = nullptr;
    int32_t currentLine = -1; // index of the running line; -1 for one that isn't the script's
    String looseLine;         // the running line then
    bool isFull = false;      // lines were dropped
};

} // namespace zel
