"""Paints the layouts of the screens: python3 layouts.py FOLDER writes NAME.png and NAME.idx.

Rectangles are x, y, width, height in pixels of the design, 1024 by 768. The pictures are half as
large, so every figure is even. An element's colour follows from its place in the list; elements
may not overlap. The scripts place lists of many lines, and whatever overlaps something else.
"""
import colorsys
import os
import sys

from PIL import Image, ImageDraw

SIZE = (1024, 768)
SHRINK = 2

RAIL = 'scrollin 0 72 1', 'scrollout 0 72 1'     # plates on the rail rise from below the window
SIDE = 'scrollin 320 0 1', 'scrollout 320 0 1'   # those in a column come from the right edge
LEFT, CENTRE, RIGHT = 'align left', 'align hcenter', 'align right'


def widget(name, *rect, lines=()):
    return 'widget', name, rect, lines


def label(name, *rect, align=LEFT):
    return 'widget', name, rect, (align,)


def area(name, *rect, align=LEFT):
    return 'textarea', name, rect, (align,)


BACK = widget('menuBack', 32, 704, 200, 52, lines=RAIL)
# Plates that end the program are at places of their own: no screen that leads there has a plate in
# the same position, so that pressing twice ends nothing.
END = widget('menuBack', 412, 704, 200, 52, lines=RAIL)
BACK_WIDE = widget('menuBack', 32, 704, 300, 52, lines=RAIL)


def onward(name, width=300):
    return widget(name, 992 - width, 704, width, 52, lines=RAIL)


def column(names, x, y, step, width):
    return [widget(name, x, y + i * step, width, 66, lines=SIDE) for i, name in enumerate(names)]


