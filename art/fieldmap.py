"""The trench map: a contoured sheet of an invented corner of the front."""
import math
from functools import partial

import numpy as np

from lettering import MAP, MAP_ITALIC, ink, put
from outlines import fill, path, source, spline, spline_points, stroke, vector
from pixels import detail, empty, fbm, full, grid, over, rgb, size, slopes, with_alpha
from textures import paper

MAP_INK, ROAD, OURS, THEIRS = '#2C2114', '#3A2E1E', '#2F4A7A', '#A8301F'
MARGIN = 22   # px from the edge of the sheet to the neat line
SQUARE = 84   # px

# Points as parts of the sheet's width and height; a little over the edge where a line leaves the
# sheet.
RIVER = [(-.02, .78), (.12, .70), (.22, .73), (.34, .62), (.47, .66), (.58, .57), (.72, .60), (.86, .50),
         (1.02, .53)]
RAILWAY = [(.02, 1.02), (.16, .86), (.27, .60), (.24, .36), (.33, .16), (.30, -.02)]
FIRE_TRENCH = [(.52, -.02), (.50, .10), (.545, .22), (.50, .34), (.53, .47), (.48, .60), (.505, .74),
               (.46, .88), (.47, 1.02)]
# From FIRE_TRENCH to the right, in parts of the width, and how far the line sways, in px.
TRENCHES = [  # offset, sway, step of the sway, colour, depth of the traverses, pitch, width
    (0, 0, 0, OURS, 3.2, 7, 1.2), (-.055, 8, 2.6, OURS, 3.0, 8, 0.9),
    (.055, 6, 1.7, THEIRS, 3.6, 7, 1.3), (.11, 9, 2.1, THEIRS, 3.2, 7, 1.1),
]
VILLAGES = [(.15, .20), (.31, .30), (.70, .16), (.20, .50), (.36, .78), (.73, .40), (.66, .76), (.11, .86),
            (.85, .66)]
# What is printed on the sheet of a sector: the three titles above the neat line, then the villages
# in the order of their places.
BRITISH, FRENCH = 'Scale 1 : 20,000', 'Échelle 1 : 20.000'
SECTORS = {
    'coast': ((BRITISH, 'NIEUPORT', '12 S.W.'),
              ('Westende', 'St. Georges', 'Middelkerke', 'Ramscappelle', 'Dixmude', 'Schoore', 'Keyem',
               'Pervyse', 'Leke')),
    'ypres': ((BRITISH, 'YPRES', '28 N.W.'),
              ('Boesinghe', 'St. Julien', 'Poelcappelle', 'Zillebeke', 'Gheluvelt', 'Passchendaele',
               'Becelaere', 'Hooge', 'Moorslede')),
    'arras': ((BRITISH, 'ARRAS', '51b N.W.'),
              ('Neuville', 'Vimy', 'Gavrelle', 'Athies', 'Monchy', 'Oppy', 'Pelves', 'Feuchy', 'Biache')),
    'bapaume': ((BRITISH, 'BAPAUME', '57c S.W.'),
                ('Warlencourt', 'Le Sars', 'Ligny-Thilloy', 'Flers', 'Gueudecourt', 'Beaulencourt',
                 'Le Transloy', 'Morval', 'Villers')),
    'reims': ((FRENCH, 'REIMS', '34 S.E.'),
              ('Courcy', 'Brimont', 'Bourgogne', 'Bétheny', 'Nogent', 'Berru', 'Moronvilliers', 'Sillery',
               'Prosnes')),
    'verdun': ((FRENCH, 'VERDUN', '35 N.O.'),
               ('Samogneux', 'Louvemont', 'Bezonvaux', 'Bras', 'Fleury', 'Douaumont', 'Vaux', 'Belleville',
                'Damloup')),
    'toul': ((FRENCH, 'PONT-À-MOUSSON', '36 S.O.'),
             ('Flirey', 'Limey', 'Thiaucourt', 'Regniéville', 'Norroy', 'Prény', 'Pagny', 'Mamey',
              'Nomeny')),
}


