"""A small scout drawn from flat panels, and photographs of it."""
import math

import numpy as np

from outlines import path, vector
from pixels import blur, fbm, grid, noise, over, part, ramp, size, smooth
from textures import paper

# All measures are metres: x forward, y up, z to the right, from the machine's middle.
# Fuselage sections from the nose to the tail: x, half width, top, bottom.
SECTIONS = [(2.35, .20, .22, -.22), (2.25, .40, .38, -.40), (1.3, .44, .46, -.46), (.35, .42, .52, -.46),
            (-.4, .38, .46, -.42), (-2.2, .22, .30, -.20), (-3.9, .05, .20, .0)]
# Wings from the top down: height, half span, leading edge, trailing edge.
WINGS = {
    'biplane': [(.95, 4.1, 1.15, -.75), (-.38, 4.0, .95, -.55)],
    'triplane': [(1.15, 3.6, .95, -.6), (.38, 3.4, .9, -.5), (-.36, 3.2, .85, -.35)],
}
TAILPLANE = [(-3.0, .28, -.05), (-3.2, .28, -1.35), (-3.95, .28, -1.45), (-4.1, .28, 0),
             (-3.95, .28, 1.45), (-3.2, .28, 1.35), (-3.0, .28, .05)]
FIN = [(-3.1, .25, 0), (-3.6, 1.0, 0), (-4.25, 1.05, 0), (-4.3, .0, 0), (-3.9, .0, 0)]
DIHEDRAL = 0.05
LIGHT = np.array([0.25, 0.9, -0.35]) / np.linalg.norm([0.25, 0.9, -0.35])
DARK, BRIGHT = 0.30, 0.62  # greys of a panel in shadow and of one in the light
ROUNDEL = [(.62, .22), (.41, .86), (.20, .38)]  # radius, grey
CROSS = [(.17, .9), (.10, .1)]                  # half width of the arms, grey


def _body():
    """Panels of the fuselage: points, brightness, darkness of the outline."""
    panels = []
    for (x0, w0, t0, b0), (x1, w1, t1, b1) in zip(SECTIONS, SECTIONS[1:]):
        panels.append(([(x0, t0, -w0), (x0, t0, w0), (x1, t1, w1), (x1, t1, -w1)], 1.0, 0))
        panels.append(([(x0, b0, -w0), (x0, b0, w0), (x1, b1, w1), (x1, b1, -w1)], 0.7, 0))
        for s in (-1, 1):
            panels.append(([(x0, t0, s * w0), (x1, t1, s * w1), (x1, b1, s * w1), (x0, b0, s * w0)], 0.86, 0))
    x, w, t, b = SECTIONS[0]
    panels.append(([(x, t, -w), (x, t, w), (x, b, w), (x, b, -w)], 0.6, 0))
    return panels + [(TAILPLANE, 1.05, 0), (FIN, 0.82, 0)]


def _wing(y, span, front, back, root):
    """Six panels a side, the outermost with its corners cut."""
    panels, n = [], 6
    for s in (-1, 1):
        for i in range(n):
            z0, z1 = max(span * i / n, root), span * (i + 1) / n
            cut = 0.30 if i == n - 1 else 0
            y0, y1 = y + DIHEDRAL * z0, y + DIHEDRAL * z1
            panels.append(([(front, y0, s * z0), (front - cut * .5, y1, s * z1),
                            (back + cut * 1.2, y1, s * z1), (back, y0, s * z0)], 1.08, 0.10))
    return panels


def _wheels():
    turn = np.linspace(0, 2 * math.pi, 18)
    return [([(.95 + .38 * math.cos(a), -1.15 + .38 * math.sin(a), s * .80) for a in turn], 0.35, 0)
            for s in (-1, 1)]


def _struts(wings):
    """Struts, wires and the undercarriage: pairs of points."""
    top, low, tip = wings[0][0], wings[-1][0], DIHEDRAL * 2.7
    lines = [((.95, -1.12, -.8), (.95, -1.12, .8))]
    for s in (-1, 1):
        for x in (.8, -.35):
            lines.append(((x, top + tip, s * 2.7), (x, low + tip, s * 2.7)))
            lines.append(((x, top, s * .5), (x, .42, s * .42)))
        lines.append(((.8, .42, s * .42), (.8, top + .13, s * 2.7)))
        lines.append(((1.3, -.42, s * .35), (.95, -1.12, s * .75)))
        lines.append(((.5, -.42, s * .35), (.95, -1.12, s * .75)))
    return lines


def _marks(mark, wing):
    """Shapes of the insignia on the upper wing: points, grey."""
    y, span, front, back = wing
    shapes = []
    for s in (-1, 1):
        z, x, top = s * span * .72, (front + back) / 2, y + DIHEDRAL * span * .72 + .02
        if mark == 'roundel':
            turn = np.linspace(0, 2 * math.pi, 26)
            shapes += [([(x + r * math.cos(a), top, z + r * math.sin(a)) for a in turn], grey)
                       for r, grey in ROUNDEL]
        elif mark == 'cross':
            for half, grey in CROSS:
                for along, aside in ((.55, half), (half, .55)):
                    shapes.append(([(x + i * along, top, z + j * aside)
                                    for i, j in ((-1, -1), (1, -1), (1, 1), (-1, 1))], grey))
    return shapes


