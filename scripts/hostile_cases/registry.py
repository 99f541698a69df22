"""What a case is, and the list of all cases."""

from pathlib import Path
from typing import Callable, Mapping, NamedTuple

from .writing import write


class Case(NamedTuple):
    name: str
    make: Callable[[Path], Path]  # writes the file into the folder that it gets, and returns its path
    options: tuple  # for krrender; "{folder}" stands for that folder
    outcome: str  # 'refused', 'read' or 'any'
    load: Mapping[str, int]  # how many 'points' and 'figures' there are to draw, where that excuses time and memory


CASES = {}


def add(name, make, *options, outcome='any', load=None, plain=False):
    """If plain, "plain NAME" gives the same file to krrender --plain."""
    assert name not in CASES, name
    CASES[name] = Case(name, make, options, outcome, load or {})
    if plain:
        add(f'plain {name}', make, '--plain', *options, outcome=outcome, load=load)


def add_path(name, create, *options, **keywords):
    """Called what the case is called; create() gets the path."""
    def make(folder):
        path = folder / name.replace(' ', '-')
        create(path)
        return path
    add(name, make, *options, **keywords)


def add_file(name, parts, *options, **keywords):
    """Called what the case is called, and made of parts (see writing)."""
    add_path(name, lambda path: write(path, parts), *options, **keywords)


def again(name, *options, **keywords):
    """The file of another case with other options."""
    add(f'{name} {" ".join(options)}', CASES[name].make, *options, **keywords)
