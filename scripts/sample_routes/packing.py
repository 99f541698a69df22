"""Pictures and archives whose bytes do not depend on the version of zlib."""

import io
import math
import zipfile
import zlib


def dot_png(size, rrggbb):
    """A dot with a white rim on nothing, in RGBA.

    Its bytes are stored, not packed: what packing makes of them depends on the version of zlib.
    """
    color = bytes.fromhex(rrggbb)
    rows = b''
    for y in range(size):
        rows += b'\0'
        for x in range(size):
            radius = 2 * math.hypot(x + 0.5 - size / 2, y + 0.5 - size / 2) / size
            rows += color + b'\xff' if radius < 0.7 else b'\xff\xff\xff\xff' if radius < 1.0 else bytes(4)

    def chunk(kind, content):
        checksum = zlib.crc32(kind + content)
        return len(content).to_bytes(4, 'big') + kind + content + checksum.to_bytes(4, 'big')

    length = len(rows).to_bytes(2, 'little')
    inverted = (len(rows) ^ 0xffff).to_bytes(2, 'little')
    packed = b'\x78\x01\x01' + length + inverted + rows + zlib.adler32(rows).to_bytes(4, 'big')
    header = size.to_bytes(4, 'big') * 2 + bytes([8, 6, 0, 0, 0])
    return b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', header) + chunk(b'IDAT', packed) + chunk(b'IEND', b'')


def kmz(entries):
    """An archive of (name, bytes), stored and all of the same date, so that its bytes are always the same."""
    archive = io.BytesIO()
    with zipfile.ZipFile(archive, 'w', zipfile.ZIP_STORED) as target:
        for name, content in entries:
            entry = zipfile.ZipInfo(name, date_time=(2025, 5, 17, 12, 0, 0))
            entry.create_system = 3
            entry.external_attr = 0o644 << 16
            target.writestr(entry, content)
    return archive.getvalue()
