"""KMZ: archives that unpack to very much, of very many entries, that lie about them, or are broken."""

import os
import struct
import zlib

from .registry import add_file
from .snippets import MARK
from .zip_bytes import Entry, archive, deflated, end, handmade

DOCUMENT = f'<kml><Document>{MARK}</Document></kml>'.encode()
DOCUMENT_ENTRY = ('doc.kml', DOCUMENT)
LINE_BEGIN = '<kml><Document><Placemark><LineString><coordinates>'
LINE_END = '</coordinates></LineString></Placemark>'


def kmz(title, parts, *options, outcome='any'):
    add_file(f'{title}.kmz', parts, *options, outcome=outcome, plain=True)


def document(name=b'doc.kml', content=DOCUMENT, **claims):
    return Entry(name, content, **claims)


def places(repeated):
    return [(f'{i * 7919 % 180}.{i},{i * 104729 % 90}.{i} ', repeated) for i in range(60000)]


# --- Packed as usual
kmz('bomb of blanks', archive(lambda: [('doc.kml', [(' ', 1 << 30), DOCUMENT])]), outcome='refused')
kmz('bomb of 60 MB', archive(lambda: [('doc.kml', [(' ', 60 << 20), DOCUMENT])]), outcome='refused')
kmz('bomb of elements', archive(lambda: [('doc.kml', ['<kml><Document>', (MARK, 1000000)])]), outcome='refused')
kmz('dense below the limit', archive(lambda: [('doc.kml', [
    LINE_BEGIN, ('1,1 2,2 3,3 ' * 20 + '7,8 ', (60 << 20) // 246), LINE_END, '</Document></kml>'])]))
kmz('bomb of random places', archive(lambda: [('doc.kml', [LINE_BEGIN, places(60), LINE_END, '</Document></kml>'])]))
kmz('below: entry', archive(lambda: [('doc.kml', [
    LINE_BEGIN, places(40), LINE_END, (' ', 1000000), '</Document></kml>'])]))
kmz('below: entries', archive(lambda: [DOCUMENT_ENTRY, *((f'{i}' + 'n' * 700, 'x') for i in range(9999))]))
kmz('archive in an archive', archive(lambda: [('doc.kml', (zlib.compress(b'\0' * (64 << 20)), 1000))]))
kmz('entries 70000', archive(lambda: [DOCUMENT_ENTRY, *((f'{i}', 'x') for i in range(70000))]))
kmz('document behind 70000 entries', archive(lambda: [*((f'{i}', 'x') for i in range(70000)), DOCUMENT_ENTRY]),
    outcome='refused')
kmz('documents 9000', archive(lambda: [(f'{i}.kml', DOCUMENT) for i in range(9000)]))

# --- Entries that lie, or have odd names
kmz('long names', lambda: handmade(*(document(b'%05d' % i + b'n' * 60000 + b'.kml') for i in range(100))))
kmz('table 100 MB', handmade(document(), repeat_rows=1900000), outcome='refused')
kmz('overlap', handmade(document(), repeat_rows=2), outcome='refused')
kmz('lies about its size', lambda: handmade(document(
    method=8, packed=deflated(b' ' * (200 << 20)), size=100)), outcome='refused')
kmz('claims 4 GB', handmade(document(size=0xfffffffe)), outcome='refused')
kmz('claims a wrong checksum', handmade(document(crc=1)), outcome='refused')
kmz('claims 4 GB packed', handmade(document(packed_size=0xfffffffe)), outcome='refused')
kmz('encrypted', handmade(document(flags=1)), outcome='refused')
for number in (1, 9, 12, 14, 93, 95, 98, 99):
    kmz(f'method {number}', handmade(document(method=number)), outcome='refused')
kmz('name with NUL', handmade(document(b'a\0b/../../doc.kml')))
kmz('name outside', handmade(document(b'../../../etc/doc.kml')))
kmz('name that terminals obey', handmade(document(b'\x1b[2J\n\xc2\x9bx.kml', crc=1)), outcome='refused')
kmz('names that terminals obey', handmade(document(), document(b'\x1b[2J\n\xc2\x9bx.kml')), '--verbose')
kmz('name alone', handmade(document(b'.kml')))
kmz('name missing', handmade(document(b'')), outcome='refused')
kmz('names equal', handmade(document(), document(content=b'<kml/>')))
kmz('folder as a document', handmade(document(b'doc.kml/', b'')), outcome='refused')

# --- Broken tables and ends
BODY, ROW = document().body(), document().row()
WIDE_END = end(0xffff, 0xffffffff, 0xffffffff)
kmz('comment with an end', handmade(document(), comment=b'x' * 100 + end(1, 53, 0) + b'y' * 200))
kmz('comment of ends', handmade(document(), comment=end(1, 53, 0) * 2978))
kmz('table cut', [BODY, ROW[:30], end(1, 30, len(BODY))], outcome='refused')
kmz('table beyond the end', [BODY, end(1, 0xfffffff0, 0xfffffff0)], outcome='refused')
kmz('end cut', [BODY, ROW], outcome='refused')
kmz('wide end to nowhere', [BODY, ROW, struct.pack('<4sIQI', b'PK\6\7', 0, (1 << 64) - 8, 1), WIDE_END],
    outcome='refused')
kmz('wide numbers', [
    BODY, ROW, struct.pack('<4sQHHIIQQQQ', b'PK\6\6', 44, 45, 45, 0, 0, 1 << 63, 1 << 63, 1 << 63, 1 << 63),
    struct.pack('<4sIQI', b'PK\6\7', 0, len(BODY + ROW), 1), WIDE_END], outcome='refused')
kmz('garbage before', ['x' * 1000, handmade(document())])
kmz('garbage behind', [handmade(document()), 'x' * 1000], outcome='refused')
kmz('deflate broken', handmade(document(method=8, packed=b'\xff' * 1000)), outcome='refused')

# --- Other entries
kmz('archive as a document', archive(lambda: [('doc.kml', handmade(document()))]), outcome='refused')
kmz('entries of no bytes 65000', archive(lambda: [DOCUMENT_ENTRY, *((f'{i}.kml', []) for i in range(65000))]))
kmz('icons 9000', archive(lambda: [*((f'files/{i}.png', (os.urandom(100), 10)) for i in range(9000)), DOCUMENT_ENTRY]))
kmz('no archive 100 MB of ends', (b'PK\5\6', 25 << 20), outcome='refused')