def trench(c, points, color, depth=4, pitch=7, width=1.3):
    """A fire trench: the toothed line of traverses."""
    line, side = spline_points(points, pitch), 0
    teeth = [line[0]]
    for (x, y), (next_x, next_y) in zip(line, line[1:]):
        length = math.dist((x, y), (next_x, next_y)) or 1
        ox, oy = (y - next_y) / length * depth, (next_x - x) / length * depth
        teeth += [(x + ox * side, y + oy * side), (x + ox * (1 - side), y + oy * (1 - side))]
        side = 1 - side
    path(c, teeth)
    c.set_line_join(1)
    stroke(c, color, width, 0.95)


def contours(w, h, seed, scale=230, step=0.085, color='#9A5B2C', alpha=0.55):
    """Lines of equal height, every fifth drawn heavier. scale: size of the hills in px."""
    z = fbm(w, h, scale, scale, seed, 4, 0.42)
    gx, gy = slopes(z)
    slope = np.hypot(gx, gy) + 1e-5
    lines = full(w, h, 0)
    for every, width, strength in ((1, 0.55, 0.75), (5, 0.9, 1.0)):
        f = z / (step * every)
        d = np.abs(f - np.round(f)) * step * every / slope
        lines = np.maximum(lines, np.clip((width - d) * detail() + 0.5, 0, 1) * strength)
    return with_alpha(rgb(color), lines * alpha)


def neat_line(c, x, y, w, h, gap, width):
    """The double frame of a map."""
    c.rectangle(x, y, w, h)
    stroke(c, MAP_INK, width, 0.85)
    c.rectangle(x - gap, y - gap, w + 2 * gap, h + 2 * gap)
    stroke(c, MAP_INK, 0.75, 0.85)


def trench_map(w, h, seed, titles=('', '', '')):
    """A trench map of w by h. titles: what is above the neat line, left, middle and right."""
    sheet = paper(w, h, seed, base='#E6D9B4', edge='#A98B56', foxing=9, rough=1.0, margin=14)
    body = empty(w, h)
    over(body, contours(w, h, seed + 1))
    over(body, vector(w, h, partial(_draw_country, w=w, h=h, rng=np.random.default_rng(seed + 2))))
    x, y = grid(w, h)
    m = MARGIN
    body[..., 3] *= (x > m) & (x < w - m) & (y > m + 10) & (y < h - m)
    over(sheet, ink(body, seed + 40, 0.22))
    over(sheet, vector(w, h, lambda c: neat_line(c, m, m + 10, w - 2 * m, h - 2 * m - 10, 4, 1.6)))
    _print_titles(sheet, titles)
    return sheet


def _print_titles(sheet, titles):
    w, m = size(sheet)[1], MARGIN
    for text, at, align in zip(titles, (m, w / 2, w - m), ('left', 'center', 'right')):
        if text:
            put(sheet, text, MAP, 16.5, at, m, MAP_INK, align, 3 if align == 'center' else 1)


def sector_names(w, h, seed, sector):
    """Only the names and titles that a trench map of w by h and that seed bears in a sector."""
    titles, villages = SECTORS[sector]
    layer = empty(w, h)
    for name, (x, y) in zip(villages, VILLAGES):
        put(layer, name, MAP_ITALIC, 17, w * x, h * y, MAP_INK)
    layer = ink(layer, seed + 40, 0.22)
    _print_titles(layer, titles)
    return layer


def _draw_country(c, w, h, rng):
    for _ in range(9):
        _wood(c, rng.uniform(.05, .95) * w, rng.uniform(.06, .94) * h, rng.uniform(14, 34), rng)
    for color, alpha, width in (('#55788A', 0.75, 3.2), ('#B9CBC6', 0.8, 1.5)):
        spline(c, [(w * x, h * y) for x, y in RIVER])
        stroke(c, color, width, alpha)
    for k in range(7):
        _road(c, w, h, k, rng)
    _railway(c, [(w * x, h * y) for x, y in RAILWAY])
    for _ in range(13):
        _village(c, rng.uniform(.06, .94) * w, rng.uniform(.08, .92) * h, rng)
    _squares(c, w, h)
    _trenches(c, w, h)


