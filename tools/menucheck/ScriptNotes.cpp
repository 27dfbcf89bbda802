#include "tools/menucheck/ScriptNotes.h"

#include <algorithm>

#include "engine/core/TextEncoding.h"
#include "engine/core/TextLines.h"
#include "tools/menucheck/SaidTexts.h"
#include "tools/menucheck/ScriptLines.h"

namespace menucheck {

using zel::String;

namespace {

constexpr int32_t LongestRange = 1000;
constexpr int32_t LargestFile = 1 << 24; // bytes
constexpr const char* KindList =
    "code, leads, overlap, widest, says, kind, stretch, picture, text or conditions";

/// The words after "#check KIND", and their source.
struct Note {
    std::vector<String> words;
    Source source;
    ScriptNotes& notes;
    FindingLog& findings;
};

/// Where the number at the end of a name begins.
size_t numberStart(std::string_view name) {
    const size_t last = name.find_last_not_of("0123456789");
    return last == std::string_view::npos ? 0 : last + 1;
}

/// The names of a word: itself, or those from "line1" to "line9" for "line1..line9".
std::set<String> namesOf(const String& word, const Note& note) {
    const size_t dots = word.view().find("..");
    if (dots == std::string_view::npos)
        return {word};
    const std::string_view first = word.view().substr(0, dots);
    const std::string_view last = word.view().substr(dots + 2);
    const std::string_view stem = first.substr(0, numberStart(first));
    const int32_t from = zel::toInt(first.substr(stem.size()));
    const int32_t to = zel::toInt(last.substr(numberStart(last)));
    if (stem != last.substr(0, numberStart(last)) || to < from || to - from >= LongestRange) {
        note.findings.add(note.source, String("no range of names: ") + word);
        return {};
    }
    std::set<String> names;
    for (int32_t number = from; number <= to; ++number)
        names.insert(String(stem) + number);
    return names;
}

std::set<String> elementsOf(const String& word, const Note& note) {
    std::set<String> names = namesOf(word, note);
    for (const String& name : names)
        note.notes.named.push_back({name, note.source});
    return names;
}

void takeLeads(const Note& note) {
    for (const String& state : note.words)
        note.notes.leads[state] = note.source;
}

void takeCode(const Note& note) {
    const auto arrow = std::find(note.words.begin(), note.words.end(), "->");
    for (auto word = note.words.begin(); word != arrow; ++word)
        for (const String& name : elementsOf(*word, note))
            note.notes.code[name] = note.source;
    if (arrow != note.words.end())
        takeLeads({{std::next(arrow), note.words.end()}, note.source, note.notes, note.findings});
}

void takeOverlap(const Note& note) {
    ScriptNotes::Overlap groups;
    for (const String& word : note.words)
        groups.push_back(elementsOf(word, note));
    note.notes.overlaps.push_back(groups);
}

void takeWidest(const Note& note) {
    for (size_t i = 1; i < note.words.size(); ++i)
        for (const String& name : namesOf(note.words[0], note))
            note.notes.widest.push_back({name, zel::unescapeLineFeeds(note.words[i]), note.source});
    elementsOf(note.words[0], note);
}

void takeSays(const Note& note) {
    const SaidTexts said = readSaidTexts({std::next(note.words.begin()), note.words.end()});
    if (!said.fault.empty())
        note.findings.add(note.source, said.fault);
    for (const String& element : elementsOf(note.words[0], note))
        for (const String& text : said.texts)
            note.notes.widest.push_back({element, text, note.source});
    for (const int32_t number : said.numbers)
        note.notes.texts[number] = note.source;
}

void takeKind(const Note& note) {
    for (size_t i = 1; i < note.words.size(); ++i)
        for (const String& name : elementsOf(note.words[i], note))
            note.notes.kinds[note.words[0]].push_back({name, note.source});
}

void takeStretch(const Note& note) {
    note.notes.stretched.insert(note.words.begin(), note.words.end());
}

void takePicture(const Note& note) {
    for (const String& word : note.words)
        note.notes.pictures.insert(word.toLower());
}

void takeText(const Note& note) {
    for (const String& word : note.words)
        for (const String& number : namesOf(word, note))
            note.notes.texts[number.toInt()] = note.source;
}

void takeConditions(const Note& note) { note.notes.mayHaveConditions = true; }

struct NoteKind {
    const char* name;
    size_t minimum; // of words
    void (*take)(const Note& note);
};
// clang-format off
constexpr NoteKind Kinds[] = {
    {"code", 1, takeCode},
    {"leads", 1, takeLeads},
    {"overlap", 1, takeOverlap},
    {"widest", 2, takeWidest},
    {"says", 2, takeSays},
    {"kind", 2, takeKind},
    {"stretch", 1, takeStretch},
    {"picture", 1, takePicture},
    {"text", 1, takeText},
    {"conditions", 0, takeConditions},
};
// clang-format on

void takeNote(const std::vector<String>& words, const Note& note) {
    const String kind = words.size() > 1 ? words[1] : String();
    const auto* const known = std::find_if(std::begin(Kinds), std::end(Kinds),
                                           [&](const NoteKind& row) { return kind == row.name; });
    if (known == std::end(Kinds))
        note.findings.add(note.source, String("unknown note ") + kind + ": " + KindList);
    else if (note.words.size() < known->minimum)
        note.findings.add(note.source, String("the note ") + kind + " names too little");
    else
        known->take(note);
}

/// Whether a group has the name, and not the other one.
bool holds(const ScriptNotes::Overlap& overlap, const String& name, const String& other) {
    return std::any_of(overlap.begin(), overlap.end(), [&](const std::set<String>& group) {
        return group.count(name) != 0 && group.count(other) == 0;
    });
}

} // namespace

bool ScriptNotes::mayOverlap(const String& a, const String& b) const {
    return std::any_of(overlaps.begin(), overlaps.end(), [&](const Overlap& overlap) {
        return holds(overlap, a, b) && holds(overlap, b, a);
    });
}

bool ScriptNotes::isAlternative(const String& element) const {
    return std::any_of(overlaps.begin(), overlaps.end(),
                       [&](const Overlap& overlap) { return holds(overlap, element, String()); });
}

ScriptNotes readNotes(const zel::MenuConfigFile& script, FindingLog& findings) {
    ScriptNotes notes;
    for (const String& name : filesOf(script))
        readNotesOf(name, notes, findings);
    return notes;
}

void readNotesOf(const String& name, ScriptNotes& notes, FindingLog& findings) {
    std::string text;
    if (!zel::readTextFile(name, LargestFile, text))
        return;
    zel::forEachNumberedLine(text, [&](std::string_view line, int32_t number) {
        const std::vector<String> words = zel::splitWords(zel::trimmed(line, ' '));
        if (words.empty() || words[0] != "#check")
            return;
        const auto after =
            words.begin() + std::min<ptrdiff_t>(2, static_cast<ptrdiff_t>(words.size()));
        takeNote(words, {{after, words.end()}, {name, number}, notes, findings});
    });
}

} // namespace menucheck
