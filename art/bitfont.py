"""Bitmap fonts: baking from outline fonts, and setting text glyph by glyph.

BitFont.write() puts a font on disk in the binary BMFont form, version 3, with one page: 256
records, whose ids are the bytes of the program's code page (Windows-1252, and the letters of Polish
at control codes), in their order. The program looks kerning up by
first byte x number of records + second byte, and only 256 records make that a place of its own for
every pair. NAME@2x.png beside it is the same page drawn at twice the size: each glyph in the doubled
rectangle of the plain page, so both have the same metrics.

Pictures draw their texts through BitFont.draw(), which places whole glyph bitmaps at whole pixels,
the way the program does, so a line is exactly as wide in a picture as on the screen.
"""
import math
import os
import struct
import subprocess

import numpy as np
from PIL import Image, ImageDraw, ImageFont
from scipy import ndimage

from pixels import DOUBLE, detail, drawn_at, fbm, over, rgb, with_alpha

SCALE = 4        # glyphs are drawn this much larger, then reduced
PAD = 4          # pixels around a glyph while it is drawn
GAP = 1          # pixels between glyphs on the page
KERNING_PX = 400  # size at which kerning is measured
INVISIBLE = 0.01  # alpha

# What is drawn for a character that an outline font lacks.
STAND_INS = {'Œ': 'OE', 'œ': 'oe', '…': '...', '™': 'TM', '‹': '<', '›': '>', 'ˆ': '^',
             'ƒ': 'f', '€': 'EUR', 'µ': 'μ'}
# Letters that are drawn as a plain one and a mark if the outline font lacks them.
OGONEK, STROKE = '\u0328', '\u0335'
STAND_INS |= {
    'ą': 'a' + OGONEK, 'ę': 'e' + OGONEK, 'Ą': 'A' + OGONEK, 'Ę': 'E' + OGONEK,
    'ł': 'l' + STROKE, 'Ł': 'L' + STROKE}

# The letters that Windows-1252 lacks, by the bytes that engine/core/TextEncoding.cpp gives them.
FURTHER = dict(zip(range(0x01, 0x09), 'ąćęłńśźż')) | dict(zip(range(0x0E, 0x16), 'ĄĆĘŁŃŚŹŻ'))
CODES = {letter: code for code, letter in FURTHER.items()}

_files = None


def font_file(name):
    """Path of an installed font file by its file name."""
    global _files
    if _files is None:
        out = subprocess.run(['fc-list', '--format', '%{file}\n'], capture_output=True, text=True, check=True).stdout
        _files = {os.path.basename(f): f for f in out.split('\n')}
    if name not in _files:
        raise SystemExit('font file %s is not installed' % name)
    return _files[name]


def character(code):
    """The character of a byte; None for the other control codes and the five free bytes."""
    if code < 32 or code == 127:
        return FURTHER.get(code)
    try:
        return bytes([code]).decode('cp1252')
    except UnicodeDecodeError:
        return None


def drawn_text(font, code):
    """What is drawn for a byte; None for nothing."""
    ch = character(code)
    if ch is None or bytes(font.getmask(ch)) != bytes(font.getmask('\uffff')):
        return ch
    if ch.isspace() or ch == '\xad':
        return ch
    if ch not in STAND_INS:
        raise SystemExit('%s lacks %r, and nothing stands in for it' % (font.path, ch))
    return STAND_INS[ch]


def encoded(text):
    """The bytes of a text."""
    return bytes(CODES[ch] if ch in CODES else ch.encode('cp1252')[0] for ch in text)


def plain(text):
    """A text without the marks that are drawn on its letter."""
    return text.rstrip(OGONEK + STROKE)


def draw_mark(draw, font, text, x, y):
    """Draws the mark at the end of a text whose plain letter is at x, y, as thick as a stem."""
    left, _, right, _ = font.getmask(plain(text)).getbbox()
    stem_left, _, stem_right, _ = font.getmask('l').getbbox()
    stem = stem_right - stem_left
    base = y + font.getmetrics()[0]
    height = -font.getbbox(plain(text), anchor='ls')[1]
    if text.endswith(OGONEK):
        hook = [(-0.6, -0.4), (-1.2, 0.5), (-1.3, 1.4), (-0.7, 1.9), (0.3, 1.7)]
        points = [(x + right + stem * dx, base + stem * dy) for dx, dy in hook]
        thickness = stem * 0.8
    else:
        middle = base - height * 0.5
        points = [(x + left - stem * 0.9, middle + stem * 0.8), (x + left + stem * 1.9, middle - stem * 0.8)]
        thickness = stem * 0.9
    draw.line(points, fill=255, width=round(thickness), joint='curve')
    for px, py in (points[0], points[-1]):
        draw.ellipse((px - thickness / 2, py - thickness / 2, px + thickness / 2, py + thickness / 2), fill=255)


