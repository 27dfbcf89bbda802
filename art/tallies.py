"""Machines seen from above, one a victory, a lorry, and the signs in the margin of the diary."""
import math

from outlines import fill, path, rounded, source, stroke, vector

GREEN = '#2B5A33'


def plan_view(c, x, y, s, kind='scout', angle=0.0):
    """A machine from above, nose up."""
    c.save()
    c.translate(x, y)
    c.rotate(angle)
    c.scale(s, s)
    span = {'scout': 4.1, 'two': 5.1, 'tri': 3.5, 'mono': 4.3}[kind]
    chord = {'scout': 1.5, 'two': 2.2, 'tri': 1.1, 'mono': 1.8}[kind]
    rounded(c, -span, -1.1 - chord / 2, 2 * span, chord, chord * .42)
    if kind in ('tri', 'two', 'scout'):
        rounded(c, -span * .94, -1.1 + chord * .18, 2 * span * .94, chord * .62, chord * .3)
    c.fill()
    long = 5.0 if kind == 'two' else 3.6
    path(c, [(-.55, -2.6), (.55, -2.6), (.6, -.6), (.12, long), (-.12, long), (-.6, -.6)], True)
    c.fill()
    rounded(c, -1.5, long - 1.1, 3.0, 1.1, .5)
    c.fill()
    c.rectangle(-1.3, -2.9, 2.6, .22)
    c.fill()
    c.restore()


def balloon(c, x, y, s):
    c.save()
    c.translate(x, y)
    c.scale(s, s)
    c.save()
    c.scale(1, .48)
    c.arc(-.4, 0, 4.2, 0, 7)
    c.restore()
    c.fill()
    path(c, [(2.6, -.6), (4.8, -1.9), (4.4, .2), (4.8, 1.9), (2.6, .9)], True)
    c.fill()
    c.set_line_width(.28)
    for dx in (-1.4, .6):
        c.move_to(dx, 1.9)
        c.line_to(-.4, 4.0)
    c.stroke()
    c.rectangle(-.9, 4.0, 1.0, .8)
    c.fill()
    c.restore()


def car(c, x, y, s):
    """A lorry from the side, for everything that is lost on the ground."""
    c.save()
    c.translate(x, y)
    c.scale(s, s)
    rounded(c, -4.2, -2.4, 5.2, 3.6, .3)
    rounded(c, 1.3, -1.2, 2.9, 2.4, .3)
    c.fill()
    for wheel in (-2.6, 2.6):
        c.arc(wheel, 1.9, 1.15, 0, 7)
        c.fill()
    c.restore()


def arrow_head(c, tip, back, size, color, alpha=.9, width=1.5):
    """Two strokes that meet at the tip of a line from back to tip."""
    a = math.atan2(tip[1] - back[1], tip[0] - back[0])
    for turn in (2.65, -2.65):
        c.move_to(*tip)
        c.line_to(tip[0] + size * math.cos(a + turn), tip[1] + size * math.sin(a + turn))
    stroke(c, color, width, alpha)


def sign(kind, size=26):
    """The signs in the margin: scored, fallen, joined, left."""
    def draw(c):
        if kind == 'scored':
            source(c, '#2A1E12')
            plan_view(c, size / 2, size * .50, size / 9.6, 'scout')
        elif kind == 'fallen':
            c.rectangle(size * .44, size * .1, size * .12, size * .8)
            c.rectangle(size * .22, size * .30, size * .56, size * .12)
            fill(c, '#2A1E12', .95)
        else:
            tip, back = ((size * .82, size * .5), (size * .18, size * .5))
            if kind == 'left':
                tip, back = back, tip
            c.move_to(*back)
            c.line_to(*tip)
            stroke(c, GREEN if kind == 'joined' else '#5A452C', 3, .95)
            arrow_head(c, tip, back, size * .34, GREEN if kind == 'joined' else '#5A452C', .95, 3)
    return vector(size, size, draw)
