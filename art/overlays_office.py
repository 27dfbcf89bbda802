"""What lies on the desk in the screens around a career: main menu, new career, settings, help."""
import math

import numpy as np

from aeroplane import aeroplane, photograph
from fieldmap import trench_map
from lettering import BOOK, ink, put
from outlines import fill, path, rounded, rounded_mask, source, vector
from pixels import blur, bump, empty, fbm, full, grid, lay, mix, over, rgb, shade, size, smooth, with_alpha
from props import emblem, emblem_layer, insignia, pin, stamp, swatch
from sheets import (BLUE, BOOKLET, CARD, GREEN_PENCIL, H, INK, MESSAGE, OLD_CARD, RED, RED_PENCIL, W,
                    book_page, dotted, framed_board, fringe, heading, lay_pencil, lay_turned, office_sheet, open_book,
                    ruled, rules)
from textures import cloth, crease, foil, lamp, leather, linen, paper, pressed, tape
from theatremap import theatre_map

# -- main menu


def over_main():
    """The closed log book, and insignia cut from wings above the plates."""
    ov = empty(W, H)
    w, h = 456, 616
    leaves = paper(w - 10, h - 8, 9, base='#D9C9A0', rough=.3)
    leaves[..., :3] *= (.78 + .16 * np.sin(grid(w - 10, h - 8)[0] * 2.2))[..., None]
    lay(ov, leaves, 64, 44, 9, 12, 10, .6)
    book = _binding(w, h)
    _stamp_gold(book, 108 + (w - 132) / 2)
    book *= lamp(w, h, 170, 120, 620, 1.12, .62)
    lay(ov, with_alpha(np.clip(book, 0, 1), rounded_mask(w, h, 7)), 52, 32, 3, 4, 3, .6)
    for kind, seed, x, y, degrees in (('french', 7, 572, 47, 5), ('german', 5, 838, 53, -6),
                                      ('english', 3, 703, 41, -2)):
        lay_turned(ov, swatch(158, kind, seed), degrees, x, y, 4, 6, 6, .6)
    return ov


def _binding(w, h):
    """Half leather: buckram with a leather spine and corners; RGB."""
    x, y = grid(w, h)
    skin = ((x < 74) | (w - x + y < 96) | (w - x + h - y < 96)).astype(np.float32)
    book = mix(cloth(w, h, 3, '#24372F'), leather(w, h, 7, '#4A2115'), blur(skin, .8))
    book *= (1 + .88 * shade(blur(skin, 1.6)))[..., None]
    book *= (1 - .38 * bump(x - 88, 5) + .18 * bump(x - 97, 4))[..., None]  # the joint
    round_spine = .30 * bump(x - 30, 20) - .35 * np.exp(-x / 9)
    book *= (1 + round_spine - .32 * np.exp((x - w) / 4) - .34 * np.exp((y - h) / 4))[..., None]
    near_edge = np.exp(-np.minimum(np.minimum(w - x, y), h - y) / 7)
    wear = smooth(fbm(w, h, 26, 26, 12, 4), .15, .5) * near_edge
    return mix(np.clip(book, 0, 1), rgb('#8A6A4A'), .38 * wear)


def _stamp_gold(book, cx):
    """Frame, emblem, title and a machine in gold leaf, around the column cx."""
    h, w = size(book)
    layer = vector(w, h, lambda c: _draw_cover(c, w, h, cx))
    for text, px, y, spacing in (('WINGTALLY', 44, 288, 2.0), ('A PILOT’S RECORD', 22, 378, 2.4),
                                 ('OF SERVICE', 22, 408, 2.4), ('1915 – 1918', 24, 540, 2)):
        put(layer, text, BOOK, px, cx, y, '#FFFFFF', 'center', spacing)
    machine = aeroplane(w, h, 2.75, -.10, -.24, 15, mark=None, cx=cx, cy=466)
    over(layer, with_alpha(np.ones(3, np.float32), .96 * machine[..., 3]))
    gold = layer[..., 3]
    pressed(book, gold, .5)
    leaf = foil(gold, 5)
    grey = np.clip(.35 + 1.35 * machine[..., :1] * machine[..., 3:4], 0, 1.15)
    leaf[..., :3] *= np.where(machine[..., 3:4] > .3, grey, 1)
    over(book, np.clip(leaf, 0, 1))


def _draw_cover(c, w, h, cx):
    source(c, '#FFFFFF')
    for inset, radius, width in ((0, 3, 2.2), (6, 2, .9)):
        rounded(c, 108 + inset, 28 + inset, w - 132 - 2 * inset, h - 56 - 2 * inset, radius)
        c.set_line_width(width)
        c.stroke()
    for y in (96, 516):
        c.rectangle(8, y, 58, 2.2)
        c.rectangle(8, y + 5, 58, .9)
    c.fill()
    emblem(c, cx, 150, 1.18)
    c.set_line_width(1.4)
    for side in (-1, 1):
        c.move_to(cx + side * 14, 330)
        c.line_to(cx + side * 118, 330)
    c.stroke()
    path(c, [(cx - 7, 330), (cx, 323), (cx + 7, 330), (cx, 337)])
    c.fill()