def _turned(yaw, pitch, roll):
    cy, sy, cp, sp = math.cos(yaw), math.sin(yaw), math.cos(pitch), math.sin(pitch)
    cr, sr = math.cos(roll), math.sin(roll)
    return (np.array([[cy, 0, sy], [0, 1, 0], [-sy, 0, cy]])
            @ np.array([[cp, -sp, 0], [sp, cp, 0], [0, 0, 1]])
            @ np.array([[1, 0, 0], [0, cr, -sr], [0, sr, cr]]))


def _brightness(points, factor):
    normal = np.cross(points[1] - points[0], points[2] - points[0])
    length = np.linalg.norm(normal)
    normal = normal / length if length else np.array([0, 1, 0])
    if normal[2] < 0:
        normal = -normal
    return DARK + (BRIGHT - DARK) * (0.35 + 0.65 * max(0.0, float(normal @ LIGHT))) * factor


def _turned_parts(kind, matrix):
    """Panels and struts, the farthest first: grey, darkness of the outline (None for a strut) and
    the points, turned."""
    wings = WINGS[kind]
    panels = _body() + _wheels()
    for y, span, front, back in wings:
        # The lower wing of a biplane begins at the fuselage.
        panels += _wing(y, span, front, back, 0.4 if y < 0 and kind == 'biplane' else 0)
    parts = []
    for points, factor, line in panels:
        points = np.array(points, float) @ matrix.T
        parts.append((_brightness(points, factor), line, points))
    parts += [(DARK * .75, None, np.array(ends, float) @ matrix.T) for ends in _struts(wings)]
    return sorted(parts, key=lambda part: part[2][:, 2].mean())


def aeroplane(w, h, yaw, pitch, roll, size, kind='biplane', mark='roundel', cx=None, cy=None):
    """The machine in greys, as a layer of w by h with its middle at cx, cy.

    Angles in radians: yaw 0 shows it from its right, flying to the right. size: pixels per metre.
    mark: 'roundel', 'cross' or None.
    """
    matrix = _turned(yaw, pitch, roll)
    cx, cy = w / 2 if cx is None else cx, h / 2 if cy is None else cy

    def project(points):
        scale = size * (1 + 0.012 * points[:, 2])
        return list(zip(cx + points[:, 0] * scale, cy - points[:, 1] * scale))

    def draw(c):
        for grey, line, points in _turned_parts(kind, matrix):
            path(c, project(points), line is not None)
            c.set_source_rgba(grey, grey, grey, 1)
            if line is None:
                c.set_line_width(max(0.8, size * .045))
            else:
                c.fill_preserve()
                c.set_source_rgba(*3 * [grey * (1 - line)], 1)
                c.set_line_width(0.7)
            c.stroke()
        for points, grey in _marks(mark, WINGS[kind][0]):
            path(c, project(np.array(points, float) @ matrix.T), True)
            c.set_source_rgba(grey, grey, grey, .9)
            c.fill()

    return vector(w, h, draw)


def photograph(w, h, seed, planes, ground=0.0, border=11):
    """A sepia print with a white border. planes: keyword arguments of aeroplane(), one set each;
    ground: the part of the height that the field takes."""
    pw, ph = w - 2 * border, h - 2 * border
    grey = _sky(pw, ph, seed)
    if ground:
        grey = _field(grey, ph * (1 - ground), seed)
    layer = np.dstack([grey, grey, grey, np.ones_like(grey)]).astype(np.float32)
    for plane in planes:
        over(layer, aeroplane(pw, ph, **plane))
    x, y = grid(pw, ph)
    grey = blur(layer[..., 0], 0.75)
    grey = grey + 0.035 * noise(pw, ph, 1.6, 1.6, seed + 9) + 0.02 * fbm(pw, ph, 90, 90, seed + 10, 3)
    far = (x / pw - .5) ** 2 + (y / ph - .5) ** 2
    grey = np.clip(grey * (1 - 0.55 * far), 0, 1)
    sheet = paper(w, h, seed + 20, base='#EFE6D0', edge='#BFA878', fibre=0.15, foxing=2, rough=0.25, margin=7)
    part(sheet, border, border, pw, ph)[..., :3] = ramp(
        grey, [(0, '#1E130B'), (0.35, '#5B4027'), (0.7, '#B39468'), (1, '#EBDBB6')])
    return sheet


def _sky(w, h, seed):
    y = grid(w, h)[1] / h
    clouds = smooth(fbm(w, h, w * .55, h * .28, seed, 5), 0.02, 0.55)
    return 0.80 - 0.20 * y + 0.15 * clouds * (1 - .6 * y)


def _field(sky, horizon, seed):
    h, w = size(sky)
    y = grid(w, h)[1]
    grass = 0.60 + 0.06 * fbm(w, h, 120, 8, seed + 3, 4) + 0.05 * fbm(w, h, 5, 3, seed + 4, 2)
    trees = horizon - 6 - 7 * np.clip(fbm(w, 1, 26, 1, seed + 6, 4)[0], -.4, 1)
    wood = 0.40 + 0.05 * fbm(w, h, 9, 9, seed + 8, 2)
    return np.where(y > horizon, grass, np.where(y > trees, wood, sky))
