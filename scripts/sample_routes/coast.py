"""A long cycle route along the dikes of the North Sea."""

import random
from datetime import datetime, timezone

from .curves import meander, resample, spline, travel, undulate
from .gpx import gpx, track_xml
from .path import anchors

COAST = anchors('''
    53.3670 7.2060  3 Emden, Ratsdelft
    53.3600 7.1560  3 Larrelt
    53.3560 7.1000  3 Wybelsum
    53.3700 7.0300  5 Rysumer Nacken
    53.4056 7.0180  5 Campener Leuchtturm
    53.4480 7.0400  6 Hamswehrum
    53.4900 7.0460  6 Pilsumer Leuchtturm
    53.5010 7.0960  3 Greetsiel
    53.5270 7.1250  3 Leybuchtpolder
    53.5550 7.1250  4 Leybuchtsiel
    53.5900 7.1250  5 Utlandshörn
    53.6220 7.1560  5 Norddeich
    53.6420 7.2200  5 Ostermarsch
    53.6600 7.2800  5 Hilgenriedersiel
    53.6720 7.3600  5 Neßmersiel
    53.6770 7.4250  5 Dornumergrode
    53.6780 7.4830  5 Dornumersiel
    53.6760 7.5720  6 Bensersiel
    53.6860 7.6400  5 Ostbense
    53.6990 7.7030  4 Neuharlingersiel
    53.7040 7.7600  6 Elisabethaußengroden
    53.7080 7.8080  5 Harlesiel
    53.7060 7.8800  6 Friederikensiel
    53.7080 7.9600  6 Minsener Deich
    53.7000 8.0230  5 Schillig
    53.6830 8.0230  5 Horumersiel
    53.6430 8.0290  4 Hooksiel
    53.6080 8.0850  5 Voslapper Groden
    53.5700 8.1220  5 Heppenser Groden
    53.5320 8.1450  5 Wilhelmshaven, Geniusbank
    53.5130 8.1400  6 Wilhelmshaven, Südstrand
    53.5170 8.1180  4 Kaiser-Wilhelm-Brücke
    53.5160 8.0560  4 Mariensiel
    53.4880 8.0500  5 Cäciliengroden
    53.4560 8.0620  4 Ellenserdammersiel
    53.4470 8.1150  8 Dangast
    53.4110 8.1860  4 Varel, Hafen
    53.4080 8.2350  5 Diekmannshausen
    53.4400 8.3020  5 Sehestedt
    53.4780 8.3200  5 Augustgroden
    53.5060 8.3080  5 Stollhammer Deich
    53.5190 8.2700  5 Eckwarden
    53.5200 8.2360  5 Eckwarderhörne
    53.5680 8.2420  6 Tossens
    53.6000 8.2900  5 Langwarden
    53.5960 8.3560  4 Fedderwardersiel
    53.5810 8.3780  5 Burhave
    53.5650 8.4350  5 Waddensersiel
    53.5450 8.5050  5 Tettens
    53.5340 8.5560  3 Blexen, Fähre
    53.5350 8.5760  3 Bremerhaven, Geestemündung
    53.5470 8.5720  4 Bremerhaven, Havenwelten
    53.5760 8.5620  4 Kaiserhäfen
    53.6080 8.5450  4 Weddewarden
    53.6480 8.5030  5 Wremen
    53.6920 8.5100  5 Misselwarden
    53.7370 8.5180  5 Dorum-Neufeld
    53.7880 8.5480  5 Spieka-Neufeld
    53.8270 8.5800  6 Berensch
    53.8600 8.5960 14 Sahlenburg
    53.8810 8.6380  7 Duhnen
    53.8920 8.6870  5 Kugelbake
    53.8720 8.7060  4 Cuxhaven, Alte Liebe
    53.8420 8.7650  5 Groden
    53.8340 8.8000  5 Altenbruch
    53.8260 8.8800  5 Otterndorf
    53.8280 8.9600  5 Belum
    53.8200 9.0300  6 Ostesperrwerk
    53.8340 9.1000  4 Balje
    53.8420 9.2000  5 Krummendeich
    53.8250 9.2900  4 Freiburg an der Elbe
    53.7790 9.3250  3 Wischhafen
    53.7480 9.3700  4 Krautsand
    53.7050 9.3850  3 Drochtersen
    53.6560 9.4700  4 Bützfleth
    53.6020 9.4770  7 Stade
    53.5990 9.5600  4 Twielenfleth
    53.5720 9.6300  4 Lühe
    53.5440 9.6900  4 Borstel
    53.5350 9.7750  4 Cranz
    53.5300 9.8250  3 Neuenfelde
    53.5340 9.8700  4 Finkenwerder
    53.5200 9.9100  5 Waltershof
    53.5270 9.9500  5 Köhlbrand
    53.5410 9.9650  5 Alter Elbtunnel
    53.5460 9.9640  6 Hamburg, Landungsbrücken
    53.5450 9.9300  7 Altona
    53.5460 9.8650  6 Teufelsbrück
    53.5570 9.8040  9 Blankenese
    53.5660 9.7500 12 Wittenbergen
    53.5700 9.7000  6 Wedel, Willkomm-Höft
    53.5960 9.6250  5 Hetlingen
    53.6350 9.5750  5 Haseldorfer Marsch
    53.6720 9.5500  5 Pinnausperrwerk
    53.7160 9.5230  5 Krückausperrwerk
    53.7340 9.4800  4 Kollmar
    53.7890 9.4150  4 Glückstadt
    53.8270 9.4020  5 Störsperrwerk
    53.8580 9.3350  4 Brokdorf
    53.8880 9.2500  4 Sankt Margarethen
    53.8920 9.1450  4 Brunsbüttel, Schleusen
    53.9050 9.0350  5 Neufeld
    53.9300 8.9300  5 Kaiser-Wilhelm-Koog
    53.9800 8.8900  5 Dieksanderkoog
    54.0140 8.8680  4 Friedrichskoog
    54.0250 8.9350  5 Christianskoog
    54.0700 8.9700  4 Speicherkoog
    54.1150 8.9500  5 Warwerort
    54.1270 8.8620  5 Büsum
    54.1700 8.8350  6 Westerdeichstrich
    54.2250 8.8400  6 Hedwigenkoog
    54.2650 8.8450  7 Eidersperrwerk
    54.2920 8.7900  5 Vollerwiek
    54.2870 8.7200  5 Süderhöft
    54.2880 8.6560  6 Böhl
    54.3050 8.6350  8 Sankt Peter-Ording
    54.3300 8.6150  7 Ording
    54.3550 8.6600  5 Tümlauer Koog
    54.3760 8.6550  6 Westerhever
    54.3980 8.7050  5 Norderheverkoog
    54.4180 8.8100  5 Norderheversand
    54.4250 8.9000  5 Uelvesbüll
    54.4500 8.9700  5 Simonsberg
    54.4740 9.0480  4 Husum
    54.5070 9.0050 14 Schobüll
    54.5400 8.9500  5 Hattstedter Neuer Koog
    54.5700 8.9150  5 Arlau-Schleuse
    54.6080 8.8700  5 Sönke-Nissen-Koog
    54.6500 8.8150  5 Ockholm
    54.6830 8.7550  5 Schlüttsiel
    54.7290 8.6950  5 Dagebüll
    54.7960 8.6640  6 Südwesthörn
    54.8500 8.6450  6 Neuer Deich
    54.9090 8.6400  6 Rickelsbüller Koog
    54.9620 8.6650  6 Højer Sluse
    54.9640 8.6960  4 Højer
    55.0000 8.6820 10 Emmerlev
    55.0300 8.6700 15 Hjerpsted
    55.0800 8.6750  5 Koldby
    55.1300 8.6880  5 Ballum Sluse
    55.1650 8.7050  6 Astrup
    55.2000 8.7000  6 Brøns
    55.2450 8.7000  5 Rejsby
    55.2900 8.6850  5 Vester Vedsted
    55.3280 8.7620  6 Ribe
    55.3450 8.7000  5 Kammerslusen
    55.3900 8.6850  5 Store Darum
    55.4300 8.6350  5 Sneum
    55.4500 8.5600  6 Tjæreborg
    55.4580 8.4850 10 Måde
    55.4670 8.4500 12 Esbjerg
''')


def coast_route():
    rng = random.Random('nordseekueste')
    path = meander(rng, spline(COAST, 0.05), [(6.1, 0.11), (2.9, 0.09), (1.3, 0.05), (0.7, 0.02)])
    path = undulate(rng, resample(path, 10000), [(7.0, 0.8), (2.2, 0.7), (0.9, 0.4)])
    path = travel(rng, path, datetime(2025, 7, 7, 6, 30, 0, tzinfo=timezone.utc), 15.2, 21.0, 17.0, stage_hours=5.0)
    return gpx(track_xml(
        'Nordseeküste von Emden nach Esbjerg',
        'Hinter den Deichen von Ostfriesland über Wilhelmshaven, Bremerhaven, Cuxhaven, Hamburg und Husum'
        ' nach Esbjerg.',
        [path]))
