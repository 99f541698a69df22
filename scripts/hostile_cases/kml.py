"""KML: very many of everything, and coordinates, styles and records of odd form."""

from .registry import add_file
from .snippets import MARK, PLACE
from .writing import at_random_hours, numbered, second_by_second


def kml(title, *parts, options=(), plain=True, **keywords):
    add_file(f'{title}.kml', ['<kml><Document>', *parts, '</Document></kml>'], *options, plain=plain, **keywords)


def placemark(*parts):
    return ['<Placemark>', *parts, '</Placemark>']


def line(*coordinates):
    return placemark('<LineString><coordinates>', *coordinates, '</coordinates></LineString>')


def named(*name):
    return placemark('<name>', *name, '</name>', PLACE)


def referring(style):
    return placemark(f'<styleUrl>#{style}</styleUrl>', PLACE)


def geometries(*parts):
    return ['<MultiGeometry>', *parts, '</MultiGeometry>']


def record(*parts):
    return placemark('<Track>', *parts, '</Track>')


def area_with_holes(count):
    return placemark('<Polygon><outerBoundaryIs><LinearRing><coordinates>0,0 9,0 9,9 0,9 0,0</coordinates></LinearRing>'
                     '</outerBoundaryIs>', ('<innerBoundaryIs><LinearRing><coordinates>1,1 2,1 2,2 1,1</coordinates>'
                                            '</LinearRing></innerBoundaryIs>', count), '</Polygon>')


STYLE = '<Style id="s%d"><LineStyle><width>%d</width></LineStyle></Style>'
MOMENT = '<when>%t</when><coord>8 53 1</coord>'
ORDINARY_MOMENT = MOMENT.replace('%t', '2020-01-01T00:00:00Z')

# --- Coordinates
for megabytes in (15, 60, 240):
    kml(f'coordinates {megabytes} MB', line(('1,1 ', megabytes << 18)))
kml('coordinates in pieces 60 MB', line(('1,1 <x/>', 60 << 17)))
kml('coordinates of different places 60 MB', line(('1,1 2,3 4,5 7,8 ', 60 << 16)))
kml('coordinates of commas 60 MB', line((',', 60 << 20)))
kml('coordinates of blanks 60 MB', line('1,1', (' ', 60 << 20), '2,2'))
kml('coordinates of letters 60 MB', line(('a ', 30 << 20)))
kml('coordinates of one number 60 MB', line(('1', 60 << 20), ',1'))
kml('coordinates of long numbers', line((f'{"1" * 200}e{"9" * 200},1 ', 100000)))
kml('lines of 60 MB', (line(('1,1 2,2 ', 10000)), 750))

# --- Placemarks, and what they refer to
kml('placemarks empty 1 million', ('<Placemark/>', 1000000))
kml('placemarks empty 4 million', ('<Placemark/>', 4000000))
kml('placemarks 900000', (MARK, 900000))
kml('placemarks 499999', (MARK, 499999))
kml('placemarks with a style each 200000', (placemark(
    '<Style><LineStyle><color>7f00ff00</color><width>3</width></LineStyle></Style>', PLACE), 200000))
kml('placemarks with other styles 200000', numbered(
    f'<Placemark><Style><LineStyle><width>%d</width></LineStyle></Style>{PLACE}</Placemark>', 200000), plain=False)
kml('styles in a ring', lambda: (
    f'<StyleMap id="s{i}"><Pair><key>normal</key><styleUrl>#s{(i + 1) % 100000}</styleUrl></Pair></StyleMap>'
    for i in range(100000)), lambda: map(referring, (f's{i}' for i in range(100000))), plain=False)
kml('styles 300000', numbered(STYLE, 300000), MARK, plain=False)
kml('plain styles 70000', numbered('<Style id="s%d"/>', 70000), numbered(
    '<Placemark><styleUrl>#s%d</styleUrl><coordinates>8,53</coordinates></Placemark>', 70000),
    options=('--plain',), plain=False, load={'figures': 70000})
kml('style map of itself', '<StyleMap id="a"><Pair><key>normal</key><styleUrl>#a</styleUrl></Pair></StyleMap>',
    referring('a'))
kml('pairs 1 million', '<StyleMap id="a">', ('<Pair><key>normal</key></Pair>', 1000000), '</StyleMap>', MARK)
kml('reference 30 MB', placemark('<styleUrl>#', ('a', 30 << 20), '</styleUrl><coordinates>8,53</coordinates>'))
kml('links 500000', ('<NetworkLink><name>a</name><Link><href>links.kml</href></Link></NetworkLink>', 500000))
kml('overlay of absurd size', '<GroundOverlay><LatLonBox><north>1e308</north><south>-1e308</south></LatLonBox>'
    '</GroundOverlay>', MARK)

