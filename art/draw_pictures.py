"""Draws the pictures of the screens and the program's icon.

    draw_pictures.py FOLDER             writes every picture, the same twice as large as NAME@2x, and its
                                        image index into FOLDER
    draw_pictures.py FOLDER NAME ...    only those, such as over_main, plate_back or desk
    draw_pictures.py FOLDER --on-desk OTHER  also writes each overlay as it lies on the desk
"""
import argparse
import os
from functools import partial

import numpy as np
from PIL import Image

import overlays_book as book
import overlays_flying as flying
import overlays_office as office
import overlays_people as people
import overlays_record as record
import overlays_simulator as simulator
from brass import GAP, PLATES, SWITCHES, plate_sheet
from fieldmap import SECTORS
from holders import BINDINGS, ROWS, row_sheet, silk_ribbon, slip_sheet, spine_sheet
from icon import large_icon, small_icon
from outlines import fill, path, stroke, vector
from pixels import DOUBLE, drawn_at, empty, full, over, rgb, to_bytes, trimmed, with_alpha
from props import stamp, sweep_hand
from sheets import BLUE, INK, RED, desk
from tallies import sign

OVERLAYS = [
    office.over_main, office.over_service, office.over_year, office.over_month, office.over_summary,
    office.over_settings, office.over_maps, office.over_planes_allied, office.over_planes_german,
    office.over_notice, office.over_help, office.over_careers, office.over_pages, office.over_enlist,
    flying.over_hub, flying.over_roster, flying.over_aces, flying.over_letter, flying.over_orders,
    flying.over_wait, flying.over_report, flying.over_advance,
    book.over_logbook, book.over_where,
    record.over_diary, record.over_record, record.over_citation, record.over_fallen, record.over_war_over,
    people.over_pilot, simulator.over_simulator, simulator.over_folder,
]
HANDS = (4, 2, 81)  # of the watch: columns, rows, px of the radius
PLAIN = ('blank', 'map_off', 'icon', 'icon_256')  # of one colour, or not of a screen
BAR = (556, 36)  # px; it is drawn at other sizes too, so there is nothing in it that would blur


def bar(is_full):
    """A frame in ink; full: hatched from end to end. The program draws the full one in proportion
    to the work done."""
    w, h = BAR

    def draw(c):
        if is_full:
            c.rectangle(5, 5, w - 10, h - 10)
            fill(c, INK, .80)
            c.rectangle(5, 5, w - 10, h - 10)
            c.clip()
            for x in range(-h, w, 9):
                path(c, [(x, h), (x + h, 0)])
            stroke(c, '#6A5434', 2.4, .55)
            c.reset_clip()
        c.rectangle(1.5, 1.5, w - 3, h - 3)
        stroke(c, INK, 1.6, .9)
    return vector(w, h, draw)


def hands():
    """The hand of the watch on the waiting page: hand_0 at the top, one for each eighth of a round."""
    columns, rows, r = HANDS
    cell = 2 * r + GAP
    sheet = empty(columns * cell - GAP, rows * cell - GAP)
    index = ''
    for i in range(columns * rows):
        x, y = i % columns * cell, i // columns * cell
        over(sheet, sweep_hand(r, i / (columns * rows)), x, y)
        index += 'image hand_%d\ndims %d %d %d %d\n' % (i, x, y, 2 * r, 2 * r)
    return sheet, index


def whole(picture, name, lifetime=''):
    """A picture that is one image, and its index."""
    return picture, lifetime + 'image %s\n' % name


def book_stamp(text, color, w, px):
    """What is stamped on the card of a log book, without the room around it."""
    return trimmed(stamp([(text, px)], color, 8, w, 54, -6, px), 20)


def shade_off():
    """The shade over a map that is switched off."""
    return with_alpha(rgb('#2A1E12'), full(4, 4, .5))


