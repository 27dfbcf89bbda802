#!/usr/bin/env python3
"""A new career in the small world of the tests: the save file, and how it came about.

career.py FILE SERVICE writes the save file; FILE.txt gets the rounds of the player's choice, his
pilot, and the values drawn from the career's and the aircraft's generator.
"""
import struct
import sys

from aircraft import nation_plane
from common import Random, f32, write

NAMES = {  # first names, last names
    101: ("Jean Luc Rene".split(), "Petit Noir".split()),
    102: ("John Harry Tom".split(), "Smith Brown".split()),
    103: ("Bill Joe Sam".split(), "Young Hill".split()),
    501: ("Hans Otto Fritz".split(), "Braun Klein".split()),
}
SQUADRON_FILES = [  # delivered ones by name, then the player's own; lines in reading order
    ("101003", ["date=19151101 until=19160501 action=skin aircraft=nieuport11 skin=stork",
                "date=19160301 aircraft=nieuport17"]),
    ("102024", ["date=19160207 aircraft=dh2 skin=plain"]),
    ("501002", ["date=19160820 aircraft=halberstadtd2",
                "date=19151115 aircraft=fokkere3 skin=grey"]),
    ("101003", ["DATE=19151001 aircraft=spad7early"]),
    ("103094", ["date=19180201 aircraft=nieuport28"]),
]
PILOT_FILES = [
    ("Karl Falke", ["date=19151201 until=19160630 action=transfer unit=501002 acelevel=1",
                    "date=19160701 action=aceskin aircraft=fokkere3 skin=black"]),
    ("Lucien Cigale", ["date=19160101 unit=101003 acelevel=2 acepotential=14"]),
]
AIRFIELDS = {  # by side and map: Allied, on the Channel
    (True, True): [("Dunkerque", 78614.35, 1050.25, 173931.61), ("Ypres", 60611.08, 1000, 206677.56),
                   ("St. Omer", 50427.86, 1000, 172919)],
    (False, True): [("Zeebrugge", 106839.09, 1000, 229430.17), ("Ostende", 105220.32, 41.84, 225402.8),
                    ("Roulers", 69558.71, 62.6, 234522.44)],
    (True, False): [("Arras", 213678.73, 0, 59607.41), ("Amiens", 165563.03, 1276.63, 29702.08),
                    ("Reims", 94987.95, 0, 152875.84), ("Verdun", 85641.22, 0, 246236.73),
                    ("Toul", 33006.23, 0, 288295.91)],
    (False, False): [("Lille", 253890.89, 0, 78627.34), ("Cambrai", 200518.5, 0, 92959.45),
                     ("Cappy", 170749.75, 1062.99, 59543.51), ("Metz", 85856.48, 0, 306784.62)],
}
CAREER_NUMBER = 12345
YEAR, MONTH = 1915, 12  # the day is the first
SQUADRONS = 400


def fields_of(line):
    """Key and value of each token that has both."""
    return [(token.split("=")[0].lower(), token.split("=")[1]) for token in line.split(" ") if "=" in token]


class Counting(Random):
    """Counts its draws."""

    def __init__(self, seed):
        super().__init__(seed)
        self.draws = 0

    def next(self):
        self.draws += 1
        return super().next()


