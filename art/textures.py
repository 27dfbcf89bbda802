"""Surfaces that the pictures are cut from: wood, paper, linen, cloth, leather, gold leaf.

Each takes a seed, so the same call always gives the same picture.
"""
import math

import numpy as np

from outlines import vector
from pixels import blur, bump, fbm, grid, mix, noise, ramp, rgb, shade, size, smooth, with_alpha


def lamp(w, h, cx, cy, radius, inner=1.25, outer=0.42):
    """Light of a shaded lamp over cx, cy: factors to multiply a surface with."""
    x, y = grid(w, h)
    d = np.hypot((x - cx) / radius, (y - cy) / (radius * 0.86))
    return (outer + (inner - outer) * np.exp(-1.1 * d ** 2)).astype(np.float32)[..., None]


def wood(w, h, seed, dark='#1D110A', middle='#4A2B18', light='#7A4C2A'):
    """Oiled wood with the grain running left to right; RGB."""
    _, y = grid(w, h)
    v = y + 26 * fbm(w, h, 420, 90, seed, 4)
    rings = 0.5 + 0.5 * np.sin(2 * np.pi * (v / 47 + 0.9 * fbm(w, h, 700, 46, seed + 3, 3)))
    fine = 0.6 * noise(w, h, 240, 1.6, seed + 11) + 0.4 * noise(w, h, 90, 1.0, seed + 12)
    pores = smooth(noise(w, h, 26, 1.25, seed + 13), 0.45, 0.9)
    tone = 0.5 + 0.20 * (rings - 0.5) + 0.13 * fine + 0.18 * fbm(w, h, 500, 130, seed + 20, 3)
    color = ramp(np.clip(tone, 0, 1), [(0.18, dark), (0.52, middle), (0.95, light)])
    return np.clip(color * (1 - 0.22 * pores)[..., None], 0, 1)


# -- paper


def paper(w, h, seed, base='#E9DDBF', edge='#B99C66', fibre=0.5, foxing=6, rough=1.2, margin=18):
    """A sheet of paper that browns towards its uneven edges.

    fibre: how many hairs it shows; foxing: number of brown spots; rough: unevenness of the edges in
    pixels; margin: how far in it has browned.
    """
    x, y = grid(w, h)
    d = np.minimum(np.minimum(x, w - x), np.minimum(y, h - y))
    d = d + 1.6 * rough * fbm(w, h, 34, 34, seed + 2, 4)
    worn = np.exp(-np.maximum(d, 0) / margin) * (0.52 + 0.35 * fbm(w, h, 120, 120, seed + 7, 3))
    color = mix(rgb(base), rgb(edge), 0.75 * np.clip(worn, 0, 1))
    tone = 0.018 * fbm(w, h, 220, 220, seed, 4) + 0.010 * fibre * fbm(w, h, 9, 9, seed + 31, 2)
    color = color * (1 + 2.2 * tone)[..., None]
    rng = np.random.default_rng(seed + 50)
    hairs = vector(w, h, lambda c: _hairs(c, w, h, int(w * h / 4200 * fibre), rng))
    color = mix(color, hairs[..., :3], hairs[..., 3])
    for _ in range(foxing):
        spot_x, spot_y, radius = rng.uniform(0, w), rng.uniform(0, h), rng.uniform(2, 9)
        spot = bump(np.hypot(x - spot_x, y - spot_y), radius) * rng.uniform(0.06, 0.18)
        color = mix(color, rgb('#8A5A26'), spot)
    return with_alpha(np.clip(color, 0, 1), smooth(d, 0.2, 1.6))


def _hairs(c, w, h, count, rng):
    for _ in range(count):
        x, y = rng.uniform(0, w), rng.uniform(0, h)
        angle, length, bend = rng.uniform(0, 2 * math.pi), rng.uniform(3, 13), rng.uniform(-4, 4)
        dx, dy = length * math.cos(angle), length * math.sin(angle)
        c.move_to(x, y)
        c.curve_to(x + 0.3 * dx + bend, y + 0.3 * dy, x + 0.7 * dx, y + 0.7 * dy - bend, x + dx, y + dy)
        if rng.uniform() < 0.6:
            c.set_source_rgba(0.45, 0.33, 0.17, rng.uniform(0.03, 0.10))
        else:
            c.set_source_rgba(1, 0.98, 0.9, rng.uniform(0.04, 0.14))
        c.set_line_width(rng.uniform(0.5, 0.9))
        c.stroke()


