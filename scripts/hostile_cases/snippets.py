"""Small pieces that files of several kinds hold."""

from .writing import write

TWO_POINTS = '<trkpt lat="53" lon="8"/><trkpt lat="54" lon="9"/>'
SEGMENT = f'<trkseg>{TWO_POINTS}</trkseg>'
TRACK = f'<trk>{SEGMENT}</trk>'
ZIGZAG = '<trkpt lat="80" lon="-170"/><trkpt lat="-80" lon="170"/><trkpt lat="0" lon="0.1"/>'

PLACE = '<Point><coordinates>8,53</coordinates></Point>'
MARK = f'<Placemark>{PLACE}</Placemark>'

# Of &l12; come a million million times "ha".
LAUGHS = '<!ENTITY l0 "ha">' + ''.join(f'<!ENTITY l{i + 1} "' + f'&l{i};' * 10 + '">' for i in range(12))


def write_track(folder, points=TWO_POINTS):
    path = folder / 'track.gpx'
    write(path, ['<gpx><trk><trkseg>', points, '</trkseg></trk></gpx>'])
    return path
