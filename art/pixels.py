"""Float pictures: height x width x 3 or 4, values 0..1, straight alpha.

All measures are pixels of the design. Within drawn_at(2) everything is drawn with two picture
pixels per design pixel, from the same numbers: only the shapes of arrays differ, and size(), part()
and px() handle those.
"""
import contextlib
import math

import numpy as np
from PIL import Image
from scipy import ndimage

SHADOW = np.array([0.05, 0.03, 0.015], np.float32)

DOUBLE = 2  # pixels of a picture NAME@2x per design pixel

_detail = 1


def detail():
    """The current number of picture pixels per design pixel."""
    return _detail


@contextlib.contextmanager
def drawn_at(factor):
    """Whatever is drawn within it has that many pixels per design pixel."""
    global _detail
    before, _detail = _detail, factor
    try:
        yield
    finally:
        _detail = before


# -- colours


def rgb(text):
    """'#RRGGBB' or 'AARRGGBB' to three floats 0..1."""
    text = text.lstrip('#')[-6:]
    return np.array([int(text[i:i + 2], 16) / 255 for i in (0, 2, 4)], np.float32)


def mix(a, b, t):
    """a where t is 0, b where it is 1. t may be a plane for two pictures."""
    t = np.asarray(t, np.float32)
    if t.ndim == 2:
        t = t[..., None]
    return a * (1 - t) + b * t


def ramp(t, stops):
    """Colours along a plane of values: stops is a list of (value, '#RRGGBB'), ascending."""
    values = [value for value, _ in stops]
    colors = np.array([rgb(color) for _, color in stops])
    return np.stack([np.interp(t, values, colors[:, k]) for k in range(3)], -1).astype(np.float32)


def with_alpha(color, alpha):
    return np.dstack([np.broadcast_to(color, alpha.shape + (3,)), alpha]).astype(np.float32)


# -- measures


def px(length):
    """A length as whole pixels of an array."""
    return int(length * _detail)


def size(a):
    """Height and width."""
    return a.shape[0] // _detail, a.shape[1] // _detail


def part(a, x, y, w, h):
    """A rectangle of a picture or plane, without a copy."""
    return a[px(y):px(y + h), px(x):px(x + w)]


def trimmed(a, margin):
    """Without a margin on all sides."""
    h, w = size(a)
    return part(a, margin, margin, w - 2 * margin, h - 2 * margin)


# -- planes


def full(w, h, value):
    """A plane of one value."""
    return np.full((px(h), px(w)), value, np.float32)


def grid(w, h):
    """x and y of the pixels' centres."""
    y, x = np.mgrid[0:px(h), 0:px(w)].astype(np.float32)
    return (x + 0.5) / _detail, (y + 0.5) / _detail


def smooth(t, a, b):
    """0 up to a, 1 from b on, smooth at both."""
    t = np.clip((t - a) / (b - a), 0, 1)
    return t * t * (3 - 2 * t)


def bump(t, width):
    """1 at 0, falling off on both sides: a line of about twice that width."""
    return np.exp(-(t / width) ** 2)


def noise(w, h, sx, sy, seed):
    """One octave of smooth value noise, cells of sx by sy pixels, range -1..1."""
    rng = np.random.default_rng(seed)
    gw, gh = max(4, int(w / sx) + 4), max(4, int(h / sy) + 4)
    g = rng.uniform(-1, 1, (gh, gw)).astype(np.float32)
    a = np.asarray(Image.fromarray(g, 'F').resize((px(int(gw * sx) + 1), px(int(gh * sy) + 1)), Image.BICUBIC))
    return part(a, int(sx), int(sy), w, h)


def fbm(w, h, sx, sy, seed, octaves=5, gain=0.5):
    """Noise with finer and weaker octaves on top. The same seed gives the same picture."""
    out, amp, total = full(w, h, 0), 1.0, 0.0
    for i in range(octaves):
        if sx < 1 and sy < 1:
            break
        out += amp * noise(w, h, max(sx, 1), max(sy, 1), seed + 97 * i)
        total += amp
        amp *= gain
        sx, sy = sx / 2, sy / 2
    return out / total


