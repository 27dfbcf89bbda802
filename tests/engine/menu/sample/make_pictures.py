"""Draws the pictures, the painted layout and the sound of the sample program.

Run it in this folder after a change; the results are kept beside the scripts.
Nothing but Python's own library is needed.
"""
import math
import struct
import wave
import zlib


def write_png(name, width, height, pixel):
    """pixel(x, y) gives red, green, blue, alpha."""
    rows = bytearray()
    for y in range(height):
        rows.append(0)
        for x in range(width):
            rows += bytes(pixel(x, y))

    def chunk(kind, content):
        data = kind + content
        return struct.pack('>I', len(content)) + data + struct.pack('>I', zlib.crc32(data))

    with open(name, 'wb') as file:
        file.write(b'\x89PNG\r\n\x1a\n')
        file.write(chunk(b'IHDR', struct.pack('>IIBBBBB', width, height, 8, 6, 0, 0, 0)))
        file.write(chunk(b'IDAT', zlib.compress(bytes(rows), 9)))
        file.write(chunk(b'IEND', b''))


def desk(x, y):
    light = 70 - y // 8 + (4 if (x // 16 + y // 16) % 2 else 0)
    return light, light // 2 + 10, light // 4 + 8, 255


def sheet(x, y):
    edge = min(x, y, 159 - x, 119 - y)
    if edge < 4:
        return 120, 96, 60, 255
    return 232, 220, 188, 255


PLATES = [(196, 160, 90), (120, 112, 100), (232, 200, 120), (150, 110, 60)]


def plates(x, y):
    """Four plates of 120 by 32, one below the other: rest, inactive, over, down."""
    red, green, blue = PLATES[min(y // 32, 3)]
    row = y % 32
    edge = min(x, row, 119 - x, 31 - row)
    if edge == 0:
        return 40, 24, 10, 255
    shade = 30 if row < 4 else -30 if row > 27 else 0
    return tuple(max(0, min(255, value + shade)) for value in (red, green, blue)) + (255,)


def glow(x, y):
    far = math.hypot(x - 64, y - 48) / 80
    return 0, 0, 0, min(200, int(200 * max(0.0, far - 0.5)))


def frame(x, y):
    edge = min(x, y, 99 - x, 74 - y)
    return 255, 240, 200, 255 if 1 <= edge <= 2 else 0


# The places of the screen "Painted", in quarter design pixels.
PAINTED = [
    (8, 8, 112, 12, (255, 0, 0)),
    (8, 28, 80, 100, (0, 255, 0)),
    (168, 40, 80, 12, (0, 0, 255)),
    (168, 60, 80, 12, (255, 255, 0)),
    (8, 176, 50, 12, (255, 0, 255)),
]


def painted(x, y):
    for left, top, width, height, color in PAINTED:
        if left <= x < left + width and top <= y < top + height:
            return color + (255,)
    return 0, 0, 0, 0


def write_click(name):
    with wave.open(name, 'wb') as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(11025)
        for i in range(220):
            loud = 12000 * math.exp(-i / 30)
            file.writeframes(struct.pack('<h', int(loud * math.sin(i * 0.9))))


write_png('Pictures/desk.png', 256, 192, desk)
write_png('Pictures/sheet.png', 160, 120, sheet)
write_png('Pictures/plates.png', 120, 128, plates)
write_png('Pictures/glow.png', 128, 96, glow)
write_png('Pictures/frame.png', 100, 75, frame)
write_png('Pictures/clear.png', 1, 1, lambda x, y: (0, 0, 0, 0))
write_png('Layouts/painted.png', 256, 192, painted)
write_click('Sounds/click.wav')
