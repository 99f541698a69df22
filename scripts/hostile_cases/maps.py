"""What a map is drawn from: pictures and tiles, huge, broken or endless."""

import os
import sqlite3
import struct
import zlib

from .registry import add
from .snippets import write_track
from .writing import as_bytes, write


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


def tiff_of_a_tile(width, height):
    """Ten pixels a side, in the corner of a tile."""
    def parts():
        tile = packed_zeroes(width * height >> 20)
        tags = ((256, 10), (257, 10), (258, 8), (259, 8), (262, 1), (277, 1), (322, width), (323, height), (324, 134),
                (325, len(tile)))
        return [b'II*\0', struct.pack('<IH', 8, len(tags)), [struct.pack('<HHII', tag, 4, 1, value)
                                                            for tag, value in tags], b'\0' * 4, tile]
    return parts


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


def tiles(title, tile=None, view=None, metadata=()):
    """The tile (parts) everywhere, or what the view shows; metadata of names and parts."""
    def create(path):
        with sqlite3.connect(path) as database:
            database.execute('CREATE TABLE metadata (name TEXT, value TEXT)')
            database.executemany('INSERT INTO metadata VALUES (?, ?)', (
                (key, as_bytes(value).decode()) for key, value in [('format', 'png'), *metadata]))
            if view:
                database.execute(f'CREATE VIEW tiles AS {view}')
            else:
                database.execute('CREATE TABLE tiles (zoom_level INTEGER, tile_column INTEGER, tile_row INTEGER, '
                                 'tile_data BLOB)')
                content = as_bytes(tile)
                database.executemany('INSERT INTO tiles VALUES (?, ?, ?, ?)', (
                    (zoom, x, y, content) for zoom in range(6) for x in range(2 ** zoom) for y in range(2 ** zoom)))
        database.close()
    add_map(title, '--tiles', 'map.mbtiles', create, 'any')


tiles('tiles PNG 30000 x 30000', png(30000, 30000, 2))
tiles('tiles PNG 2000 x 2000', png(2000, 2000, 12))
tiles('tiles SVG', '<svg xmlns="http://www.w3.org/2000/svg" width="60000" height="60000"/>')
tiles('tiles of nothing', '')
tiles('tiles in a view without end', view=(
    'WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n) '
    'SELECT i AS zoom_level, i AS tile_column, i AS tile_row, NULL AS tile_data FROM n WHERE i < 0'))
tiles('tiles of 500 MB', view=(
    'SELECT 5 AS zoom_level, 16 AS tile_column, 21 AS tile_row, zeroblob(500000000) AS tile_data'))
tiles('metadata of 100 MB', png(256, 256, 0), metadata=[('attribution', ('a', 100000000))])
tiles('metadata that terminals obey', png(256, 256, 0), metadata=[('attribution', '\x1b[2J\u009b')])
add_map('tiles pipe', '--tiles', 'map', os.mkfifo, 'refused')
add_map('tiles random', '--tiles', 'map.mbtiles', lambda path: path.write_bytes(os.urandom(100000)), 'refused')
