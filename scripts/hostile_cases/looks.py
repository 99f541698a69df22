"""Looks, sizes and areas that make drawing long."""

from .registry import add
from .snippets import TWO_POINTS, ZIGZAG, write_track

CLOSE = 'N53.500001 E8.5 .. N53.5 E8.500001'


def look(title, *options, points=TWO_POINTS):
    add(f'look {title}', lambda folder: write_track(folder, points), *options)


for pen in ('solid', 'dash', 'dot', 'dashdotdot'):
    look(f'{pen} at close range', '--pen-style', pen, '--area', CLOSE, '--line-width', '1')
    look(f'{pen} all over', '--pen-style', pen, '--line-width', '1', points=(ZIGZAG, 100000))
look('wide line', '--line-width', '1000000000')
look('wide halo', '--halo', '1000000000')
look('arrows', '--marker', 'arrow', '--area', CLOSE)
look('area of nothing', '--area', 'N53 E8 .. N53 E8')
look('smoothing', '--smoothing', '0,1000000000', points=(TWO_POINTS, 100000))
look('wide line on a narrow strip', '--size', '16384x4', '--line-width', '1000')
look('many worlds', '--size', '16384x4', '--area', 'N80 W180 .. S80 E180', '--line-width', '1000')
look('many worlds of many lines', '--size', '16384x4', '--area', 'N80 W180 .. S80 E180', points=(ZIGZAG, 10000))
