"""Bakes the bitmap fonts of the screens from installed outline fonts.

    bake_fonts.py FOLDER                 writes NAME.fnt and NAME.png of every font
    bake_fonts.py FOLDER --specimen PNG  also draws a sheet with a few lines of each, to look at
"""
import argparse

import numpy as np
from PIL import Image

from bitfont import BitFont
from pixels import rgb

# name: outline file, size in px, advance in px (None: by letter), style.
# The sizes of the typewriter faces make whole advances: 10, 11 and 12 px a letter.
FONTS = {
    'plate24': ('routed-gothic.ttf', 24, None, 'engraved'),
    'plate20': ('routed-gothic.ttf', 20.5, None, 'engraved'),
    'type20': ('Courier Prime.otf', 20, 12, 'white'),
    'type20b': ('Courier Prime Bold.otf', 20, 12, 'white'),
    'type18': ('Courier Prime.otf', 18.33, 11, 'white'),
    'type17': ('Courier Prime.otf', 16.67, 10, 'white'),
    'type13': ('Courier Prime.otf', 13.33, 8, 'white'),
    'report18': ('Courier Prime Bold.otf', 18.33, 11, 'ink:#2A1E12'),
    'report18own': ('Courier Prime Bold.otf', 18.33, 11, 'ink:#23406B'),
    'report17': ('Courier Prime.otf', 16.67, 10, 'ink:#3A2C1B'),
    'report17red': ('Courier Prime Bold.otf', 16.67, 10, 'ink:#8E1F17'),
    # For names that are too long for the three above.
    'report15': ('Courier Prime Bold.otf', 15, 9, 'ink:#2A1E12'),
    'report15own': ('Courier Prime Bold.otf', 15, 9, 'ink:#23406B'),
    'report13red': ('Courier Prime Bold.otf', 13.33, 8, 'ink:#8E1F17'),
    'head34': ('OldStandard-Bold.ttf', 33, None, 'white'),
    'print30': ('OldStandard-Bold.ttf', 30, None, 'white'),
    'print20': ('OldStandard-Bold.ttf', 20, None, 'white'),
    'letter27': ('LinLibertine_RI.otf', 27, None, 'white'),
    'map18': ('LinLibertine_RI.otf', 18, None, 'white'),
    'board26': ('OldStandard-Bold.ttf', 26, None, 'white'),
}

SPECIMEN = ('Sgt. Schäfer, Allmenröder and René Dorme - 12 Kills (you!): AVATAR, Tom, Wy.\n'
            '21-November-1916  N.124 “Escadrille” „Jasta 11‟ œuvre €5 ½ … ß ÿ Ž\n'
            'Zażółć gęślą jaźń. ŁÓDŹ, Śląsk, Ćma, Ęą: zestrzelił'.replace('‟', '”'))
SPECIMEN_WIDTH = 960


def bake(name):
    file, px, advance, style = FONTS[name]
    weight = 1.30 if 'Prime.otf' in file else 1.2
    return BitFont(name, file, px, weight=weight, advance=advance, style=style,
                   typed=0.16 if advance else 0.0)


def draw_specimen(fonts, path):
    rows = [(font, line) for font in fonts for line in [font.name] + font.wrap(SPECIMEN, SPECIMEN_WIDTH - 32)]
    height = sum(font.line_height for font, _ in rows) + 32
    sheet = np.zeros((height, SPECIMEN_WIDTH, 3), np.float32)
    sheet[...] = rgb('#E9DDBF')
    y = 16
    for font, line in rows:
        font.draw(sheet, line, 16, y, 'FF2A1E12' if font.style == 'white' else 'FFFFFFFF')
        y += font.line_height
    Image.fromarray((sheet * 255 + 0.5).astype(np.uint8), 'RGB').save(path)


def main():
    parser = argparse.ArgumentParser(description='Bakes the bitmap fonts of the screens.')
    parser.add_argument('folder')
    parser.add_argument('--specimen', metavar='PNG')
    options = parser.parse_args()
    fonts = []
    for name in FONTS:
        fonts.append(bake(name))
        fonts[-1].write(options.folder)
        print('%-12s %2d px a line, base %2d, %d kerning pairs'
              % (name, fonts[-1].line_height, fonts[-1].base, len(fonts[-1].kerning)))
    if options.specimen:
        draw_specimen(fonts, options.specimen)


if __name__ == '__main__':
    main()
