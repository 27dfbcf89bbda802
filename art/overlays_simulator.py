"""The pages around the simulator: where it is, and the walk through the folders."""
from aeroplane import photograph
from brass import LOOKS, looks_sheet
from holders import holder
from lettering import ink
from outlines import path, spline, stroke, vector
from pixels import empty, lay, over, rgb, trimmed
from props import pin, stamp
from sheets import (BLUE, CARD, GREEN_PENCIL, H, OLD_CARD, RED, W, lay_pencil, lay_turned, office_sheet, ruled, rules)
from textures import paper

FOLDER_ROW = (580, 46, 3)  # width, height in px, seed
MARK = 32                  # px
GRAPHITE, RED_TICK, GREEN_TICK = '#35322E', '#A3241B', '#2B5A33'


def _card(ov, x, y, w, h, degrees, pin_y, pin_color='#B3231A'):
    """A card on an older one, pinned to the desk."""
    lay_turned(ov, paper(w - 4, h - 4, 38, base=OLD_CARD, rough=.6), degrees, x + 5, y + 5, 4, 6, 6, .5)
    lay(ov, paper(w, h, 37, base=CARD, rough=.6), x, y, 4, 6, 6, .6)
    over(ov, pin(color=pin_color), 832, pin_y)


def over_simulator():
    """A form: places above its rule, four checks below; beside it a photograph and a card."""
    ov = empty(W, H)
    machine = dict(yaw=2.45, pitch=-.17, roll=.02, size=18, cx=138, cy=120)
    lay_turned(ov, photograph(284, 204, 15, [machine], ground=.30), 3, 700, 44, 5, 7, 7, .55)
    over(ov, office_sheet(32, 20, 644, 648, 48))
    rules(ov, 64, 330, 580)
    for y in (420, 474, 528, 582):
        ruled(ov, 64, y, 580)
    over(ov, pin(), 832, 40)
    _card(ov, 700, 482, 292, 170, 2.2, 474, '#28497E')
    return ov


def over_folder():
    """A form with two lines for a path, and a card; a pencil."""
    ov = office_sheet(32, 20, 644, 648, 49)
    for y in (142, 168):
        ruled(ov, 64, y, 580)
    _card(ov, 700, 36, 292, 256, 2.6, 26)
    rules(ov, 720, 96, 252)
    lay_pencil(ov, 250, GREEN_PENCIL, -8, 846, 612)
    return ov


# -- marks


def _tick(c):
    spline(c, [(MARK * .12, MARK * .52), (MARK * .30, MARK * .78), (MARK * .38, MARK * .88),
               (MARK * .58, MARK * .48), (MARK * .92, MARK * .10)])
    stroke(c, GREEN_TICK, MARK * .13, .95)


def _cross(c):
    spline(c, [(MARK * .16, MARK * .18), (MARK * .52, MARK * .50), (MARK * .86, MARK * .84)])
    stroke(c, RED_TICK, MARK * .13, .95)
    spline(c, [(MARK * .86, MARK * .14), (MARK * .48, MARK * .52), (MARK * .18, MARK * .88)])
    stroke(c, RED_TICK, MARK * .12, .95)


def _dash(c):
    spline(c, [(MARK * .18, MARK * .55), (MARK * .5, MARK * .50), (MARK * .84, MARK * .53)])
    stroke(c, GRAPHITE, MARK * .12, .8)


def ticks():
    """What a check has found, in coloured pencil: tick_yes, tick_no, and tick_open for nothing yet."""
    sheet = empty(3 * MARK, MARK)
    index = ''
    for i, (name, draw, seed) in enumerate((('yes', _tick, 3), ('no', _cross, 4), ('open', _dash, 5))):
        def pencilled(c, draw=draw):
            c.set_line_cap(1)
            c.set_line_join(1)
            draw(c)
        over(sheet, ink(vector(MARK, MARK, pencilled), seed, .45, 2.6), i * MARK, 0)
        index += 'image tick_%s\ndims %d 0 %d %d\n' % (name, i * MARK, MARK, MARK)
    return sheet, index


def stamp_ready():
    return trimmed(stamp([('READY TO FLY', 22)], BLUE, 8, 212, 58, -5, 22), 20)


def stamp_open():
    return trimmed(stamp([('NOT READY YET', 21)], RED, 8, 240, 58, -5, 21), 20)


# -- rows of folders


def _folder(size, color):
    def draw(c):
        s = size / 30
        path(c, [(x * s, y * s) for x, y in ((2, 7), (12, 7), (15, 11), (28, 11), (28, 26), (2, 26))], True)
        c.set_source_rgba(*rgb(color), 1)
        c.fill_preserve()
        stroke(c, '#5A452C', 1.2, .9)
        path(c, [(2 * s, 13 * s), (28 * s, 13 * s)])
        stroke(c, '#5A452C', .8, .6)
    return vector(size, size, draw)


def slip_folder():
    """A label holder that leads into a folder."""
    w, h, seed = FOLDER_ROW

    def row(look):
        picture = holder(w, h, look, seed)
        over(picture, _folder(28, '#D9B866' if look == 'over' else '#C9A55E'), 34, 9)
        return picture
    return looks_sheet([('slip_folder_' + look, row(look)) for look in LOOKS])