def blur(a, radius):
    radius *= _detail
    return ndimage.gaussian_filter(a, radius if np.ndim(a) == 2 else (radius, radius, 0))


def moved(plane, dx, dy):
    return ndimage.shift(plane, (dy * _detail, dx * _detail), order=1)


def distance_inside(mask):
    """How far each pixel is from the edge of the mask that it is in; 0 outside."""
    return ndimage.distance_transform_edt(mask > .5) / _detail


def slopes(height):
    """How a plane rises along x and y, per design pixel."""
    gy, gx = np.gradient(height)
    return gx * _detail, gy * _detail


def shade(height):
    """Light from the upper left on a plane of heights: 0 on level ground, above it where lit."""
    gx, gy = slopes(height)
    return -math.sqrt(0.5) * (gx + gy)


# -- layers


def empty(w, h):
    return np.zeros((px(h), px(w), 4), np.float32)


def over(dst, src, x=0, y=0, alpha=1.0):
    """Source-over of src (RGBA) on dst (RGB or RGBA) at x, y, clipped. Changes dst."""
    x, y = int(round(x * _detail)), int(round(y * _detail))
    sh, sw = src.shape[:2]
    dh, dw = dst.shape[:2]
    x0, y0, x1, y1 = max(x, 0), max(y, 0), min(x + sw, dw), min(y + sh, dh)
    if x0 >= x1 or y0 >= y1:
        return dst
    s = src[y0 - y:y1 - y, x0 - x:x1 - x]
    d = dst[y0:y1, x0:x1]
    sa = s[..., 3:4] * alpha
    if dst.shape[2] == 3:
        d[...] = s[..., :3] * sa + d * (1 - sa)
        return dst
    da = d[..., 3:4]
    oa = sa + da * (1 - sa)
    mixed = s[..., :3] * sa + d[..., :3] * da * (1 - sa)
    d[..., :3] = np.where(oa > 0, mixed / np.maximum(oa, 1e-6), 0)
    d[..., 3:4] = oa
    return dst


def lay(dst, layer, x, y, dx=5, dy=7, radius=7, strength=0.55):
    """Puts a layer down at x, y with the shadow that it throws: a soft one, thrown by dx and dy,
    and a narrow one where it touches. Changes dst."""
    pad = int(3 * radius + max(dx, dy)) + 2
    alpha = np.pad(layer[..., 3], px(pad))
    soft = moved(blur(alpha, radius), dx, dy)
    touch = moved(blur(alpha, 1.6), 1.5, 2) * 0.8
    dark = np.clip(np.maximum(soft, touch) * strength, 0, 1)
    over(dst, with_alpha(SHADOW, dark), x - pad, y - pad)
    return over(dst, layer, x, y)


def rotate(layer, degrees, pad=40):
    """A layer turned around its middle, counterclockwise, with pad pixels more on each side."""
    h, w = size(layer)
    big = empty(w + 2 * pad, h + 2 * pad)
    over(big, layer, pad, pad)
    big[..., :3] *= big[..., 3:4]
    out = np.stack([np.asarray(Image.fromarray(big[..., k], 'F').rotate(degrees, Image.BICUBIC))
                    for k in range(4)], -1)
    return unpremultiplied(np.clip(out, 0, 1))


def unpremultiplied(a):
    a[..., :3] = np.clip(a[..., :3] / np.maximum(a[..., 3:4], 1e-4), 0, 1)
    return a.astype(np.float32)


def reduced(a, factor):
    """A layer drawn factor times larger, scaled to its size."""
    h, w = a.shape[0] // factor, a.shape[1] // factor
    a = a.copy()
    a[..., :3] *= a[..., 3:4]
    return unpremultiplied(a.reshape(h, factor, w, factor, 4).mean((1, 3)))


def to_bytes(a):
    return (np.clip(a, 0, 1) * 255 + 0.5).astype(np.uint8)
