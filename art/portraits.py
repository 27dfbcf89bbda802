"""Photographs of pilots, taken in a studio."""
from functools import partial

import numpy as np

from outlines import fill, path, stroke, vector
from pixels import blur, empty, fbm, grid, noise, over, part, px, ramp, smooth
from textures import paper


# Parts of a figure. cx: its middle; s: its scale; ph: the height of the picture; top: of the head.

def _body(c, cx, s, ph, top):
    """The shoulders."""
    c.move_to(cx - 96 * s, ph + 4)
    c.curve_to(cx - 94 * s, ph - 62 * s, cx - 70 * s, ph - 82 * s, cx - 34 * s, ph - 94 * s)
    c.line_to(cx + 34 * s, ph - 94 * s)
    c.curve_to(cx + 70 * s, ph - 82 * s, cx + 94 * s, ph - 62 * s, cx + 96 * s, ph + 4)
    c.close_path()
    fill(c, '#3A3A3A')


def _collar(c, cx, s, ph, top):
    """Of fur, over the shirt and the tie."""
    path(c, [(cx - 22 * s, ph - 104 * s), (cx + 22 * s, ph - 104 * s), (cx, ph - 30 * s)], True)
    fill(c, '#7C7C7C')
    path(c, [(cx - 6 * s, ph - 90 * s), (cx + 6 * s, ph - 90 * s), (cx + 9 * s, ph - 50 * s), (cx, ph - 36 * s),
             (cx - 9 * s, ph - 50 * s)], True)
    fill(c, '#2E2E2E')
    for side in (-1, 1):
        c.move_to(cx, ph - 46 * s)
        c.curve_to(cx + side * 16 * s, ph - 60 * s, cx + side * 22 * s, ph - 92 * s, cx + side * 26 * s, ph - 108 * s)
        c.curve_to(cx + side * 56 * s, ph - 100 * s, cx + side * 60 * s, ph - 74 * s, cx + side * 50 * s, ph - 50 * s)
        c.curve_to(cx + side * 36 * s, ph - 30 * s, cx + side * 16 * s, ph - 22 * s, cx, ph - 14 * s)
        c.close_path()
    fill(c, '#565656')


def _head(c, cx, s, ph, top):
    c.rectangle(cx - 17 * s, ph - 130 * s, 34 * s, 46 * s)   # the neck
    fill(c, '#3A3A3A')
    c.move_to(cx - 33 * s, top + 46 * s)
    c.curve_to(cx - 36 * s, top + 88 * s, cx - 22 * s, top + 118 * s, cx, top + 122 * s)
    c.curve_to(cx + 22 * s, top + 118 * s, cx + 36 * s, top + 88 * s, cx + 33 * s, top + 46 * s)
    c.close_path()
    fill(c, '#8C8C8C')


def _features(c, cx, s, ph, top):
    for side in (-1, 1):           # brows and the shadow of the eyes
        c.save()
        c.translate(cx + side * 14 * s, top + 72 * s)
        c.scale(9 * s, 3.6 * s)
        c.arc(0, 0, 1, 0, 7)
        c.restore()
        fill(c, '#4A4A4A', .8)
    c.move_to(cx - 1 * s, top + 72 * s)
    c.line_to(cx + 5 * s, top + 92 * s)
    c.line_to(cx - 4 * s, top + 94 * s)
    c.close_path()
    fill(c, '#5E5E5E', .8)
    c.move_to(cx - 11 * s, top + 106 * s)
    c.curve_to(cx - 4 * s, top + 103 * s, cx + 4 * s, top + 103 * s, cx + 11 * s, top + 106 * s)
    stroke(c, '#4A4A4A', 2.4 * s, .8)


def _english_cap(c, cx, s, ph, top):
    """A soft cap with a peak."""
    c.move_to(cx - 45 * s, top + 44 * s)
    c.curve_to(cx - 58 * s, top + 12 * s, cx - 30 * s, top - 6 * s, cx + 2 * s, top - 4 * s)
    c.curve_to(cx + 34 * s, top - 6 * s, cx + 58 * s, top + 10 * s, cx + 45 * s, top + 44 * s)
    c.close_path()
    fill(c, '#3E3E3E')
    c.rectangle(cx - 38 * s, top + 34 * s, 76 * s, 20 * s)
    fill(c, '#4A4A4A')
    c.move_to(cx - 38 * s, top + 54 * s)
    c.curve_to(cx - 26 * s, top + 70 * s, cx + 26 * s, top + 70 * s, cx + 38 * s, top + 54 * s)
    c.close_path()
    fill(c, '#262626')


