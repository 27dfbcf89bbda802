"""The program's icon in the form that Windows wants: windows_icon.py PICTURES RESULT.

PICTURES is the folder with icon.png and icon_256.png. The small sizes are stored plainly, since the
older parts of Windows read nothing else; the large one is a PNG file.
"""
import io
import struct
import sys

from PIL import Image


def plain(image):
    """A bitmap as icons hold it: from the bottom up, blue first, the mask of one bit left empty
    since the alpha channel has everything."""
    size = image.width
    header = struct.pack('<IiiHHIIiiII', 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    pixels = image.transpose(Image.Transpose.FLIP_TOP_BOTTOM).tobytes('raw', 'BGRA')
    return header + pixels + bytes((size + 31) // 32 * 4 * size)


def packed(image):
    out = io.BytesIO()
    image.save(out, 'PNG', optimize=True)
    return out.getvalue()


def icon(images):
    """The file: a directory of six bytes and sixteen an image, then the images."""
    directory, bodies = struct.pack('<HHH', 0, 1, len(images)), b''
    for image in images:
        body = packed(image) if image.width == 256 else plain(image)
        directory += struct.pack('<BBBBHHII', image.width % 256, image.height % 256, 0, 0, 1, 32,
                                 len(body), 6 + 16 * len(images) + len(bodies))
        bodies += body
    return directory + bodies


def main(pictures, result):
    small = Image.open(pictures + '/icon.png').convert('RGBA')
    large = Image.open(pictures + '/icon_256.png').convert('RGBA')
    images = [small.resize((16, 16), Image.Resampling.BOX), small,
              large.resize((48, 48), Image.Resampling.LANCZOS), large]
    with open(result, 'wb') as file:
        file.write(icon(images))


main(*sys.argv[1:])
