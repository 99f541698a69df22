"""A ferry across the date line."""

import random
from datetime import datetime, timezone

from .curves import meander, resample, spline, travel
from .gpx import gpx, track_xml
from .path import anchors

FERRY = anchors('''
    -18.1330 178.4250 - Suva, Hafen
    -18.1560 178.4030 - Riffdurchfahrt
    -18.2100 178.4200 - vor Suva
    -18.2600 178.6500 - Laucala-Bucht
    -18.2500 178.9500 - offene See vor dem Rewa-Delta
    -18.2300 179.2500 - südlich von Gau
    -18.0800 179.5600 - östlich von Gau
    -17.7000 179.7200 - östlich von Nairai
    -17.3000 179.8800 - Koro-See
    -17.0800 180.2000 - südöstlich von Taveuni
    -16.9000 180.5000 - vor der Nanuku-Durchfahrt
    -16.7800 180.7000 - Nanuku-Durchfahrt
    -16.5000 180.9200 - nördlich von Wailagi Lala
    -16.0000 181.9000 - offene See
    -15.1000 184.2000 - nördlich von Niuafo'ou
    -14.1000 186.2000 - offene See
    -13.4300 187.0000 - nordwestlich von Savai'i
    -13.3300 187.4500 - nördlich von Savai'i
    -13.5000 187.9000 - nordöstlich von Savai'i
    -13.7200 188.1800 - vor Apia
    -13.8050 188.2380 - Riffdurchfahrt
    -13.8210 188.2370 - Apia, Hafen
''')


def ferry():
    rng = random.Random('fiji-samoa-faehre')
    path = meander(rng, spline(FERRY, 0.5), [(310.0, 1.5), (140.0, 0.8)])
    path = resample(path, 110, ease=0.9)
    path = travel(rng, path, datetime(2025, 6, 12, 18, 0, 0, tzinfo=timezone.utc), 28.0, 32.0, 300.0)
    return gpx(track_xml(
        'Fähre von Suva nach Apia',
        'Durch die Koro-See und die Nanuku-Durchfahrt von Fidschi nach Samoa, über die Datumsgrenze hinweg.',
        [path]))
