"""What lies on the desk in the screens of a career: the hub, orders, report, letter, rolls, diary."""
import math

import numpy as np

from aeroplane import photograph
from fieldmap import OURS, THEIRS, neat_line, sector_names, trench_map
from lettering import ink
from outlines import fill, stroke, vector
from overlays_book import compass_rose
from pixels import bump, empty, lay, over, part, rotate
from props import emblem, emblem_layer, pin, screw, stamp, watch, wax_seal
from sheets import (BLOCK, CARD, GREEN_PENCIL, H, INK, LEDGER, LETTER, OLD_CARD, RED, W, book_page,
                    heading, lay_gilt_board, lay_pencil, lay_turned, office_sheet, open_book, ruled, rules)
from textures import crease, leather, paper
from theatremap import place, theatre_map

LETTERHEAD = '#3A4A63'

# -- the squadron office


def over_hub():
    """A trench map under the date block and the card of the squadron office, which has room for the
    strip of the war."""
    ov = empty(W, H)
    field = trench_map(624, 500, 21)
    for x in (208, 416):
        crease(field, x=x, strength=.07, seed=x)
    crease(field, y=250, strength=.07, seed=5)
    lay_turned(ov, field, *FIELD, 5, 7, 8, .6)
    _lay_on_field(ov)
    return ov


FIELD = -2.2, 18, 20  # degrees, and the upper left corner of the map of the office


def _lay_on_field(ov):
    """What covers parts of the map: photograph, date block and the office's card."""
    machines = [dict(yaw=.5, pitch=.12, roll=-.35, size=16, cx=104, cy=80),
                dict(yaw=.5, pitch=.12, roll=-.3, size=8, cx=180, cy=36)]
    lay_turned(ov, photograph(236, 176, 5, machines), 7, 412, 210)
    over(ov, pin(), 502, 198)
    _lay_date_block(ov)
    lay_turned(ov, paper(600, 206, 64, base=OLD_CARD, rough=.6), 1.8, 46, 380, 4, 6, 6, .5)
    lay(ov, paper(620, 292, 63, base=CARD, rough=.6), 36, 380, 4, 6, 6, .6)
    over(ov, ink(emblem_layer(150, 60, .52, INK), 3, .3), 52, 385)
    rules(ov, 64, 444, 564)
    rules(ov, 64, 569, 564, gap=3, thick=1.4)


SHEET = 660, 560  # px: the part of the office in which its map is


def sheet(sector):
    """Only the names on the office's map in a sector, and none where something covers it."""
    field = rotate(sector_names(624, 500, 21, sector), FIELD[0], PAD)
    layer = empty(W, H)
    over(layer, field, FIELD[1] - PAD, FIELD[2] - PAD)
    above = empty(W, H)
    _lay_on_field(above)
    layer[..., 3] *= 1 - np.clip(above[..., 3] * 1.5, 0, 1)
    return part(layer, 0, 0, *SHEET)


PAD = 40  # px, for the corners that turn


def _lay_date_block(ov):
    for i, base in enumerate(('#CFC197', '#DCCFAB')):
        lay(ov, paper(320, 132, 62 + i, base=base, rough=.4), 57 - 2 * i, 76 - 3 * i, 2, 3, 5 - 2 * i, .55)
    lay(ov, paper(320, 132, 61, base=BLOCK, rough=.3), 52, 68, 2, 2, 2, .5)

    def head(c):
        c.rectangle(1, 1, 318, 34)
        fill(c, '#7E1F18', .96)
    over(ov, vector(320, 36, head), 52, 68)


def over_roster():
    """The nominal roll, with room for a head and twelve rows; a photograph and a card for the squadron."""
    ov = empty(W, H)
    machines = [dict(yaw=.5, pitch=.06, roll=roll, size=size, cx=cx, cy=cy)
                for roll, size, cx, cy in ((-.30, 15, 74, 118), (-.28, 13, 150, 78),
                                           (-.30, 11, 216, 44), (-.30, 11, 214, 128))]
    lay_turned(ov, photograph(300, 224, 65, machines), 4, 696, 340)
    over(ov, office_sheet(32, 20, 616, 648, 91))
    lay(ov, paper(352, 184, 63, base=CARD, rough=.6), 632, 56, 4, 6, 6, .6)
    over(ov, pin(color='#28497E'), 796, 50)
    rules(ov, 658, 122, 300)
    return ov


