"""Float pictures: height x width x 3 or 4, values 0..1, straight alpha."""
import numpy as np
from PIL import Image


def rgb(text):
    """'#RRGGBB' or 'AARRGGBB' to three floats 0..1."""
    text = text.lstrip('#')[-6:]
    return np.array([int(text[i:i + 2], 16) / 255 for i in (0, 2, 4)], np.float32)


def noise(w, h, sx, sy, seed):
    """One octave of smooth value noise, cells of sx by sy pixels, range -1..1."""
    rng = np.random.default_rng(seed)
    gw, gh = max(4, int(w / sx) + 4), max(4, int(h / sy) + 4)
    g = rng.uniform(-1, 1, (gh, gw)).astype(np.float32)
    a = np.asarray(Image.fromarray(g, 'F').resize((int(gw * sx) + 1, int(gh * sy) + 1), Image.BICUBIC))
    oy, ox = int(sy), int(sx)
    return a[oy:oy + h, ox:ox + w]


def fbm(w, h, sx, sy, seed, octaves=5, gain=0.5):
    """Noise with finer and weaker octaves on top. The same seed gives the same picture."""
    out, amp, total = np.zeros((h, w), np.float32), 1.0, 0.0
    for i in range(octaves):
        if sx < 1 and sy < 1:
            break
        out += amp * noise(w, h, max(sx, 1), max(sy, 1), seed + 97 * i)
        total += amp
        amp *= gain
        sx, sy = sx / 2, sy / 2
    return out / total


def with_alpha(color, alpha):
    return np.dstack([np.broadcast_to(color, alpha.shape + (3,)), alpha]).astype(np.float32)


def over(dst, src, x=0, y=0, alpha=1.0):
    """Source-over of src (RGBA) on dst (RGB or RGBA) at x, y, clipped. Changes dst."""
    x, y = int(round(x)), int(round(y))
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
