"""The theatre of war: north-east France and Belgium with the front, the coast and the towns."""
from functools import partial

import numpy as np

from fieldmap import MAP_INK, OURS, THEIRS, contours, neat_line, trench
from lettering import HEAD, MAP_ITALIC, ink, put
from outlines import fill, source, spline, stroke, vector
from pixels import empty, grid, over
from textures import paper

LONGITUDES, LATITUDES = (1.15, 6.85), (48.30, 51.62)  # what the sheet shows, in degrees
MARGIN = 24  # px from the edge of the sheet to the neat line
RED, BLUE = '#8E1F17', '#23406B'

# Longitude, latitude, side of the name, who holds it: '' for a town for orientation.
TOWNS = {
    'Dunkerque': (2.37, 51.03, 'nw', 'ours'), 'Ypres': (2.88, 50.85, 'nw', 'ours'),
    'St. Omer': (2.25, 50.75, 'nw', 'ours'), 'Zeebrugge': (3.20, 51.33, 'nw', 'theirs'),
    'Ostende': (2.92, 51.23, 'nw', 'theirs'), 'Roulers': (3.12, 50.95, 'ne', 'theirs'),
    'Arras': (2.78, 50.29, 'sw', 'ours'), 'Amiens': (2.30, 49.89, 'sw', 'ours'),
    'Reims': (4.03, 49.25, 'sw', 'ours'), 'Verdun': (5.38, 49.16, 'sw', 'ours'),
    'Toul': (5.89, 48.68, 'se', 'ours'), 'Lille': (3.06, 50.63, 'se', 'theirs'),
    'Cambrai': (3.23, 50.17, 'ne', 'theirs'), 'Cappy': (2.77, 49.93, 'se', 'theirs'),
    'Metz': (6.18, 49.12, 'ne', 'theirs'), 'Paris': (2.35, 48.86, 'se', ''),
    'Brussels': (4.35, 50.85, 'ne', ''), 'Luxembourg': (6.13, 49.61, 'nw', ''),
}
HOLDERS = {'ours': BLUE, 'theirs': RED, '': '#4A3A24'}
COAST = [(0.7, 49.85), (1.08, 49.93), (1.37, 50.06), (1.55, 50.22), (1.58, 50.40), (1.58, 50.73),
         (1.60, 50.87), (1.85, 50.97), (2.12, 51.01), (2.37, 51.06), (2.75, 51.15), (2.92, 51.24),
         (3.20, 51.34), (3.45, 51.40), (3.9, 51.44), (4.2, 51.6)]
FRONT = [(2.74, 51.14), (2.86, 51.03), (2.90, 50.93), (3.00, 50.85), (2.92, 50.69), (2.76, 50.53),
         (2.80, 50.40), (2.84, 50.29), (2.74, 50.12), (2.70, 50.00), (2.83, 49.86), (2.74, 49.70),
         (2.90, 49.56), (3.30, 49.42), (3.80, 49.43), (4.10, 49.28), (4.60, 49.20), (5.05, 49.22),
         (5.38, 49.26), (5.60, 49.10), (5.56, 48.90), (6.04, 48.93), (6.45, 48.70), (6.75, 48.50)]
RIVERS = {
    'Somme': [(3.3, 49.90), (2.93, 49.93), (2.77, 49.93), (2.30, 49.90), (1.83, 50.12), (1.56, 50.19)],
    'Aisne': [(4.95, 48.95), (4.75, 49.40), (4.2, 49.48), (3.32, 49.38), (2.83, 49.42)],
    'Oise': [(3.6, 49.9), (3.2, 49.60), (2.83, 49.42), (2.45, 49.2), (2.1, 48.98)],
    'Marne': [(5.1, 48.5), (4.6, 48.75), (4.35, 48.96), (3.95, 49.05), (3.4, 49.04), (2.9, 48.95),
              (2.42, 48.82)],
    'Meuse': [(5.7, 48.5), (5.5, 48.9), (5.38, 49.16), (5.2, 49.4), (4.95, 49.7), (4.75, 50.1),
              (4.87, 50.47), (5.4, 50.55)],
    'Moselle': [(6.3, 48.4), (5.95, 48.72), (6.10, 48.95), (6.18, 49.12), (6.3, 49.4)],
    'Scheldt': [(3.23, 50.17), (3.5, 50.35), (3.4, 50.6), (3.6, 50.85), (3.75, 51.05), (4.1, 51.02),
                (4.4, 51.22)],
    'Lys': [(2.3, 50.6), (2.9, 50.68), (3.2, 50.85), (3.75, 51.05)],
    'Seine': [(4.1, 48.1), (3.4, 48.5), (2.9, 48.38), (2.6, 48.55), (2.42, 48.80), (2.25, 48.86),
              (2.1, 48.98), (1.6, 49.08), (1.0, 49.35), (0.5, 49.45)],
    'Yser': [(2.45, 50.88), (2.80, 50.98), (2.75, 51.13)],
}
# The two maps of the simulator: upper left and lower right corner. Their ink is neither side's
# colour.
REGIONS = [((1.42, 51.55), (3.95, 50.715)), ((1.42, 50.685), (6.70, 48.42))]
REGION_INK = '#3A2E1E'
LETTERING = [('THE CHANNEL', HEAD, 22, (4.08, 51.33), REGION_INK, 'left', 4),
             ('WESTERN', HEAD, 22, (4.95, 50.16), REGION_INK, 'center', 4),
             ('FRONT', HEAD, 22, (4.95, 50.0), REGION_INK, 'center', 4),
             ('North Sea', MAP_ITALIC, 19, (1.90, 51.42), '#35525E', 'center', 2)]


