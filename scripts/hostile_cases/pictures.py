"""Pictures below a map, huge, broken or made to keep a decoder busy."""

import os
import struct
import zlib

from .registry import add
from .snippets import write_track
from .writing import write


def add_map(title, option, name, create, outcome):
    """A track on the map that create() makes at the path that it gets."""
    def make(folder):
        create(folder / name)
        return write_track(folder)
    add(title, make, option, f'{{folder}}/{name}', outcome=outcome)


def picture(title, parts, outcome='refused'):
    add_map(title, '--map', 'map', lambda path: write(path, parts), outcome)


def png_chunk(kind, content):
    return struct.pack('>I', len(content)) + kind + content + struct.pack('>I', zlib.crc32(kind + content))


def packed_zeroes(megabytes):
    packer = zlib.compressobj(9)
    return b''.join(packer.compress(b'\0' * (1 << 20)) for _ in range(megabytes)) + packer.flush()


def png(width, height, megabytes, depth=8, color=2, before=''):
    """Of megabytes of nothing, packed; before are chunks that come before them."""
    return lambda: [b'\x89PNG\r\n\x1a\n',
                    png_chunk(b'IHDR', struct.pack('>IIBBBBB', width, height, depth, color, 0, 0, 0)), before,
                    png_chunk(b'IDAT', packed_zeroes(megabytes)), png_chunk(b'IEND', b'')]


def tiff(tags, content=''):
    """Of tags with a type, a number of values, and one value or where they are; content begins at tiff_content()."""
    return [b'II*\0', struct.pack('<IH', 8, len(tags)), [struct.pack('<HHII', *tag) for tag in sorted(tags)], b'\0' * 4,
            content]


def tiff_content(tags):
    return 8 + 2 + 12 * tags + 4


def tiff_of_a_tile(width, height):
    """Ten pixels a side, in the corner of a tile."""
    def parts():
        tile = packed_zeroes(width * height >> 20)
        tags = ((256, 10), (257, 10), (258, 8), (259, 8), (262, 1), (277, 1), (322, width), (323, height),
                (324, tiff_content(10)), (325, len(tile)))
        return tiff([(tag, 4, 1, value) for tag, value in tags], tile)
    return parts


def tiff_of_a_strip(width, height, samples, megabytes, *further):
    """Of megabytes of nothing, packed, in samples of a byte; further tags."""
    def parts():
        strip = packed_zeroes(megabytes)
        tags = ((256, width), (257, height), (258, 8), (259, 8), (262, 1), (273, tiff_content(9 + len(further))),
                (277, samples), (278, height), (279, len(strip)))
        return tiff([(tag, 4, 1, value) for tag, value in tags] + list(further), strip)
    return parts


def sparse(title, head, megabytes, outcome='refused'):
    """The head, and nothing behind it, which takes no room on the disk."""
    def create(path):
        write(path, head)
        os.truncate(path, megabytes << 20)
    add_map(title, '--map', 'map', create, outcome)


def jpeg_segment(marker, content):
    return b'\xff' + bytes([marker]) + struct.pack('>H', len(content) + 2) + content