# -- a new career


def over_service():
    """The first sheet of the application, ruled for three services."""
    ov = office_sheet(32, 20, 960, 648, 41)
    for y in (310, 462):
        dotted(ov, 64, y, 896)
    return ov


def over_year():
    ov = office_sheet(32, 20, 960, 648, 42)
    for y in (274, 394, 514):
        dotted(ov, 64, y, 896)
    return ov


def over_month():
    """A pad with torn leaves, in a leather holder."""
    ov = empty(W, H)
    lay(ov, paper(900, 640, 44, base='#DDD0AC', rough=.7), 66, 36)
    lay(ov, paper(900, 640, 43, base='#EBE0C4', rough=.7), 62, 28)
    strip = leather(912, 52, 9, '#3C1F16')
    y = grid(912, 52)[1]
    strip *= (.95 + .25 * bump(y - 3, 2.5) - .4 * np.exp((y - 52) / 3))[..., None]
    lay(ov, with_alpha(np.clip(strip, 0, 1), rounded_mask(912, 52, 4)), 58, 26, 1, 3, 3, .6)
    over(ov, vector(W, H, _draw_eyelets))
    heading(ov, 96, 92, 832, 6)
    return ov


def _draw_eyelets(c):
    for x in range(132, 900, 95):
        for dx, dy, radius, color in ((.8, 1.2, 7.4, '#1A0D07'), (0, 0, 7, '#8E6C34'),
                                      (-.5, -.7, 6.2, '#C9A860'), (0, 0, 4.2, '#160C06')):
            c.arc(x + dx, 52 + dy, radius, 0, 2 * math.pi)
            fill(c, color)


def over_summary():
    """The record of service, with room for a bar below the particulars; a photograph pinned up."""
    ov = empty(W, H)
    machine = dict(yaw=2.45, pitch=-.17, roll=.02, size=19, cx=145, cy=142)
    picture = photograph(300, 226, 15, [machine], ground=.30)
    lay_turned(ov, picture, 3.5, 680, 60, 5, 7, 7, .55)
    over(ov, office_sheet(32, 20, 640, 648, 45))
    lay_pencil(ov, 290, RED_PENCIL, -38, 834, 520)
    for y in (262, 334, 406):
        ruled(ov, 64, y, 576)
    lines = [('ACCEPTED', 21), ('FOR FLYING', 16), ('DUTIES', 16)]
    over(ov, stamp(lines, BLUE, 8, 164, 92, -6, 20), 460, 526)
    over(ov, pin(), 812, 52)
    return ov


# -- log books


DRAWER = (28, 14, 616, 660)  # x, y, w, h


def over_careers():
    """A drawer of the desk, pulled out, in which the log books lie on their sides; and a card."""
    ov = empty(W, H)
    x, y, w, h = DRAWER
    board = framed_board(w, h, 26)
    gx, gy = grid(w, h)
    d = np.minimum(np.minimum(gx - 26, w - 26 - gx), np.minimum(gy - 26, h - 26 - gy))
    deep = .52 + .40 * np.exp(-np.maximum(gy - 26, 0) / 26) + .22 * np.exp(-np.maximum(gx - 26, 0) / 16)
    board = np.clip(board * np.clip(1 - smooth(d, 0, 1.5) * deep, .1, 1)[..., None], 0, 1)
    lay(ov, with_alpha(board, full(w, h, 1)), x, y, 6, 9, 9, .6)
    lay_turned(ov, paper(312, 396, 38, base=OLD_CARD, rough=.6), 1.8, 676, 26, 4, 6, 6, .5)
    lay(ov, paper(316, 404, 37, base=CARD, rough=.6), 674, 22, 4, 6, 6, .6)
    rules(ov, 696, 116, 272)
    over(ov, pin(), 824, 12)
    return ov


def over_pages():
    """A form for the rows of a list; beside it a card, and a photograph."""
    ov = office_sheet(32, 20, 644, 648, 50)
    lay_turned(ov, paper(288, 250, 38, base=OLD_CARD, rough=.6), 2.6, 704, 42, 4, 6, 6, .5)
    lay(ov, paper(292, 256, 37, base=CARD, rough=.6), 700, 36, 4, 6, 6, .6)
    over(ov, pin(), 832, 26)
    rules(ov, 720, 120, 252)
    machine = dict(yaw=.62, pitch=.16, roll=.03, size=20, cx=128, cy=112)
    lay_turned(ov, photograph(280, 210, 47, [machine], ground=.34), -4, 704, 380, 4, 6, 6, .6)
    lay_pencil(ov, 230, RED_PENCIL, 14, 850, 632)
    return ov