def place(w, h, longitude, latitude):
    """The position of a point of the earth on a sheet of w by h."""
    (west, east), (south, north) = LONGITUDES, LATITUDES
    return (MARGIN + (longitude - west) / (east - west) * (w - 2 * MARGIN),
            MARGIN + (north - latitude) / (north - south) * (h - 2 * MARGIN))


def theatre_map(w, h, seed, regions=True):
    """The map on a sheet of w by h. regions: whether the simulator's maps are framed and named."""
    sheet = paper(w, h, seed, base='#E8DCB8', edge='#A98B56', foxing=10, rough=1.0, margin=14)
    at = partial(place, w, h)
    body = _sea_and_hills(w, h, seed, [at(*p) for p in COAST])
    over(body, vector(w, h, lambda c: _draw_country(c, w, h, at)))
    if regions:
        over(body, vector(w, h, lambda c: _frame_regions(c, at)))
    over(body, vector(w, h, lambda c: _draw_towns(c, at)))
    _name_towns(body, at)
    for text, file, px, point, color, align, spacing in LETTERING if regions else LETTERING[3:]:
        put(body, text, file, px, *at(*point), color, align, spacing)
    x, y = grid(w, h)
    m = MARGIN
    body[..., 3] *= (x > m) & (x < w - m) & (y > m) & (y < h - m)
    over(sheet, ink(body, seed + 40, 0.18))
    return over(sheet, vector(w, h, lambda c: neat_line(c, m, m, w - 2 * m, h - 2 * m, 5, 1.8)))


def _sea_and_hills(w, h, seed, coast):
    def draw(c):
        spline(c, coast)
        for corner in ((w, -20), (-20, -20), (-20, coast[0][1])):
            c.line_to(*corner)
        c.close_path()
        fill(c, '#A9BDB4', 0.55)

    def shore_lines(c):
        for k in range(4):
            spline(c, [(x - 3.2 * (k + 1), y - 3.0 * (k + 1)) for x, y in coast])
            stroke(c, '#55788A', 0.8, 0.55 - .12 * k)

    body, sea = empty(w, h), vector(w, h, draw)
    over(body, sea)
    over(body, vector(w, h, shore_lines))
    hills = contours(w, h, seed + 7, 170, 0.13, '#9A6B3C', 0.30)
    hills[..., 3] *= np.clip(1 - sea[..., 3] / .55, 0, 1)
    return over(body, hills)


def _draw_country(c, w, h, at):
    spline(c, [at(*p) for p in COAST])
    stroke(c, MAP_INK, 1.4, 0.85)
    for river in RIVERS.values():
        spline(c, [at(*p) for p in river])
        stroke(c, '#4E7284', 1.5, 0.75)
    for longitude in range(1, 7):
        x, _ = at(longitude, 50)
        c.move_to(x, MARGIN)
        c.line_to(x, h - MARGIN)
    for latitude in np.arange(48.5, 51.6, 0.5):
        _, y = at(2, latitude)
        c.move_to(MARGIN, y)
        c.line_to(w - MARGIN, y)
    stroke(c, '#3A2E1E', 0.7, 0.20)
    front = [at(*p) for p in FRONT]
    trench(c, front, THEIRS, 3.2, 7, 1.8)
    trench(c, [(x - 7, y + 3) for x, y in front], OURS, 3.0, 7, 1.6)


def _frame_regions(c, at):
    c.set_dash([12, 6])
    for corner, opposite in REGIONS:
        (x0, y0), (x1, y1) = at(*corner), at(*opposite)
        c.rectangle(x0, y0, x1 - x0, y1 - y0)
        stroke(c, REGION_INK, 2.6, .85)


def _draw_towns(c, at):
    for longitude, latitude, _, holder in TOWNS.values():
        x, y = at(longitude, latitude)
        source(c, HOLDERS[holder])
        c.arc(x, y, 4.2 if holder else 3.2, 0, 7)
        c.fill()
        if holder:
            c.arc(x, y, 7.0, 0, 7)
            c.set_line_width(1.2)
            c.stroke()


def _name_towns(body, at):
    for name, (longitude, latitude, side, _) in TOWNS.items():
        x, y = at(longitude, latitude)
        dx, align = {'e': (10, 'left'), 'w': (-10, 'right')}[side[1]]
        put(body, name, MAP_ITALIC, 17, x + dx, y + (-6 if side[0] == 'n' else 16), '#241A0E', align)
