"""What has the name of a file that can be read, and is none, or holds nothing that could be read."""

import os
from pathlib import Path

from .registry import add_path
from .writing import PIECE, write


def sparse(size):
    """Size bytes that take no room on the disk."""
    def create(path):
        path.touch()
        os.truncate(path, size)
    return create


CREATE = {
    'pipe': os.mkfifo,
    'folder': Path.mkdir,
    'device': lambda path: path.symlink_to('/dev/zero'),
    'loop': lambda path: path.symlink_to(path),
    'missing': lambda path: None,
    'sparse 5-GB': sparse(5 << 30),
    'sparse 3-GB': sparse(3 << 30),
    'sparse 60-MB': sparse(60 << 20),
    'empty': Path.touch,
    'random': lambda path: write(path, (os.urandom(PIECE), 20)),
}

for suffix in ('gpx', 'kml', 'kmz', 'krroute'):
    for title, create in CREATE.items():
        add_path(f'{title}.{suffix}', create, outcome='refused')