LAYOUTS = {
    'main': [
        *column(('menuButton2', 'careers', 'menuButton3', 'simulator', 'menuButton4', 'menuButton5'), 584, 222, 72, 392),
        area('last', 32, 708, 368, 44),
        area('title', 692, 716, 300, 28, align=RIGHT),
        END,
    ],
    'careers': [
        widget('book', 58, 44, 606, 600),  # its rows and their ribbons, which hang out of the drawer
        area('name', 696, 42, 272, 72),
        area('facts', 696, 132, 272, 76),
        area('war', 696, 218, 272, 50),
        area('last', 696, 282, 272, 66),
        *column(('another', 'pages', 'away'), 692, 444, 78, 300),
        area('count', 248, 720, 320, 24),
        BACK,
        onward('menuButton1'),
    ],
    'pages': [
        area('title', 206, 56, 448, 38),
        area('text1', 64, 112, 580, 66),
        area('head1', 136, 182, 148, 24),
        area('head2', 286, 182, 88, 24),
        area('head3', 376, 182, 104, 24),
        area('head4', 482, 182, 114, 24, align=RIGHT),
        widget('page', 64, 210, 580, 396),
        area('more', 64, 614, 580, 22),
        area('kept', 64, 636, 580, 22),
        area('name', 722, 62, 250, 56),
        area('facts', 722, 138, 250, 144),
        BACK,
        onward('menuButton1'),
    ],
    'simulator': [
        area('title', 206, 56, 448, 38),
        area('text1', 64, 112, 580, 66),
        widget('place', 64, 178, 580, 146),
        area('checksHead', 64, 342, 580, 28),
        *[widget('check%dmark' % (i + 1), 66, 378 + 54 * i, 32, 32) for i in range(4)],
        *[label('check%d' % (i + 1), 108, 374 + 54 * i, 330 if i == 1 else 536, 40) for i in range(4)],
        widget('switchOn', 444, 420, 200, 52),
        area('status', 64, 596, 330, 66),
        area('standinText', 720, 506, 256, 132),
        *column(('lookAgain', 'lookElsewhere'), 692, 300, 84, 300),
        BACK,
        widget('standin', 248, 704, 428, 52, lines=RAIL),
        onward('menuButton1'),
    ],
    'folder': [
        area('title', 206, 56, 448, 38),
        area('path', 64, 118, 580, 54),
        widget('folder', 64, 188, 580, 396),
        area('more', 64, 596, 580, 28),
        area('hint', 722, 112, 250, 170),
        *column(('up', 'home', 'drives'), 692, 320, 80, 300),
        BACK,
        onward('menuButton1'),
    ],
    'enlist': [
        area('title', 206, 56, 560, 38),
        area('nameHead', 64, 116, 560, 28),
        widget('name', 64, 146, 560, 54),
        widget('another', 660, 148, 300, 52),
        widget('sent', 64, 222, 440, 60),
        widget('own', 520, 222, 440, 60),
        *[area('head%d' % (i + 1), x, 312, w, 24) for i, (x, w) in enumerate(((136, 212), (356, 192), (556, 152), (716, 192)))],
        widget('squadron', 64, 342, 896, 296),
        area('more', 248, 720, 428, 24),
        BACK,
        onward('menuButton1'),
    ],
    'service': [
        area('title', 206, 56, 752, 38),
        area('question', 64, 120, 896, 30),
        *[widget('menuButton%d' % (i + 1), 64, 176 + i * 152, 372, 116) for i in range(3)],
        *[area('service%d' % (i + 1), 468, 182 + i * 152, 492, 106) for i in range(3)],
        area('text1', 64, 626, 896, 26),
        BACK,
    ],
    'year': [
        area('title', 206, 56, 752, 38),
        area('question', 64, 120, 896, 30),
        *[widget('menuButton%d' % (i + 1), 64, 178 + i * 120, 176, 72) for i in range(4)],
        *[area('year%d' % (i + 1), 280, 190 + i * 120, 680, 52) for i in range(4)],
        BACK,
    ],
    'month': [
        area('title', 238, 102, 690, 38),
        area('question', 96, 166, 832, 30),
        BACK,
    ],
    'summary': [
        area('title', 206, 56, 434, 38),
        area('question', 64, 120, 576, 80),
        *[label('menuButton%d' % (i + 1), 64, 226 + i * 72, 576, 36) for i in range(3)],
        area('text1', 64, 424, 576, 80),
        label('progressDate', 64, 556, 400, 26),
        widget('progress', 64, 588, 400, 32),
        BACK,
        onward('menuButton4'),
    ],
    'hub': [
        area('dateHead', 56, 76, 312, 26, align=CENTRE),
        area('date', 56, 132, 312, 34, align=CENTRE),
        area('squadronHead', 196, 408, 432, 26),
        area('squadron', 64, 458, 564, 34),
        area('airport', 64, 494, 564, 26),
        area('pilot', 64, 522, 564, 44),
        area('count', 64, 576, 260, 26),
        area('figures', 326, 576, 302, 26, align=RIGHT),
        widget('menuButton1', 692, 28, 300, 66, lines=SIDE),
        widget('awaitReport', 692, 104, 300, 66, lines=SIDE),  # while orders are out
        *column(('diary', 'menuButton2', 'menuButton3', 'logbook', 'record'), 692, 188, 80, 300),
        BACK_WIDE,
        area('orders', 348, 694, 644, 24),
        area('note', 348, 718, 644, 46),
        widget('menuButton4', 692, 616, 300, 52, lines=SIDE),  # it ends the program
    ],
    'letter': [
        area('title', 178, 130, 400, 26, align=CENTRE),
        area('line2', 112, 190, 532, 352),
        BACK,
        widget('menuButton4', 248, 704, 200, 52, lines=RAIL),
        onward('menuButton3'),
    ],
    'orders': [
        area('title', 206, 56, 298, 38),
        label('date', 340, 108, 304, 30, align=RIGHT),
        area('line1', 64, 108, 270, 30),
        area('line2', 64, 142, 580, 100),
        area('line3', 64, 244, 580, 88),
        area('rosterHead', 64, 340, 220, 28),
        area('more', 290, 344, 94, 24),
        area('head1', 394, 344, 110, 24),
        area('head2', 506, 344, 120, 24, align=RIGHT),
        widget('roster', 64, 386, 580, 258),
        area('sector', 716, 36, 264, 24, align=CENTRE),
        widget('map', 716, 66, 264, 344),
        area('legend1', 716, 470, 268, 44),
        area('legend2', 716, 524, 268, 66),
        area('legend3', 716, 598, 268, 44),
        BACK,
        onward('menuButton4', 480),
    ],
    'wait': [
        area('title', 274, 76, 414, 38),
        label('date', 400, 130, 288, 30, align=RIGHT),
        area('line1', 132, 176, 556, 56),
        area('line2', 132, 244, 556, 54),
        area('watch', 132, 314, 556, 54),
        area('log', 132, 384, 556, 104),
        area('text1', 132, 504, 556, 104),
        widget('hand', 790, 134, 162, 162),
        BACK_WIDE,
        widget('lookNow', 362, 704, 300, 52, lines=RAIL),
        onward('menuButton4'),
    ],
    'report': [
        area('title', 44, 38, 330, 34),
        label('date', 748, 36, 232, 34, align=RIGHT),
        widget('nextSheet', 32, 704, 200, 52, lines=RAIL),
        area('sheetNumber', 244, 718, 120, 30),
        widget('where', 376, 704, 300, 52, lines=RAIL),
        onward('menuButton1'),
    ],
    'where': [
        area('title', 56, 44, 372, 38),
        label('date', 436, 46, 244, 32, align=RIGHT),
        widget('sketch', 56, 104, 624, 476),
        widget('scale', 56, 580, 160, 56),
        *[area('legend%d' % (i + 1), *rect) for i, rect in enumerate(
            ((254, 604, 124, 24), (254, 632, 124, 24), (408, 604, 144, 24), (408, 632, 156, 24), (588, 604, 92, 24)))],
        area('eventsHead', 744, 46, 244, 26),
        widget('event', 740, 86, 252, 462),
        area('guess', 744, 562, 246, 94),
        BACK_WIDE,
        onward('menuButton1'),
    ],
    'logbook': [
        area('title', 44, 30, 340, 38),
        area('name', 528, 36, 320, 26),
        area('pageNumber', 850, 38, 130, 24, align=RIGHT),
        *[area('head%d' % (i + 1), x, 84, w, 24) for i, (x, w) in enumerate(
            ((44, 34), (84, 100), (194, 140), (344, 150), (532, 180), (722, 190), (926, 52)))],
        area('totalLeft', 44, 620, 452, 26),
        area('totalRight', 532, 620, 448, 26),
        BACK,
        widget('earlier', 248, 704, 228, 52, lines=RAIL),
        widget('later', 490, 704, 228, 52, lines=RAIL),
        onward('webPage', 228),
        area('note', 44, 646, 936, 20),
    ],
    'advance': [
        area('title', 274, 76, 414, 38),
        area('line1', 132, 200, 556, 60),
        label('progressDate', 132, 300, 556, 30),
        widget('progress', 132, 340, 556, 36),
        onward('menuButton1'),
    ],
    'roster': [
        area('title', 206, 56, 410, 38),
        area('head1', 108, 110, 284, 22),
        area('head2', 394, 110, 100, 22, align=RIGHT),
        area('head3', 514, 110, 100, 22, align=RIGHT),
        widget('pilot', 64, 134, 552, 504),
        area('squadronHead', 658, 96, 310, 26),
        area('squadron', 658, 132, 310, 54),
        area('airport', 658, 192, 310, 28),
        widget('menuButton1', 32, 704, 200, 52, lines=RAIL),
    ],
    'aces': [
        area('title', 192, 150, 640, 38, align=CENTRE),
        area('head1', 220, 194, 316, 24),
        area('head2', 536, 194, 104, 24, align=RIGHT),
        area('head3', 642, 194, 98, 24, align=RIGHT),
        area('head4', 742, 194, 106, 24, align=RIGHT),
        widget('pilot', 172, 220, 680, 386),
        widget('menuButton1', 32, 704, 200, 52, lines=RAIL),
    ],
    'diary': [
        area('title', 44, 38, 340, 36),
        area('front', 528, 38, 190, 36),
        area('date', 720, 42, 260, 30, align=RIGHT),
        widget('entry', 44, 88, 452, 450),
        widget('news', 528, 88, 452, 234),
        area('realHead', 528, 340, 452, 26),
        widget('real', 528, 368, 452, 172),
        area('count', 44, 578, 300, 26),
        area('rest', 350, 578, 630, 26, align=RIGHT),
        BACK,
        onward('menuButton1'),
    ],
    'record': [
        area('title', 206, 54, 440, 38),
        area('name', 256, 112, 704, 34),
        area('unit', 256, 148, 704, 26),
        area('figures', 256, 174, 704, 26),
        area('ranksHead', 256, 206, 330, 26),
        area('ribbonsHead', 634, 206, 326, 26),
        *[area('rank%d' % (i + 1), 256, 236 + 24 * i, 370, 24) for i in range(3)],
        area('noMedal', 634, 236, 326, 68),
        *[area('medalText%d' % (i + 1), 60 + 182 * i, 486, 178, 66, align=CENTRE) for i in range(5)],
        area('victoriesHead', 64, 558, 400, 26),
        area('victoriesKinds', 540, 558, 420, 26, align=RIGHT),
        widget('victories', 64, 584, 896, 68),
        area('note', 64, 652, 896, 18),
        BACK,
        widget('logbook', 376, 704, 300, 52, lines=RAIL),
        onward('webPage'),
    ],
    'pilot': [
        area('title', 206, 54, 440, 38),
        area('name', 256, 112, 704, 34),
        area('unit', 256, 148, 704, 26),
        area('figures', 256, 174, 704, 26),
        area('real', 256, 204, 704, 68),
        area('serviceHead', 64, 342, 340, 26),
        area('victoriesHead', 420, 342, 540, 26),
        widget('file', 64, 370, 896, 286),
        BACK,
    ],
    'citation': [
        area('title', 136, 116, 440, 26, align=CENTRE),
        area('line1', 92, 168, 532, 28),
        area('line2', 92, 204, 532, 66),
        area('line3', 92, 284, 532, 294),
        area('signed', 92, 600, 300, 26),
        widget('record', 376, 704, 300, 52, lines=RAIL),
        onward('menuButton1'),
    ],
    'fallen': [
        area('title', 176, 116, 360, 26, align=CENTRE),
        area('line1', 92, 168, 532, 34),
        area('line2', 92, 206, 532, 386),
        area('signed', 92, 600, 320, 46),
        area('nextHead', 712, 514, 272, 26),
        area('next', 712, 556, 272, 100),
        widget('close', 32, 704, 300, 52, lines=RAIL),
        onward('menuButton1'),
    ],
    'warover': [
        area('title', 56, 112, 364, 38, align=CENTRE),
        area('date', 56, 172, 364, 28, align=CENTRE),
        *[area('text%d' % (i + 1), 56, 210 + i * 70, 364, 66) for i in range(3)],
        area('name', 56, 438, 364, 46),
        area('figures', 56, 484, 364, 134),
        area('boardHead', 540, 128, 400, 30, align=CENTRE),
        area('headHere', 760, 166, 116, 24, align=RIGHT),
        area('headReal', 878, 166, 66, 24, align=RIGHT),
        BACK_WIDE,
        widget('logbook', 376, 704, 300, 52, lines=RAIL),
        onward('webPage'),
    ],
    'settings': [
        area('title', 206, 56, 434, 38),
        *[widget('menuButton%d' % (i + 1), 140, 130 + i * 82, 392, 66) for i in range(3)],
        widget('sound', 128, 404, 416, 60),
        widget('fullScreen', 128, 468, 416, 60),
        *[widget('language%d' % (i + 1), 64 + i % 3 * 192, 542 + i // 3 * 56, 192, 52) for i in range(6)],
        BACK,
    ],
    'maps': [
        area('title', 724, 60, 256, 34),
        area('text1', 724, 112, 256, 46),
        area('text2', 724, 168, 256, 68),
        area('text3', 724, 246, 256, 46),
        widget('menuButton1', 700, 378, 296, 66),
        widget('menuButton2', 700, 464, 296, 66),
        BACK,
    ],
    'planes': [
        area('title', 332, 62, 362, 38),
        area('side', 694, 66, 150, 34, align=RIGHT),
        area('text1', 180, 122, 664, 28, align=CENTRE),
        BACK,
        onward('menuButton1'),
    ],
    'booklet': [
        area('title', 60, 52, 420, 34),
        area('title2', 550, 52, 290, 34),
        BACK,
        onward('menuButton1'),
    ],
    'notice': [
        area('formHead', 366, 86, 494, 38),
        area('title', 164, 160, 696, 28),
        BACK,
        onward('menuButton1'),
    ],
}


def colors(count):
    """That many colours, far from each other, none of them black."""
    return [tuple(round(255 * c) for c in colorsys.hsv_to_rgb(i / count, 1 - .35 * (i % 2), 1 - .25 * (i % 3)))
            for i in range(count)]


def check(name, elements):
    """Reports what can't be painted, and stops."""
    for i, (_, element, rect, _) in enumerate(elements):
        x, y, w, h = rect
        if any(v % SHRINK for v in rect) or x < 0 or y < 0 or x + w > SIZE[0] or y + h > SIZE[1]:
            raise SystemExit('%s: %s has odd figures, or reaches out of the screen: %s' % (name, element, rect))
        for _, other, (ox, oy, ow, oh), _ in elements[:i]:
            if x < ox + ow and ox < x + w and y < oy + oh and oy < y + h:
                raise SystemExit('%s: %s overlaps %s' % (name, element, other))


def write(folder, name, elements):
    check(name, elements)
    picked = colors(len(elements))
    image = Image.new('P', (SIZE[0] // SHRINK, SIZE[1] // SHRINK), 0)
    image.putpalette([0, 0, 0] + [c for color in picked for c in color])
    draw = ImageDraw.Draw(image)
    lines = ['layout ' + name, 'resolution %d %d' % SIZE]
    for i, (kind, element, (x, y, w, h), more) in enumerate(elements):
        box = [v // SHRINK for v in (x, y, x + w, y + h)]
        draw.rectangle([box[0], box[1], box[2] - 1, box[3] - 1], fill=i + 1)
        lines += ['%s %s' % (kind, element), 'pickcolor #%02x%02x%02x' % picked[i], *more]
    image.save(os.path.join(folder, name + '.png'), transparency=0, optimize=True)
    with open(os.path.join(folder, name + '.idx'), 'w', newline='\n') as file:
        file.write('\n'.join(lines) + '\n')


if __name__ == '__main__':
    if len(sys.argv) != 2:
        raise SystemExit(__doc__)
    for layout, painted in LAYOUTS.items():
        write(sys.argv[1], layout, painted)