class Career:
    def __init__(self, service, random, shared, planes):
        self.random, self.shared, self.planes = random, shared, planes
        self.lines = []
        self.squadron_files = self.read(SQUADRON_FILES)
        self.pilot_files = self.read(PILOT_FILES)
        self.squadrons, self.pilots, self.player = [], [], 0
        months = MONTH + self.draw_inner_first(1, 2, 4)
        self.invitation = (YEAR + (months - 1) // 12, (months - 1) % 12 + 1)
        for i, (key, lines) in enumerate(self.squadron_files):
            self.add_squadron(int(key[:3]))
            dates = [value for line in lines for name, value in fields_of(self.lines[line]) if name == "date"]
            self.squadrons[-1].update(file=i, key=key, earliest=min(dates), last=dates[-1])
        while len(self.squadrons) < SQUADRONS:
            self.add_squadron([101, 102, 501][len(self.squadrons) % 3])
        self.rounds = self.choose_player([101, 102, 501][service])
        self.activate()

    def draw_inner_first(self, low, inner_low, inner_high):
        return self.random.integer(low, self.random.integer(inner_low, inner_high))

    def read(self, files):
        """Names with the indices of their lines; a name that comes again goes on with its first."""
        read = {}
        for name, lines in files:
            for line in lines:
                read.setdefault(name, []).append(len(self.lines))
                self.lines.append(line)
        return list(read.items())

    def add_squadron(self, nation):
        first = len(self.pilots)
        for pilot in range(first, first + 12):
            first_names, last_names = NAMES[nation]
            last = last_names[self.random.integer(0, len(last_names) - 1)]
            name = first_names[self.random.integer(0, len(first_names) - 1)] + " " + last
            skill = self.draw_inner_first(0, 2, 10)
            missions = 0
            if pilot != self.player:
                missions = self.random.integer(5, 75)
                for _ in range(3):
                    missions = self.random.integer(0, missions)
            self.pilots.append((name, len(self.squadrons), nation, skill, missions))
        channel = self.shared.integer(0, 4) == 0
        fields = AIRFIELDS[nation <= 499, channel]
        base = fields[self.shared.integer(0, len(fields) - 1)]
        self.squadrons.append(dict(nation=nation, first=first, channel=channel, base=base, file=-1, key="",
                                   earliest="", last="", active=False))

    def flies(self, key, plane):
        return any(("aircraft", plane) in fields_of(self.lines[line])
                   for name, lines in self.squadron_files if name == key for line in lines)

    def choose_player(self, nation):
        counter = 1
        while True:
            squadron = self.squadrons[self.random.integer(0, len(self.squadrons) - 1)]
            self.player = squadron["first"]
            plane = nation_plane(squadron["nation"], YEAR, MONTH, self.planes)
            # All squadrons with a file are within the numbers that have a name.
            fits = squadron["nation"] == nation and (squadron["file"] >= 0 or counter > 1249)
            if fits and (counter > 2499 or self.flies(squadron["key"], plane)):
                return counter
            counter += 1

    def activate(self):
        today = "%04d%02d%02d" % (YEAR, MONTH, 1)
        active = dict.fromkeys(NAMES, 0)
        for squadron in self.squadrons:
            if squadron["earliest"] and squadron["earliest"] <= today:
                squadron["active"] = True
            active[squadron["nation"]] += squadron["active"]
        months = YEAR * 12 + MONTH - 22980
        target = {101: months * 5 // 3, 102: months * 5 // 3, 501: months * 10 // 3, 103: 0}
        for squadron in self.squadrons:
            if squadron["file"] < 0 and active[squadron["nation"]] < target[squadron["nation"]]:
                squadron["active"] = True
                active[squadron["nation"]] += 1

    def save(self):
        def text(value):
            return value.encode("ascii")

        parts = [struct.pack("<4s8i", b"WTSV", 2, self.player, YEAR, MONTH, 1, 0, 0, CAREER_NUMBER)]
        parts.append(struct.pack("<I", len(self.squadrons)))
        for s in self.squadrons:
            slots = [s["first"] + i if i < 12 else -1 for i in range(32)]
            name, x, y, z = s["base"]
            parts.append(struct.pack("<64x64s64sB3x3fH12s3xBxBh2x32i", text(s["key"][:11]), text(name), s["channel"],
                                     f32(x), f32(y), f32(z), s["nation"], text(s["earliest"]), s["active"], 12,
                                     s["file"], *slots))
        parts.append(struct.pack("<I", len(self.pilots)))
        for name, squadron, nation, skill, missions in self.pilots:
            parts.append(struct.pack("<64siBxHBxHHBxiB3x", text(name), squadron, 1, nation, skill, 0, missions, 0, -1, 0))
        parts.append(struct.pack("<I", len(self.lines)))
        parts += [struct.pack("<13x256s", text(line)) for line in self.lines]
        parts.append(struct.pack("<I", len(self.squadron_files)))
        for (name, lines), squadron in zip(self.squadron_files, self.squadrons):
            parts.append(struct.pack("<64s64s3x12sx256i", text(name), text(name), text(squadron["last"]),
                                     *(lines + [-1] * 256)[:256]))
        parts.append(struct.pack("<I", len(self.pilot_files)))
        for name, lines in self.pilot_files:
            parts.append(struct.pack("<64si28x256i", text(name), -1, *(lines + [-1] * 256)[:256]))
        return b"".join(parts) + struct.pack("<4i", *self.invitation, -2, -2)


if __name__ == "__main__":
    career = Career(int(sys.argv[2]), Counting(1), Random(2), Counting(3))
    write(career.save())
    sys.argv[1] += ".txt"
    write(f"{career.rounds} {career.player} {career.random.draws} {career.planes.draws}\n")
