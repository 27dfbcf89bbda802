"""The papers of the diary, the record of service, the letters and the end of the war; the strip of the war."""
import numpy as np

from aeroplane import photograph
from holders import silk_ribbon
from lettering import HEAD, ink, put
from medals import medal, medal_case, metal_star, ribbon
from outlines import fill, path, stroke, vector
from overlays_flying import LETTERHEAD, sign_letter
from pixels import bump, empty, grid, lay, mix, over, rgb, size, smooth
from portraits import portrait
from props import emblem, emblem_layer, pin, wax_seal
from sheets import (CARD, H, INK, LEDGER, LETTER, W, book_page, lay_gilt_board, lay_turned, office_sheet, open_book,
                    rules)
from tallies import balloon, car, plan_view
from textures import crease, foil, leather, paper

# -- the war as a strip

YEARS = [(1915, 8), (1916, 12), (1917, 12), (1918, 10.36)]  # months; it begins with May 1915
MONTHS_OF_WAR = sum(months for _, months in YEARS)
STRIPS = {'diary': (976, 104, 5), 'office': (580, 60, 5)}  # px, and the seed
EDGE, BAR_ABOVE, BAR, FLAG_ABOVE = 18, 38, 20, 50  # px: at the ends; of the bar and the flag above the lower edge


def strip(name, is_served):
    """A strip of paper with a mark a month. Served: with a hatched bar from end to end; the program
    shows the part that the player has served."""
    w, h, seed = STRIPS[name]
    sheet = paper(w, h, seed, base='#E4D8B4', edge='#A98B56', rough=.5, margin=8)
    top = h - BAR_ABOVE

    def at(t):
        return EDGE + t * (w - 2 * EDGE)

    def draw(c):
        c.rectangle(EDGE, top, w - 2 * EDGE, BAR)
        stroke(c, INK, 1.4, .9)
        if is_served:
            c.rectangle(EDGE, top, w - 2 * EDGE, BAR)
            fill(c, '#2B4B2E', .80)
            c.rectangle(EDGE, top, w - 2 * EDGE, BAR)
            c.clip()
            for k in range(-40, w, 9):
                path(c, [(k, top + BAR), (k + 20, top)])
            stroke(c, '#7E9158', 2.2, .5)
            c.reset_clip()
        month = 0
        for year, months in YEARS:
            c.rectangle(at(month / MONTHS_OF_WAR), top - 8, 1.4, BAR + 8)
            fill(c, INK, .9)
            for k in range(1, int(months)):
                c.rectangle(at((month + k) / MONTHS_OF_WAR), top, .8, 6)
                fill(c, INK, .6)
            month += months
    layer = vector(w, h, draw)
    month = 0
    for year, months in YEARS:
        put(layer, str(year), HEAD, 17, at(month / MONTHS_OF_WAR) + 5, top - 4, INK)
        month += months
    return over(sheet, ink(layer, 4, .18, 4))


def strip_flag():
    """A red flag on its pole, which is at the left."""
    def draw(c):
        c.move_to(1.5, 37)
        c.line_to(1.5, 0)
        stroke(c, '#A3241B', 2.4, .95)
        path(c, [(1.5, 0), (16.5, 5), (1.5, 10)], True)
        fill(c, '#A3241B', .95)
    return vector(18, 38, draw)


# -- diary and record


def over_diary():
    """An open ledger, the right page in two parts; the strip of the war below it."""
    ov = empty(W, H)
    pages = [book_page(486, 536, seed, base=LEDGER) for seed in (73, 74)]
    open_book(ov, 16, 10, leather(992, 554, 4, '#3A1C12'), pages, 18)
    over(ov, ink(emblem_layer(120, 50, .44, INK), 7, .3), 386, 28)
    for x in (44, 528):
        rules(ov, x, 76, 452)
    rules(ov, 528, 330, 452, gap=4)
    lay(ov, strip('diary', False), 24, 572, 3, 5, 4, .55)
    return ov


CASE = (56, 312, 912, 170)