def _wood(c, cx, cy, r, rng):
    edge = [(cx + r * rng.uniform(.7, 1.2) * math.cos(a), cy + r * .7 * rng.uniform(.7, 1.2) * math.sin(a))
            for a in np.linspace(0, 2 * math.pi, 9)[:-1]]
    spline(c, edge, True)
    source(c, '#7E9158', 0.38)
    c.fill_preserve()
    stroke(c, '#4E5A30', 0.8, 0.6)
    for _ in range(int(r * r / 60)):
        a, q = rng.uniform(0, 2 * math.pi), r * .75 * math.sqrt(rng.uniform())
        c.new_sub_path()
        c.arc(cx + q * math.cos(a), cy + .7 * q * math.sin(a), 1.7, 0, 2 * math.pi)
    stroke(c, '#4E5A30', 0.6, 0.55)


def _road(c, w, h, k, rng):
    """The first three are high roads; every other one runs down the sheet."""
    y0, y1 = rng.uniform(0, h), rng.uniform(0, h)
    points = [(-8, y0)]
    points += [(w * t + rng.uniform(-16, 16), y0 + (y1 - y0) * t + rng.uniform(-26, 26))
               for t in (.2, .4, .6, .8)]
    points.append((w + 8, y1))
    if k % 2:
        points = [(y * w / h, x * h / w) for x, y in points]
    spline(c, points)
    stroke(c, '#4A3A24', 2.6 if k < 3 else 1.0, 0.65)
    if k < 3:
        spline(c, points)
        stroke(c, '#EDE2C2', 1.3)


def _railway(c, points):
    spline(c, points)
    stroke(c, ROAD, 1.2, 0.8)
    line = spline_points(points, 8)
    for (x, y), (next_x, next_y) in zip(line, line[1:]):
        length = math.dist((x, y), (next_x, next_y)) or 1
        ox, oy = 2.7 * (y - next_y) / length, 2.7 * (next_x - x) / length
        c.move_to(x - ox, y - oy)
        c.line_to(x + ox, y + oy)
    stroke(c, ROAD, 0.9, 0.8)


def _village(c, x, y, rng):
    for _ in range(rng.integers(7, 16)):
        c.save()
        c.translate(x + rng.normal(0, 12), y + rng.normal(0, 8))
        c.rotate(rng.uniform(0, 1.5))
        c.rectangle(0, 0, rng.uniform(2.5, 5.5), rng.uniform(2, 3.6))
        fill(c, '#3A2A1A', 0.8)
        c.restore()


def _squares(c, w, h):
    for x in np.arange(MARGIN, w - MARGIN + 1, SQUARE):
        c.move_to(x, MARGIN)
        c.line_to(x, h - MARGIN)
    for y in np.arange(MARGIN, h - MARGIN + 1, SQUARE):
        c.move_to(MARGIN, y)
        c.line_to(w - MARGIN, y)
    stroke(c, ROAD, 0.7, 0.28)


def _trenches(c, w, h):
    lines = []
    for offset, sway, turn, color, depth, pitch, width in TRENCHES:
        line = [(w * (x + offset) + sway * math.sin(i * turn), h * y) for i, (x, y) in enumerate(FIRE_TRENCH)]
        trench(c, line, color, depth, pitch, width)
        lines.append(line)
    for (ax, ay), (bx, by) in zip(lines[2], lines[3]):  # communication trenches
        c.move_to(ax, ay)
        c.curve_to(ax + 8, ay + 14, bx - 10, by - 12, bx, by)
        stroke(c, THEIRS, 1.0, 0.85)
