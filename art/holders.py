"""Label holders: brass frames with a paper slip in them, as rows of lists and on the spines of log
books; and the silk ribbon that marks a book."""
import math

import numpy as np

from brass import JEWELS, LOOKS, looks_sheet, plate, switch
from outlines import fill, rounded_mask, vector
from pixels import (SHADOW, blur, bump, empty, full, grid, lay, mix, noise, over, part, rgb, shade, size, smooth,
                    with_alpha)
from props import insignia
from textures import cloth, foil, leather, paper, pressed

SLIP = {'active': '#EDE2C4', 'over': '#FFF8E2', 'down': '#D9CBA4', 'inactive': '#CFC6B2'}
SPINE = (556, 92)  # px
# service: colours of cloth and leather, seed. The last one has no cockade: nobody can read it.
BINDINGS = {'english': ('#2F4A3E', '#552718', 4), 'french': ('#35507A', '#552718', 5),
            'german': ('#55594A', '#33211A', 6), 'american': ('#6A5632', '#45241A', 9),
            'unread': ('#5B5346', '#33261D', 11)}
AMERICAN_RINGS = ('#A92E22', '#2B4170', '#E9E0C8')
BRIGHTNESS = {'active': 1, 'over': 1.22, 'down': .86, 'inactive': .7}
# Rows of lists: width, height, seed.
ROWS = {'toggle_slip': (580, 46, 3), 'toggle_wide': (896, 46, 6)}
SLIP_TO_WRITE_ON = (560, 54, 3)  # likewise


def _rivet(dst, cx, cy, r):
    h, w = size(dst)
    x, y = grid(w, h)
    x, y = x - cx, y - cy
    light = np.clip(.55 + .5 * (-.5 * x - .8 * y) / r, 0, 1)
    color = mix(rgb('#4E3A16'), rgb('#F2DDA6'), light)
    over(dst, with_alpha(SHADOW, .55 * bump(np.hypot(x - 1, y - 1.4), r)))
    over(dst, with_alpha(color, smooth(r - np.hypot(x, y), 0, 1)))


def _frame(w, h, x, y, iw, ih, width, inner):
    """A line around a rectangle: from `width` px outside it to `inner` px."""
    rim = full(w, h, 0)
    part(rim, x - width, y - width, iw + 2 * width, ih + 2 * width)[...] = 1
    part(rim, x - inner, y - inner, iw + 2 * inner, ih + 2 * inner)[...] = 0
    return rim


def holder(w, h, look, seed, end=20, edge=7, jewel=None):
    """A brass frame with a paper slip. end: brass at either end; edge: above and below the slip;
    jewel: 'on' or 'off', set into the left end, with a screw in the right one."""
    left, right = (58, 36) if jewel else (end, end)
    if jewel:
        out = switch(w, h, look, jewel, seed)
    else:
        out = plate(w, h, look, seed, radius=6, screws='none', border=4)
    iw, ih = w - left - right - 6, h - 2 * edge - 6
    x0, y0 = left + 3, edge + 3
    slip = paper(iw, ih, seed + 5, base=SLIP[look], edge='#B99C66', foxing=1, rough=.1, margin=5, fibre=.3)
    slip[..., 3] = 1
    x, y = grid(iw, ih)
    deep = .55 * np.exp(-y / 2.2) + .40 * np.exp(-x / 2.2) + .10 * np.exp(-(iw - x) / 2)
    slip[..., :3] *= (1 - np.clip(deep, 0, .7))[..., None]
    out[..., :3] *= (1 - .45 * blur(_frame(w, h, x0, y0, iw, ih, 2, 0), .7))[..., None]
    over(out, slip, x0, y0)
    if look == 'over':
        over(out, with_alpha(rgb('#FFF6D8'), .85 * blur(_frame(w, h, x0, y0, iw, ih, 3, 1), .5)))
    for rivet_x in () if jewel else (3 + end / 2, w - 3 - end / 2):
        _rivet(out, rivet_x, h / 2, 3.6)
    return out


# -- log books


