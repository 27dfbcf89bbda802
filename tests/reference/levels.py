#!/usr/bin/env python3
"""The level of a pilot, 1 to 4, for every skill, number of victories and number of missions."""
from common import write

# Victories and missions are divided by these, by skill 0 to 10.
DIVISORS = [(3, 15), (3, 12), (3, 11), (3, 10), (3, 9), (3, 8), (3, 7), (2, 6), (2, 5), (1, 5), (1, 4)]


def is_experienced(skill, missions):
    """Missions above the second figure count from a skill above the first."""
    return any(skill > above and missions > least
               for above, least in [(-1, 7), (0, 5), (1, 3), (2, 2), (4, 1), (6, 0)])


def level(skill, victories, missions):
    skill = min(max(skill, 0), 10)
    per_victory, per_mission = DIVISORS[skill]
    value = victories // per_victory + missions // per_mission
    if value >= 5:
        return 4
    if value >= 3:
        return 3
    if victories > 0:
        value += 1
        if value == 3:
            return 3
        if value == 1:
            value = 2
    if victories == 0 and value <= 1 and is_experienced(skill, missions):
        value = 2
    if victories >= 2 and is_experienced(skill, missions):
        value = 3
    return max(value, 1)


if __name__ == "__main__":
    write("".join(str(level(skill, victories, missions))
                  for skill in range(-1, 15) for victories in range(21) for missions in range(91)))
