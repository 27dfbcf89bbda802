"""The brass plates of the buttons and switches: each is one sheet with all its looks.

A plate has 3 px of its own shadow around it, within the rectangle of the widget.
"""
import math
from collections import namedtuple

import numpy as np
from PIL import Image
from scipy import ndimage

from outlines import rounded_mask, vector
from pixels import (SHADOW, blur, bump, distance_inside, empty, fbm, grid, mix, moved, noise, over, part, px, ramp,
                    rgb, shade, size, slopes, smooth, with_alpha)
from props import insignia

MARGIN = 3  # px of shadow around a plate
GAP = 2     # px between the looks on a sheet, so that none shows in another's rim when enlarged

SATIN_SCREW = [(0, '#5E451C'), (0.5, '#A68446'), (1, '#F0DBA4')]
PEWTER_SCREW = [(0, '#4A4233'), (0.5, '#7C705A'), (1, '#A79B84')]

# metal: from the upper to the lower edge; bevel: how the rim catches the light (below 0: pressed);
# jewel and enamel: brightness of what is set into the plate.
Look = namedtuple('Look', 'metal tarnish bevel shadow screw jewel enamel')
LOOKS = {
    'active': Look([(0, '#DCBE7C'), (0.45, '#C9A55E'), (0.55, '#C19B52'), (1, '#A57F3C')],
                   '#5F4A22', 0.34, 0.75, SATIN_SCREW, 1, 1),
    'inactive': Look([(0, '#B3A78D'), (0.5, '#A89B80'), (1, '#968A70')],
                     '#4C4535', 0.18, 0.75, PEWTER_SCREW, .6, .7),
    'over': Look([(0, '#F6E2A8'), (0.45, '#E8C97E'), (0.55, '#E0BE6E'), (1, '#C79E52')],
                 '#5F4A22', 0.34, 0.75, SATIN_SCREW, 1.15, 1.12),
    'down': Look([(0, '#A27D3B'), (0.45, '#B68F48'), (0.55, '#BC964F'), (1, '#C9A55E')],
                 '#5F4A22', -0.34, 0.4, SATIN_SCREW, .8, .82),
}

# name: width, height, seed
PLATES = {
    'plate_menu': (392, 66, 3), 'plate_hub': (300, 66, 5), 'plate_back': (200, 52, 7),
    'plate_go': (300, 52, 9), 'plate_order': (480, 52, 11), 'plate_year': (176, 72, 13),
    'plate_month': (248, 76, 15), 'plate_sheet': (124, 52, 17), 'plate_page': (228, 52, 33), 'plate_standin': (428, 52, 37),
    'plate_french': (372, 116, 27),
    'plate_english': (372, 116, 27), 'plate_german': (372, 116, 27),
}
SWITCHES = {'toggle_plane': (416, 60, 19), 'toggle_map': (296, 66, 23), 'toggle_choice': (440, 60, 29),
            'toggle_language': (192, 52, 37)}


# -- plates


def _scaled(plane, w, h):
    return np.asarray(Image.fromarray(plane.astype(np.float32), 'F').resize((px(w), px(h)), Image.BOX))


def _metal(w, h, look, dist, seed, border):
    """The face of a plate; dist: how far in from its edge a pixel lies, border: where the engraved
    line runs."""
    x, y = grid(w, h)
    color = ramp((y - MARGIN) / (h - 2 * MARGIN), look.metal)
    brushed = 0.6 * noise(w, h, 130, 1.0, seed) + 0.4 * noise(w, h, 40, 1.0, seed + 1)
    color *= (1 + 0.045 * brushed + 0.05 * fbm(w, h, 90, 60, seed + 2, 4))[..., None]
    tarnish = np.exp(-np.maximum(dist, 0) / 6) * (0.5 + 0.5 * fbm(w, h, 50, 50, seed + 3, 3))
    color = mix(color, rgb(look.tarnish), 0.42 * np.clip(tarnish, 0, 1))
    gx, gy = slopes(blur(dist, 0.8))
    color += (look.bevel * np.clip(1 - dist / 3, 0, 1) * (0.55 * gx + 0.83 * gy))[..., None]
    color *= (1 - 0.42 * bump(dist - border, 0.75))[..., None]
    color += 0.10 * bump(dist - border - 1.3, 0.75)[..., None]
    if look.bevel < 0:  # pressed into the wood: the upper and left edge throw a shadow on it
        inner = 0.30 * np.exp((MARGIN - y) / 5) + 0.12 * np.exp((MARGIN - x) / 5)
        color *= (1 - inner)[..., None]
    return color


def _with_screw(color, look, sx, sy, angle):
    h, w = size(color)
    x, y = grid(w, h)
    x, y, radius = x - sx, y - sy, 5.6
    d = np.hypot(x, y)
    head = ramp(0.5 + 0.45 * np.clip((-0.5 * x - 0.8 * y) / radius, -1, 1), look.screw)
    head *= (1 - 0.72 * bump(x * math.sin(angle) - y * math.cos(angle), 0.85))[..., None]
    return mix(color * (1 - 0.5 * bump(d - radius - 0.6, 0.8))[..., None], head, smooth(radius - d, 0, 1))


