"""Places, a way and areas of the Ammerland, as a document and as an archive of documents."""

import random

from .curves import meander, resample, ring, spline, undulate
from .kml import (kml, kml_boundary, kml_color, kml_coordinates, kml_element, kml_folder, kml_placemark, kml_point,
                  kml_style)
from .lake import LAKE
from .packing import dot_png, kmz
from .path import anchors

TO_WESTERSTEDE = anchors('''
    53.1848 8.0190  7 Bad Zwischenahn, Bahnhof
    53.1856 8.0060  6 Kurpark
    53.1888 7.9888  7 Rostrup, Süd
    53.1950 7.9842  8 Rostrup
    53.2050 7.9760 10 Rostruper Holz
    53.2180 7.9680 11 Ohrwegerfeld
    53.2300 7.9600 12 Torsholt
    53.2440 7.9450 11 Westerstede, Südost
    53.2530 7.9330  9 Bahnhof
    53.2564 7.9275  8 Westerstede, Markt
''')

CASTLE_PARK = anchors('''
    53.2478 8.1960 - Schloss Rastede
    53.2492 8.2050 - Nordrand
    53.2478 8.2140 - Nordrand
    53.2462 8.2230 - Nordostecke
    53.2415 8.2262 - Ostrand
    53.2372 8.2200 - Hankhausen
    53.2368 8.2110 - Südrand
    53.2405 8.2040 - Turnierplatz
    53.2440 8.1975 - Westrand
''')

POND = anchors('''
    53.2436 8.2095 - Westufer
    53.2440 8.2125 - Nordufer
    53.2432 8.2150 - Ostufer
    53.2420 8.2140 - Südostufer
    53.2418 8.2105 - Südufer
''')


def excursions(icon=None, link=None):
    """Files that only an archive has: the icon of the points, and another document that this one links to."""
    rng = random.Random('ammerland')
    way = meander(rng, spline(TO_WESTERSTEDE, 0.01), [(1.9, 0.03), (0.8, 0.02)])
    way = undulate(rng, resample(way, 72), [(2.7, 0.8), (1.1, 0.5)])
    park = ring(rng, CASTLE_PARK, 61, [(1.1, 0.02), (0.5, 0.012)])
    pond = ring(rng, POND, 25, [(0.4, 0.006)])
    lake = ring(rng, LAKE, 81, [(1.2, 0.02), (0.6, 0.016)])
    places = kml_folder(
        'Orte',
        kml_point('Oldenburg (Oldb), Lappan', 53.1433, 8.2147,
                  '<![CDATA[Turm am Rand der Altstadt, <b>Wahrzeichen</b> der Stadt]]>'),
        kml_point('Bad Zwischenahn, St.-Johannes-Kirche', 53.1855, 8.0095),
        kml_point('Rastede, Schloss', 53.2470, 8.1985, 'Sommersitz der Großherzöge &amp; ihrer Gäste'),
        kml_point('Wiefelstede, St.-Johannes-Kirche', 53.2583, 8.1167),
        kml_point('Westerstede, St.-Petri-Kirche', 53.2564, 7.9275))
    ways = kml_folder('Wege', kml_folder('Mit dem Rad', kml_placemark(
        'Von Bad Zwischenahn nach Westerstede', 'Durch Rostrup und Torsholt zum Markt von Westerstede', 'radweg',
        kml_element('LineString', ['<tessellate>1</tessellate>'], kml_coordinates(way)))))
    areas = kml_folder(
        'Flächen',
        kml_placemark('Schlosspark Rastede', 'Der Ellernteich ist ausgespart.', 'park',
                      kml_element('Polygon', kml_boundary('outerBoundaryIs', park),
                                  kml_boundary('innerBoundaryIs', pond))),
        kml_placemark('Zwischenahner Meer', '', 'gewaesser',
                      kml_element('Polygon', kml_boundary('outerBoundaryIs', lake))))
    links = []
    if link is not None:
        links.append(kml_element('NetworkLink', ['<name>Nachbarorte</name>', f'<Link><href>{link}</href></Link>']))
    return kml('Ausflüge im Ammerland', 'Orte, ein Radweg und Flächen zwischen Oldenburg und Westerstede.',
               kml_style('ort', kml_color('4a148c'), 1, icon=icon),
               kml_style('radweg', kml_color('c62828', 0xe0), 1.5),
               kml_style('park', kml_color('1b5e20'), 0.5, fill=kml_color('81c784', 0x80)),
               kml_style('gewaesser', kml_color('0d47a1'), 0.5, fill=kml_color('42a5f5', 0x90)),
               places, ways, areas, *links)


def neighbours():
    return kml('Nachbarorte', 'Städte rings um das Ammerland.', kml_style('ort', kml_color('4a148c'), 1),
               kml_point('Varel', 53.3970, 8.1361), kml_point('Brake (Unterweser)', 53.3333, 8.4833),
               kml_point('Elsfleth', 53.2375, 8.4567))


def packed_excursions():
    icon, other = 'bilder/ort.png', 'nachbarorte.kml'
    return kmz([(icon, dot_png(24, '4a148c')),
                ('doc.kml', excursions(icon, other).encode('utf-8')),
                (other, neighbours().encode('utf-8'))])
