"""Shapes drawn as outlines with cairo, as layers of pixels.py."""
import math

import cairo
import numpy as np

from pixels import px, rgb, unpremultiplied


def vector(w, h, draw, scale=1):
    """Runs draw(context) on a transparent surface and returns it as a layer."""
    surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, px(int(w * scale)), px(int(h * scale)))
    c = cairo.Context(surface)
    c.scale(px(scale), px(scale))
    draw(c)
    surface.flush()
    shape = (surface.get_height(), surface.get_width(), 4)
    a = np.ndarray(shape, np.uint8, surface.get_data(), strides=(surface.get_stride(), 4, 1))
    return unpremultiplied((a.astype(np.float32) / 255)[..., [2, 1, 0, 3]])


def source(c, color, alpha=1):
    c.set_source_rgba(*rgb(color), alpha)


def stroke(c, color, width, alpha=1):
    source(c, color, alpha)
    c.set_line_width(width)
    c.stroke()


def fill(c, color, alpha=1):
    source(c, color, alpha)
    c.fill()


def path(c, points, close=False):
    """Straight lines from point to point."""
    c.move_to(*points[0])
    for point in points[1:]:
        c.line_to(*point)
    if close:
        c.close_path()


def rounded(c, x, y, w, h, r):
    c.new_sub_path()
    c.arc(x + w - r, y + r, r, -math.pi / 2, 0)
    c.arc(x + w - r, y + h - r, r, 0, math.pi / 2)
    c.arc(x + r, y + h - r, r, math.pi / 2, math.pi)
    c.arc(x + r, y + r, r, math.pi, 1.5 * math.pi)
    c.close_path()


def rounded_mask(w, h, r, margin=0, scale=1):
    """The alpha of a rectangle with round corners, margin pixels inside w by h."""
    def draw(c):
        rounded(c, margin, margin, w - 2 * margin, h - 2 * margin, r)
        fill(c, '#FFFFFF')
    return vector(w, h, draw, scale)[..., 3]


def spline(c, points, close=False):
    """A smooth curve through points (Catmull-Rom)."""
    p = [points[0]] + list(points) + [points[-1]]
    if close:
        p = [points[-1]] + list(points) + [points[0], points[1]]
    c.move_to(*p[1])
    for i in range(1, len(p) - 2):
        (x0, y0), (x1, y1), (x2, y2), (x3, y3) = p[i - 1:i + 3]
        c.curve_to(x1 + (x2 - x0) / 6, y1 + (y2 - y0) / 6,
                   x2 - (x3 - x1) / 6, y2 - (y3 - y1) / 6, x2, y2)
    if close:
        c.close_path()


def spline_points(points, step=4.0):
    """Points at about even distances along the curve through points."""
    p = [points[0]] + list(points) + [points[-1]]
    out = []
    for i in range(1, len(p) - 2):
        near = p[i - 1:i + 3]
        n = max(2, int(math.dist(near[1], near[2]) / step))
        out += [tuple(_curve(*axis, k / n) for axis in zip(*near)) for k in range(n)]
    out.append(tuple(points[-1]))
    return out


def _curve(a, b, c, d, t):
    return 0.5 * (2 * b + (c - a) * t + (2 * a - 5 * b + 4 * c - d) * t * t
                  + (3 * b - a - 3 * c + d) * t ** 3)
