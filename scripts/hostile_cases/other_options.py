"""Other cases' files, written in other formats, listed, or drawn with other looks."""

from .registry import again

for options in (('--list',), ('--json',), ('--labels',), ('--pen-style', 'dot'), ('--line-width', '1')):
    again('below: segments to split.gpx', '--split-segments', *options, load={'figures': 99999})
for options in (('--labels', '--legend'), ('--format', 'svg'), ('--format', 'pdf'), ('--format', 'gpx'),
                ('--format', 'kml'), ('--save', '{folder}/out.krroute'), ('--pen-style', 'dot'), ('--crop', '100'),
                ('--pen-style', 'dash', '--line-width', '1'), ('--line-width', '1'), ('--halo', '20'),
                ('--smoothing', '50,1000'), ('--scale', '4'), ('--area', 'N53.51 E8.5 .. N53.5 E8.51')):
    again('below: segments of two points.gpx', *options)
    again('lines all over 400000.gpx', *options)
for options in (('--labels', '--legend'), ('--list',), ('--json',), ('--palette',), ('--format', 'svg'),
                ('--crop', '100'), ('--save', '{folder}/out.krroute'), ('--pen-style', 'dash'), ('--halo', '20'),
                ('--format', 'kmz')):
    again('tracks all over 99999.gpx', *options, load={'figures': 99999})
for options in (('--list',), ('--format', 'gpx'), ('--save', '{folder}/out.krroute')):
    again('load points 3 million.gpx', *options, load={'points': 3000000})
for options in (('--labels',), ('--shape', 'polygon', '--labels'), ('--halo', '4'), ('--size', '4000x4', '--labels')):
    again('around the world 20000 times.gpx', *options)
# hundreds of copies of a narrow world
for options in ((), ('--labels',), ('--halo', '4'), ('--format', 'svg'), ('--format', 'pdf')):
    again('below: waypoints.gpx', '--size', '1600x4', '--area', 'N80 W180 .. S80 E180', *options,
          load={'figures': 99999})
for options in (('--marker', 'star12'), ('--labels',)):
    again('below: waypoints.gpx', *options, load={'figures': 99999})