def pictures():
    """name: function that gives the picture and the text of its image index ('' for none)."""
    kept = 'lifetime long\n'
    table = {
        'desk': lambda: whole(desk(), 'desk', kept),
        'blank': lambda: whole(empty(4, 4), 'blank', kept),
        'hands': hands,
        'progress_empty': lambda: whole(bar(False), 'progress_empty'),
        'progress_full': lambda: whole(bar(True), 'progress_full'),
        'row_ledger': lambda: whole(book.row_ledger(), 'row_ledger'),
        'row_roster': people.row_roster,
        'row_aces': people.row_aces,
        'row_flight': lambda: whole(flying.row_flight(), 'row_flight'),
        'plate_slip': slip_sheet,
        'ribbon': lambda: whole(silk_ribbon(), 'ribbon'),
        'stamp_service': lambda: whole(book_stamp('ON SERVICE', BLUE, 172, 20), 'stamp_service'),
        'stamp_fallen': lambda: whole(book_stamp('FALLEN', RED, 136, 21), 'stamp_fallen'),
        'stamp_ready': lambda: whole(simulator.stamp_ready(), 'stamp_ready'),
        'stamp_open': lambda: whole(simulator.stamp_open(), 'stamp_open'),
        'ticks': simulator.ticks,
        'slip_folder': simulator.slip_folder,
        'map_off': lambda: whole(shade_off(), 'map_off'),
        'portraits': record.portraits,
        'portraits_mourned': record.portraits_mourned,
        'own_row': lambda: whole(record.own_row(), 'own_row'),
        'ribbons': record.ribbons,
        'rosette': lambda: whole(record.rosette(), 'rosette'),
        'medals': record.medals,
        'medals_large': record.medals_large,
        'tallies': lambda: record.tallies('tally'),
        'tallies_small': lambda: record.tallies('small'),
        'signs': lambda: record.row_of('sign', ('scored', 'fallen', 'joined', 'left'), sign),
        'strip_flag': lambda: whole(record.strip_flag(), 'strip_flag'),
        'icon': lambda: (small_icon(), ''),
        'icon_256': lambda: (large_icon(), ''),
    }
    for draw in OVERLAYS:
        table[draw.__name__] = partial(lambda draw: whole(draw(), draw.__name__), draw)
    for sector in SECTORS:
        table['sheet_' + sector] = partial(lambda s: whole(flying.sheet(s), 'sheet_' + s), sector)
    for name in record.STRIPS:
        table['strip_' + name] = partial(lambda n: whole(record.strip(n, False), 'strip_' + n), name)
        table['strip_%s_served' % name] = partial(lambda n: whole(record.strip(n, True), 'strip_%s_served' % n), name)
    for name in ROWS:
        table[name] = partial(row_sheet, name)
    for service in BINDINGS:
        table['spine_' + service] = partial(spine_sheet, service)
    for name in list(PLATES) + list(SWITCHES):
        table[name] = partial(plate_sheet, name)
    return table


def draw(name, maker):
    """The picture, the same twice as large (None if nobody would see a difference), and the text of
    the image index that both share."""
    picture, index = maker()
    if name in PLAIN:
        return picture, None, index
    with drawn_at(DOUBLE):
        large, _ = maker()
    if large.shape[:2] != (DOUBLE * picture.shape[0], DOUBLE * picture.shape[1]):
        raise SystemExit('%s@2x is %d x %d, not twice as large as %s' % (name, large.shape[1], large.shape[0], name))
    return picture, large, index


def in_steps(pixels):
    """Every second value of a colour: in such fine pixels nobody sees it, and the file is a quarter
    smaller."""
    pixels[..., :3] = np.minimum((pixels[..., :3].astype(int) + 1) // 2 * 2, 255)
    return pixels


def save(path, pixels):
    if pixels.shape[2] == 4:
        pixels[pixels[..., 3] == 0] = 0  # what cannot be seen packs best when it is even
    Image.fromarray(pixels).save(path, optimize=True)


def write(folder, name, picture, large, index):
    save(os.path.join(folder, name + '.png'), to_bytes(picture))
    if large is not None:
        save(os.path.join(folder, name + '@2x.png'), in_steps(to_bytes(large)))
    if index:
        with open(os.path.join(folder, name + '.idx'), 'w', newline='\n') as file:
            file.write(index)


def main():
    parser = argparse.ArgumentParser(description='Draws the pictures of the screens.')
    parser.add_argument('folder')
    parser.add_argument('names', nargs='*')
    parser.add_argument('--on-desk', metavar='FOLDER')
    options = parser.parse_args()
    table = pictures()
    for name in options.names or table:
        if name not in table:
            raise SystemExit('there is no picture ' + name)
        picture, large, index = draw(name, table[name])
        write(options.folder, name, picture, large, index)
        if options.on_desk and name.startswith('over_'):
            laid = over(desk(), picture)
            Image.fromarray(to_bytes(laid)).save(os.path.join(options.on_desk, name + '.png'))
        print('%-18s %4d x %d' % (name, picture.shape[1], picture.shape[0]))


if __name__ == '__main__':
    main()
