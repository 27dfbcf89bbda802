"""The page of a pilot, and the rows of the lists that lead to it."""
import numpy as np

from outlines import fill, vector
from pixels import empty, grid, over, rgb, smooth, with_alpha
from sheets import BLUE, H, W, office_sheet, ruled, rules
from textures import foil

GOLD = '#F3DF9E'


def over_pilot():
    """A form with room for a photograph, and two columns below it."""
    ov = office_sheet(32, 20, 960, 648, 87, fold=.5)
    rules(ov, 64, 332, 896)
    over(ov, vector(W, H, lambda c: (c.rectangle(411, 344, 1.1, 306), fill(c, '#8A6E45', .55))))
    return ov


# -- rows


def stroke_of_pencil(w, h, color, alpha):
    """A broad stroke over a whole row."""
    _, y = grid(w, h)
    edge = smooth(np.minimum(y, h - 1 - y), 0, 3)
    return with_alpha(rgb(color), (alpha * edge).astype(np.float32))


LOOKS = ('plain', 'over', 'own', 'own_over')


def looks_of_row(name, w, h, draw):
    """The looks of a row one below the other: NAME_plain, the chosen NAME_over, the player's NAME_own
    and NAME_own_over."""
    sheet = empty(w, h * len(LOOKS))
    index = ''
    for i, look in enumerate(LOOKS):
        over(sheet, draw(look.startswith('own'), look.endswith('over')), 0, i * h)
        index += 'image %s_%s\ndims 0 %d %d %d\n' % (name, look, i * h, w, h)
    return sheet, index


def row_roster():
    """A ruled row of the roll. The chosen one has a stroke of yellow pencil, the player's one of blue."""
    w, h = 552, 42

    def draw(is_own, is_chosen):
        layer = empty(w, h)
        if is_own:
            over(layer, stroke_of_pencil(w, h - 8, BLUE, .17), 0, 3)
        if is_chosen:
            over(layer, stroke_of_pencil(w, h - 8, '#E8B53A', .34), 0, 3)
        ruled(layer, 0, h - 3, w)
        return layer
    return looks_of_row('row_roster', w, h, draw)


def row_aces():
    """A row of the board: the chosen one in a shine of brass, the player's between rules of gold."""
    w, h = 680, 34

    def draw(is_own, is_chosen):
        layer = empty(w, h)
        if is_chosen:
            over(layer, stroke_of_pencil(w, h - 6, GOLD, .22), 0, 3)
        if is_own:
            def lines(c):
                for y in (0, h - 2):
                    c.rectangle(0, y, w, 1.8)
                fill(c, '#FFFFFF')
            over(layer, foil(vector(w, h, lines)[..., 3], 6))
        return layer
    return looks_of_row('row_aces', w, h, draw)
