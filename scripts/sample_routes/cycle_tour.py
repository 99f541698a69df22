"""A cycle tour around Oldenburg, with a lunch break."""

import random
from datetime import datetime, timezone

from .curves import meander, resample, spline, travel, undulate
from .gpx import gpx, track_xml
from .path import anchors

TOUR_MORNING = anchors('''
    53.1385 8.2160  5 Oldenburg, Schlossplatz
    53.1399 8.2212  4 Stau
    53.1404 8.2282  4 Hafen
    53.1420 8.2362  3 Eisenbahn-Klappbrücke
    53.1456 8.2440  3 Donnerschwee
    53.1486 8.2530  2 Huntedeich
    53.1516 8.2660  2 unter der Autobahn
    53.1556 8.2800  1 Bornhorster Huntewiesen, Süd
    53.1622 8.2926  1 Bornhorster Huntewiesen, gegenüber Blankenburg
    53.1705 8.2968  1 Bornhorster Huntewiesen, Nord
    53.1790 8.2880  3 Groß Bornhorst
    53.1852 8.2740  4 Bornhorster See
    53.1930 8.2690  2 Ipwegermoor
    53.2012 8.2570  7 Ipwege
    53.2122 8.2512 13 Loyerberg
    53.2262 8.2570 12 Loy
    53.2345 8.2440 11 Barghorn
    53.2392 8.2290 13 Hankhausen
    53.2428 8.2120 14 Ellernteich im Schlosspark
    53.2470 8.1985 17 Schloss Rastede
    53.2424 8.1850 18 Kleibrok
    53.2300 8.1700 17 Leuchtenburg
    53.2190 8.1508 14 Borbeck
    53.2042 8.1340 12 Neuenkruge
    53.2030 8.1080 11 Heidkamperfeld
    53.2110 8.0720 10 Gristede
    53.2172 8.0480 10 Helle
    53.2125 8.0345  8 Dreibergen
    53.2040 8.0400  7 Meyerhausen
    53.1942 8.0408  7 Aue
    53.1880 8.0320  7 Südostufer
    53.1848 8.0190  7 Bad Zwischenahn, Bahnhof
    53.1856 8.0060  6 Bad Zwischenahn, Kurpark
''')

TOUR_AFTERNOON = anchors('''
    53.1856 8.0060  6 Bad Zwischenahn, Kurpark
    53.1822 8.0096  8 Markt
    53.1768 8.0300  9 Kayhausen
    53.1640 8.0460  9 Kayhauserfeld
    53.1530 8.0530  8 Kayhausermoor
    53.1440 8.0760  7 Petersfehn
    53.1362 8.0950  8 Wildenloh, Nordrand
    53.1270 8.1050 10 Wildenloh
    53.1248 8.1190 11 Wildenloh, Ostrand
    53.1302 8.1330  8 Eversten Moor
    53.1282 8.1520  6 Haarenfeld
    53.1300 8.1730  8 Eversten
    53.1342 8.1900  7 Eversten Holz
    53.1378 8.2060  6 Theaterwall
    53.1422 8.2140  7 Lappan
    53.1385 8.2160  5 Oldenburg, Schlossplatz
''')


def cycle_tour():
    rng = random.Random('oldenburg-radtour')
    segments = []
    for places, count, start in ((TOUR_MORNING, 212, datetime(2025, 5, 17, 7, 32, 10, tzinfo=timezone.utc)),
                                 (TOUR_AFTERNOON, 96, datetime(2025, 5, 17, 10, 51, 0, tzinfo=timezone.utc))):
        path = meander(rng, spline(places, 0.01), [(2.3, 0.03), (1.1, 0.025), (0.6, 0.012)])
        path = undulate(rng, resample(path, count), [(3.1, 0.7), (1.3, 0.5)])
        segments.append(travel(rng, path, start, 15.6, 21.2, 9.0))
    return gpx(track_xml(
        'Radtour um Oldenburg',
        'Vom Schlossplatz an der Hunte entlang zu den Bornhorster Huntewiesen, über Rastede zum'
        ' Zwischenahner Meer und durch den Wildenloh zurück in die Stadt.',
        segments, notes={(0, len(segments[0]) - 1): 'Mittagspause im Kurpark am Zwischenahner Meer'}))
