"""The program's icon: the emblem in gold on the green of the log book."""
import numpy as np

from outlines import fill, rounded, rounded_mask, stroke, vector
from pixels import over, reduced, with_alpha
from props import emblem
from textures import cloth, foil, lamp, pressed

GOLD, PALE_GOLD = '#DDB35E', '#FFF1C4'


def large_icon():
    """256 x 256, with the weave of the cloth and the leaf's wear."""
    size = 256
    cover = cloth(size, size, 3, '#24372F') * lamp(size, size, 90, 70, 230, 1.35, .75)

    def draw(c):
        rounded(c, 14, 14, size - 28, size - 28, 20)
        stroke(c, '#FFFFFF', 3)
        fill(c, '#FFFFFF')
        emblem(c, size / 2, 122, 1.1, gap=1.4, tally=3.8)
    gold = vector(size, size, draw)[..., 3]
    pressed(cover, gold, .5)
    over(cover, foil(gold, 5))
    return with_alpha(np.clip(cover, 0, 1), rounded_mask(size, size, 30, 2))


# Feathers of the small icon's right wing, from the middle of the icon: root, bend and tip.
SMALL_FEATHERS = [((1, -6), (8, -7.5), (13, -11)), ((1.5, -4), (8, -5), (11.6, -7.6)),
                  ((2, -2), (7, -2.5), (10, -4.4))]


def small_icon():
    """32 x 32: fewer and heavier strokes, set on whole pixels."""
    size, scale = 32, 8

    def ground(c):
        rounded(c, 0.5, 0.5, 31, 31, 5)
        fill(c, '#1F342B')
        rounded(c, 1.5, 1.5, 29, 29, 4)
        stroke(c, '#3C5A4C', 1)

    def wings(c):
        c.set_line_cap(1)
        for side in (-1, 1):
            for points in SMALL_FEATHERS:
                root, bend, tip = [(16 + side * x, 16 + y) for x, y in points]
                c.move_to(*root)
                c.curve_to(*root, *bend, *tip)
                stroke(c, GOLD, 1.9)

    def tally(c):
        for x in (10, 14, 18, 22):  # two pixels wide, two apart
            c.rectangle(x - 1, 15, 2, 12)
        fill(c, PALE_GOLD)
        c.move_to(6, 24.5)
        c.line_to(26, 17.5)
        stroke(c, PALE_GOLD, 2)

    out = vector(size, size, ground, scale)
    over(out, vector(size, size, wings, scale))
    over(out, vector(size, size, tally, scale))
    return reduced(out, scale)