def jpeg(side, scans, components=3, before=''):
    """Progressive, of nothing; scans behind the first go over one component and change nothing."""
    blocks = (side + 7) // 8 * ((side + 7) // 8)
    runs = -(-blocks // 32767)  # of blocks in which nothing changes, each a code of one bit and 14 of their number
    bits = ('0' + '1' * 14) * runs
    bits += '0' * (-len(bits) % 8)
    nothing = int(bits, 2).to_bytes(len(bits) // 8, 'big').replace(b'\xff', b'\xff\0')

    def scan(i):
        bit = 0x01 if i < components else 0x10
        return jpeg_segment(0xda, bytes([1, i % components + 1, 0, 1, 63, bit])) + nothing

    first = bytes([components]) + b''.join(bytes([i + 1, 0]) for i in range(components)) + b'\0\0\1'
    return lambda: [b'\xff\xd8', before, jpeg_segment(0xdb, b'\0' + b'\1' * 64),
                    jpeg_segment(0xc2, struct.pack('>BHHB', 8, side, side, components) + b''.join(
                        bytes([i + 1, 0x11, 0]) for i in range(components))),
                    jpeg_segment(0xc4, b'\0\1' + b'\0' * 16), jpeg_segment(0xc4, b'\x10\1' + b'\0' * 15 + b'\xe0'),
                    jpeg_segment(0xda, first), b'\0' * (blocks * components // 8 + 1),
                    [scan(i) for i in range(scans - 1)], b'\xff\xd9']


def svg(width, height, *contents):
    return [f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}">', *contents, '</svg>']


picture('picture PNG 60000 x 60000', png(60000, 60000, 200))
picture('picture PNG 20000 x 20000', png(20000, 20000, 1200))
picture('picture PNG 20000 x 20000 in black and white', png(20000, 20000, 50, 1, 0))
picture('picture PNG of 2 billion rows', png(1, 2000000000, 1))
for count, length, outcome in ((200, 8 << 20, 'refused'), (10, 7900000, 'read')):
    picture(f'picture PNG of {count} long texts', png(10, 10, 1, before=lambda count=count, length=length: (
        png_chunk(b'zTXt', b'a\0\0' + zlib.compress(b'a' * length)), count)), outcome=outcome)
picture('picture PNG of many chunks', png(10, 10, 1, before=lambda: (png_chunk(b'abCd', b''), 20000000)))
picture('picture BMP 60000 x 60000', b'BM' + struct.pack('<IHHI', 54, 0, 0, 54) + struct.pack(
    '<IiiHHIIiiII', 40, 60000, 60000, 1, 24, 0, 0, 0, 0, 0, 0))
picture('picture TIFF of huge tiles', tiff_of_a_tile(40000, 20000))
picture('picture PBM 60000 x 60000', 'P4\n60000 60000\n')
picture('picture GIF 65000 x 65000', b'GIF89a' + struct.pack('<HHBBB', 65000, 65000, 0x80, 0, 0) + b'\0' * 6 + b','
        + struct.pack('<HHHHB', 0, 0, 65000, 65000, 0) + b'\2\2\x4c\1\0;')
picture('picture SVG of a huge size', svg(60000, 60000, '<rect width="9" height="9"/>'))
picture('picture SVG of uses', [
    '<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="100" height="100"><defs>'
    '<g id="a0"><rect width="9" height="9"/></g>',
    [f'<g id="a{i + 1}">' + f'<use xlink:href="#a{i}"/>' * 10 + '</g>' for i in range(9)],
    '</defs><use xlink:href="#a9"/></svg>'])
picture('picture SVG of levels', svg(100, 100, ('<g>', 100000), ('</g>', 100000)))
picture('picture XPM', '/* XPM */\nstatic char *a[] = {\n"60000 60000 2 1",\n"a c #000000",\n"b c #ffffff",\n')
picture('picture ICO', struct.pack('<HHH', 0, 1, 65535) + b'\xff' * 100000)
picture('picture of nothing', '')
picture('picture of blanks 900 MB', (' ', 900 << 20))
add_map('picture pipe', '--map', 'map', os.mkfifo, 'refused')
add_map('picture device', '--map', 'map', lambda path: path.symlink_to('/dev/zero'), 'refused')
picture('picture PNG 8000 x 8000 of 16 bits', png(8000, 8000, 490, 16, 6))
picture('picture PNG 7400 x 7400 of 16 bits', png(7400, 7400, 418, 16, 6), 'read')
picture('picture PNG 7400 x 7400 of 16 bits with long texts', png(7400, 7400, 418, 16, 6, before=lambda: (
    png_chunk(b'zTXt', b'a\0\0' + zlib.compress(b'a' * 7900000)), 10)))
picture('picture TIFF of 1000 samples', tiff_of_a_strip(1000, 1000, 1000, 960))
picture('picture TIFF of a strip', tiff_of_a_strip(10000, 6000, 1, 58), 'read')
picture('picture TIFF of shared profiles', tiff_of_a_strip(10, 10, 1, 1, *((tag, 7, 1 << 20, 8)
                                                                         for tag in range(50000, 52000))))
sparse('picture TIFF of many strips', tiff([
    (256, 4, 1, 1), (257, 4, 1, 60000000), (258, 4, 1, 8), (259, 4, 1, 1), (262, 4, 1, 1), (273, 4, 60000000, 300),
    (277, 4, 1, 1), (278, 4, 1, 1), (279, 4, 60000000, 300)]), 250)
for kind, first in (('JPEG', b'\xff\xd8\xff'), ('BMP', b'BM'), ('GIF', b'GIF89a\n\0\n\0\0\0\0'),
                    ('WebP', b'RIFF\xf6\xff\xff\x0fWEBPVP8X\n\0\0\0\2\0\0\0\x0f\0\0\x0f\0\0ANIM\6\0\0\0' + b'\0' * 6)):
    sparse(f'picture {kind} of 250 MB of nothing', first, 250)
    sparse(f'picture {kind} of 3900 MB of nothing', first, 3900)
picture('picture JPEG of 500 MB of profiles', [b'\xff\xd8', (jpeg_segment(0xe2, b'\0' * 65533), 8000)])
picture('picture JPEG of short comments', jpeg(10, 1, before=(jpeg_segment(0xfe, b'a: b'), 1000000)))
picture('picture JPEG 8000 x 8000 of 99 scans', jpeg(8000, 99))
picture('picture JPEG 8000 x 8000 of 3 scans', jpeg(8000, 3))
picture('picture JPEG 6600 x 6600 of 25 scans', jpeg(6600, 25), 'read')
picture('picture JPEG 6000 x 6000 of four colours', jpeg(6000, 30, 4), 'read')
