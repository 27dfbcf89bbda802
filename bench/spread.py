#!/usr/bin/env python3
"""Runs the benchmark report several times and prints the least, median and largest value of each line.

usage: spread.py [--runs N] [--load N] -- COMMAND...

COMMAND is one run of the report. With --load, that many processes keep the processor busy all the
while. The exit code is 1 if a run broke a limit or failed.
"""
import argparse
import re
import statistics
import subprocess
import sys

# The lines of RatioReport and start_bench: a ratio after two times, or a value with its unit.
NAME = r"^(?P<name>\S.{33}) +"
END = r"(?: {2}BROKEN)?$"
RATIO = re.compile(NAME + r"[\d.]+ [mu]s +[\d.]+ [mu]s +(?P<value>[\d.]+)(?: +(?P<limit>[\d.]+))?" + END)
VALUE = re.compile(
    NAME + r"(?P<value>[\d.]+) (?P<unit>[a-zA-Z ]+?) +(?P<limit>[\d.]+)(?: ?(?P<limit_unit>[a-zA-Z]+))?" + END
)


def number(text, unit):
    """Times in us."""
    return float(text) * (1000 if unit == "ms" else 1)


def values_of(report):
    """(name, is a ratio) to (value, unit, limit) for each line of a report that holds one."""
    found = {}
    for line in report.splitlines():
        ratio = RATIO.match(line)
        match = ratio or VALUE.match(line)
        if match:
            parts = match.groupdict()
            unit = parts.get("unit") or ""
            limit = number(parts["limit"], parts.get("limit_unit")) if parts["limit"] else None
            value = number(parts["value"], unit)
            found[parts["name"].strip(), ratio is not None] = (value, "us" if unit == "ms" else unit, limit)
    return found


def run_all(command, runs):
    """The values of all runs by line, and whether every run kept its limits."""
    lines = {}
    passed = True
    for number in range(1, runs + 1):
        print(f"run {number} of {runs}", file=sys.stderr)
        result = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=False)
        passed = passed and result.returncode == 0
        for line, (value, unit, limit) in values_of(result.stdout).items():
            lines.setdefault(line, (unit, limit, []))[2].append(value)
    return lines, passed


def value_text(value, unit):
    if unit == "us" and value >= 1000:
        value, unit = value / 1000, "ms"
    return f"{value:.4g} {unit}".rstrip()


def print_table(kind, lines):
    print(f"| Line, {kind} | At most | Least | Median | Largest |")
    print("|---|---|---|---|---|")
    for (name, _), (unit, limit, values) in lines.items():
        cells = [name, "" if limit is None else value_text(limit, unit)]
        for value in (min(values), statistics.median(values), max(values)):
            mark = " (above its limit)" if limit is not None and value > limit else ""
            cells.append(value_text(value, unit) + mark)
        print("| " + " | ".join(cells) + " |")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--load", type=int, default=0)
    parser.add_argument("command", nargs="+")
    options = parser.parse_args()
    busy = [subprocess.Popen([sys.executable, "-c", "while True: pass"]) for _ in range(options.load)]
    try:
        lines, passed = run_all(options.command, options.runs)
    finally:
        for process in busy:
            process.kill()
    print_table("loaded" if options.load else "idle", lines)
    return 0 if passed and lines else 1


if __name__ == "__main__":
    sys.exit(main())
