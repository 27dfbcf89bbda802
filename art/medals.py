"""Decorations: ribbons of watered silk, medals that hang on them, and the case in which they are kept."""
import math

import numpy as np

from lettering import HEAD, put
from outlines import path, rounded, rounded_mask, source, vector
from pixels import (blur, distance_inside, empty, fbm, full, grid, noise, over, ramp, reduced, rgb, shade, size, smooth,
                    with_alpha)
from sheets import framed_board

# Stripes of a ribbon across its width, in parts.
RIBBONS = {
    'mc': [('#E8E3D6', 1), ('#5A3A74', 1), ('#E8E3D6', 1)],
    'dso': [('#22305A', .16), ('#A3241F', .68), ('#22305A', .16)],
    'dsc': [('#22305A', 1), ('#E8E3D6', 1), ('#22305A', 1)],
    'dfc': None,
    'vc': [('#7A1B22', 1)],
    'croix': [('#8E1F1A', .03), ('#2F6137', .085)] + [('#A12A20', .045), ('#2F6137', .115)] * 4
             + [('#A12A20', .045), ('#2F6137', .085), ('#8E1F1A', .03)],
    'medaille': [('#2F6B3C', .2), ('#D9B02C', .6), ('#2F6B3C', .2)],
    'legion': [('#A81E22', 1)],
    'iron': [('#1A1815', .1), ('#E8E3D6', .14), ('#1A1815', .52), ('#E8E3D6', .14), ('#1A1815', .1)],
    'house': [('#1A1815', .08), ('#E8E3D6', .16), ('#1A1815', .52), ('#E8E3D6', .16), ('#1A1815', .08)],
    'merite': [('#C9C6BC', .10), ('#1A1815', .80), ('#C9C6BC', .10)],
}