class BitFont:
    """One bitmap font.

    weight above 1 thickens what anti-aliasing thinned. advance: a fixed one, in pixels; by letter
    if None. style: 'white', 'engraved', or 'ink:#RRGGBB'. typed: how much ink a ribbon loses.
    """

    def __init__(self, name, file, px, weight=1.25, advance=None, style='white', typed=0.0):
        self.name, self.px, self.style = name, px, style
        size = int(round(px * SCALE))
        font = ImageFont.truetype(font_file(file), size)
        large_font = ImageFont.truetype(font_file(file), size * DOUBLE)
        ascent, descent = font.getmetrics()
        self.base = math.ceil(ascent / SCALE)
        self.line_height = self.base + math.ceil(descent / SCALE)
        self.glyphs = {}  # byte: picture, x offset, y offset, advance
        self.large = {}   # byte: the picture at twice the size
        for code in range(256):
            text = drawn_text(font, code)
            if text is None:
                self.glyphs[code] = (np.zeros((1, 1, 4), np.float32), 0, 0, 0)
                self.large[code] = np.zeros((DOUBLE, DOUBLE, 4), np.float32)
                continue
            step = advance if advance else int(round(font.getlength(plain(text)) / SCALE))
            width = math.ceil(font.getlength(text) / SCALE) + 2 * PAD + 4
            squeezed = advance if advance and len(text) > 1 else None
            top = self.base * SCALE - ascent

            def draw(font):
                alpha = self._shape(font, text, width, top, squeezed)
                alpha = np.clip(alpha, 0, 1) ** (1 / weight)
                if typed:
                    h, w = alpha.shape[0] // detail(), alpha.shape[1] // detail()
                    n = fbm(w, h, 5, 5, code * 7 + 3, 2)
                    alpha = np.clip(alpha * (1 - typed * np.clip(n + 0.25, 0, 1)), 0, 1)
                return self._inked(alpha)

            glyph, ox, oy = self._cut(draw(font))
            self.glyphs[code] = (glyph, ox, oy, step)
            with drawn_at(DOUBLE):
                self.large[code] = self._same_part(draw(large_font), glyph, ox, oy)
        self.kerning = {} if advance else self._measure_kerning(file)

    def _shape(self, font, text, w, top, squeezed):
        """The text's alpha. squeezed: the advance that several letters share; None for one letter."""
        scale, h = SCALE * detail(), self.line_height + 2 * PAD
        im = Image.new('L', (w * scale, h * scale), 0)
        draw = ImageDraw.Draw(im)
        x, y = PAD * scale, PAD * scale + top * detail()
        draw.text((x, y), plain(text), font=font, fill=255)
        if plain(text) != text:
            draw_mark(draw, font, text, x, y)
        w, h = w * detail(), h * detail()
        alpha = np.asarray(im.resize((w, h), Image.BOX)).astype(np.float32) / 255
        if squeezed is None:
            return alpha
        return np.asarray(Image.fromarray(alpha, 'F').resize(((squeezed + 2 * PAD) * detail(), h), Image.BOX))

    def _inked(self, alpha):
        if self.style == 'engraved':
            dark = with_alpha(rgb('#2A1805'), alpha)
            edge = np.clip(ndimage.shift(alpha, (1.0 * detail(), 0.6 * detail()), order=1), 0, 1) * 0.55
            return over(with_alpha(rgb('#FFF0C0'), edge), dark)
        if self.style.startswith('ink:'):
            return with_alpha(rgb(self.style[4:]), alpha)
        return with_alpha(np.ones(3, np.float32), alpha)

    @staticmethod
    def _cut(glyph):
        """The picture without its empty rim, and its position."""
        ys, xs = np.where(glyph[..., 3] > INVISIBLE)
        if len(ys) == 0:
            return np.zeros((1, 1, 4), np.float32), 0, 0
        y0, y1, x0, x1 = ys.min(), ys.max() + 1, xs.min(), xs.max() + 1
        return glyph[y0:y1, x0:x1], int(x0 - PAD), int(y0 - PAD)

    @staticmethod
    def _same_part(picture, glyph, ox, oy):
        """The part of the glyph's double-sized picture that matches what _cut() has left of the
        plain one."""
        gh, gw = glyph.shape[:2]
        if (glyph[..., 3] <= INVISIBLE).all():
            return np.zeros((gh * DOUBLE, gw * DOUBLE, 4), np.float32)
        x, y = ox + PAD, oy + PAD
        return picture[y * DOUBLE:(y + gh) * DOUBLE, x * DOUBLE:(x + gw) * DOUBLE]

    def _measure_kerning(self, file):
        """Whole pixels by pair of bytes; a little over half a pixel or less isn't worth a shift."""
        font = ImageFont.truetype(font_file(file), KERNING_PX)
        no_ligatures = ['-liga', '-clig', '-dlig', '-calt']
        letters = [(c, character(c)) for c in range(256) if c != 32]
        letters = [(c, ch) for c, ch in letters
                   if ch and drawn_text(font, c) == ch and (ch.isalnum() or ch in '.,-:;\'"()‘’“”–')]
        one = {c: font.getlength(ch) for c, ch in letters}
        kerning = {}
        for a, first in letters:
            for b, second in letters:
                together = font.getlength(first + second, features=no_ligatures)
                amount = (together - one[a] - one[b]) * self.px / KERNING_PX
                if abs(amount) >= 0.6:
                    kerning[(a, b)] = int(round(amount))
        return kerning

    # -- measuring, breaking, drawing

    def width(self, text):
        w, last = 0, None
        for code in encoded(text):
            w += self.glyphs[code][3] + self.kerning.get((last, code), 0)
            last = code
        return w

    def wrap(self, text, width):
        lines = []
        for part in text.split('\n'):
            line = ''
            for word in part.split(' '):
                longer = word if not line else line + ' ' + word
                if line and self.width(longer) > width:
                    lines.append(line)
                    line = word
                else:
                    line = longer
            lines.append(line)
        return lines

    def draw(self, dst, text, x, y, color):
        """Sets one line with the top of its line box at y; color is AARRGGBB."""
        alpha = int(color[:2], 16) / 255
        tint = rgb(color)
        last = None
        for code in encoded(text):
            glyph, ox, oy, advance = self.glyphs[code]
            x += self.kerning.get((last, code), 0)
            tinted = glyph.copy()
            tinted[..., :3] *= tint
            over(dst, tinted, x + ox, y + oy, alpha)
            x += advance
            last = code

    # -- on disk

    def _placed(self, width, height):
        """The position of each glyph on a page of that size, tallest first; None if they don't
        fit."""
        places = {}
        x = y = GAP
        row = 0
        for code, (glyph, *_rest) in sorted(self.glyphs.items(), key=lambda kv: -kv[1][0].shape[0]):
            gh, gw = glyph.shape[:2]
            if x + gw + GAP > width:
                x, y, row = GAP, y + row + GAP, 0
            if y + gh + GAP > height:
                return None
            places[code] = (x, y)
            x += gw + GAP
            row = max(row, gh)
        return places

    def _layout(self):
        """Width and height of the page, and the glyphs' positions on it."""
        side = 128
        while True:
            for size in ((side, side), (2 * side, side)):
                places = self._placed(*size)
                if places:
                    return size, places
            side *= 2

    def _page(self, size, glyphs, places, factor):
        """The page with the glyphs at factor times their positions."""
        page = np.zeros((size[1] * factor, size[0] * factor, 4), np.float32)
        for code, (x, y) in places.items():
            glyph, x, y = glyphs[code], x * factor, y * factor
            page[y:y + glyph.shape[0], x:x + glyph.shape[1]] = glyph
        # What is transparent takes the colour of the nearest ink: where the picture is drawn
        # enlarged, the neighbours' colours run into the rim of a letter.
        if self.style == 'white':
            page[..., :3] = 1
        else:
            distance, nearest = ndimage.distance_transform_edt(page[..., 3] <= INVISIBLE, return_indices=True)
            page[..., :3] = page[nearest[0], nearest[1], :3]
            page[distance > 2 * factor, :3] = page[0, 0, :3]  # farther off nothing shows; one colour packs well
        return page

    def write(self, folder):
        """Writes NAME.fnt, NAME.png and NAME@2x.png."""
        (width, height), places = self._layout()
        plain = {code: glyph for code, (glyph, *_rest) in self.glyphs.items()}
        for glyphs, factor, ending in ((plain, 1, '.png'), (self.large, DOUBLE, '@2x.png')):
            page = self._page((width, height), glyphs, places, factor)
            pixels = (page * 255 + 0.5).astype(np.uint8)
            Image.fromarray(pixels, 'RGBA').save(os.path.join(folder, self.name + ending), optimize=True)

        def block(kind, data):
            return struct.pack('<BI', kind, len(data)) + data

        info = struct.pack('<hBBHBBBBBBBB', int(round(self.px)), 0, 0, 100, 1, 0, 0, 0, 0, GAP, GAP, 0)
        common = struct.pack('<HHHHHBBBBB', self.line_height, self.base, width, height, 1, 0, 0, 0, 0, 0)
        characters = b''
        for code in range(256):
            glyph, ox, oy, advance = self.glyphs[code]
            x, y = places[code]
            characters += struct.pack('<IHHHHhhhBB', code, x, y, glyph.shape[1], glyph.shape[0],
                                      ox, oy, advance, 0, 15)
        out = b'BMF\x03' + block(1, info + self.name.encode() + b'\0') + block(2, common)
        out += block(3, (self.name + '.png').encode() + b'\0') + block(4, characters)
        if self.kerning:
            pairs = sorted(self.kerning.items())
            out += block(5, b''.join(struct.pack('<IIh', a, b, amount) for (a, b), amount in pairs))
        with open(os.path.join(folder, self.name + '.fnt'), 'wb') as f:
            f.write(out)
