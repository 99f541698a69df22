"""Looks, sizes and areas that make drawing long."""

import random

from .registry import add, add_file
from .snippets import TRACK, TWO_POINTS, ZIGZAG, write_track
from .writing import numbered, scattered

CLOSE = 'N53.50001 E8.5 .. N53.5 E8.50001'


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

# --- Very many upon each other, wide, half transparent, or each of its own look
def marks(title, style, geometry, count, *options):
    placemark = f'<Placemark><Style>{style}</Style>{geometry}</Placemark>'
    add_file(f'marks {title}.kml', ['<kml><Document>', numbered(placemark, count, 100000), '</Document></kml>'],
             '--size', '1600x1200', *options, load={'points': count * geometry.count(','), 'figures': count})


def across(name, shape):
    """A zigzag of 50 lines over the whole picture."""
    corners = ' '.join(f'{5 + i * 7 % 50 / 6:.2f},{50 + i * 17 % 50 / 10:.2f}' for i in range(50))
    return f'<{name}>{shape.format(f"<coordinates>{corners} 5,50</coordinates>")}</{name}>'


RING = '<outerBoundaryIs><LinearRing>{}</LinearRing></outerBoundaryIs>'
WIDE = '<LineStyle><color>80%d</color><width>200</width></LineStyle><PolyStyle><color>80%d</color></PolyStyle>'
THIN = WIDE.replace('200', '3')
WHOLE = '<coordinates>5,50 13,50 13,55 5,55 5,50</coordinates>'
marks('areas', THIN, f'<Polygon>{RING.format(WHOLE)}</Polygon>', 49999)
marks('areas of many corners', THIN, across('Polygon', RING), 20000)
marks('areas with wide edges', WIDE, across('Polygon', RING), 20000)
marks('wide lines', WIDE, across('LineString', '{}'), 20000)
marks('wide lines on a cropped map', WIDE, across('LineString', '{}'), 20000, '--crop', '90')
marks('wide lines as SVG', WIDE, across('LineString', '{}'), 5000, '--crop', '90', '--format', 'svg')
marks('wide points', WIDE, '<Point><coordinates>8,53</coordinates></Point>', 49999)

TRACKS = [(TRACK, 3), scattered('<wpt lat="53.%a" lon="8.%b"/>', 99000), scattered(
    '<trk><trkseg><trkpt lat="53.%a" lon="8.5"/><trkpt lat="53.5" lon="8.%b"/></trkseg></trk>', 99000)]
for options in ((), ('--palette',), ('--line-color', '#80ff0000'), ('--line-width', '200', '--palette'),
                ('--pen-style', 'dash', '--halo', '6', '--crop', '100', '--labels', '--legend')):
    add_file(f'tracks and waypoints {" ".join(options)}'.strip() + '.gpx', ['<gpx>', TRACKS, '</gpx>'], *options,
             load={'figures': 198000})
# --- In PDF, where half transparent lines, dashes and markers become outlines
def to_and_fro(count, corners):
    """Tracks from anywhere in the picture to anywhere else."""
    corner = '<trkpt lat="53.%d" lon="8.%d"/>'

    def texts():
        chance = random.Random(4711)
        for _ in range(count):
            places = (corner % (chance.randrange(1000, 9999), chance.randrange(1000, 9999)) for _ in range(corners))
            yield f'<trk><trkseg>{"".join(places)}</trkseg></trk>'
    return texts


for count, corners, title in ((3000, 100, 'thousands of'), (10, 300, 'some'), (1, 19000, 'one of very many corners')):
    for options in (('--line-color', '#80ff0000'), ('--line-color', '#80ff0000', '--halo', '4'),
                    ('--halo', '4', '--marker', 'arrow'),
                    ('--line-color', '#80ff0000', '--pen-style', 'dot', '--line-width', '1')):
        add_file(f'routes to and fro, {title} {" ".join(options)}.gpx', ['<gpx>', to_and_fro(count, corners), '</gpx>'],
                 '--format', 'pdf', *options, load={'points': count * corners})
DOTS = ['<gpx>', scattered('<wpt lat="53.%a" lon="8.%b"/>', 10000), '</gpx>']
for options in ((), ('--size', '1600x150', '--area', 'N80 W180 .. S80 E180')):
    add_file(f'half transparent stars {" ".join(options)}'.strip() + '.gpx', DOTS, '--format', 'pdf', '--marker', 'star12',
             '--halo', '4', '--line-color', '#80ff0000', *options, load={'figures': 10000})
add_file('dots with wide halos.gpx', ['<gpx>', scattered('<wpt lat="53.%a" lon="8.%b"/>', 5000), '</gpx>'],
         '--format', 'pdf', '--line-width', '1000', '--halo', '40', load={'figures': 5000})
for kind in ('svg', 'pdf'):
    look(f'largest cropped {kind}', '--size', '32767x32767', '--crop', '90', '--format', kind)