def over_aces():
    """A board of honour with a mitred frame."""
    ov = empty(W, H)
    w, h = 816, 652

    def draw(c):
        c.rectangle(60, 60, w - 120, h - 120)
        stroke(c, '#FFFFFF', 1.8)
        emblem(c, w / 2, 98, .84)
        for y in (542, 546):  # above the player's place
            c.rectangle(68, y, 680, 1.6)
            c.fill()
    lay_gilt_board(ov, w, h, 44, 104, 18, draw)
    for x in (126, 898):
        for y in (40, 648):
            lay(ov, screw(7), x - 10.5, y - 10.5, 1, 1, 1.5, .5)
    return ov


def over_letter():
    """The letter of invitation over its sealed envelope."""
    ov = empty(W, H)
    envelope = paper(420, 270, 81, base='#D6C49A', rough=.5)

    def flap(c):
        c.move_to(0, 0)
        c.line_to(210, 150)
        c.line_to(420, 0)
        stroke(c, '#7A6238', 1.2, .5)
    over(envelope, vector(420, 270, flap))
    lay(envelope, wax_seal(30), 168, 118, 1, 2, 2, .5)
    lay_turned(ov, envelope, -14, 620, 360, 5, 7, 7, .6)
    machine = dict(yaw=.9, pitch=.05, roll=-.2, size=17, cx=110, cy=80)
    lay_turned(ov, photograph(236, 180, 55, [machine]), 6, 760, 80)
    sheet = paper(660, 648, 82, base=LETTER, edge='#C7B07E', fibre=.8, rough=.8)
    crease(sheet, y=216, strength=.05, seed=2)
    crease(sheet, y=432, strength=.05, seed=3)
    lay(ov, sheet, 48, 20)
    over(ov, ink(emblem_layer(300, 100, 1.0, LETTERHEAD), 4, .2), 228, 40)
    rules(ov, 218, 158, 320, LETTERHEAD, 3, 1.2, .8)
    over(ov, vector(W, H, sign_letter))
    return ov


def sign_letter(c):
    """A signature: a wave that rises at its two capitals, drawn heavier downwards."""
    def point(t):
        rise = 30 * bump(t - .05, .045) + 27 * bump(t - .47, .045) + 7.5 * max(0.0, 1 - 1.15 * t ** 1.6) + 1.2
        phase = 2 * math.pi * (10.5 * t + .55 * math.sin(11 * t))
        wave = math.sin(phase)
        return (446 + 206 * t + 8.5 * math.sin(phase + .9) * (1 - .4 * t),
                604 - 12 * t - rise * wave * (.55 if wave < 0 else 1))

    c.set_line_cap(1)
    points = [point(i / 899) for i in range(900)]
    for start, end in zip(points, points[1:]):
        c.move_to(*start)
        c.line_to(*end)
        stroke(c, '#22304A', .9 + 1.5 * max(0.0, min(1.0, (end[1] - start[1]) / 2.4)), .92)
    c.move_to(640, 618)
    c.curve_to(580, 632, 500, 626, 452, 634)
    stroke(c, '#22304A', 1.5, .92)


# -- a mission


def over_orders():
    """The operation order, with room for rows below; a pinned map without its country, and a card."""
    ov = empty(W, H)
    lay(ov, paper(308, 408, 61, base='#E6D9B4', edge='#A98B56', foxing=5, rough=.8, margin=12), 694, 24, 5, 7, 7, .6)
    x, y, w, h = SECTOR
    over(ov, ink(vector(W, H, lambda c: neat_line(c, x, y, w, h, 4, 1.6)), 5, .2))
    compass_rose(ov, x + w - 22, y + h + 34, 13, INK)
    over(ov, pin(), 836, 14)
    lay(ov, paper(308, 206, 36, base=CARD, rough=.6), 694, 452, 4, 6, 6, .6)
    over(ov, office_sheet(32, 20, 644, 648, 51, fold=.46))
    over(ov, stamp([('SECRET', 21)], RED, 5, 132, 46, -8), 478, 12)
    return ov


SECTOR = 716, 66, 264, 300  # px: x, y, w and h of the map that the program draws


def row_flight():
    """A row of the roster: the line to write on."""
    layer = empty(580, 28)
    ruled(layer, 0, 26, 580)
    return layer


