#pragma once

#include <functional>
#include <vector>

#include "engine/core/String.h"

namespace zel {

class Menu;

/// A fault that a script shows while it is read or run.
struct ScriptFault {
    String file;
    String line; // number in the file, as an editor counts
    String text; // the whole report, as it goes to the console
};

/// The script of a screen: sections of commands, one a line, that run at the screen's events. The
/// language is described in docs/menu-scripts.md.
///
/// Bad lines are reported on the console and skipped. A menu owns the object.
class MenuConfigFile {
public:
    /// A line that was kept: no comment and not empty. Headers and includes stay in.
    struct Line {
        String text;   // trimmed
        String number; // in its file
        int32_t file;  // index into the files read
    };
    struct Section {
        String name;
        int32_t first, last; // indices of lines; last is below first if the section is empty
    };

    /// Sees that the layouts and themes exist before any script names them.
    MenuConfigFile();

    /// Reads a file and what it includes, behind what was read before. False, and nothing changed,
    /// if it can't be opened.
    [[nodiscard]] bool load(const String& fileName);
    /// The same with the text in memory.
    void loadText(std::string_view text, const String& fileName);

    /// Runs the last section of that name, whatever its case. True if it has more than one line:
    /// a section of a single line runs too, but answers false.
    bool executeSection(const String& name, Menu* menu);
    /// Runs one line, which needn't be the script's; a null menu and an empty line do nothing.
    void executeLine(const String& line, Menu* menu);

    const std::vector<Section>& getSections() const { return sections; }
    const std::vector<Line>& getLines() const { return lines; }
    const String& fileOf(const Line& line) const { return files[static_cast<size_t>(line.file)]; }
    const String& getFileName() const { return fileName; }
    /// The screen on which a section ran last, or runs; null before.
    Menu* getMenu() const { return menu; }

    /// Where reports of all scripts go instead of the console; an empty function puts the console
    /// back.
    static void setFaultSink(std::function<void(const ScriptFault&)> sink);
    /// Called before each line that runs, for tools that must know what a line does.
    static void
    setLineObserver(std::function<void(const MenuConfigFile& script, const Line& line)> observer);

private:
    bool readInto(const String& name);
    void takeText(std::string_view text, const String& name);
    void takeLine(std::string_view text, int32_t number, int32_t file);
    void include(const String& name);
    void closeLastSection();
    void report(const String& text) const;
    void runLine(const String& text, Menu& target);
    void runWords(const std::vector<String>& words, Menu& target);

    String fileName;
    std::vector<String> files;
    std::vector<Line> lines;
    std::vector<Section> sections;
    std::vector<int32_t> opened; // files that are being read just now, outermost first
    Menu* menu = nullptr;
    int32_t currentLine = -1; // index of the line that runs; -1: none of the script's
    String looseLine;         // the one that runs then
    bool isFull = false;      // lines were dropped
};

} // namespace zel
