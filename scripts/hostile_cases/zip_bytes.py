"""Archives, packed as usual or made by hand to say what is not true."""

import io
import struct
import zipfile
import zlib
from typing import NamedTuple

from .writing import write_into


def archive(entries):
    """Of the pairs of a name and parts (see writing) that entries() returns."""
    def content():
        packed = io.BytesIO()
        with zipfile.ZipFile(packed, 'w', zipfile.ZIP_DEFLATED) as file:
            for name, parts in entries():
                with file.open(name, 'w') as entry:
                    write_into(entry, parts)
        return packed.getvalue()
    return content


class Entry(NamedTuple):
    """What its header claims; by default what is true."""
    name: bytes
    content: bytes
    method: int = 0
    packed: bytes = None
    crc: int = None
    size: int = None
    packed_size: int = None
    flags: int = 0

    def fields(self):
        """Those that the header shares with the row in the table."""
        packed = self.packed_bytes()
        return (20, self.flags, self.method, 0, 33, zlib.crc32(self.content) if self.crc is None else self.crc,
                len(packed) if self.packed_size is None else self.packed_size,
                len(self.content) if self.size is None else self.size, len(self.name), 0)

    def packed_bytes(self):
        return self.content if self.packed is None else self.packed

    def body(self):
        return struct.pack('<4s5HIIIHH', b'PK\3\4', *self.fields()) + self.name + self.packed_bytes()

    def row(self, offset=0):
        return struct.pack('<4s6HIIIHHHHHII', b'PK\1\2', 20, *self.fields(), 0, 0, 0, 0, offset) + self.name


def end(count, table_size, table_offset, comment=b''):
    return struct.pack('<4s4HIIH', b'PK\5\6', 0, 0, count & 0xffff, count & 0xffff, table_size & 0xffffffff,
                       table_offset & 0xffffffff, len(comment)) + comment


def handmade(*entries, comment=b'', repeat_rows=1):
    """The parts of an archive."""
    bodies, rows, offset = [], [], 0
    for entry in entries:
        bodies.append(entry.body())
        rows.append((entry.row(offset), repeat_rows))
        offset += len(bodies[-1])
    table_size = sum(len(row) * count for row, count in rows)
    return [bodies, rows, end(len(entries) * repeat_rows, table_size, offset, comment)]


def deflated(content):
    packer = zlib.compressobj(9, zlib.DEFLATED, -15)
    return packer.compress(content) + packer.flush()
