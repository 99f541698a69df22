"""GPX: very many of everything, and points with odd numbers and times."""

from .registry import add_file
from .snippets import SEGMENT, TRACK, TWO_POINTS, ZIGZAG
from .writing import at_random_hours, numbered, scattered, second_by_second

NAMESPACE = 'http://www.topografix.com/GPX/1/1'
POINT = '<trkpt lat="53" lon="8"/>'
ORDINARY = '<trkpt lat="53.1234567" lon="8.1234567"><ele>12.3</ele><time>2024-05-01T12:00:00Z</time></trkpt>'
TIMED = '<trkpt lat="53" lon="8"><time>%t</time></trkpt>'
SCATTERED = '<trkpt lat="53.%a" lon="8.%b"/>'
WAYPOINT = '<wpt lat="53" lon="8"><name>abc</name></wpt>'
ROUTE_POINTS = TWO_POINTS.replace('trkpt', 'rtept')


def document(*parts):
    return ['<gpx>', *parts, '</gpx>']


def gpx(title, *parts, **keywords):
    add_file(f'{title}.gpx', document(*parts), plain=True, **keywords)


def track(*parts):
    return ['<trk>', *parts, '</trk>']


def points(*parts):
    return track('<trkseg>', *parts, '</trkseg>')


def compressed(*positions):
    return points('<compressedPoints>', *positions, '</compressedPoints>')


def prefixed_points(count):
    return ['<g:trk xmlns:g="', NAMESPACE, '"><g:trkseg>', ('<g:trkpt lat="53" lon="8"/>', count),
            '</g:trkseg></g:trk>']


def named(*name):
    return track('<name>', *name, '</name>', SEGMENT)


def described(length):
    return ['<trkpt lat="53" lon="8"><desc>', ('a', length), '</desc></trkpt>']


# --- Very many of everything
gpx('tracks 10 million', ('<trk/>', 10000000))
gpx('segments 10 million', track(('<trkseg/>', 10000000)))
gpx('segments 10 million, some points', track(('<trkseg/>', 5000000), SEGMENT, ('<trkseg/>', 5000000)))
gpx('tracks of a point 3 million', (points(POINT), 3000000))
gpx('segments of a point 3 million', track((f'<trkseg>{POINT}</trkseg>', 3000000)))
gpx('points 10 million', points((POINT, 10000000)), load={'points': 10000000})
gpx('points 10 million without position', points(('<trkpt/>', 10000000)))
gpx('points of reversed attributes 3 million', points(("<trkpt lon='8' lat='53'/>", 3000000)))
gpx('points with names 1 million', points((described(1), 1000000)))
gpx('points with long names', points((described(1000), 400000)))
gpx('waypoints 5 million', ('<wpt lat="53" lon="8"/>', 5000000))
gpx('waypoints 499999', (WAYPOINT, 499999))
gpx('waypoints with long names', (WAYPOINT.replace('abc', 'a' * 2000), 400000))
gpx('routes 5 million', ('<rte/>', 5000000))
gpx('routes of a point 450000', ('<rte><rtept lat="53" lon="8"/></rte>', 450000))
gpx('routes with long names', (f'<rte><name>{"a" * 2000}</name><rtept lat="53" lon="8"/></rte>', 400000))
gpx('prefixed points 3 million', prefixed_points(3000000))
add_file('prefixed document.gpx', ['<g:gpx><g:trk><g:trkseg>', ('<g:trkpt lat="53" lon="8"/>', 3000000),
                                   '</g:trkseg></g:trk></g:gpx>'])
add_file('prefixes 4000.gpx', ['<gpx ', numbered(f'xmlns:n%d="{NAMESPACE}" ', 4000), '>',
                               points(TWO_POINTS, ('<z:x/>', 1000000)), '</gpx>'])

