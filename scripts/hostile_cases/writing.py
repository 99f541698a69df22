"""Writes large files of parts, without holding them in memory.

A part is a text, bytes, a pair of a part and how often it is repeated, a list of parts, or a function that returns
one of these when it is needed. What is repeated is held in memory once.
"""

import datetime
import random

PIECE = 1 << 20  # bytes of a file that are written at once


def units(part):
    """The part as pairs of bytes and how often they are repeated."""
    if callable(part):
        yield from units(part())
    elif isinstance(part, bytes):
        yield part, 1
    elif isinstance(part, str):
        yield part.encode(), 1
    elif isinstance(part, tuple):
        repeated, count = part
        yield as_bytes(repeated), count
    else:
        for inner in part:
            yield from units(inner)


def as_bytes(part):
    return b''.join(unit * count for unit, count in units(part))


def write(path, part):
    with open(path, 'wb') as file:
        write_into(file, part)


def write_into(file, part):
    for unit, count in units(part):
        at_once = max(1, PIECE // max(1, len(unit)))
        for first in range(0, count, at_once):
            file.write(unit * min(at_once, count - first))


def numbered(text, count, first=0):
    """The text count times, "%d" in it replaced by a number."""
    return lambda: (text.replace('%d', str(i)) for i in range(first, first + count))


def scattered(text, count):
    """The text count times, "%a" and "%b" in it replaced by parts of a degree; the same in every run."""
    def texts():
        chance = random.Random(4711)
        for _ in range(count):
            yield (text.replace('%a', str(chance.randrange(100000, 999999)))
                   .replace('%b', str(chance.randrange(100000, 999999))))
    return texts


def second_by_second(text, count):
    """The text count times, "%t" in it replaced by a date and a time of the clock, one second after the other."""
    def texts():
        time = datetime.datetime(2024, 5, 1)
        for _ in range(count):
            yield text.replace('%t', time.isoformat())
            time += datetime.timedelta(seconds=1)
    return texts


def at_random_hours(text, count):
    """The same with times of any hour from 1971 to 2036; the same in every run."""
    def texts():
        chance = random.Random(4711)
        for _ in range(count):
            yield text.replace('%t', f'{chance.randrange(1971, 2037)}-{chance.randrange(1, 13):02}-'
                                     f'{chance.randrange(1, 29):02}T{chance.randrange(24):02}:00:00')
    return texts
