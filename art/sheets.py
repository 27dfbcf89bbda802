"""What the overlays have in common: the desk, and printing on papers that lie on it."""
from functools import partial

import numpy as np

from lettering import ink
from outlines import fill, rounded_mask, stroke, vector
from pixels import (blur, bump, detail, empty, full, grid, lay, noise, over, px, rotate, shade, size, smooth,
                    with_alpha)
from props import emblem_layer, pencil
from textures import crease, foil, lamp, paper, pressed, wood

W, H = 1024, 768  # the screen, in px
RAIL = 688        # the rail along the front edge of the desk begins here
INK, FADED, RED, BLUE = '#2A1E12', '#5A452C', '#8E1F17', '#23406B'
OFFICE, CARD, OLD_CARD, LEDGER, LETTER = '#E9DDBF', '#EEE3C6', '#D9C79C', '#EBE1C6', '#F0E7D2'
MESSAGE, BOOKLET, BLOCK = '#E6D8A8', '#EFE6CE', '#F1E7CC'
RED_PENCIL, GREEN_PENCIL = '#7C1F18', '#2B4B2E'


def desk():
    """The squadron office's desk in the light of a lamp at the upper left; RGB."""
    top = wood(W, H, 4) * lamp(W, H, 360, 230, 780)
    rail = wood(W, H - RAIL, 31, '#1F0E07', '#4B2110', '#6E3519') * .92
    y = np.arange(px(H - RAIL), dtype=np.float32) / detail()
    moulding = 1 + .55 * bump(y - 5, 2.2) - .45 * bump(y - 11, 2.2) + .22 * bump(y - 15, 1.6)
    moulding -= .30 * np.exp((y - 80) / 8)
    rail *= moulding[:, None, None] * lamp(W, H, 400, 560, 900, 1.18, .55)[px(RAIL):]
    top[px(RAIL):] = rail
    y = grid(W, H)[1]
    top *= (1 - .75 * bump(y - RAIL + 1.5, 2.0))[..., None]
    top[:px(RAIL)] *= (1 - .35 * np.exp((y[:px(RAIL)] - RAIL) / 7))[..., None]
    return np.clip(top, 0, 1)


# -- printing


def rules(ov, x, y, w, color=INK, gap=4, thick=2.2, thin=0.9):
    """A double rule: a heavy line and a fine one gap below."""
    def draw(c):
        c.rectangle(0, 0, w, thick)
        c.rectangle(0, gap, w, thin)
        fill(c, color, .85)
    over(ov, ink(vector(w, gap + 2, draw), int(y) + 3, .25), x, y)


def ruled(ov, x, y, w, color='#8A6E45', alpha=.55):
    """A fine line to write on."""
    over(ov, vector(w, 2, lambda c: (c.rectangle(0, 0, w, 1), fill(c, color, alpha))), x, y)


def dotted(ov, x, y, w):
    def draw(c):
        c.set_dash([1.2, 3.2])
        c.move_to(0, 1)
        c.line_to(w, 1)
        stroke(c, '#7A6440', 1.2, .75)
    over(ov, vector(w, 2, draw), x, y)


def heading(ov, x, y, w, seed):
    """The head of an office form: the emblem over a double rule. The title, a text, begins at
    x + 142 with its baseline at y + 36."""
    over(ov, ink(emblem_layer(150, 60, .62, INK), seed, .22), x - 8, y - 6)
    rules(ov, x, y + 54, w)


# -- laying down


def office_sheet(x, y, w, h, seed, fold=.5):
    """An overlay with a form, folded at that part of its height, and its head."""
    ov = empty(W, H)
    sheet = paper(w, h, seed, base=OFFICE)
    crease(sheet, y=h * fold, strength=.035, seed=seed)
    lay(ov, sheet, x, y)
    heading(ov, x + 32, y + 26, w - 64, seed)
    return ov


def lay_turned(ov, layer, degrees, x, y, dx=4, dy=6, radius=6, strength=.6):
    """A layer turned around its middle and laid down. x, y: its upper left corner before that."""
    pad = int(abs(np.sin(np.radians(degrees))) * max(size(layer)) / 2) + 4
    lay(ov, rotate(layer, degrees, pad), x - pad, y - pad, dx, dy, radius, strength)


def lay_pencil(ov, length, color, degrees, cx, cy):
    lay_turned(ov, pencil(length, color), degrees, cx - length / 2, cy - 7.5, 5, 7, 5, .5)


def open_book(ov, x, y, cover, pages, top):
    """A book that lies open: its cover, RGB, at x, y, and a left and a right page with their upper
    edge at top."""
    h, w = size(cover)
    lay(ov, with_alpha(cover, rounded_mask(w, h, 7)), x, y, 6, 9, 9, .6)
    for side, (page, page_x) in enumerate(zip(pages, (26, 512))):
        ph, pw = size(page)
        px, _ = grid(pw, ph)
        from_gutter = pw - px if side == 0 else px
        light = 1 - .42 * np.exp(-from_gutter / 15) + .05 * bump(from_gutter - 46, 30)
        light *= 1 - .15 * np.exp((from_gutter - pw) / 3)
        page[..., :3] = np.clip(page[..., :3] * light[..., None], 0, 1)
        outwards = 1 if side else -1
        for k in (3, 2, 1):  # the edges of the leaves below
            leaf = page.copy()
            leaf[..., :3] *= .86 - .10 * (k % 2)
            over(ov, leaf, page_x + 2 * k * outwards, top + k)
        over(ov, page, page_x, top)


def framed_board(w, h, width):
    """A panel in a frame of that width; RGB."""
    x, y = grid(w, h)
    dx, dy = np.minimum(x, w - x), np.minimum(y, h - y)
    d = np.minimum(dx, dy)
    tones = ('#2A120A', '#632F1C', '#91532F')
    upright = np.swapaxes(wood(h, w, 58, *tones), 0, 1)
    frame = np.where((dx < dy)[..., None], upright, wood(w, h, 57, *tones))
    frame = frame * (1 - .5 * bump(dx - dy, 1.1) * (d < width))[..., None]
    panel = wood(w, h, 55, '#1C0C07', '#40190F', '#5E2A1A')
    board = np.where((d > width)[..., None], panel, frame)
    height = 8 * smooth(d, 0, 7) - 5 * smooth(d, 10, 14) + 5 * smooth(d, 14, 26)
    height -= 10 * smooth(d, width - 10, width)
    board = board * (1 + .42 * shade(blur(height, .7)))[..., None]
    inside = np.maximum(d - width, 0)
    corner = .5 * np.exp(-np.abs(d - width - 1) / 1.6) * (d > width - 2)
    board *= ((1 - corner) * (1 - .45 * np.exp(-inside / 7) * (d > width)))[..., None]
    return np.clip(board * lamp(w, h, 330, 200, 640, 1.16, .66), 0, 1)


def lay_gilt_board(layer, w, h, width, x, y, draw):
    """Lays a framed board on a layer, with the output of draw as gold leaf pressed into it."""
    board = framed_board(w, h, width)
    gold = vector(w, h, draw)[..., 3]
    pressed(board, gold, .4)
    over(board, foil(gold, 6))
    lay(layer, with_alpha(board, full(w, h, 1)), x, y, 7, 10, 10, .65)


book_page = partial(paper, rough=.35, margin=10, foxing=3, fibre=.3)


def fringe(w, h, seed):
    """The alpha of a sheet of fabric cut with scissors."""
    x, y = grid(w, h)
    d = np.minimum(np.minimum(x, w - x), np.minimum(y, h - y))
    return smooth(d + noise(w, h, 2.2, 2.2, seed), .2, 2)
