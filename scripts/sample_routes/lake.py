"""The Zwischenahner Meer, as an enclave of its shore."""

import random

from .curves import ring
from .gpx import gpx, track_xml
from .path import anchors

LAKE = anchors('''
    53.2122 8.0050 - Nordufer
    53.2124 8.0120 - Nordufer bei Elmendorf
    53.2104 8.0200 - Bucht westlich von Dreibergen
    53.2076 8.0268 - Dreibergen
    53.2030 8.0300 - Ostufer
    53.1980 8.0322 - Meyerhausen
    53.1932 8.0300 - Mündung der Aue
    53.1896 8.0232 - Südostufer
    53.1880 8.0150 - Strandbad
    53.1888 8.0086 - Bucht am Kurpark
    53.1908 8.0044 - Kurparkspitze
    53.1900 7.9990 - Südwestbucht
    53.1924 7.9936 - Yachthafen
    53.1966 7.9916 - Rostrup
    53.2004 7.9942 - Westufer
    53.2046 7.9938 - Westufer
    53.2090 7.9976 - Nordwestufer
''')

SHORE = anchors('''
    53.2162 8.0030 - nördlich des Sees
    53.2168 8.0150 - Elmendorf
    53.2136 8.0262 - oberhalb von Dreibergen
    53.2106 8.0338 - Dreibergen
    53.2042 8.0372 - Meyerhausen
    53.1976 8.0386 - östlich des Sees
    53.1908 8.0372 - Aue
    53.1862 8.0286 - südöstlich des Sees
    53.1850 8.0170 - südlich des Strandbads
    53.1858 8.0080 - Kurpark
    53.1870 7.9990 - Bad Zwischenahn West
    53.1886 7.9888 - südlich von Rostrup
    53.1950 7.9842 - Rostrup
    53.2010 7.9872 - Rostruper Holz
    53.2066 7.9872 - westlich des Sees
    53.2124 7.9936 - nordwestlich des Sees
''')


def shore_with_lake():
    rng = random.Random('zwischenahner-meer-ufer')
    shore = ring(rng, SHORE, 97, [(1.7, 0.03), (0.9, 0.02), (0.5, 0.012)])
    lake = ring(rng, LAKE, 121, [(1.2, 0.02), (0.6, 0.016), (0.33, 0.01)])
    enclave = track_xml('Zwischenahner Meer', 'Die Wasserfläche gehört nicht zum Uferstreifen.',
                        [lake], indent='      ', shape='polygon')
    return gpx(track_xml('Uferstreifen am Zwischenahner Meer',
                         'Das Land rings um den See als Fläche, der See darin als Enklave.',
                         [shore], shape='polygon', enclaves=[enclave]))
