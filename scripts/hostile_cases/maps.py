"""Tiles that a map is drawn from, huge, broken or endless."""

import os
import sqlite3
import zlib

from .pictures import add_map, jpeg, png, png_chunk
from .writing import as_bytes


def tiles(title, tile=None, view=None, metadata=(), before=(), outcome='any'):
    """The tile (parts) everywhere, or what the view shows; metadata of names and parts; statements before all that."""
    def create(path):
        with sqlite3.connect(path) as database:
            for statement in before:
                database.execute(statement)
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
    add_map(title, '--tiles', 'map.mbtiles', create, outcome)


def tiles_of(title, value, *before, rows=''):
    """Tiles everywhere that are that value (SQL), which may use the numbers z, x and y and the table n of numbers."""
    tiles(title, view=f'SELECT z AS zoom_level, x AS tile_column, y AS tile_row, {value} AS tile_data FROM t {rows}',
          before=('CREATE TABLE n (i)', *(f'INSERT INTO n VALUES ({i})' for i in range(32)),
                  'CREATE TABLE t (z, x, y)', 'INSERT INTO t SELECT z.i, x.i, y.i FROM n z, n x, n y '
                  'WHERE z.i < 6 AND x.i < 1 << z.i AND y.i < 1 << z.i',
                  'CREATE INDEX levels ON t (z, x, y)', *before), outcome='refused')


def views(*counts):
    """Each shows the one before so many times, the last one all of that."""
    part = 'SELECT 1 AS i'
    for number, count in enumerate(counts):
        yield f'CREATE VIEW v{number} AS ' + ' UNION ALL '.join([part] * count)
        part = f'SELECT i FROM v{number}'


def nested(value, count, limit='LIMIT 1'):
    """A query for a value that is made out of itself so many times."""
    query = "SELECT 'abcdefgh' AS a"
    for _ in range(count):
        query = f'SELECT {value} AS a FROM ({query}) {limit}'
    return query


def tiles_beside(title, suffix, create_beside):
    def create(path):
        with sqlite3.connect(path) as database:
            database.execute('CREATE TABLE tiles (zoom_level, tile_column, tile_row, tile_data)')
        database.close()
        create_beside(path.with_name(path.name + suffix))
    add_map(title, '--tiles', 'map.mbtiles', create, 'refused')


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
LONG = nested('||'.join('a' * 8), 7)  # 16 MB
for title, value in (
        ('a search', "instr(zeroblob(15000000), zeroblob(7000000) || x'01' || x)"),
        ('a pattern with LIKE', "hex(zeroblob(7000000)) LIKE '%' || replace(hex(zeroblob(10000)), '00', '0_') || x"),
        ('a pattern with GLOB', "replace(hex(zeroblob(7000000)), '0', 'aa') GLOB '*' || hex(zeroblob(9000)) || x"),
        ('many long values', 'length(max(' + ','.join(f"zeroblob(15000000) || '{i}' || x" for i in range(100)) + '))'),
        ('many long texts', '(SELECT length(max(' + ','.join(
            f'a || {i} || x' for i in range(100)) + f')) FROM ({LONG}))'),
        ('long texts in a row', '(SELECT count(*) FROM (SELECT a || m.i || n.i AS b FROM n, n m, '
         f'({LONG}) ORDER BY b))'),
        ('long texts that are compared', f'(SELECT 1 FROM n, n m, n l, n k, ({LONG}) WHERE n.i || a || m.i = k.i || a '
         '|| l.i || 1)'),
        ('much that is joined', '(SELECT group_concat(zeroblob(1000000) || m.i) FROM n, n m)'),
        ('long sorting', "(SELECT b FROM (SELECT 'abcdefgh' || m.i || l.i || k.i || n.i AS b FROM n, n m, n l, n k "
         'ORDER BY b) LIMIT 1)'),
        ('many rows each', '(SELECT 1 FROM n, n m, n l, n k, n j WHERE n.i + m.i + l.i + k.i + j.i + x < 0)'),
        ('some rows each', "coalesce((SELECT 1 FROM n, n m, n l, n k WHERE n.i + m.i + l.i + k.i + x < 0), 'a')"),
        ('json', "(SELECT value FROM json_each('[1, 2]'))"),
        ('pragmas', '(SELECT integrity_check FROM pragma_integrity_check)')):
    tiles_of(f'tiles of {title}', value)
for title, counts in (('many rows', (450, 40, 40, 5)), ('some rows', (40, 40, 40, 40, 40)), ('few', (2,) * 40)):
    tiles_of(f'tiles of views that multiply, {title}', f'(SELECT i FROM v{len(counts) - 1} LIMIT 1)', *views(*counts))
tiles_of('tiles of queries that multiply', f"({nested('+'.join('a' * 100), 10, '')})")
tiles_of('tiles of conditions that multiply', f"({nested('(a = 1 OR a = 2)', 10, '')})")
tiles_of('tiles of many joins', 'v.d', 'CREATE VIEW j AS SELECT 1 AS d FROM ' + ', '.join(
    f't t{i}' for i in range(60)) + ' WHERE ' + ' AND '.join(
        f'(t{i}.z = t{i + 1}.x OR t{i}.x = t{i + 1}.y OR t{i}.y = t{i + 3}.x)' for i in range(55)),
         *('CREATE VIEW ' + name + ' AS ' + ' UNION ALL '.join([f'SELECT d FROM {of}'] * 40)
           for name, of in (('k0', 'j'), ('k1', 'k0'))),
         rows=', k1 AS v')
for title, suffix, create_beside in (
        ('pipe as its journal', '-journal', os.mkfifo), ('pipe as its log', '-wal', os.mkfifo),
        ('folder as its journal', '-journal', os.mkdir),
        ('device as its log', '-wal', lambda path: path.symlink_to('/dev/zero'))):
    tiles_beside(f'tiles with a {title}', suffix, create_beside)
tiles('tiles of 500 MB', view=(
    'SELECT 5 AS zoom_level, 16 AS tile_column, 21 AS tile_row, zeroblob(500000000) AS tile_data'))
tiles('metadata of 100 MB', png(256, 256, 0), metadata=[('attribution', ('a', 100000000))])
tiles('metadata that terminals obey', png(256, 256, 0), metadata=[('attribution', '\x1b[2J\u009b')])
add_map('tiles pipe', '--tiles', 'map', os.mkfifo, 'refused')
add_map('tiles random', '--tiles', 'map.mbtiles', lambda path: path.write_bytes(os.urandom(100000)), 'refused')
