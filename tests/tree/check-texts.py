#!/usr/bin/env python3
"""Fails on a text of a screen that is not in the language tables.

check-texts.py [FOLDER], the folder that holds app, tools and data; the tree itself without it.

- A wording of the code (Wording.h in app and tools, and its like) must read in data/Language/en.txt as it
  reads in the code, and some code must use it.
- Code gives no literal to an element (setText), and no source or header in app holds a literal that reads
  like a text, but for those that go to the log and the files that PLAIN_SOURCES names.
- A script in data/Menus gives no element a text with letters: layout.definewidgetlanguagetext does.
- data/history/events.csv has each event in every language of data/Language, short enough to show.

Each finding is a line "file:line: what is wrong".
"""
import csv
import re
import sys
from pathlib import Path

# Calls whose literals are texts, if they hold a letter at all.
TEXT_SOURCES = ["app/career/CareerTexts.cpp", "app/career/Problem.cpp", "app/career/UnitNames.cpp",
                "app/report/Outcome.cpp", "app/report/ReportText.cpp", "app/war/InvitationLetter.cpp"]
# Calls whose literals no screen shows: names by which something is found, lines of a mission or a table, SQL,
# and what the log and the command line say in English.
PLAIN_SOURCES = [
    "app/aircraft/AircraftTable.h", "app/book/Theatre.cpp", "app/career/Bases.cpp",
    "app/career/Calendar.cpp", "app/career/CareerLock.cpp", "app/career/CareerRepair.cpp",
    "app/career/Database.h", "app/career/NameLists.cpp", "app/career/SaveCheck.cpp",
    "app/career/SavePages.cpp", "app/career/SaveSummary.cpp", "app/mission/MissionLine.cpp",
    "app/mission/MissionWriter.cpp", "app/mission/PlaneEmission.cpp", "app/mission/SimulatorWalk.cpp",
    "app/record/RecordFile.cpp", "app/record/RecordSchema.cpp", "app/record/Shelf.h",
    "app/record/ShelfFolders.h", "app/record/ShelfFolders.cpp", "app/record/Sqlite.cpp",
    "app/screens/MapSheets.cpp", "app/screens/ZelAppInfo.h"]
# The same elsewhere.
PLAIN_TEXTS = {"file:", "MFile:", "GDate:", " POS(", "Pages", " is whole and takes its place", " and can't be moved",
               "The simulator's logs can't be listed in ", "; no mission is written", "No mission is written: "}
LITERAL = r'"((?:[^"\\\n]|\\.)*)"'
# Several words, or one that ends as a label does.
WORDS = re.compile(r"[A-Za-z][,:!?]? |[A-Za-z][:!?]$| [A-Za-z]{2}")
WORD = re.compile(r"[A-Z][a-z]+[.,]?$")
NO_TEXT = re.compile(r" ?(?:SELECT|INSERT|UPDATE|DELETE|CREATE|PRAGMA|FROM|WHERE|ORDER BY|AND|>) |</?\w|"
                     r"/|\[|.*=\\\"|(?!.*[A-Za-z]{2})", re.S)
# What follows the first literal of a table's row, if it is the key of a constant.
KEYED = re.compile(r"\s*,\s*&?(?:\w+::)*[A-Z]\w*\s*[,}]")
# Calls whose literals no player sees on a screen.
LOG_CALL = re.compile(r"(?:\blog|\w*[lL]og\w*|\bconsole|\bfprintf|\bfailure|static_assert)\s*\($")
# A text in a script, by the command: which word, counted from 0.
SCRIPT_TEXTS = {"addwidget": 2, "addtextarea": 2, "layout.definewidgettext": 1,
                "layout.definetextareatext": 1}

# Letters of an event at most, and those that the fonts have beside Windows-1252.
EVENT_LETTERS = 90
FURTHER_LETTERS = "ąćęłńśźżĄĆĘŁŃŚŹŻ"

findings = []


def find(path, line, what):
    findings.append(f"{path}:{line}: {what}")


def line_of(text, place):
    return text.count("\n", 0, place) + 1


def without_comments(text):
    """The source with comments and preprocessor lines blanked, each character in its place."""
    pattern = re.compile(LITERAL + r"|//[^\n]*|/\*.*?\*/|^#[^\n]*", re.S | re.M)
    return pattern.sub(lambda m: m[0] if m[0].startswith('"') else re.sub(r"[^\n]", " ", m[0]), text)


def calls_around(text, place):
    """The calls that are open at a place, the innermost first, as "name("."""
    depth = 0
    for i in range(place - 1, -1, -1):
        if text[i] in ";{}" and depth == 0:
            return
        if text[i] == ")":
            depth += 1
        elif text[i] == "(":
            if depth == 0:
                yield text[max(0, i - 60):i + 1]
            depth = max(0, depth - 1)


def arguments(text, start):
    """The arguments of the call whose parenthesis is at `start`, each with its place."""
    depth, begin, quoted = 0, start + 1, False
    for i in range(start, len(text)):
        if text[i] == '"' and text[i - 1] != "\\":
            quoted = not quoted
        if quoted:
            continue
        if text[i] in "([{":
            depth += 1
        elif text[i] in ")]}":
            depth -= 1
        if depth == 0 or (depth == 1 and text[i] == ","):
            yield begin, text[begin:i]
            begin = i + 1
        if depth == 0:
            return


