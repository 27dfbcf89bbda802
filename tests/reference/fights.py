#!/usr/bin/env python3
"""The course of fights, step by step, in 32-bit floats.

A line for each step that changes a record or ends the fight: its number, 1 if the fight is over,
and the record that was hit: index, damage and injury as the hex of their bits, shot down, dead, by
whom, and the victories of its victor. After each fight another one with the draws that follow.
"""
import struct

from common import Random, f32, write
from levels import level

STEPS = 6000
STEPS_AFTER = 300
CASES = [(1, 1), (2, 3), (4, 4), (8, 8), (14, 6), (6, 14)]  # Allies, Germans


class Plane:
    def __init__(self, allied, skill, victories, missions):
        self.allied, self.skill, self.victories, self.missions = allied, skill, victories, missions
        self.level = level(skill, victories, missions)
        self.damage = self.injury = 0.0
        self.is_out = self.is_dead = False
        self.by, self.kills = -1, []


def mixed_plan(allies, germans, seed):
    draws = Random(seed)
    planes = []
    for i in range(allies + germans):
        skill = draws.integer(0, 16)
        victories = draws.integer(0, draws.integer(0, 12))
        planes.append(Plane(i < allies, skill, victories, draws.integer(0, 12)))
    return planes


def defence_of(target):
    value = f32(f32(target.level * f32(0.092)) + f32(target.skill * f32(0.01)))
    divisors = [1.2] if target.victories == 0 else []
    divisors += [1.05] * min(4, max(0, 5 - target.victories))
    divisors += [1.05] * max(0, 4 - target.missions)
    for divisor in divisors:
        value = f32(value / f32(divisor))
    return value


def hit_of(attacker, target, draw):
    """Damage and injury of a meeting; no damage is a miss."""
    attack = f32(attacker.level * f32(0.06))
    if attacker.level > 2:
        attack = f32(attack + f32(attacker.skill * f32(0.06)))
    value = draw.real(0.0, attack)
    value = f32(value + draw.real(0.0, attack))
    defence = defence_of(target)
    value = f32(value - draw.real(0.0, defence))
    value = f32(value - draw.real(0.0, defence))
    if target.skill > draw.integer(0, 13):
        value = f32(value - draw.real(0.0, defence))
    value = max(value, 0.0)
    for _ in range(7):
        if draw.integer(0, 15) > attacker.skill:
            value = draw.real(0.0, value)
    value = f32(value + draw.real(0.0, f32(0.305)))
    value = f32(value - draw.real(0.0, f32(0.305)))
    if value < 0:
        return None
    damage = draw.real(0.0, value)
    return damage, 0.0 if damage <= f32(0.1) else draw.integer(0, 4) * 0.25


def step(planes, draw):
    """Index of the plane that was hit, or None; whether the fight is over."""
    first, second = draw.integer(0, 15), draw.integer(0, 15)
    if max(first, second) >= len(planes):
        return None, False
    attacker, target = planes[first], planes[second]
    if attacker.is_out or target.is_out or attacker.allied == target.allied:
        return None, False
    hit = hit_of(attacker, target, draw)
    if hit is None:
        return None, False
    target.damage = f32(target.damage + hit[0])
    target.injury = f32(target.injury + hit[1])
    if target.damage >= 1.0:
        draw.integer(0, 12)
        target.is_out = True
        target.is_dead = target.injury >= 1.0
        attacker.kills.append(second)
        target.by = first
    sides = {plane.allied for plane in planes if not plane.is_out}
    return second, len(sides) < 2


def bits(value):
    return struct.pack(">f", value).hex()


def course(planes, steps, draw):
    lines = []
    before = [(plane.damage, plane.injury) for plane in planes]
    for number in range(steps):
        index, over = step(planes, draw)
        if index is None:
            continue
        hit = planes[index]
        if (hit.damage, hit.injury) == before[index] and not over:
            continue
        before[index] = (hit.damage, hit.injury)
        kills = ",".join(str(kill) for kill in planes[hit.by].kills) if hit.by >= 0 else ""
        lines.append(f"{number} {int(over)} {index} {bits(hit.damage)} {bits(hit.injury)} "
                     f"{int(hit.is_out)} {int(hit.is_dead)} {hit.by} {kills}\n")
    return "".join(lines)


def courses(allies, germans, seed):
    draw = Random(seed)
    first = course(mixed_plan(allies, germans, seed * 100), STEPS, draw)
    return first + course(mixed_plan(germans, allies, seed * 100 + 1), STEPS_AFTER, draw)


if __name__ == "__main__":
    write("".join(courses(allies, germans, seed)
                  for allies, germans in CASES for seed in range(1, 7)))