def _mark(c, service, x, y, r):
    if service != 'american':
        insignia(c, service, x, y, r)
        return
    for share, color in zip((1, .66, .34), AMERICAN_RINGS):
        c.arc(x, y, r * share, 0, 2 * math.pi)
        fill(c, color)


def _binding(service, look):
    """The back of a book in cloth, with leather at its ends; RGB."""
    w, h = SPINE
    base, skin, seed = BINDINGS[service]
    x, y = grid(w, h)
    ends = ((x < 50) | (x > w - 50)).astype(np.float32)
    book = mix(cloth(w, h, seed, base), leather(w, h, seed + 4, skin), blur(ends, .8))
    book = book * (1 + .7 * shade(blur(ends, 1.5)))[..., None]
    t = (y - h / 2) / (h / 2)
    book = book * np.clip(1.16 - .72 * t ** 2 - .16 * t, .22, 1.3)[..., None]
    for band in (56, w - 56):
        book = book * (1 + .30 * bump(x - band + 3, 2) - .34 * bump(x - band - 2, 2.5))[..., None]
    return np.clip(book * BRIGHTNESS[look], 0, 1)


def spine(service, look):
    """A log book that lies on its side in the drawer, with a label holder screwed to its back."""
    w, h = SPINE
    seed = BINDINGS[service][2]
    book = _binding(service, look)
    gold = empty(w, h)

    def lines(c):
        for x in (8, 12, 42, w - 43, w - 13, w - 9):
            c.rectangle(x, 3, 1.6, h - 6)
            fill(c, '#FFFFFF', .9)
    over(gold, vector(w, h, lines))
    pressed(book, gold[..., 3], .4)
    over(book, foil(gold[..., 3], seed))
    if service != 'unread':
        over(book, vector(w, h, lambda c: _mark(c, service, 27, h / 2, 9)))
    out = with_alpha(np.clip(book, 0, 1), rounded_mask(w, h, 5))
    over(out, holder(w - 108, h - 36, look, seed + 9, end=18, edge=6), 54, 18)
    if look == 'over':
        x, y = grid(w, h)
        d = np.minimum(np.minimum(x, w - x), np.minimum(y, h - y))
        over(out, with_alpha(rgb('#FFE9B0'), .8 * bump(d - 1.5, 1.4) * out[..., 3]))
    return out


def silk_ribbon(w=58, h=16, color='#8E1B16'):
    """The marker of a book, lying along x: a silk ribbon whose end is cut like a swallow's tail, with
    its shadow; 6 px wider and 8 px higher than the silk."""
    x, y = grid(w, h)
    tail = 9 * (1 - np.abs(y - h / 2) / (h / 2))
    alpha = smooth(w - tail - x, 0, 1) * smooth(y, 0, 1) * smooth(h - y, 0, 1)
    weave = 1 + .06 * np.sin(2 * np.pi * x / 2.4) + .10 * noise(w, h, 40, 3, 4)
    light = 1.06 - .35 * ((y - h / 2) / (h / 2)) ** 2 + .18 * bump(x - w * .55, 14)
    silk = with_alpha(np.clip(rgb(color) * (weave * light)[..., None], 0, 1), alpha.astype(np.float32))
    layer = empty(w + 6, h + 8)
    lay(layer, silk, 0, 0, 2, 3, 2, .5)
    return layer


# -- sheets


def spine_sheet(service):
    return looks_sheet([('spine_%s_%s' % (service, look), spine(service, look)) for look in LOOKS])


def row_sheet(name):
    """A row of a list with one choice: a label holder with a jewel."""
    w, h, seed = ROWS[name]
    return looks_sheet([('%s_%s_%s' % (name, state, look), holder(w, h, look, seed, jewel=state))
                        for state in JEWELS for look in LOOKS])


def slip_sheet():
    """A label holder whose slip is written on."""
    w, h, seed = SLIP_TO_WRITE_ON
    return looks_sheet([('plate_slip_' + look, holder(w, h, look, seed)) for look in LOOKS])