def over_record():
    """A form with a case for five decorations across it."""
    ov = office_sheet(32, 20, 960, 648, 83, fold=.42)
    lay(ov, medal_case(CASE[2], CASE[3]), CASE[0], CASE[1], 3, 4, 4, .5)
    rules(ov, 64, 551, 896)
    return ov


PORTRAITS = ('english', 'french', 'german')


def portraits():
    """A pinned photograph for each service: portrait_english and so on."""
    def draw(kind):
        layer = empty(190, 228)
        lay_turned(layer, portrait(162, 200, 5 + PORTRAITS.index(kind), kind), -2.2, 12, 16, 4, 6, 5, .55)
        return over(layer, pin(color='#28497E'), 80, 6)
    return row_of('portrait', PORTRAITS, draw)


# -- letters


def letter_sheet(ov, black=False):
    """A letter at the left, in a black border if somebody has died."""
    sheet = paper(640, 648, 84 if black else 82, base=LETTER, edge='#C7B07E', fibre=.8, rough=.8)
    crease(sheet, y=216, strength=.05, seed=2)
    crease(sheet, y=432, strength=.05, seed=3)
    lay(ov, sheet, 36, 20)
    color = '#26221E' if black else LETTERHEAD
    over(ov, ink(emblem_layer(300, 100, .9, color), 4, .2), 206, 34)
    rules(ov, 196, 146, 320, color, 3, 1.2, .8)
    if black:
        def border(c):
            c.rectangle(44, 28, 624, 632)
            stroke(c, '#1C1916', 7, .9)
        over(ov, ink(vector(W, H, border), 6, .15, 5))

    def shifted(c):
        c.translate(-26, 10)
        sign_letter(c)
    over(ov, vector(W, H, shifted))


def over_citation():
    """A letter, an empty case for what is given, and a photograph."""
    ov = empty(W, H)
    lay_turned(ov, medal_case(284, 380), 2.2, 706, 40, 6, 9, 8, .6)
    machine = dict(yaw=.9, pitch=.05, roll=-.2, size=17, cx=110, cy=74)
    lay_turned(ov, photograph(236, 170, 55, [machine]), -5, 738, 470)
    letter_sheet(ov)
    return ov


def over_fallen():
    """A letter in a black border, its envelope, and a card. The photograph is drawn over it."""
    ov = empty(W, H)
    envelope = paper(420, 250, 81, base='#DDD2B8', rough=.5)

    def flap(c):
        c.rectangle(5, 5, 410, 240)
        stroke(c, '#1C1916', 9, .88)
        c.move_to(0, 0)
        c.line_to(210, 150)
        c.line_to(420, 0)
        stroke(c, '#4A4032', 1.4, .6)
    over(envelope, vector(420, 250, flap))
    lay(envelope, wax_seal(28, color='#1E1A18'), 170, 112, 1, 2, 2, .5)
    lay_turned(ov, envelope, -8, 640, 250, 5, 7, 7, .6)
    lay(ov, paper(312, 164, 36, base=CARD, rough=.6), 692, 504, 4, 6, 6, .6)
    rules(ov, 712, 544, 272)
    over(ov, pin(), 838, 494)
    letter_sheet(ov, True)
    return ov


def portraits_mourned():
    """A photograph with a black ribbon for each service: mourned_english and so on."""
    def draw(kind):
        photo = portrait(204, 252, 5 + PORTRAITS.index(kind), kind)
        x, y = grid(204, 252)
        band = smooth(12 - np.abs(x + y - 380), 0, 1.5)
        photo[..., :3] = mix(photo[..., :3], rgb('#171412') * (1 + .25 * bump(x + y - 376, 5))[..., None], band * .94)
        layer = empty(240, 284)
        lay_turned(layer, photo, 4, 16, 14, 5, 7, 7, .6)
        return layer
    return row_of('mourned', PORTRAITS, draw)