# --- Trees
kml('folders 120 levels with styles', ('<Folder><Style id="a"/>', 120), MARK, ('</Folder>', 120))
kml('placemarks in placemarks', ('<Placemark>', 230), geometries((PLACE, 400000)), ('</Placemark>', 230))
kml('geometries 1 million', placemark(geometries((PLACE, 1000000))))
kml('geometries without position 1 million', placemark(geometries(('<LineString/>', 2000000))))
kml('models 1 million', placemark(('<Model/>', 4000000)))
kml('rings 500000', area_with_holes(500000))
kml('rings empty 1 million', placemark('<Polygon><outerBoundaryIs>', ('<coordinates/>', 3000000),
                                       '</outerBoundaryIs></Polygon>'))
kml('record 600000', record((ORDINARY_MOMENT, 600000)))
kml('record of times alone', record(('<when/>', 8000000)))
kml('record of positions alone', record(('<coord/>', 7000000)))
kml('record of long positions', record((['<coord>', ('1', 6000), '</coord>'], 10000)))
kml('geometries 240 levels', placemark(('<MultiGeometry>', 240), (PLACE, 40000), ('</MultiGeometry>', 240)))
kml('records 500000', placemark('<MultiTrack>', ('<Track><coord>8 53</coord></Track>', 1000000), '</MultiTrack>'))

# --- Texts and looks
kml('description 60 MB', placemark('<description>', ('&lt;', 15 << 20), '</description>', PLACE))
kml('names of 100 kB', (named(('a', 100000)), 600), options=('--legend', '--labels'))
kml('name and many geometries', placemark('<name>', ('a&lt;', 200000), '</name>', geometries((PLACE, 400000))))
kml('style and many geometries', placemark('<styleUrl>#', ('a', 100000), '</styleUrl>', geometries((PLACE, 400000))))
kml('shape and many positions', placemark('<shape>', ('a&lt;', 200000), '</shape>',
                                          ('<coordinates>8,53</coordinates>', 400000)))
kml('widths', *(placemark(
    f'<Style><LineStyle><color>ff0000ff</color><width>{width}</width></LineStyle><PolyStyle><color>7fff0000</color>'
    '</PolyStyle></Style><LineString><coordinates>8,53 9,54 10,53</coordinates></LineString>')
    for width in ('1e308', '-1e308', '1e9', '1e5', 'nan', 'inf', '1e-308')))
kml('colours', *(placemark(
    f'<Style><LineStyle><color>{color}</color></LineStyle></Style><LineString><coordinates>8,53 9,54</coordinates>'
    '</LineString>') for color in ('#' * 100, '-1', 'f' * 10000, 'transparent', '')))

# --- What is still to be read, in little time
kml('load positions 1 million', line(('8.1234567,53.1234567,0 9.1234567,54.1234567,0 ', 500000)), outcome='read')
kml('below: positions', line(('1,1 2,2 ', 1240000)), load={'points': 2480000})
kml('below: points', (MARK, 49999), load={'figures': 49999})
kml('below: lines across the picture', (line('8,53 9,54'), 49999), load={'figures': 49999})
kml('below: areas over the picture', (placemark(
    '<Polygon><coordinates>8,53 9,53 9,54 8,54 8,53</coordinates></Polygon>'), 49999), load={'figures': 49999})
kml('below: rings', area_with_holes(99990), load={'figures': 99990})
kml('below: segments', placemark('<MultiTrack>', ('<Track><coord>8 53</coord></Track>', 99990), '</MultiTrack>'))
kml('below: record', record((ORDINARY_MOMENT, 700000)))
for title, end, count in (('other', '+01:00', 330000), ('local', '', 220000)):
    kml(f'below: record of {title} odd times', record(numbered(
        MOMENT.replace('%t', f'2020-01-01T00:00:00,%d{end}'), count)), plain=False)
for title, timed in (('', second_by_second), (' at random hours', at_random_hours)):
    kml(f'below: record of local times{title}', record(timed(MOMENT, 550000)), plain=False)
kml('below: styles', numbered(STYLE, 350000), MARK, plain=False)
kml('below: names', (named(('a', 4000000)), 15), options=('--legend', '--labels'))
kml('below: undrawable', (placemark('<Model/>'), 1240000))
kml('name that terminals obey', '<NetworkLink><name>\u009b2J&#x9b;31m\u202e</name></NetworkLink>', MARK,
    options=('--verbose',))
