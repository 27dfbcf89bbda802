"""The pages of the book of the war: the flying log book, and the sheet on which a fight is sketched."""
import math

import numpy as np

from lettering import HEAD, ink, put
from outlines import fill, path, source, stroke, vector
from pixels import empty, grid, lay, over, rgb, smooth, with_alpha
from props import emblem_layer, pin
from sheets import CARD, H, INK, LEDGER, OLD_CARD, W, book_page, lay_turned, open_book, ruled, rules
from textures import crease, leather, paper

GRAPHITE, BLUE_PENCIL, RED_PENCIL = '#35322E', '#23406B', '#A3241B'
SQUARED, LINES = '#EDE6D0', '#7A90A0'
# Where the program draws a fight: x, y, width, height; and a square of it.
SKETCH, SQUARE = (56, 104, 624, 476), 20.8
ROWS, ROW, FIRST_ROW = 14, 35, 112           # of a page of the log book
COLUMNS = (79, 189, 339, 718, 922)           # the lines between its columns


def pencil_stroke(c, points, color=GRAPHITE, width=1.4, alpha=.85, seed=1, wobble=.7, dash=None):
    """A line drawn by hand: twice, and not quite on itself."""
    rng = np.random.default_rng(seed)
    for k in range(2):
        p = [(x + rng.normal(0, wobble), y + rng.normal(0, wobble)) for x, y in points]
        if dash:
            c.set_dash(dash, k * 1.5)
        path(c, p)
        stroke(c, color, width * (1 if k == 0 else .6), alpha * (1 if k == 0 else .5))
    c.set_dash([])


def grainy(layer, seed=3, wear=.42):
    """Pencil on rough paper."""
    return ink(layer, seed, wear, 2.4)


def compass_rose(dst, cx, cy, r, color=GRAPHITE):
    """A rose with its north arm dark."""
    def draw(c):
        c.arc(cx, cy, r * .62, 0, 7)
        stroke(c, color, 1, .7)
        c.arc(cx, cy, r * .55, 0, 7)
        stroke(c, color, .6, .6)
        for k in range(8):
            a = k * math.pi / 4
            length = r if k % 2 == 0 else r * .52
            half = r * .13 if k % 2 == 0 else r * .08
            for side, alpha in ((1, .9), (-1, .15)):
                c.move_to(cx + length * math.sin(a), cy - length * math.cos(a))
                c.line_to(cx + half * math.sin(a + side * math.pi / 4) * 1.6,
                          cy - half * math.cos(a + side * math.pi / 4) * 1.6)
                c.line_to(cx, cy)
                c.close_path()
                source(c, color, alpha)
                c.fill_preserve()
                stroke(c, color, .8, .8)
    layer = vector(W, H, draw)
    put(layer, 'N', HEAD, r * .52, cx, cy - r - 4, color, 'center')
    over(dst, ink(layer, 4, .25, 3))


def _cross(c, x, y, r, color, width):
    for dx in (-1, 1):
        pencil_stroke(c, [(x - dx * r, y - r), (x + dx * r, y + r)], color, width, .95, int(x), .5)


def _legend(ov):
    """The signs of the legend, in front of their texts."""
    def draw(c):
        y1, y2 = 616, 644
        pencil_stroke(c, [(216, y1), (246, y1)], BLUE_PENCIL, 2.2, .95, 3, .4, [10, 4])
        c.arc(231, y2, 4.4, 0, 7)
        stroke(c, RED_PENCIL, 1.9, .95)
        _cross(c, 391, y1, 7, RED_PENCIL, 2.2)
        _cross(c, 391, y2, 7, BLUE_PENCIL, 2.2)
        path(c, [(560, y1 + 6), (576, y1 + 6), (568, y1 - 8)], True)
        stroke(c, GRAPHITE, 2.0, .95)
    over(ov, grainy(vector(W, H, draw), 4, .25))


def over_where():
    """Squared paper with a frame, a rose and a legend, for the sketch of a fight; a card beside it."""
    ov = empty(W, H)
    sheet = paper(680, 648, 66, base=SQUARED, edge='#B99C66', foxing=4, rough=.9, margin=12)
    crease(sheet, x=340, strength=.045, seed=5)
    lay(ov, sheet, 28, 20)
    x, y, w, h = SKETCH

    def squares(c):
        for k in range(1, int(w / SQUARE)):
            c.move_to(x + k * SQUARE, y)
            c.line_to(x + k * SQUARE, y + h)
        for k in range(int(h / SQUARE) + 1):
            c.move_to(x, y + h - k * SQUARE)
            c.line_to(x + w, y + h - k * SQUARE)
        stroke(c, LINES, .8, .38)
    over(ov, vector(W, H, squares))
    frame = [(x, y), (x + w, y), (x + w, y + h), (x, y + h), (x, y)]
    over(ov, grainy(vector(W, H, lambda c: pencil_stroke(c, frame, GRAPHITE, 1.4, .8, 3, .5)), 2))
    compass_rose(ov, x + w - 48, y + h - 48, 28)
    _legend(ov)
    lay_turned(ov, paper(276, 300, 38, base=OLD_CARD, rough=.6), 1.6, 722, 30, 4, 6, 6, .5)
    lay(ov, paper(284, 640, 37, base=CARD, rough=.6), 724, 24, 4, 6, 6, .6)
    rules(ov, 744, 76, 244)
    over(ov, pin(), 852, 14)
    return ov


def over_logbook():
    """The flying log book: fourteen ruled rows over both pages, with lines between the columns."""
    ov = empty(W, H)
    pages = [book_page(486, 646, seed, base=LEDGER) for seed in (77, 78)]
    open_book(ov, 16, 12, leather(992, 664, 4, '#3A1C12'), pages, 20)
    over(ov, ink(emblem_layer(120, 50, .40, INK), 7, .3), 386, 22)
    for x in (44, 528):
        rules(ov, x, 72, 452)
        for i in range(ROWS + 1):
            ruled(ov, x, FIRST_ROW + i * ROW, 452, LINES, .75)
        rules(ov, x, 606, 452, gap=4)

    def columns(c):
        for x in COLUMNS:
            c.rectangle(x, 80, 1.1, 526)
        fill(c, '#B0483C', .42)
    return over(ov, vector(W, H, columns))


def row_ledger():
    """Marks the chosen row of the log book: a stroke of yellow pencil."""
    w, h = 64, 34
    x, y = grid(w, h)
    edge = smooth(np.minimum(y, h - 1 - y), 0, 3)
    return with_alpha(rgb('#E8B53A'), (.30 * edge).astype(np.float32))