# --- Long texts
gpx('names 60 MB', named(('a ', 30 << 20)))
gpx('name 300 MB in pieces', named(('a <x/>', 50 << 20)))
for title, piece in (('CDATA', '<![CDATA[a]]>'), ('references', '&#97;'), ('comments', 'a<!---->')):
    gpx(f'name 300 MB of {title}', named((piece, (300 << 20) // len(piece))))
gpx('names of 4 million characters', (named(('a', 4000000)), 60))
gpx('descriptions of 4 million characters', points((described(4000000), 60)))
gpx('extensions of bulk', '<extensions>', ('<x a="1">b</x>', 20 << 20), '</extensions>', TRACK)
gpx('waypoints with bulk', ('<wpt lat="53" lon="8">' + '<x/>' * 2000 + '</wpt>', 2000))
gpx('compressed points 60 MB', compressed(('1,1 ', 15 << 20)))
gpx('compressed points 300 MB in pieces', compressed(('1,1 <x/>', 37 << 20)))
gpx('compressed points of blanks 60 MB', compressed('1,1', (' ', 60 << 20), '1,2'))
gpx('compressed points of commas 60 MB', compressed('1,1 ', (',', 60 << 20), ' 1,2'))
gpx('enclaves 250 levels', track(SEGMENT, ('<enclaves><trk>', 120), ('</trk></enclaves>', 120)))
gpx('enclaves 1 million', track(SEGMENT, '<enclaves>', (TRACK, 500000), '</enclaves>'))

# --- Odd numbers and times
for title, number in (('1e999999', '1e999999'), ('1e-999999', '1e-999999'), ('1e308', '1e308'), ('nan', 'nan'),
                      ('inf', '-inf'), ('hexadecimal', '0x1p1000'), ('blank', '  '), ('nothing', '')):
    gpx(f'latitude {title}', points(TWO_POINTS, f'<trkpt lat="{number}" lon="8"><ele>{number}</ele></trkpt>',
                                    f'<trkpt lat="8" lon="{number}"/>'))
    gpx(f'elevation and time {title}', points(
        TWO_POINTS, f'<trkpt lat="50" lon="8"><ele>{number}</ele><time>{number}</time></trkpt>'))
gpx('digits 10 MB', points(TWO_POINTS, '<trkpt lat="', ('5', 10 << 20), '" lon="0.', ('1', 10 << 20), '"><ele>',
                           ('9', 10 << 20), '</ele></trkpt>'))
gpx('zeros 10 MB', points(TWO_POINTS, '<trkpt lat="', ('0', 10 << 20), '5" lon="0.', ('0', 10 << 20), '1e',
                          ('0', 1 << 20), '5"/>'))
gpx('numbers of 4000 digits', points((f'<trkpt lat="0.{"7" * 4000}" lon="8"/>', 14000)))
gpx('time 1 million digits', points(TWO_POINTS, '<trkpt lat="50" lon="8"><time>', ('2', 1000000),
                                    '-01-01T00:00:00Z</time></trkpt>'))
gpx('times of 100000 blanks', points((f'<trkpt lat="50" lon="8"><time>{" " * 100000}x</time></trkpt>', 500)))
gpx('times odd 1 million', points(('<trkpt lat="50" lon="8"><time>2020-13-45T99:99:99+99:99</time></trkpt>', 1000000)))

# --- Much to draw
gpx('points all over', points(*(f'<trkpt lat="{lat}" lon="{lon}"/>' for lat in (1e308, -1e308, 89.999, -90, 720)
                                for lon in (1e308, -1e308, 1e18, 180, -180, 720))))
gpx('across the date line 300000 times', points(('<trkpt lat="53" lon="179"/><trkpt lat="-53" lon="-179"/>', 300000)))
gpx('zigzag 500000', points((ZIGZAG, 170000)))
gpx('lines all over 400000', points(scattered(SCATTERED, 400000)))
gpx('tracks all over 99999', scattered(
    '<trk><trkseg><trkpt lat="53.%a" lon="8.5"/><trkpt lat="53.5" lon="8.%b"/></trkseg></trk>', 99999),
    load={'figures': 99999})
gpx('star of 200000 beams', points(scattered('<trkpt lat="53.5" lon="8"/>' + SCATTERED, 200000)))
gpx('corners 400000', points(TWO_POINTS, scattered(SCATTERED, 400000), POINT))
gpx('round half the world 3 million', points(('<trkpt lat="80" lon="-90"/><trkpt lat="-80" lon="89"/>', 1500000)),
    load={'points': 3000000})
gpx('triangles 3 million points', points((TWO_POINTS + '<trkpt lat="53" lon="9"/>', 1000000)), load={'points': 3000000})
gpx('load points and one without a place', points((ORDINARY, 1000000), '<trkpt lat="" lon="8"/>'), outcome='read')
for encoding, name in (('ISO-8859-1', b'M\xfchle'), ('windows-1252', b'M\xfchle'), ('us-ascii', b'Muehle')):
    add_file(f'load points in {encoding}.gpx', [f'<?xml version="1.0" encoding="{encoding}"?>', document(points(
        (ORDINARY, 1000000), '<trkpt lat="53" lon="8"><desc>', name, '</desc></trkpt>'))], outcome='read')

# --- What is still to be read, in little time
gpx('below: prefixed points', prefixed_points(860000))
gpx('below: bulk', TRACK, ('<x/>', 1700000))
gpx('below: bulk of texts', TRACK, ('<x>a</x>', 1150000))
gpx('below: bulk of attributes', TRACK, ('<x a="" b=""/>', 860000))
gpx('below: bulk of references', TRACK, ('<x>&lt;</x>', 690000))
gpx('plain and other points in turn', points(
    ('<trkpt lat="1" lon="2"/><trkpt><!--aaaaaaaaaaaa--></trkpt>', 800000)))
gpx('load points 3 million', points((ORDINARY, 3000000)), outcome='read')  # without an allowance
gpx('load points 12 million', points((TWO_POINTS, 6000000)), outcome='read', load={'points': 12000000})
gpx('load points of a heart 1 million', points((ORDINARY.replace('</trkpt>', (
    '<extensions><a:b xmlns:a="http://a"><a:hr>99</a:hr></a:b></extensions></trkpt>')), 1000000)), outcome='read')
gpx('around the world 20000 times', points(
    ('<trkpt lat="-60" lon="0"/><trkpt lat="50" lon="120"/><trkpt lat="0" lon="-120"/>', 20000)))
gpx('below: segments of a point', track((f'<trkseg>{POINT}</trkseg>', 199999)))
gpx('below: segments of two points', track((SEGMENT, 199999)))
gpx('below: segments to split', track((SEGMENT, 99999)))
gpx('below: tracks of a point', (points(POINT), 99999), load={'figures': 99999})
gpx('below: load lines across the picture', (TRACK, 99999), load={'figures': 99999})
gpx('below: waypoints', (WAYPOINT, 99999), load={'figures': 99999})
gpx('below: routes', (f'<rte>{ROUTE_POINTS}</rte>', 99999), load={'figures': 99999})
gpx('below: route points', '<rte>', (ROUTE_POINTS, 245000), '</rte>')
gpx('below: names', (named(('a', 4000000)), 11))
gpx('below: descriptions', points((described(1000), 66000)))
gpx('below: points with a comment', points(('<trkpt lat="53" lon="8"><!----></trkpt>', 580000)))
gpx('points in comments in CDATA', '<metadata><desc>', (
    '<![CDATA[' + '<trkpt lat="1" lon="2"><!--' * 2400 + ']]>', 660), '</desc></metadata>', TRACK)
gpx('below: points with odd numbers', points(('<trkpt lat="5.3e1" lon=" 8"><ele>nan</ele></trkpt>', 2000000)))
gpx('load local times 1 million', points(second_by_second(TIMED, 1000000)), outcome='read')
gpx('load times with an offset 1 million', points(second_by_second(TIMED.replace('%t', '%t+01:00'), 1000000)),
    outcome='read')
gpx('load local times at random hours 1 million', points(at_random_hours(TIMED, 1000000)), outcome='read')
# In forms that are not read by their digits.
for title, end, count in (('other', '+01:00', 430000), ('local', '', 230000)):
    point = TIMED.replace('%t', f'2020-01-01T00:00:00,%d{end}')
    gpx(f'below: {title} odd times', points(numbered(point, count)))
    gpx(f'{title} odd times', points(numbered(point, 5000000)))
gpx('below: odd local times of route points', '<rte>', numbered(
    '<rtept lat="53" lon="8"><time>2020-01-01T00:00:00,%d</time></rtept>', 150000), '</rte>')
gpx('below: compressed points', compressed(('1,1 2,2 ', 999990)))
gpx('below: elements', TRACK, ('<x/>', 990000))
gpx('below: enclaves', track(SEGMENT, '<enclaves>', (TRACK, 99990), '</enclaves>'), load={'figures': 99990})
gpx('names that terminals obey', '<trk><name>\u009b2J\u202e&#x9b;31m</name><trkseg><trkpt lat="a" lon="8"/></trkseg>'
    '</trk><wpt lat="x" lon="8"><name>\u009b2J\u2028\u202e</name></wpt>')
