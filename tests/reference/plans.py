#!/usr/bin/env python3
"""The plans of 240 missions of a new career: plans.py FILE SERVICE.

Each is for the 20th of a month. A line per plan: each plane as pilot and type, then the next value
of the generator.
"""
import sys

from aircraft import nation_plane, plane_for_side
from career import Career
from common import Random, write

TRIES = 100


class Planning:
    def __init__(self, career, random):
        self.career, self.random = career, random
        self.players = next(s for s in career.squadrons if s["first"] == career.player)

    def nation_of(self, pilot):
        return self.career.pilots[pilot][2]

    def candidate(self, is_players):
        if is_players:
            return self.players
        return self.career.squadrons[self.random.integer(0, len(self.career.squadrons) - 1)]

    def is_taken(self, squadron, plane, with_player, is_friend):
        """Whether this try ends the search."""
        if not with_player:
            return True
        if squadron["file"] < 0:
            return is_friend
        return self.career.flies(self.career.squadron_files[squadron["file"]][0], plane)

    def choose_german(self, with_player, date):
        friend = self.players["nation"] >= 500
        for _ in range(TRIES):
            plane = plane_for_side(False, *date, self.random)
            squadron = self.candidate(with_player and friend)
            while squadron["nation"] <= 499:
                squadron = self.candidate(with_player and friend)
            if self.is_taken(squadron, plane, with_player, friend):
                break
        return squadron, plane

    def choose_allied(self, with_player, date):
        friend = self.players["nation"] < 200
        for _ in range(TRIES):
            while True:
                squadron = self.candidate(with_player and friend)
                plane = nation_plane(squadron["nation"], *date, self.random)
                if squadron["nation"] <= 199:
                    break
            if self.is_taken(squadron, plane, with_player, friend):
                break
        return squadron, plane

    def numbers(self, year):
        """Germans, Allies."""
        draw = self.random.integer
        while True:
            if year <= 1916:
                most = 3 if draw(0, 2) == 2 else 2
                german, allied = draw(1, most), draw(1, most)
                if german == allied == 1 or 1 not in (german, allied) and abs(german - allied) <= 1:
                    return german, allied
                continue
            least = 2
            if year == 1917 and draw(0, 11) == 0:
                return 1, 1
            if year == 1918 and draw(0, 1) != 0:
                least = 3
            german, allied = draw(least, 4), draw(least, 4)
            if abs(german - allied) <= 1:
                return german, allied

    def fill(self, squadron, plane, count):
        group = []
        while len(group) < count:
            pilot = squadron["first"] + self.random.integer(0, 11)
            if pilot not in [other for other, _ in group]:
                group.append((pilot, plane))
        return group

    def select(self, with_player, date):
        german, german_plane = self.choose_german(with_player, date)
        allied, allied_plane = self.choose_allied(with_player, date)
        germans, allies = self.numbers(date[0])
        return self.fill(german, german_plane, germans) + self.fill(allied, allied_plane, allies)

    def plan(self, with_player, date):
        while True:
            planes = self.select(with_player, date)
            mine = [plane for plane in planes if plane[0] == self.career.player]
            if bool(mine) == with_player:
                break
        rest = [plane for plane in planes if plane not in mine]
        first_side = self.nation_of((mine + rest)[0][0]) < 200
        return mine + sorted(rest, key=lambda plane: (self.nation_of(plane[0]) < 200) != first_side)


def main():
    database, shared = Random(1), Random(2)
    generator = Random(Random(1).next())  # seeded by the first draw of the career's generator
    database.integer(0, 0x7FFF5037)  # the career's number
    planning = Planning(Career(int(sys.argv[2]), database, shared, generator), generator)
    lines = []
    for i in range(240):
        generator.seed(i + 1)
        month = i // 5 % 12 + 1
        plan = planning.plan(i % 3 != 0, (1915 + i % 5, month))
        if month == 12:
            generator.integer(0, 2)  # on the 20th of December: winter or autumn
        lines.append("".join(f"{pilot}{plane} " for pilot, plane in plan) + str(generator.next()) + "\n")
    write("".join(lines))


if __name__ == "__main__":
    main()
