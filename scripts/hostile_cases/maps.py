"""Tiles that a map is drawn from, huge, broken or endless."""

import os
import sqlite3
import zlib

from .pictures import add_map, jpeg, png, png_chunk
from .writing import as_bytes


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
tiles('tiles PNG 1000 x 1000 of 16 bits', png(1000, 1000, 8, 16, 6))
tiles('tiles PNG of long texts', png(256, 256, 1, before=lambda: png_chunk(
    b'zTXt', b'a\0\0' + zlib.compress(b'a' * 7900000))))
tiles('tiles JPEG of 99 scans', jpeg(1024, 99))
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
