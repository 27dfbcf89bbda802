#!/usr/bin/env python3
"""Fails where the pages differ from the aircraft and the history that they list. Run it from the top
of the tree.

- docs/data-files.md has a row for each row of app/aircraft/AircraftTable.h.
- docs/rules.md has what each side draws by month as tests/reference/aircraft.py has it, in the order
  of the draw. Unit tests compare the program with that script.
- docs/history.md has the numbers of squadrons and aces in data/history.

Each finding is a line "file: what is wrong".
"""
import re
import sys
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, "tests/reference")
import aircraft  # noqa: E402: it is where the line above says

MONTHS = ("January February March April May June July August September October November "
          "December").split()
NATIONS = {"French": "France", "British": "England", "American": "USA", "German": "Germany"}
ROW = re.compile(r'\{"(\w+)",\s*"([^"]+)",\s*WarSide::\w+,\s*Shape::\w+,\s*([\w |]+),\s*(\d{4})(\d\d),')
SHARES = re.compile(r"\| (\w+) (\d{4}) \| (\w+) (\d{4}) \| (.*) \|")


def month_number(name, year):
    return int(year) * 100 + MONTHS.index(name) + 1


def planes_of(cell, identifiers):
    """The types of "SE5a 2/4, Sopwith Pup 1/4", each as often as its share."""
    shares = [re.fullmatch(r"(.+) (\d+)/(\d+)", part).groups() for part in cell.split(", ")]
    planes = [identifiers.get(name, name) for name, count, _ in shares for _ in range(int(count))]
    return planes if all(int(whole) == len(planes) for _, _, whole in shares) else []


findings = []
rows = ROW.findall(Path("app/aircraft/AircraftTable.h").read_text(encoding="utf-8"))
table = "| Type | Name | Flown by | From |\n|---|---|---|---|\n"
for identifier, name, flags, year, month in rows:
    nations = ", ".join(NATIONS[flag] for flag in flags.split(" | "))
    table += f"| `{identifier}` | {name} | {nations} | {MONTHS[int(month) - 1]} {year} |\n"
if not rows or table + "\n" not in Path("docs/data-files.md").read_text(encoding="utf-8"):
    findings.append("docs/data-files.md: it must have this table:\n" + table)

found = 0
drawn = aircraft.ALLIED
for line in Path("docs/rules.md").read_text(encoding="utf-8").splitlines():
    if line == "The Germans:":
        drawn = aircraft.CENTRAL
    if not (cells := SHARES.fullmatch(line)):
        continue
    found += 1
    planes = planes_of(cells[5], {name: identifier for identifier, name, *_ in rows})
    for month in (month_number(cells[1], cells[2]), month_number(cells[3], cells[4])):
        if planes != next(types for until, types in drawn if month <= until).split():
            findings.append(f"docs/rules.md: {month} differs from tests/reference/aircraft.py: {line}")
if found != len(aircraft.ALLIED) + len(aircraft.CENTRAL) - 1:  # the last row comes after the war
    findings.append(f"docs/rules.md: it has {found} rows of aircraft")

squadrons, aces = (Path("data/history", name).read_text(encoding="latin-1").splitlines()[1:]
                   for name in ("squadrons.csv", "aces.csv"))
keys = {line.split(",")[0] for line in squadrons}
flying = {line.split(",")[0] for line in squadrons if line.split(",")[3]}
history = Path("docs/history.md").read_text(encoding="utf-8")
for row in (f"| `squadrons.csv` | {len(squadrons)} | one aircraft type of one of {len(flying)} squadrons, or the time "
            f"of one of {len(keys - flying)} units of two-seaters ",
            f"| `aces.csv` | {len(aces)} |"):
    if row not in history:
        findings.append(f"docs/history.md: it must have {row}")
print("\n".join(findings), end="\n" if findings else "")
sys.exit(bool(findings))
