"""Route documents: what they include, very many tracks, and looks of absurd size."""

import os

from .registry import add
from .snippets import LAUGHS
from .writing import write

TRACK = '<trk><name>a</name><trkseg><compressedPoints>8,53\n9,54\n10,53\n8.2,53.2</compressedPoints></trkseg></trk>'
CONFIGURED = f'<configuredTrack>{TRACK}</configuredTrack>'


def document(title, parts, *options, files=lambda folder: None, attributes='', kept='', **keywords):
    """Of the parts within its list of tracks; files() adds what they include to the folder of the document."""
    def make(folder):
        name = title.replace(' ', '-')
        path = folder / f'{name}.krroute'
        tracks = folder / f'{name}.tracks'
        tracks.mkdir()
        files(tracks)
        write(path, [f'<routes folder="{tracks.name}"><selection{attributes}><gpxtrack>', parts,
                     '</gpxtrack></selection>', kept, '</routes>'])
        return path
    add(f'{title}.krroute', make, *options, **keywords)


def included(name):
    return f'<configuredTrack><trk><include>{name}</include></trk></configuredTrack>'


def track_file(*parts, before=''):
    """The track file a.gps for "files"."""
    return lambda folder: write(folder / 'a.gps', [before, '<includedTrack>', *parts, '</includedTrack>'])


def sparse_file(folder):
    (folder / 'sparse').touch()
    os.truncate(folder / 'sparse', 5 << 30)


def compressed(*positions):
    return ['<trkseg><compressedPoints>', *positions, '</compressedPoints></trkseg>']


file_of_20_mb = track_file('<trk>', compressed(('1,1 ', 5 << 20)), '</trk>')


def links_to_20_mb(folder):
    file_of_20_mb(folder)
    for i in range(500):
        (folder / f'{i}.gps').symlink_to('a.gps')
    for i in range(500, 1000):
        os.link(folder / 'a.gps', folder / f'{i}.gps')


# --- What they include
document('includes itself', included('../includes-itself.krroute'))
document('includes a pipe', included('pipe'), files=lambda folder: os.mkfifo(folder / 'pipe'), outcome='refused')
document('includes a device', included('/dev/zero'), outcome='refused')
document('includes a terminal', included('/dev/tty'), outcome='refused')
document('includes a folder', included('/etc'), outcome='refused')
document('includes what is missing', included('missing.gps'), outcome='refused')
document('includes a sparse file', included('sparse'), files=sparse_file, outcome='refused')
document('includes a file 100000 times', (included('a.gps'), 100000), files=track_file(TRACK),
         load={'figures': 100000})
document('includes 20 MB 1000 times', (included('a.gps'), 1000), files=file_of_20_mb)
document('includes links to 20 MB 1000 times', [included(f'{i}.gps') for i in range(1000)], files=links_to_20_mb)
document('includes 60 MB of elements 300 times', (included('a.gps'), 300), files=track_file(
    '<trk><trkseg>', ('<trkpt lat="1" lon="2"/>', 160000), '</trkseg></trk>'), outcome='refused')
document('includes a bomb', included('a.gps'), files=track_file('&l12;', before=f'<!DOCTYPE x [{LAUGHS}]>'),
         outcome='refused')
document('includes that include', included('a.gps'), files=track_file('<trk><include>a.gps</include></trk>'))
document('includes what terminals obey', included('&#x9b;2J&#10;\u202e.gps'), outcome='refused')

# --- Very many tracks and positions
document('points 60 MB', ['<configuredTrack><trk><name>a</name>', compressed(('1,1 ', 15 << 20)),
                          '</trk></configuredTrack>'])
document('tracks 120000', (CONFIGURED, 80000))
document('below: points', ['<configuredTrack><trk><name>a</name>', compressed(
    ('8.1234567,53.1234567,12,1600000000000\n', 1500000)), '</trk></configuredTrack>'])
document('below: tracks', (CONFIGURED, 22000), load={'figures': 22000})
document('tracks empty 400000', ('<configuredTrack/>', 400000))
document('kept 400000', CONFIGURED, kept=('<kept number="0"/>', 200000))

# --- Looks
CONFIGURATIONS = {
    'pensize 1e9': '<pensize>1e9</pensize><color>#ff0000ff</color>',
    'pensize 999999999': '<pensize>999999999</pensize><color>#ff0000ff</color>',
    'pensize -5': '<pensize>-5</pensize><color>#ff0000ff</color><halosize>-9</halosize>',
    'halosize 999999999': '<pensize>3</pensize><color>#800000ff</color><halosize>999999999</halosize>',
    'pen style 99': '<pensize>3</pensize><color>#ff0000ff</color><penStyle>99</penStyle>',
    'dots of width 0': '<pensize>0</pensize><color>#ff0000ff</color><penStyle>3</penStyle>',
    'markers huge': '<pensize>99999</pensize><color>#ff0000ff</color><markerShape>star12</markerShape>'
                    '<trackShape>point</trackShape><displayOptions>stroke,fill</displayOptions>',
    'arrows huge': '<pensize>99999</pensize><color>#ff0000ff</color><markerShape>arrow</markerShape>'
                   '<trackShape>linestring</trackShape>',
    'keys unknown': '<markerShape>a,b,c,,,,</markerShape><trackShape>' + ',' * 100000 + '</trackShape>'
                    '<displayOptions>none</displayOptions>',
}
for title, configuration in CONFIGURATIONS.items():
    for attributes in ('', ' smoothing="0" smoothingSteps="999999999"', ' smoothing="-999999999" smoothingSteps="-1"',
                       ' smoothing="1e99" smoothingSteps="nan"'):
        document(f'{title}{attributes.replace(chr(34), "").replace("=", " ")}', (
            f'<configuredTrack{attributes}><config{attributes}>{configuration}</config>{configuration}{TRACK}'
            '</configuredTrack>'))
document('kept widths', CONFIGURED, kept='<kept number="0" lineWidth="1e300" haloWidth="nan"/>')
document('opacity', CONFIGURED, attributes=' croppingOpacity="-999999999"')