def over_war_over():
    """A board in gold for the aces of the war, and a sheet for what remains of a career."""
    ov = empty(W, H)
    w, h = 536, 656

    def draw(c):
        c.rectangle(48, 48, w - 96, h - 96)
        stroke(c, '#FFFFFF', 1.6)
        emblem(c, w / 2, 86, .66)
    lay_gilt_board(ov, w, h, 34, 472, 14, draw)
    sheet = paper(420, 648, 58, base='#E8DFC4', rough=.8)
    crease(sheet, y=324, strength=.05, seed=4)
    lay(ov, sheet, 28, 20, 5, 7, 7, .6)
    over(ov, ink(emblem_layer(190, 76, .8, INK), 9, .3), 143, 34)
    rules(ov, 56, 160, 364)
    rules(ov, 56, 424, 364)
    return ov


def own_row():
    """The gold rules above and below the player's row, and a silk ribbon that hangs over the frame."""
    w, h = 456, 46

    def draw(c):
        for y in (6, 40):
            c.rectangle(42, y - 1, w - 44, 2)
        fill(c, '#FFFFFF')
    layer = foil(vector(w, h, draw)[..., 3], 6)
    return over(layer, silk_ribbon(22, 15), 0, 15)


# -- small things, several in a picture


WIDEST = 1110  # px of a picture with several


def row_of(name, kinds, draw):
    """A picture of each kind in rows, and the index that cuts them out: NAME_KIND."""
    cells = [draw(kind) for kind in kinds]
    h, w = size(cells[0])
    columns = min(len(cells), max(1, WIDEST // w))
    sheet = empty(w * columns, h * -(-len(cells) // columns))
    index = ''
    for i, (kind, cell) in enumerate(zip(kinds, cells)):
        x, y = i % columns * w, i // columns * h
        over(sheet, cell, x, y)
        index += 'image %s_%s\ndims %d %d %d %d\n' % (name, kind, x, y, w, h)
    return sheet, index


RIBBONS = ('vc', 'dso', 'mc', 'dsc', 'dfc', 'legion', 'medaille', 'croix', 'merite', 'house', 'iron2')
MEDALS = (*RIBBONS, 'iron1')
PALMS = ('croix1', 'croix2', 'croix3', 'croix4')  # the cross with that many palms


def ribbons():
    """The pictures of the ribbon bar on a breast: ribbon_mc and so on."""
    def draw(kind):
        layer = empty(74, 36)
        lay(layer, ribbon('iron' if kind == 'iron2' else kind, 66, 26), 3, 3, 1, 2, 2, .5)
        return layer
    return row_of('ribbon', RIBBONS, draw)


def rosette():
    """The picture of a bar on its ribbon."""
    layer = empty(18, 18)
    lay(layer, metal_star(14, 8, .55), 2, 2, 1, 1, 1, .6)
    return layer


def medals():
    """Decorations as they hang in the case."""
    def draw(kind):
        layer = empty(80, 144)
        lay(layer, medal(kind), 2, 2, 3, 4, 4, .65)
        return layer
    return row_of('medal', (*MEDALS, *PALMS), draw)


def medals_large():
    """The same twice as large, as a letter brings them; and the star of a new rank."""
    def draw(kind):
        layer = empty(184, 308)
        if kind == 'star':
            lay_turned(layer, metal_star(128, 4, .42), 2.2, 28, 90, 3, 5, 5, .7)
        else:
            lay_turned(layer, medal(kind, times=2), 2.2, 20, 16, 3, 5, 5, .7)
        return layer
    return row_of('large', (*MEDALS, 'star'), draw)


SHAPES = ('scout', 'two', 'three', 'mono', 'balloon', 'ground')
TALLIES = {'tally': (37, 32, 3.4), 'small': (21, 21, 1.95)}  # px of a cell, and the scale


def tallies(name):
    """A machine from above for each victory, and a car for what is on the ground."""
    w, h, scale = TALLIES[name]

    def draw(kind):
        def shape(c):
            c.set_source_rgba(*[float(v) for v in rgb('#2A1E12')], .92)
            if kind == 'balloon':
                balloon(c, w / 2, h * .42, scale)
            elif kind == 'ground':
                car(c, w / 2, h * .42, scale)
            else:
                plan_view(c, w / 2, h * .42, scale, 'tri' if kind == 'three' else kind)
        return vector(w, h, shape)
    return row_of(name, SHAPES, draw)