def over_wait():
    """The message form of the wait, a watch that says twenty to six, a flight on its way."""
    ov = empty(W, H)
    field = trench_map(520, 420, 90, titles=('Scale 1 : 20,000', '', ''))
    lay_turned(ov, field, 9, -20, 20, 5, 7, 8, .55)
    lay_turned(ov, paper(610, 600, 53, base='#D8CDA8'), -1.6, 96, 46, 5, 7, 7, .5)
    lay(ov, paper(620, 616, 52, base='#E4DDC0'), 100, 40)
    heading(ov, 132, 66, 556, 7)
    lay(ov, watch(104, 5, 42), 752, 56, 7, 10, 9, .65)
    machines = [dict(yaw=.45, pitch=.1, roll=-.3, size=11, cx=76, cy=64),
                dict(yaw=.45, pitch=.1, roll=-.28, size=9, cx=160, cy=44),
                dict(yaw=.45, pitch=.1, roll=-.3, size=10, cx=150, cy=110)]
    lay_turned(ov, photograph(250, 186, 33, machines), -5, 746, 372)
    lay_pencil(ov, 240, GREEN_PENCIL, 18, 852, 626)
    return ov


def over_report():
    """The ledger with five entries a page."""
    ov = empty(W, H)
    pages = [book_page(486, 646, seed, base=LEDGER) for seed in (71, 72)]
    open_book(ov, 16, 12, leather(992, 664, 4, '#3A1C12'), pages, 20)
    over(ov, ink(emblem_layer(120, 50, .44, INK), 7, .3), 386, 30)
    for x in (44, 528):
        rules(ov, x, 76, 452)
        for i in range(1, 5):
            ruled(ov, x, 88 + i * 114, 452, '#7A90A0')

    def margins(c):
        for x in (58, 542):
            c.rectangle(x, 86, 1.1, 572)
        fill(c, '#B0483C', .45)
    over(ov, vector(W, H, margins))
    return ov


# -- the war moves on


def over_advance():
    """A page of the campaign diary: room for texts and a bar, below them a map with flags stuck
    into it; the watch, at another hour, and a photograph."""
    ov = empty(W, H)
    lay_turned(ov, paper(610, 600, 54, base='#D2C59C'), 1.4, 104, 52, 5, 7, 7, .5)
    lay(ov, paper(620, 616, 58, base='#E8DFC4'), 100, 40)
    heading(ov, 132, 66, 556, 9)
    _lay_pinned_map(ov)
    machines = [dict(yaw=2.62, pitch=.04, roll=.28, size=13, cx=150, cy=66),
                dict(yaw=2.62, pitch=.04, roll=.25, size=9, cx=74, cy=110)]
    lay_turned(ov, photograph(250, 186, 39, machines), 5, 742, 54)
    lay(ov, watch(92, 9, 7), 772, 300, 7, 10, 9, .65)
    lay_pencil(ov, 230, RED, -24, 856, 616)
    return ov


# Longitude and latitude of the flags' points, clear of the towns and their names.
FLAGS = [
    (OURS, [(2.48, 50.02), (2.50, 49.62), (3.10, 49.22), (4.50, 49.00)]),
    (THEIRS, [(2.92, 49.97), (3.05, 49.62), (3.65, 49.52), (4.35, 49.32), (5.00, 49.34), (5.72, 49.22)]),
]


def _lay_pinned_map(ov):
    """A strip of the theatre of war, glued into the page, with flags on both sides of the front."""
    w, h, left, top, margin = 620, 560, 40, 204, 24
    strip = empty(540 + 2 * margin, 226 + 2 * margin)
    over(strip, part(theatre_map(w, h, 33, regions=False), left, top, 540, 226), margin, margin)
    for color, points in FLAGS:
        for point in points:
            x, y = place(w, h, *point)
            lay(strip, _flag(color), x - left + margin - 2, y - top + margin - 26, 3, 2, 1.5, .5)
    lay_turned(ov, strip, .7, 140 - margin, 406 - margin, 1, 2, 2, .45)


def _flag(color):
    """A paper flag on a pin; the point is at 2, 26."""
    def draw(c):
        c.move_to(2, 26)
        c.line_to(3, 2)
        stroke(c, '#4A463C', 1.3)
        c.move_to(3, 2)
        c.line_to(20, 6)
        c.line_to(3, 12)
        c.close_path()
        fill(c, color)
    return vector(24, 28, draw)
