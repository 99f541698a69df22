"""Names that harm terminals, or what does not expect them."""

import os
from pathlib import Path

from .registry import add


def add_name(title, name):
    """A file of that name (bytes), in which there is nothing to read."""
    def make(folder):
        path = Path(os.fsdecode(os.fsencode(folder) + b'/' + name))
        path.write_bytes(b'<gpx')
        return path
    add(title, make, outcome='refused')


add_name('name that terminals obey', 'a\n\x1b[2J\u009b31m\u202e.gpx'.encode())
add_name('name that is no text', b'\xff\xfe\x1b[2J.gpx')
add_name('name of 250 characters', b'a' * 250 + b'.gpx')
