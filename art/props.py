"""Things that lie on the desk: the emblem, stamps, wax, pins, pencils, a watch, insignia, cloth."""
import math

import cairo
import numpy as np

from lettering import HEAD, TEXT, ink, put
from outlines import fill, rounded, source, stroke, vector
from pixels import (SHADOW, blur, bump, fbm, grid, mix, moved, noise, over, ramp, reduced, rgb, rotate,
                    shade, size, smooth, with_alpha)
from textures import linen

# -- the emblem

# Rows of feathers from the top: how many, x and y of the first's root, its length and width, its
# angle and by how much the next is turned on.
FEATHERS = [(9, 26, -10, 74, 9.0, -0.30, 0.085), (7, 25, -3, 50, 8.0, -0.22, 0.12),
            (5, 24, 3, 30, 7.0, -0.10, 0.17)]


def _feather(c, x, y, length, width, angle):
    c.save()
    c.translate(x, y)
    c.rotate(angle)
    c.move_to(0, -width / 2)
    c.curve_to(length * .55, -width * .62, length * .93, -width * .45, length, 0)
    c.curve_to(length * .90, width * .40, length * .5, width * .55, 0, width / 2)
    c.close_path()
    c.restore()


def _wing(c, gap):
    for count, x, y, length, width, angle, step in FEATHERS:
        for i in range(count):
            k = i / (count - 1)
            _feather(c, x + 1.5 * k, y + 18 * k, length * (1 - 0.42 * k), width * (1 - 0.15 * k),
                     angle + step * i)
            c.fill_preserve()
            c.set_operator(cairo.OPERATOR_DEST_OUT)  # the gap to the feathers above
            c.set_line_width(gap)
            c.stroke()
            c.set_operator(cairo.OPERATOR_OVER)


def _tally(c, width):
    c.set_line_cap(cairo.LINE_CAP_ROUND)
    c.set_line_width(width)
    for i in range(4):
        x = -9.6 + i * 6.4
        c.move_to(x + 0.8, -8)
        c.line_to(x - 0.8, 16)
    c.move_to(-15, 12)
    c.line_to(15, -4)
    c.stroke()


def emblem(c, cx, cy, scale, gap=1.6, tally=3.4):
    """Pilot's wings around a ring with five tally strokes, in the source that is set; 200 wide at
    scale 1. gap: between the feathers; tally: width of the strokes."""
    c.save()
    c.translate(cx, cy)
    c.scale(scale, scale)
    for side in (1, -1):
        c.save()
        c.scale(side, 1)
        _wing(c, gap)
        c.restore()
    c.set_operator(cairo.OPERATOR_DEST_OUT)
    c.arc(0, 4, 32, 0, 2 * math.pi)
    c.fill()
    c.set_operator(cairo.OPERATOR_OVER)
    for radius, width in ((27.5, 4.2), (22.6, 1.2)):
        c.arc(0, 4, radius, 0, 2 * math.pi)
        c.set_line_width(width)
        c.stroke()
    _tally(c, tally)
    c.restore()


def emblem_layer(w, h, scale, color):
    def draw(c):
        source(c, color)
        emblem(c, w / 2, h / 2, scale)
    return vector(w, h, draw)


# -- office things


def stamp(lines, color, seed, w, h, angle, px=22):
    """The worn print of a rubber stamp, boxed. lines: text and size in px each."""
    def frame(c):
        for inset, radius, width in ((4, 6, 3), (9, 4, 1.2)):
            rounded(c, inset, inset, w - 2 * inset, h - 2 * inset, radius)
            stroke(c, color, width)
    layer = vector(w, h, frame)
    for i, (text, size) in enumerate(lines):
        baseline = h / 2 + (i - (len(lines) - 1) / 2) * px * 1.12 + size * .35
        put(layer, text, HEAD, size, w / 2, baseline, color, 'center', 1.5)
    return rotate(ink(layer, seed, 0.75, 4.8), angle, 30)


def wax_seal(radius, seed=3, color='#8E1B16'):
    """A blob of wax with the emblem pressed into it; 2 radius + 24 wide."""
    size = int(2 * radius + 24)
    x, y = grid(size, size)
    angle = np.arctan2(y - size / 2, x - size / 2)
    d = np.hypot(x - size / 2, y - size / 2)
    rim = radius + 2.6 * np.sin(3 * angle + 1) + 2.0 * np.sin(7 * angle + seed)
    height = 5 * smooth(rim - d, 0, 9) - 3.2 * smooth(radius * .72 - d, -1, 3)
    # So small a seal has only the emblem's ring with its strokes.
    relief = emblem_layer(size, size, radius / 50, '#FFFFFF')[..., 3] * (d < .61 * radius)
    height = height + 3.0 * blur(relief, .7)
    light = shade(height)[..., None]
    color = rgb(color) * (0.92 + 0.55 * light) + 0.28 * np.clip(light - 0.35, 0, 1)
    return with_alpha(np.clip(color, 0, 1), smooth(rim - d, 0, 1.5))


