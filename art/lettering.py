"""Lettering that belongs to an object in a picture, and the loss of ink of print and stamps.

Information for the player is text from the language tables and never part of a picture.
"""
import math

import numpy as np
from PIL import Image, ImageDraw, ImageFont

from bitfont import SCALE, font_file
from pixels import fbm, over, px, rgb, size, smooth, with_alpha

HEAD = 'OldStandard-Bold.ttf'
TEXT = 'OldStandard-Regular.ttf'
BOOK = 'GoudyBookletter1911.otf'
MAP = 'LinLibertine_R.otf'
MAP_ITALIC = 'LinLibertine_RI.otf'


def put(dst, text, file, height, x, y, color, align='left', spacing=0.0):
    """Sets a line on dst with its baseline at y. align says which point of the line x is; spacing
    is added between the letters, in pixels."""
    font = ImageFont.truetype(font_file(file), px(round(height * SCALE)))
    layer = _line(text, font, color, spacing)
    w = size(layer)[1] - 5
    left = x - {'left': 0, 'center': w / 2, 'right': w}[align]
    over(dst, layer, left - 2, y - font.getmetrics()[0] / px(SCALE) - 2)


def _line(text, font, color, spacing):
    """The line with two pixels more on each side."""
    # A spaced line is set letter by letter, an unspaced one whole, for its kerning.
    parts = list(text) if spacing else [text]
    scale = px(SCALE)
    width = sum(font.getlength(part) for part in parts) + spacing * scale * (len(parts) - 1)
    w = math.ceil(int(width + 6 * scale) / scale)
    h = math.ceil((sum(font.getmetrics()) + 4 * scale) / scale)
    im = Image.new('L', (w * scale, h * scale), 0)
    x = 2 * scale
    for part in parts:
        ImageDraw.Draw(im).text((x, 2 * scale), part, font=font, fill=255)
        x += font.getlength(part) + spacing * scale
    alpha = np.asarray(im.resize((px(w), px(h)), Image.BOX)).astype(np.float32) / 255
    return with_alpha(rgb(color), alpha)


def ink(layer, seed, wear=0.35, grain=6.6):
    """Takes small flecks out of a printed layer, as letterpress and stamps do."""
    h, w = size(layer)
    n = fbm(w, h, grain, grain, seed, 3) + 0.35 * fbm(w, h, 90, 90, seed + 5, 2)
    out = layer.copy()
    out[..., 3] *= 1 - wear * smooth(n, 0.0, 0.55)
    return out