def over_enlist():
    """A form over the whole desk: above its rule for the name and two switches, below it for a list."""
    ov = office_sheet(32, 20, 960, 648, 41, fold=.42)
    rules(ov, 64, 298, 896)
    lay_pencil(ov, 210, RED_PENCIL, -28, 900, 70)
    return ov


# -- settings


def over_settings():
    """A form with room for plates above its rule and for switches below."""
    ov = empty(W, H)
    field = trench_map(360, 300, 61, titles=('', '', '1 : 20,000'))
    lay_turned(ov, field, -7, 640, 344, 5, 7, 7, .6)
    machine = dict(yaw=.62, pitch=.16, roll=.03, size=20, cx=128, cy=122)
    picture = photograph(292, 220, 47, [machine], ground=.34)
    lay_turned(ov, picture, -4, 688, 62, 4, 6, 6, .6)
    over(ov, office_sheet(32, 20, 640, 648, 46))
    rules(ov, 64, 392, 576)
    lay_pencil(ov, 280, GREEN_PENCIL, 63, 842, 480)
    over(ov, pin(color='#28497E'), 818, 50)
    return ov


def over_maps():
    """The theatre of war with the two regions, and a card for their switches."""
    ov = empty(W, H)
    sheet = theatre_map(656, 648, 12)
    for x in (219, 437):
        crease(sheet, x=x, strength=.05, seed=x)
    crease(sheet, y=324, strength=.05, seed=5)
    lay(ov, sheet, 24, 20)
    lay_turned(ov, paper(280, 286, 38, base=OLD_CARD, rough=.6), 2.6, 708, 42, 4, 6, 6, .5)
    lay(ov, paper(288, 296, 37, base=CARD, rough=.6), 704, 36, 4, 6, 6, .6)
    rules(ov, 724, 96, 248)
    over(ov, pin(), 834, 34)
    return ov


def over_planes(kind, base, mark_radius, mark_alpha, seed):
    """A panel of wing fabric with a faint mark and a card for the head."""
    ov = empty(W, H)
    w, h = 976, 656
    panel = linen(w, h, seed, base)
    for y in (18, h - 18):
        tape(panel, y=y, width=22)
    for x in (20, w / 2, w - 20):
        tape(panel, x=x, width=26 if x == w / 2 else 22)
    mark = vector(w, h, lambda c: insignia(c, kind, w / 2, h / 2 + 44, mark_radius))
    mark[..., 3] *= mark_alpha
    over(panel, ink(mark, 4, .25, 3))
    x, y = grid(w, h)
    d = np.minimum(np.minimum(x, w - x), np.minimum(y, h - y))
    panel *= (1 - .28 * np.exp(-d / 10))[..., None] * lamp(w, h, 360, 220, 900, 1.06, .82)
    lay(ov, with_alpha(np.clip(panel, 0, 1), fringe(w, h, 6)), 24, 16)
    lay(ov, paper(720, 124, 33, base=CARD, rough=.8), 152, 38, 3, 4, 4, .5)
    over(ov, ink(emblem_layer(150, 60, .56, INK), 3, .28), 176, 48)
    rules(ov, 180, 106, 664)
    return ov


def over_planes_allied():
    return over_planes('english', '#CDBB8D', 250, .34, 14)


def over_planes_german():
    return over_planes('german', '#C6B78F', 225, .26, 19)


# -- notices and help


def over_notice():
    """A message form of the army's signals."""
    ov = empty(W, H)
    lay_turned(ov, paper(740, 560, 53, base='#CDB98A'), 3.2, 144, 66, 5, 7, 7, .5)
    sheet = paper(760, 584, 57, base=MESSAGE, edge='#A88A4A')
    crease(sheet, x=380, strength=.045, seed=6)
    lay(ov, sheet, 132, 48)
    over(ov, ink(emblem_layer(190, 76, .8, INK), 9, .3), 160, 66)
    rules(ov, 164, 140, 696)
    over(ov, stamp([('RECEIVED', 22)], RED, 6, 178, 54, -8), 656, 536)
    return ov


def over_help():
    """An open booklet; its heads are above double rules."""
    ov = empty(W, H)
    pages = [book_page(486, 640, seed, base=BOOKLET) for seed in (75, 76)]
    open_book(ov, 16, 14, cloth(992, 660, 4, '#2E3E4E'), pages, 24)
    for x in (60, 550):
        rules(ov, x, 90, 420)
        over(ov, ink(emblem_layer(110, 40, .26, INK), x, .28), x + 155, 618, .75)
    return ov