def pin(radius=7, color='#B3231A'):
    """A round-headed pin from above, with its shadow."""
    size = int(4 * radius)
    x, y = grid(size, size)
    x, y = x - size / 2, y - size / 2
    alpha = smooth(radius - np.hypot(x, y), 0, 1.2)
    light = np.clip(1.15 - np.hypot(x + radius * .35, y + radius * .4) / (radius * 1.25), 0, 1.2)
    glint = .5 * bump(np.hypot(x + radius * .38, y + radius * .42), radius * .35)
    color = rgb(color) * (0.45 + 0.8 * light[..., None]) + glint[..., None]
    shadow = moved(blur(alpha, 2.2), radius * .45, radius * .55) * .6
    return over(with_alpha(SHADOW, shadow), with_alpha(np.clip(color, 0, 1), alpha))


PENCIL_LIGHT = [0.55, 0.8, 1.0, 1.15, 1.2, 1.05, .98, .95, .9, .8, .72, .62, .52, .42, .35]


def pencil(length, body):
    """A pencil with its point to the right, 15 high. body: colour of the paint."""
    scale = 4
    w, h = length * scale, 15 * scale
    x, y = grid(w, h)
    x, y = x / scale, y / scale
    light = np.interp(y, np.arange(15) + 0.5, PENCIL_LIGHT).astype(np.float32)
    color = rgb(body) * light[..., None]
    cone = length - 44
    grain = 0.5 + 0.3 * (light - 0.8) + 0.05 * noise(w, h, 30 * scale, 1.2 * scale, 3)
    bare = ramp(np.clip(grain, 0, 1), [(0, '#A97C46'), (1, '#EBCF9C')])
    # The paint ends in arcs where the sharpener met the sides.
    color = np.where((x > cone - 4 * np.abs(np.sin(y / 15 * 3 * math.pi)))[..., None], bare, color)
    color = np.where((x > length - 13)[..., None], rgb('#2A2622') * light[..., None], color)
    color = np.where((x < 16)[..., None], rgb('#B79A58') * light[..., None], color)
    ring = bump(x - 5, .8) + bump(x - 11, .8)
    color = color * (1 - .35 * ring * (x < 16))[..., None]
    alpha = (np.abs(y - 7.5) < np.clip((length - x) / 44, 0, 1) * 7.2 + .3 * (x < length - .5))
    return reduced(with_alpha(np.clip(color, 0, 1), alpha.astype(np.float32)), scale)


def screw(radius):
    size = int(3 * radius)
    x, y = grid(size, size)
    x, y = x - size / 2, y - size / 2
    dome = np.clip((-.5 * x - .8 * y) / radius, -1, 1)
    color = ramp(.5 + .45 * dome, [(0, '#5E451C'), (.5, '#A68446'), (1, '#F0DBA4')])
    color *= (1 - .72 * bump(.6 * x - .8 * y, 1.1))[..., None]
    return with_alpha(np.clip(color, 0, 1), smooth(radius - np.hypot(x, y), 0, 1.2))


# -- the watch


def _watch_case(x, y, d, r):
    metal_light = shade(10 * smooth(r - d, 0, 8) - 6 * smooth(r * .87 - d, 0, 4))
    metal = ramp(np.clip(.5 + .42 * metal_light - .08 * (x + y) / r, 0, 1),
                 [(0, '#3E3A33'), (.5, '#8E897C'), (1, '#EDE9DB')])
    h, w = size(d)
    face = ramp(np.clip(.75 - .1 * (x + y) / r + .03 * fbm(w, h, 60, 60, 5, 3), 0, 1),
                [(0, '#BDAE88'), (1, '#F1E8CE')])
    inside = smooth(r * .84 - d, 0, 1.5)
    rim = 1 - .45 * np.exp(-np.maximum(r * .84 - d, 0) / 4) * inside  # the case's shadow on the face
    return with_alpha(np.clip(mix(metal, face * rim[..., None], inside), 0, 1), smooth(r - d, 0, 1.4))


def _crown(c, cx, top):
    c.rectangle(cx - 9, top - 17, 18, 16)
    fill(c, '#8E897C')
    for i in range(6):
        c.rectangle(cx - 8 + i * 3, top - 17, 1.1, 16)
    fill(c, '#5E5A50')
    c.arc(cx, top - 22, 15, math.pi * .85, math.pi * 2.15)
    stroke(c, '#7E796C', 4)
    c.arc(cx, top - 22, 14, math.pi * 1.1, math.pi * 1.7)
    stroke(c, '#CFCABB', 1)


