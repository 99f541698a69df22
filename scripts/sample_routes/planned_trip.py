"""A round through the Ammerland that is planned: waypoints and a route."""

from .gpx import gpx, point_xml
from .path import Point

# Stops of a round trip: the place, its name, and what a way point says of it (nothing for a mere corner).
STOPS = [
    (53.1412, 8.2147, 'Oldenburg, Lappan', 'Turm von 1467, Treffpunkt'),
    (53.1437, 8.2232, 'Oldenburg, Hauptbahnhof', 'Fahrradverleih'),
    (53.1701, 8.2008, 'Etzhorn', None),
    (53.2052, 8.1985, 'Wahnbek', None),
    (53.2469, 8.1990, 'Rastede, Schloss', 'Park mit Ellernteich'),
    (53.2437, 8.1302, 'Hahn-Lehmden', None),
    (53.2256, 8.0697, 'Wiefelstede, St.-Johannes-Kirche', 'Rast im Schatten'),
    (53.1838, 8.0097, 'Bad Zwischenahn, Kurpark', 'Smoortaal am See'),
    (53.1546, 8.1013, 'Wechloy', None),
    (53.1412, 8.2147, 'Oldenburg, Lappan', None),
]


def planned_trip():
    places = [(Point(latitude, longitude, None), name, note) for latitude, longitude, name, note in STOPS]
    lines = [point_xml(place, '  ', note, 'wpt', name) for place, name, note in places if note]
    lines += ['  <rte>', '    <name>Ammerlandrunde</name>', '    <desc>Geplant, noch nicht gefahren.</desc>']
    lines += [point_xml(place, '    ', None, 'rtept', name) for place, name, _ in places]
    return gpx(lines + ['  </rte>'])