def plate(w, h, name, seed, radius=7, screws='both', border=7.0):
    """A screwed-on plate of w by h in the look of that name. screws: 'both', 'right' or 'none'."""
    look, scale = LOOKS[name], 3
    mask = rounded_mask(w, h, radius, MARGIN, scale)
    dist = _scaled(distance_inside(mask) / scale, w, h)
    alpha = _scaled(mask, w, h)
    color = _metal(w, h, look, dist, seed, border)
    if screws == 'both':
        color = _with_screw(color, look, 19, h / 2, 0.5 + seed)
    if screws != 'none':
        color = _with_screw(color, look, w - 19, h / 2, 1.9 + 2 * seed)
    shadow = moved(blur(alpha, 1.5), 0.9, 1.4) * look.shadow
    out = with_alpha(SHADOW, np.clip(shadow, 0, 1))
    over(out, with_alpha(np.clip(color, 0, 1), alpha))
    if name == 'over':
        over(out, with_alpha(rgb('#FFF6D8'), 0.75 * bump(dist - 1.6, 1.3) * alpha))
    return out


def service_plate(w, h, name, kind, seed):
    """A plate with the insignia of a service in enamel. kind: 'french', 'english' or 'german'."""
    out = plate(w, h, name, seed)
    r = h * (.27 if kind == 'german' else .30)
    enamel = vector(w, h, lambda c: insignia(c, kind, 76, h / 2, r))
    alpha = enamel[..., 3]
    dome = blur(distance_inside(alpha).clip(0, 5).astype(np.float32), 1.0)
    color = np.clip(enamel[..., :3] * LOOKS[name].enamel + .10 * shade(dome)[..., None], 0, 1)
    x, y = grid(w, h)
    glare = bump(np.hypot((x - 62) / 26, (y - h * .33) / 12), 1) * .20 * alpha
    rim = blur(np.clip(ndimage.grey_dilation(alpha, (px(4) + 1, px(4) + 1)) - .2 * alpha, 0, 1), .7)
    over(out, with_alpha(rgb('#3A2608'), .8 * np.clip(rim, 0, 1)))
    return over(out, with_alpha(mix(color, np.ones(3, np.float32), glare), alpha))


JEWELS = {
    'on': [(0, '#C7F08C'), (.4, '#5FA83A'), (1, '#1C4A17')],
    'off': [(0, '#5B4A40'), (.5, '#3A2B24'), (1, '#1B120E')],
}


def switch(w, h, name, state, seed):
    """A plate with a jewel at its left: green and lit for 'on', dark for 'off'."""
    out = plate(w, h, name, seed, radius=6, screws='right', border=5.5)
    x, y = grid(w, h)
    x, y, r, bright = x - 36, y - h / 2, 13.5, LOOKS[name].jewel
    d = np.hypot(x, y)
    bezel = ramp(.5 + .45 * np.clip((-.5 * x - .85 * y) / (r + 4), -1, 1),
                 [(0, '#4A3412'), (.5, '#8E6E34'), (1, '#E9D296')]) * bright
    over(out, with_alpha(np.clip(bezel, 0, 1), smooth(r + 4.5 - d, 0, 1) * smooth(d - r + .5, 0, 1)))
    jewel = ramp(np.clip(np.hypot(x - r * .25, y - r * .35) / (r * 1.25), 0, 1), JEWELS[state])
    glint = bump(np.hypot((x + r * .35) / (r * .32), (y + r * .42) / (r * .24)), 1)
    jewel = (jewel + (.75 if state == 'on' else .38) * glint[..., None]) * min(bright, 1)
    over(out, with_alpha(np.clip(jewel, 0, 1), smooth(r - d, 0, 1)))
    if state == 'on':
        glow = .30 * bump(np.maximum(d - r, 0), 5) * (d > r) * out[..., 3]
        over(out, with_alpha(rgb('#D8FF9A'), glow.astype(np.float32)))
    return out


# -- sheets


def _looks_of(name):
    """The images of a sheet: name and picture."""
    if name in SWITCHES:
        w, h, seed = SWITCHES[name]
        return [('%s_%s_%s' % (name, state, look), switch(w, h, look, state, seed))
                for state in JEWELS for look in LOOKS]
    w, h, seed = PLATES[name]
    kind = name.partition('_')[2]
    if kind in ('french', 'english', 'german'):
        return [('%s_%s' % (name, look), service_plate(w, h, look, kind, seed)) for look in LOOKS]
    screws = 'none' if kind == 'sheet' else 'both'
    return [('%s_%s' % (name, look), plate(w, h, look, seed, screws=screws)) for look in LOOKS]


def looks_sheet(looks):
    """Pictures of one size in two columns, and the text of the image index that cuts them out.
    looks: name and picture of each."""
    h, w = size(looks[0][1])
    rows = (len(looks) + 1) // 2
    sheet = empty(2 * w + GAP, rows * (h + GAP) - GAP)
    lines = ['lifetime long']
    for i, (image, picture) in enumerate(looks):
        x, y = i % 2 * (w + GAP), i // 2 * (h + GAP)
        part(sheet, x, y, w, h)[...] = picture
        lines += ['image ' + image, 'dims %d %d %d %d' % (x, y, w, h)]
    return sheet, '\n'.join(lines) + '\n'


def plate_sheet(name):
    """All looks of a plate, and the text of their image index."""
    return looks_sheet(_looks_of(name))