def crease(sheet, x=None, y=None, strength=0.06, seed=3):
    """A fold across a sheet, along a column x or a row y. Changes the sheet."""
    h, w = size(sheet)
    gx, gy = grid(w, h)
    if x is not None:
        d = gx - x - 0.8 * fbm(w, h, 300, 30, seed, 3)
    else:
        d = gy - y - 0.8 * fbm(w, h, 30, 300, seed, 3)
    broken = 0.6 + 0.6 * np.clip(fbm(w, h, 60, 60, seed + 9, 3), -0.6, 0.6)
    slope = np.tanh(d / 12) * np.exp(-np.abs(d) / 34)
    sheet[..., :3] *= (1 - 1.5 * strength * bump(d, 0.9) * broken + 0.55 * strength * slope)[..., None]
    sheet[..., :3] += (0.7 * strength * bump(d - 1.6, 1.0) * broken)[..., None]
    return np.clip(sheet, 0, 1, out=sheet)


# -- fabric


def linen(w, h, seed, base='#CDBB8E'):
    """Clear-doped aeroplane linen: a visible weave under warm varnish; RGB."""
    x, y = grid(w, h)
    wx = x + 0.9 * noise(w, h, 60, 8, seed)
    wy = y + 0.9 * noise(w, h, 8, 60, seed + 1)
    warp = np.sin(2 * np.pi * wx / 3.1) * (0.75 + 0.5 * noise(w, h, 2, 40, seed + 2))
    weft = np.sin(2 * np.pi * wy / 3.1) * (0.75 + 0.5 * noise(w, h, 40, 2, seed + 3))
    thick = smooth(noise(w, h, 2, 70, seed + 4), 0.55, 1) + smooth(noise(w, h, 70, 2, seed + 5), 0.55, 1)
    tone = 0.018 * (warp + weft) + 0.03 * thick + 0.045 * fbm(w, h, 260, 260, seed + 6, 4)
    varnish = 0.02 * fbm(w, h, 180, 420, seed + 7, 3)
    return np.clip(rgb(base) * (1 + tone[..., None]) + varnish[..., None], 0, 1)


def tape(surface, y=None, x=None, width=30, pitch=13):
    """A doped rib tape with its stitches, across (y) or down (x). Changes surface."""
    h, w = size(surface)
    gx, gy = grid(w, h)
    d, along = (gy - y, gx) if y is not None else (gx - x, gy)
    half = width / 2 + 1.2 * np.sin(2 * np.pi * along / 3.4)
    inside = smooth(half - np.abs(d), 0, 1.2)
    surface *= (1 + 0.055 * inside - 0.16 * bump(np.abs(d) - half, 1.3))[..., None]
    surface *= (1 - 0.06 * bump(d, 5.0) * np.sign(d))[..., None]
    stitches = bump(along % pitch - pitch / 2, 1.9) * bump(np.abs(d) - 3.5, 2.2)
    surface *= (1 - 0.30 * stitches)[..., None]
    return np.clip(surface, 0, 1, out=surface)


def cloth(w, h, seed, base):
    """Bookbinder's buckram; RGB."""
    x, y = grid(w, h)
    weave = (np.sin(2 * np.pi * (x + 0.6 * noise(w, h, 30, 4, seed)) / 2.7)
             * np.sin(2 * np.pi * (y + 0.6 * noise(w, h, 4, 30, seed + 1)) / 2.7))
    threads = noise(w, h, 1.6, 30, seed + 2) + noise(w, h, 30, 1.6, seed + 3)
    tone = 0.05 * (weave + threads) + 0.10 * fbm(w, h, 150, 150, seed + 4, 4)
    return np.clip(rgb(base) * (1 + 1.4 * tone[..., None]), 0, 1)


def leather(w, h, seed, base):
    """Grained leather; RGB."""
    grain = fbm(w, h, 7, 7, seed, 3) + 0.6 * fbm(w, h, 16, 16, seed + 3, 2)
    tone = 0.12 * fbm(w, h, 140, 140, seed + 6, 4) + 0.66 * shade(grain)
    return np.clip(rgb(base) * (1 + tone[..., None]), 0, 1)


# -- gold


def foil(mask, seed):
    """Gold leaf pressed into cloth or wood: a mask coloured, with lit and dark edges."""
    h, w = size(mask)
    x, y = grid(w, h)
    tone = 0.55 + 0.35 * fbm(w, h, 60, 60, seed, 4) + 0.10 * np.sin((x + y) / 46)
    color = ramp(np.clip(tone, 0, 1), [(0, '#8C6A2C'), (0.5, '#CFA855'), (1, '#F3DFA0')])
    color += 0.455 * shade(blur(mask, 1.0))[..., None]
    worn = 1 - 0.35 * smooth(fbm(w, h, 9, 9, seed + 2, 3), 0.3, 0.7)
    return with_alpha(np.clip(color, 0, 1), mask * worn)


def pressed(surface, mask, strength):
    """Shades the rim of a mask that was stamped into a surface (RGB). Changes surface."""
    light = shade(blur(mask, 1.6))[..., None]
    surface *= 1 - 2 * strength * np.clip(-light, 0, 1)
    surface += 0.25 * strength * np.clip(light, 0, 1)
    return np.clip(surface, 0, 1, out=surface)