def _french_cap(c, cx, s, ph, top):
    """A kepi."""
    path(c, [(cx - 34 * s, top + 4 * s), (cx + 34 * s, top + 4 * s), (cx + 38 * s, top + 54 * s),
             (cx - 38 * s, top + 54 * s)], True)
    fill(c, '#454545')
    c.rectangle(cx - 38 * s, top + 40 * s, 76 * s, 14 * s)
    fill(c, '#333333')
    c.move_to(cx - 36 * s, top + 54 * s)
    c.curve_to(cx - 24 * s, top + 72 * s, cx + 24 * s, top + 72 * s, cx + 36 * s, top + 54 * s)
    c.close_path()
    fill(c, '#202020')


def _german_cap(c, cx, s, ph, top):
    """A flat peaked cap with two cockades."""
    c.move_to(cx - 48 * s, top + 26 * s)
    c.curve_to(cx - 40 * s, top + 2 * s, cx + 40 * s, top + 2 * s, cx + 48 * s, top + 26 * s)
    c.line_to(cx + 38 * s, top + 38 * s)
    c.line_to(cx - 38 * s, top + 38 * s)
    c.close_path()
    fill(c, '#4C4C4C')
    c.rectangle(cx - 38 * s, top + 34 * s, 76 * s, 20 * s)
    fill(c, '#2E2E2E')
    c.move_to(cx - 37 * s, top + 54 * s)
    c.curve_to(cx - 24 * s, top + 68 * s, cx + 24 * s, top + 68 * s, cx + 37 * s, top + 54 * s)
    c.close_path()
    fill(c, '#161616')
    for cy in (top + 22 * s, top + 44 * s):
        c.arc(cx, cy, 4 * s, 0, 7)
        fill(c, '#A8A8A8')


CAPS = {'english': _english_cap, 'french': _french_cap, 'german': _german_cap}


def portrait(w, h, seed, kind='english', border=12, turned=1):
    """A studio photograph of a pilot, his face in the shadow; a silhouette with a lit edge."""
    pw, ph = w - 2 * border, h - 2 * border
    x, y = grid(pw, ph)
    ground = .60 + .16 * fbm(pw, ph, pw * .6, ph * .5, seed, 4) + .20 * np.exp(
        -(((x - pw * .62) / (pw * .45)) ** 2 + ((y - ph * .36) / (ph * .42)) ** 2))
    cx = pw * .5
    s = pw / 200.0
    top = ph - 216 * s
    layer = np.dstack([ground, ground, ground, np.ones_like(ground)]).astype(np.float32)
    figure = empty(pw, ph)
    for piece in (_body, _head, _features, _collar, CAPS[kind]):
        over(figure, vector(pw, ph, partial(piece, cx=cx, s=s, ph=ph, top=top)))
    shadow = np.clip(1.10 - .62 * smooth((cx + 8 * s - x) * turned, -40 * s, 40 * s), .3, 1.2)
    face_dark = 1 - .30 * np.exp(-(((x - cx) / (40 * s)) ** 2 + ((y - top - 74 * s) / (34 * s)) ** 2))
    figure[..., :3] *= (shadow * face_dark)[..., None]
    alpha = figure[..., 3]
    rim = np.clip(alpha - np.roll(alpha, -px(int(3 * s)) * turned, 1), 0, 1)
    figure[..., :3] = np.clip(figure[..., :3] + .16 * blur(rim, 1.4)[..., None], 0, 1)
    over(layer, figure)
    grey = blur(layer[..., 0], 1.1)
    grey = grey + .03 * noise(pw, ph, 1.6, 1.6, seed + 9) + .02 * fbm(pw, ph, 90, 90, seed + 10, 3)
    far = (x / pw - .5) ** 2 + (y / ph - .5) ** 2
    grey = np.clip(grey * (1 - .6 * far), 0, 1)
    sheet = paper(w, h, seed + 20, base='#EFE6D0', edge='#BFA878', fibre=.15, foxing=2, rough=.25, margin=7)
    part(sheet, border, border, pw, ph)[..., :3] = ramp(
        grey, [(0, '#1E130B'), (.35, '#5B4027'), (.7, '#B39468'), (1, '#EBDBB6')])
    return sheet