def _hands(c, cx, cy, r, hour, minute):
    for i in range(60):
        a = i * math.pi / 30
        length = .03 if i % 5 else .075
        c.move_to(cx + r * .8 * math.sin(a), cy - r * .8 * math.cos(a))
        c.line_to(cx + r * (.8 - length) * math.sin(a), cy - r * (.8 - length) * math.cos(a))
        stroke(c, '#241A10', .9 if i % 5 else 2.2)
    c.set_line_cap(cairo.LINE_CAP_ROUND)
    for a, length, width in ((math.pi / 6 * (hour + minute / 60), .42, 4.2),
                             (math.pi / 30 * minute, .66, 2.8)):
        c.move_to(cx - r * .10 * math.sin(a), cy + r * .10 * math.cos(a))
        c.line_to(cx + r * length * math.sin(a), cy - r * length * math.cos(a))
        stroke(c, '#241A10', width)
    c.arc(cx, cy, 4.5, 0, 2 * math.pi)
    c.fill()


def watch(r, hour, minute):
    """A service pocket watch, face up; 2 r + 30 wide."""
    w = int(2 * r + 30)
    h = w + 40
    cx, cy = w / 2, h - w / 2
    x, y = grid(w, h)
    x, y = x - cx, y - cy
    d = np.hypot(x, y)
    out = vector(w, h, lambda c: _crown(c, cx, cy - r))
    over(out, _watch_case(x, y, d, r))
    over(out, vector(w, h, lambda c: _hands(c, cx, cy, r, hour, minute)))
    for i in range(1, 13):
        a = i * math.pi / 6
        put(out, str(i), TEXT, r * .17, cx + r * .60 * math.sin(a), cy - r * .60 * math.cos(a) + r * .055,
            '#241A10', 'center')
    glare = np.clip(1 - np.hypot((x + r * .3) / (r * .8), (y + r * .45) / (r * .35)), 0, 1) * .22
    return over(out, with_alpha(np.ones(3, np.float32), (glare * (d < r * .84)).astype(np.float32)))


def sweep_hand(r, turn):
    """The thin third hand of a watch of that radius at that fraction of its round, on a transparent
    layer; 2 r square. It is drawn above the watch's own hands."""
    a = 2 * math.pi * turn

    def draw(c):
        c.set_line_cap(cairo.LINE_CAP_ROUND)
        c.move_to(r - r * .24 * math.sin(a), r + r * .24 * math.cos(a))
        c.line_to(r + r * .96 * math.sin(a), r - r * .96 * math.cos(a))
        stroke(c, '#8E1F17', 1.8)
        c.arc(r, r, 3.2, 0, 2 * math.pi)
        fill(c, '#8E1F17')
    return vector(2 * r, 2 * r, draw)


# -- insignia

RINGS = {'english': ('#2B4170', '#E9E0C8', '#A92E22'), 'french': ('#A92E22', '#E9E0C8', '#2B4170')}


def insignia(c, kind, x, y, r):
    """French cockade, British roundel or German cross."""
    if kind == 'german':
        c.rectangle(x - .98 * r, y - .98 * r, 1.96 * r, 1.96 * r)
        fill(c, '#E9E0C8')
        _cross(c, x, y, .86 * r)
        fill(c, '#1C1916')
        return
    for part, color in zip((1, .66, .34), RINGS[kind]):
        c.arc(x, y, r * part, 0, 2 * math.pi)
        fill(c, color)


def _cross(c, x, y, r):
    """Outline of a cross pattee."""
    narrow, wide = .16 * r, .62 * r
    for k in range(4):
        c.save()
        c.translate(x, y)
        c.rotate(k * math.pi / 2)
        c.move_to(-narrow, 0)
        c.curve_to(-narrow, -r * .45, -wide * .62, -r * .82, -wide, -r)
        c.line_to(wide, -r)
        c.curve_to(wide * .62, -r * .82, narrow, -r * .45, narrow, 0)
        c.close_path()
        c.restore()


def swatch(size, kind, seed):
    """A square of painted fabric cut from a wing, its edges frayed."""
    x, y = grid(size, size)
    paint = vector(size, size, lambda c: insignia(c, kind, size * .5, size * .5, size * .40))
    lost = smooth(fbm(size, size, 30, 30, seed + 9, 4), .35, .7)
    paint[..., 3] *= np.clip(.90 + .10 * noise(size, size, 3, 3, seed + 3) - .5 * lost, 0, 1)
    weave = 1 + .05 * (np.sin(2 * np.pi * x / 3.1) + np.sin(2 * np.pi * y / 3.1))
    paint[..., :3] *= weave[..., None]
    fabric = linen(size, size, seed, base='#C8B384')
    over(fabric, np.clip(paint, 0, 1))
    threads = [4 + 4.5 * np.abs(noise(size, size, sx, sy, n)) + 2 * fbm(size, size, 50, 50, n + 1, 2)
               for sx, sy, n in ((2.2, 60, seed + 5), (60, 2.2, seed + 7))]
    alpha = (smooth(np.minimum(y, size - y) - threads[0], -1, 1)
             * smooth(np.minimum(x, size - x) - threads[1], -1, 1))
    return with_alpha(np.clip(fabric, 0, 1), alpha.astype(np.float32))