def unescaped(literal):
    """A literal's text. Letters with accents are octal there, in Windows-1252."""
    return re.sub(r"\\([0-7]{3})|\\(.)",
                  lambda m: bytes([int(m[1], 8)]).decode("cp1252") if m[1] else m[2], literal)


def check_wordings(root, sources):
    table = {}
    for line in (root / "data/Language/en.txt").read_text("cp1252").splitlines():
        if match := re.match(r"(\d+): *(.*?) *$", line):
            table[int(match[1])] = match[2]
    headers = sorted(root.glob("app/*/*Wording.h")) + sorted(root.glob("tools/*/*Wording.h"))
    for header in headers:
        name = header.relative_to(root)
        text = without_comments(header.read_text())
        pairs = list(re.finditer(r"\{\s*(\d+)\s*,\s*" + LITERAL + r"\s*\}", text))
        if not pairs:
            find(name, 0, "no wording found")
        for pair in pairs:
            number, english = int(pair[1]), unescaped(pair[2])
            if table.get(number) != english:
                find(name, line_of(text, pair.start()),
                     f"text {number} is \"{english}\" here, \"{table.get(number)}\" in en.txt")
        for constant in re.finditer(r"inline constexpr \w+\s+(\w+)", text):
            if not any(re.search(rf"wording::{constant[1]}\b", source) for source in sources):
                find(name, line_of(text, constant.start()), f"nothing uses {constant[1]}")


def check_source(path, text):
    for call in re.finditer(r"\bset(?:Widget|TextArea)?Text\s*\(", text):
        for place, argument in list(arguments(text, call.end() - 1))[1:]:
            # A literal that only names an element or a variable is the argument of another call.
            flat = re.sub(r"\b(?!String\b)\w+\s*\((?:[^()]|\([^()]*\))*\)",
                          lambda m: re.sub(r"[^\n]", " ", m[0]), argument)
            for literal in re.finditer(LITERAL, flat):
                if re.search(r"[A-Za-z]", literal[1]):
                    find(path, line_of(text, place + literal.start()),
                         f"a literal for an element: \"{literal[1]}\"")
    if path.startswith("app/") and path not in PLAIN_SOURCES and not path.endswith("Wording.h"):
        check_literals(path, text)


def check_literals(path, text):
    """Finds texts among a source's literals. Those that the compiler joins are one."""
    for joined in re.finditer(LITERAL + r"(?:\s*" + LITERAL + ")*", text):
        literal = "".join(re.findall(LITERAL, joined[0]))
        if path in TEXT_SOURCES:
            reads = re.search(r"[A-Za-z]", literal)
        else:
            reads = reads_like_text(literal, text[:joined.start()], text[joined.end():])
        if reads and not any(LOG_CALL.search(call) for call in calls_around(text, joined.start())):
            find(path, line_of(text, joined.start()), f"a text outside the tables: \"{literal}\"")


def reads_like_text(literal, before, after):
    """Whether a literal between two pieces of the source may be a text, not a name, a key, SQL or markup."""
    if literal in PLAIN_TEXTS or NO_TEXT.match(literal) or before.rstrip().endswith("{") and KEYED.match(after):
        return False
    # A word that joins a name without a blank makes another name.
    return WORDS.search(literal) or WORD.match(literal) and not re.search(r"[\w)]\s*\+\s*$", before)


def check_script(path, text):
    for number, line in enumerate(text.splitlines(), 1):
        words = [quoted or plain for quoted, plain in re.findall(r'"([^"]*)"|(\S+)', line)]
        if words and words[0].startswith("@"):
            words = words[1:]
        place = SCRIPT_TEXTS.get(words[0].lower()) if words else None
        if place is not None and len(words) > place and re.search(r"[^\W\d_]", words[place]):
            find(path, number, f"a text outside the tables: \"{words[place]}\"")


def check_events(root):
    name = "data/history/events.csv"
    codes = sorted(path.stem for path in (root / "data/Language").glob("??.txt"))
    rows = csv.DictReader((root / name).read_text("utf-8").splitlines())
    for line, row in enumerate(rows, 2):
        for code in codes:
            text = row.get(f"text_{code}") or ""
            plain = "".join(c for c in text if c not in FURTHER_LETTERS)
            if not 0 < len(text) <= EVENT_LETTERS:
                find(name, line, f"text_{code} has {len(text)} letters, not 1 to {EVENT_LETTERS}")
            if plain.encode("cp1252", "replace").decode("cp1252") != plain:
                find(name, line, f"text_{code} has a letter that no font has")


def main():
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent.parent)
    paths = [path for folder in ("app", "tools") for path in sorted((root / folder).rglob("*.*"))
             if path.suffix in (".cpp", ".h")]
    sources = {str(path.relative_to(root)): without_comments(path.read_text()) for path in paths}
    check_wordings(root, sources.values())
    for path, text in sources.items():
        check_source(path, text)
    for path in sorted((root / "data/Menus").iterdir()):
        check_script(str(path.relative_to(root)), path.read_text("cp1252"))
    check_events(root)
    print("\n".join(findings), end="\n" if findings else "")
    return 1 if findings else 0


sys.exit(main())