def ribbon(kind, w, h):
    """A piece of watered silk, its stripes upright."""
    x, y = grid(w, h)
    color = np.zeros((*x.shape, 3), np.float32)
    if RIBBONS[kind] is None:  # the ribbon of its first year, with narrow horizontal stripes
        band = (y // 2.6).astype(int) % 2
        color[...] = np.where(band[..., None] == 0, rgb('#E8E3D6'), rgb('#5A3A74'))
    else:
        total, at = sum(share for _, share in RIBBONS[kind]), 0
        for tint, share in RIBBONS[kind]:
            inside = smooth(x - at, -.5, .5) * smooth(at + share / total * w - x, -.5, .5)
            color += rgb(tint) * inside[..., None]
            at += share / total * w
    moire = 1 + .05 * np.sin(2 * np.pi * y / 1.9) + .09 * noise(w, h, 30, 3, 9)
    edge = 1 - .35 * np.exp(-x / 1.6) - .35 * np.exp(-(w - x) / 1.6)
    return with_alpha(np.clip(color * (moire * edge)[..., None], 0, 1), full(w, h, 1))


def _relief(mask, metal, enamel=None, bevel=2.2):
    """A mask as a piece of metal, lit from the upper left. metal: dark, middle, light."""
    h, w = size(mask)
    dome = blur(np.minimum(_inside(mask), bevel * 2), .8)
    light = shade(dome)
    color = ramp(np.clip(.5 + .55 * light + .06 * fbm(w, h, 9, 9, 5, 2), 0, 1),
                 [(0, metal[0]), (.5, metal[1]), (1, metal[2])])
    if enamel is not None:
        color = np.clip(rgb(enamel) * (1 + .5 * light)[..., None] + .35 * np.clip(light - .2, 0, 1)[..., None], 0, 1)
    return with_alpha(np.clip(color, 0, 1), mask)


def _inside(mask):
    """How far inside the mask each pixel is."""
    return distance_inside(mask).astype(np.float32)


SILVER, GILT, BRONZE, IRON = (('#4A4A48', '#A9A8A2', '#F4F2EA'), ('#6E4E14', '#C99F3E', '#F8E6AE'),
                              ('#3A2414', '#80583A', '#C99A6C'), ('#0E0D0C', '#26241F', '#5A564C'))
SCALE = 4


def _layer(draw, w, h):
    """A mask drawn larger than it will be."""
    return vector(w, h, draw, SCALE)[..., 3]


def _pattee(c, x, y, r, narrow=.14, wide=.60, concave=.86):
    for k in range(4):
        c.save()
        c.translate(x, y)
        c.rotate(k * math.pi / 2)
        c.move_to(-narrow * r, 0)
        c.curve_to(-narrow * r, -r * .45, -wide * r * .62, -r * .82, -wide * r, -r)
        c.curve_to(-wide * r * .4, -r * concave * 1.06, wide * r * .4, -r * concave * 1.06, wide * r, -r)
        c.curve_to(wide * r * .62, -r * .82, narrow * r, -r * .45, narrow * r, 0)
        c.close_path()
        c.restore()


def _maltese(c, x, y, r, arms=4, spread=.42, notch=.80):
    for k in range(arms):
        c.save()
        c.translate(x, y)
        c.rotate(k * 2 * math.pi / arms)
        c.move_to(0, 0)
        c.line_to(-spread * r, -r)
        c.line_to(0, -r * notch)
        c.line_to(spread * r, -r)
        c.close_path()
        c.restore()


def _swords(c, x, y, r):
    for side in (1, -1):
        c.save()
        c.translate(x, y)
        c.rotate(side * math.pi / 4)
        c.rectangle(-r * .045, -r, r * .09, 2 * r)
        c.rectangle(-r * .16, r * .62, r * .32, r * .09)
        c.fill()
        c.restore()


def _wreath(c, x, y, r, width):
    for k in range(22):
        a = k * 2 * math.pi / 22 + .1
        c.save()
        c.translate(x + r * math.cos(a), y + r * math.sin(a))
        c.rotate(a + math.pi / 2 + .5 * (1 if math.cos(a) > 0 else -1))
        c.scale(width * 1.5, width * .62)
        c.arc(0, 0, 1, 0, 7)
        c.restore()
        c.fill()


class _Medal:
    """A decoration that is being made, SCALE times as large as it will be. x, y: its middle; r: its radius."""
    def __init__(self, w, h):
        self.w, self.h = w, h
        self.out = empty(w * SCALE, h * SCALE)
        self.x, self.y, self.r = w / 2, h - 40, 32

    def metal(self, draw, tone, enamel=None, bevel=2.2):
        over(self.out, _relief(_layer(draw, self.w, self.h), tone, enamel, bevel * SCALE))

    def fill(self, shape, tone, enamel=None, bevel=2.2):
        def draw(c):
            shape(c)
            source(c, '#FFFFFF')
            c.fill()
        self.metal(draw, tone, enamel, bevel)

    def outline(self, shape, width, tone, enamel=None, bevel=2.2):
        def draw(c):
            shape(c)
            source(c, '#FFFFFF')
            c.set_line_width(width)
            c.stroke()
        self.metal(draw, tone, enamel, bevel)

    def disc(self, r, tone, enamel=None):
        self.fill(lambda c: c.arc(self.x, self.y, r, 0, 7), tone, enamel)

    def ring(self, r, width, tone, enamel=None, bevel=2.2):
        self.outline(lambda c: c.arc(self.x, self.y, r, 0, 7), width, tone, enamel, bevel)

    def pattee(self, tone, *shape, part=1, enamel=None, bevel=2.2):
        self.fill(lambda c: _pattee(c, self.x, self.y, self.r * part, *shape), tone, enamel, bevel)

    def maltese(self, tone, *shape, part=1, enamel=None):
        self.fill(lambda c: _maltese(c, self.x, self.y, self.r * part, *shape), tone, enamel)

    def wreath(self, r, width, tone, enamel=None):
        self.fill(lambda c: _wreath(c, self.x, self.y, r, width), tone, enamel)

    def letters(self, tint, *texts):
        """texts: each with its size and its offset from the middle."""
        layer = np.zeros_like(self.out)
        for text, height, dx, dy in texts:
            put(layer, text, HEAD, height * SCALE, (self.x + dx) * SCALE, (self.y + dy) * SCALE, tint, 'center')
        over(self.out, layer)


RIBBON = (44, 56)  # px of a medal's ribbon


def _hang(m, kind):
    """Its ribbon, and the ring on which it hangs."""
    ribbon_w, ribbon_h = RIBBON
    rib = ribbon({'iron2': 'iron'}.get(kind, kind), ribbon_w * SCALE, ribbon_h * SCALE)
    if kind in ('croix', 'medaille', 'legion', 'iron2', 'house', 'merite'):
        # Continental ribbons narrow towards the ring.
        x, y = grid(m.w * SCALE, m.h * SCALE)
        half = np.where(y < 34 * SCALE, ribbon_w * SCALE / 2, ribbon_w * SCALE / 2 - (y - 34 * SCALE) * .78)
        canvas = np.zeros_like(m.out)
        over(canvas, rib, (m.w - ribbon_w) * SCALE / 2, 0)
        canvas[..., 3] *= smooth(half - np.abs(x - m.w * SCALE / 2), 0, 2)
        over(m.out, canvas)
    else:
        over(m.out, rib, (m.w - ribbon_w) * SCALE / 2, 0)
        m.fill(lambda c: rounded(c, m.x - 24, ribbon_h - 4, 48, 6, 2), BRONZE if kind == 'vc' else SILVER)
    m.outline(lambda c: c.arc(m.x, ribbon_h + 4, 4, 0, 7), 1.8, BRONZE if kind in ('vc', 'croix') else SILVER)


def _vc(m):
    m.pattee(BRONZE, .2, .62, .99, bevel=1.6)
    m.fill(lambda c: (c.arc(m.x, m.y - 2, 8, 0, 7), c.rectangle(m.x - 15, m.y + 8, 30, 6)), BRONZE, bevel=2)


def _dso(m):
    m.pattee(GILT, .26, .56, .98)
    m.pattee(GILT, .24, .52, .98, part=.92, enamel='#EFEBDD')
    m.disc(11, GILT)
    m.ring(8.6, 3.4, GILT, '#3F7A3B')
    m.disc(5.6, GILT, '#A3241F')


def _silver_cross(m):
    def cross(c):
        for k in range(4):
            c.save()
            c.translate(m.x, m.y)
            c.rotate(k * math.pi / 2)
            path(c, [(-5, 0), (-6.5, -m.r * .74), (-10, -m.r * .78), (-10, -m.r), (10, -m.r), (10, -m.r * .78),
                     (6.5, -m.r * .74), (5, 0)], True)
            c.restore()
    m.fill(cross, SILVER)
    m.ring(6, 1.4, SILVER, bevel=1)


def _dfc(m):
    m.ring(m.r * .72, 3, SILVER, bevel=1)
    m.pattee(SILVER, .16, .34, 1.02)
    m.wreath(9, 2.6, SILVER)


def _croix(m):
    m.fill(lambda c: _swords(c, m.x, m.y, m.r * .95), BRONZE, bevel=1)
    m.pattee(BRONZE, .28, .52, .98, part=.82)
    m.ring(10, 2.2, BRONZE, bevel=1)


def _medaille(m):
    m.wreath(m.r * .70, 4.4, SILVER)
    m.disc(m.r * .64, GILT)
    m.ring(m.r * .50, 5, GILT, '#28477E')
    m.disc(m.r * .40, GILT)
    m.fill(lambda c: (c.rectangle(m.x - 10, m.y - m.r - 3, 20, 5), c.rectangle(m.x - 2, m.y - m.r - 8, 4, 14)), GILT,
           bevel=1)


def _legion(m):
    m.wreath(m.r * .74, 4.0, GILT, '#3F7A3B')
    m.maltese(GILT, 5, .34, .84)
    m.maltese(GILT, 5, .30, .86, part=.90, enamel='#F2EEE2')
    m.disc(9.5, GILT, '#28477E')
    m.disc(6.6, GILT)


def _iron(m):
    m.pattee(SILVER, .16, .60, .98, bevel=1.4)
    m.pattee(IRON, .13, .53, .97, part=.84, bevel=1.2)
    m.letters('#B9B7AE', ('1914', 9, 0, m.r * .74), ('W', 13, 0, 5))


def _iron_pinned(m):
    m.y, m.r = m.h / 2 + 16, 34
    _iron(m)


def _house(m):
    m.fill(lambda c: _swords(c, m.x, m.y, m.r), GILT, bevel=1)
    m.wreath(m.r * .55, 4.2, GILT, '#4E7A40')
    m.pattee(SILVER, .14, .44, .94, part=.95, enamel='#201E1B', bevel=1)
    m.pattee(SILVER, .11, .38, .94, part=.84, enamel='#EFEBDD', bevel=1)
    m.disc(9, GILT)
    m.disc(6.8, GILT, '#28477E')


def _merite(m):
    m.fill(lambda c: _eagles(c, m.x, m.y, m.r), GILT, bevel=1)
    m.maltese(GILT, 4, .52, .76)
    m.maltese(GILT, 4, .49, .77, part=.92, enamel='#2A55A0')
    m.letters('#F3DFA0', ('F', 9, 0, -m.r * .44), ('Pour', 6.4, -.62 * m.r, .12 * m.r), ('Mé', 6.4, .60 * m.r, .12 * m.r),
              ('rite', 6.4, 0, .66 * m.r))


MAKERS = {'vc': _vc, 'dso': _dso, 'mc': _silver_cross, 'dsc': _silver_cross, 'dfc': _dfc, 'croix': _croix,
          'medaille': _medaille, 'legion': _legion, 'iron2': _iron, 'iron1': _iron_pinned, 'house': _house,
          'merite': _merite}


def medal(kind, w=72, h=136, times=1):
    """A decoration on its ribbon, hung up; "croix2" has two palms. The ribbon takes the upper 58 pixels. The Iron Cross of the
    first class has no ribbon, the Pour le Merite a short one to the neck."""
    palms = int(kind[5:] or 0) if kind.startswith('croix') else 0
    kind = 'croix' if kind.startswith('croix') else kind
    m = _Medal(w, h)
    if kind != 'iron1':
        _hang(m, kind)
    MAKERS[kind](m)
    for k in range(palms):  # one for each further citation
        m.fill(lambda c: _palm(c, m.x, 9 + 12 * k, 17), BRONZE, bevel=1)
    return reduced(m.out, SCALE // times)


def _palm(c, x, y, half):
    for k in range(9):
        t = -1 + 2 * k / 8
        c.save()
        c.translate(x + t * half * .8, y + 1.5 * t * t)
        c.rotate(-.9 + t * .2)
        c.scale(4.6, 1.5)
        c.arc(0, 0, 1, 0, 7)
        c.restore()
        c.fill()


def _eagles(c, x, y, r):
    for k in range(4):
        c.save()
        c.translate(x, y)
        c.rotate(math.pi / 4 + k * math.pi / 2)
        path(c, [(0, -r * .30), (-r * .26, -r * .78), (-r * .06, -r * .66), (0, -r * .84), (r * .06, -r * .66),
                 (r * .26, -r * .78)], True)
        c.restore()
        c.fill()


def metal_star(size, points, inner):
    """A star of gilt metal. inner: the part of its radius to which it is cut in."""
    s, r = SCALE, size / 2 - 1

    def draw(c):
        path(c, [(size / 2 + (r if k % 2 == 0 else r * inner) * math.sin(k * math.pi / points),
                  size / 2 - (r if k % 2 == 0 else r * inner) * math.cos(k * math.pi / points))
                 for k in range(2 * points)], True)
        source(c, '#FFFFFF')
        c.fill()
    return reduced(_relief(_layer(draw, size, size), GILT, bevel=3 * s), s)


def medal_case(w, h):
    """A shallow case lined with velvet."""
    board = framed_board(w, h, 14)
    x, y = grid(w, h)
    d = np.minimum(np.minimum(x, w - x), np.minimum(y, h - y)) - 14
    velvet = rgb('#2A2340') * (1 + .18 * fbm(w, h, 120, 60, 5, 4) + .05 * noise(w, h, 2, 2, 8))[..., None]
    velvet *= (1 - .45 * np.exp(-np.maximum(y - 14, 0) / 9) - .3 * np.exp(-np.maximum(d, 0) / 7))[..., None]
    velvet *= (1.25 - .5 * ((x / w - .3) ** 2 + (y / h - .2) ** 2))[..., None]
    board = np.where((d > 0)[..., None], np.clip(velvet, 0, 1), board)
    return with_alpha(np.clip(board, 0, 1).astype(np.float32), rounded_mask(w, h, 3))
