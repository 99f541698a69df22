<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="de_DE">
<context>
    <name>KRBaseMap</name>
    <message>
        <source>de</source>
        <comment>language of the country names, de or en</comment>
        <translation>en</translation>
    </message>
</context>
<context>
    <name>KRBaseMapGraticule</name>
    <message>
        <source>W</source>
        <comment>short for &apos;west&apos;</comment>
        <translation>W</translation>
    </message>
    <message>
        <source>O</source>
        <comment>short for &apos;east&apos;</comment>
        <translation>E</translation>
    </message>
    <message>
        <source>S</source>
        <comment>short for &apos;south&apos;</comment>
        <translation>S</translation>
    </message>
    <message>
        <source>N</source>
        <comment>short for &apos;north&apos;</comment>
        <translation>N</translation>
    </message>
</context>
<context>
    <name>KRExchangeFile</name>
    <message>
        <source>Der Speicher reicht nicht.</source>
        <translation>There is not enough memory.</translation>
    </message>
    <message>
        <source>Es wäre größer als %1 MB.</source>
        <translation>It would be larger than %1 MB.</translation>
    </message>
    <message>
        <source>Das Ergebnis ließe sich nicht wieder öffnen: %1</source>
        <translation>The result could not be opened again: %1</translation>
    </message>
</context>
<context>
    <name>KRExchangeLosses</name>
    <message>
        <source>Routen ohne Position: %1</source>
        <translation>Routes without a position: %1</translation>
    </message>
    <message>
        <source>Ausgelassene Positionen ohne gültige Koordinaten: %1</source>
        <translation>Positions left out for want of valid coordinates: %1</translation>
    </message>
    <message>
        <source>Ausgelassene Positionen von Routen, die ein einzelner Punkt sind: %1</source>
        <translation>Positions left out of routes that are a single point: %1</translation>
    </message>
    <message>
        <source>Ausgelassene Löcher: %1</source>
        <translation>Holes left out: %1</translation>
    </message>
    <message>
        <source>Ausgelassene Zeiten: %1</source>
        <translation>Times left out: %1</translation>
    </message>
</context>
<context>
    <name>KRGpxPreparation</name>
    <message>
        <source>Wegpunkt %1</source>
        <translation>Waypoint %1</translation>
    </message>
    <message>
        <source>Route %1</source>
        <translation>Route %1</translation>
    </message>
    <message>
        <source>Ein Text hat mehr als %1 Punkte.</source>
        <translation>A text has more than %1 points.</translation>
    </message>
    <message>
        <source>Die Datei hat mehr als %1 Strecken.</source>
        <translation>The file has more than %1 tracks.</translation>
    </message>
    <message>
        <source>Die Datei hat mehr als %1 Wegpunkte und Routen.</source>
        <translation>The file has more than %1 waypoints and routes.</translation>
    </message>
    <message>
        <source>Die Datei hat mehr als %1 Punkte von Routen.</source>
        <translation>The file has more than %1 points of routes.</translation>
    </message>
    <message>
        <source>Die Namen und Beschreibungen sind zusammen zu lang.</source>
        <translation>The names and descriptions are too long in all.</translation>
    </message>
    <message>
        <source>Die Datei hat mehr als %1 Segmente.</source>
        <translation>The file has more than %1 segments.</translation>
    </message>
</context>
<context>
    <name>KRHostApplication</name>
    <message>
        <source>Der Speicher reicht nicht.</source>
        <translation>There is not enough memory.</translation>
    </message>
</context>
<context>
    <name>KRImportReport</name>
    <message>
        <source>Strecke ohne lesbare Position</source>
        <translation>track without a readable position</translation>
    </message>
    <message>
        <source>Strecken ohne lesbare Position</source>
        <translation>tracks without a readable position</translation>
    </message>
    <message>
        <source>Route ohne lesbare Position</source>
        <translation>route without a readable position</translation>
    </message>
    <message>
        <source>Routen ohne lesbare Position</source>
        <translation>routes without a readable position</translation>
    </message>
    <message>
        <source>Wegpunkt ohne lesbare Position</source>
        <translation>waypoint without a readable position</translation>
    </message>
    <message>
        <source>Wegpunkte ohne lesbare Position</source>
        <translation>waypoints without a readable position</translation>
    </message>
    <message>
        <source>Ortsmarke ohne Geometrie</source>
        <translation>placemark without a geometry</translation>
    </message>
    <message>
        <source>Ortsmarken ohne Geometrie</source>
        <translation>placemarks without a geometry</translation>
    </message>
    <message>
        <source>Ortsmarke ohne lesbare Position</source>
        <translation>placemark without a readable position</translation>
    </message>
    <message>
        <source>Ortsmarken ohne lesbare Position</source>
        <translation>placemarks without a readable position</translation>
    </message>
    <message>
        <source>Geometrie ohne lesbare Position</source>
        <translation>geometry without a readable position</translation>
    </message>
    <message>
        <source>Geometrien ohne lesbare Position</source>
        <translation>geometries without a readable position</translation>
    </message>
    <message>
        <source>unlesbare Position</source>
        <translation>unreadable position</translation>
    </message>
    <message>
        <source>unlesbare Positionen</source>
        <translation>unreadable positions</translation>
    </message>
    <message>
        <source>Modell</source>
        <translation>model</translation>
    </message>
    <message>
        <source>Modelle</source>
        <translation>models</translation>
    </message>
    <message>
        <source>Bodenüberlagerung</source>
        <translation>ground overlay</translation>
    </message>
    <message>
        <source>Bodenüberlagerungen</source>
        <translation>ground overlays</translation>
    </message>
    <message>
        <source>Bildschirmüberlagerung</source>
        <translation>screen overlay</translation>
    </message>
    <message>
        <source>Bildschirmüberlagerungen</source>
        <translation>screen overlays</translation>
    </message>
    <message>
        <source>Fotoüberlagerung</source>
        <translation>photo overlay</translation>
    </message>
    <message>
        <source>Fotoüberlagerungen</source>
        <translation>photo overlays</translation>
    </message>
    <message>
        <source>Kamerafahrt</source>
        <translation>tour</translation>
    </message>
    <message>
        <source>Kamerafahrten</source>
        <translation>tours</translation>
    </message>
    <message>
        <source>Netzwerkverweis</source>
        <translation>network link</translation>
    </message>
    <message>
        <source>Netzwerkverweise</source>
        <translation>network links</translation>
    </message>
    <message>
        <source>weiteres KML-Dokument</source>
        <translation>other KML document</translation>
    </message>
    <message>
        <source>weitere KML-Dokumente</source>
        <translation>other KML documents</translation>
    </message>
    <message>
        <source>%1 nicht gezeichnet</source>
        <translation>%1 not drawn</translation>
    </message>
    <message>
        <source>%1 „%2“</source>
        <translation>%1 &quot;%2&quot;</translation>
    </message>
</context>
<context>
    <name>KRJpegScans</name>
    <message>
        <source>Das Bild ist ein JPEG mit zu viel neben seinen Pixeln.</source>
        <translation>The picture is a JPEG with too much beside its pixels.</translation>
    </message>
    <message>
        <source>Das Bild ist ein JPEG mit zu vielen Durchgängen.</source>
        <translation>The picture is a JPEG with too many scans.</translation>
    </message>
    <message>
        <source>Das Bild hat zu viele Pixel für ein JPEG, das in Durchgängen aufgebaut wird.</source>
        <translation>The picture has too many pixels for a JPEG that is built up in scans.</translation>
    </message>
</context>
<context>
    <name>KRKmlPlacemarkReader</name>
    <message>
        <source>Die Datei hat mehr als %1 Geometrien.</source>
        <translation>The file has more than %1 geometries.</translation>
    </message>
    <message>
        <source>Die Datei hat mehr als %1 Löcher und Segmente.</source>
        <translation>The file has more than %1 holes and segments.</translation>
    </message>
</context>
<context>
    <name>KRKmlPreparation</name>
    <message>
        <source>Die Datei hat mehr als %1 Positionen.</source>
        <translation>The file has more than %1 positions.</translation>
    </message>
</context>
<context>
    <name>KRKmzArchive</name>
    <message>
        <source>Das Archiv enthält kein KML-Dokument.</source>
        <translation>The archive holds no KML document.</translation>
    </message>
</context>
<context>
    <name>KRMapLegend</name>
    <message numerus="yes">
        <source>… und %n weitere</source>
        <translation>
            <numerusform>… and %n more</numerusform>
            <numerusform>… and %n more</numerusform>
        </translation>
    </message>
    <message>
        <source>Route %1</source>
        <translation>Route %1</translation>
    </message>
</context>
<context>
    <name>KRPictureReader</name>
    <message>
        <source>Das ist kein lesbares Bild.</source>
        <translation>This is no readable picture.</translation>
    </message>
    <message>
        <source>Das Bild ist zu groß (mehr als %1 Millionen Pixel).</source>
        <translation>The picture is too large (more than %1 million pixels).</translation>
    </message>
    <message>
        <source>Das Bild ist zu groß (mehr als %1 Pixel je Seite).</source>
        <translation>The picture is too large (more than %1 pixels a side).</translation>
    </message>
    <message>
        <source>Das Bild ist zu groß (mehr als %1 MB im Speicher).</source>
        <translation>The picture is too large (more than %1 MB in memory).</translation>
    </message>
</context>
<context>
    <name>KRPngChunks</name>
    <message>
        <source>Das Bild ist ein PNG mit zu viel neben seinen Pixeln.</source>
        <translation>The picture is a PNG with too much beside its pixels.</translation>
    </message>
</context>
<context>
    <name>KRRouteDocument</name>
    <message>
        <source>Das ist kein Routendokument.</source>
        <translation>This is no route document.</translation>
    </message>
    <message>
        <source>Der Ordner für die Routen kann nicht angelegt werden.</source>
        <translation>The folder for the routes cannot be created.</translation>
    </message>
    <message>
        <source>Das Dokument nennt dieselben Dateien zu oft.</source>
        <translation>The document names the same files too often.</translation>
    </message>
    <message>
        <source>Es ist größer als %1 MB.</source>
        <translation>It is larger than %1 MB.</translation>
    </message>
    <message>
        <source>Das Dokument ließe sich nicht wieder öffnen: %1</source>
        <translation>The document could not be opened again: %1</translation>
    </message>
    <message>
        <source>Es hat mehr als %1 Knoten.</source>
        <translation>It has more than %1 nodes.</translation>
    </message>
    <message>
        <source>Ohne Ordner kann das Dokument die Datei „%1“ nicht nennen.</source>
        <translation>Without a folder the document cannot name the file &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Wo mehrere Elemente „%1“ stehen, wird nur das erste gelesen; ausgelassen: %2</source>
        <translation>Where several elements &quot;%1&quot; stand, only the first is read; left out: %2</translation>
    </message>
</context>
<context>
    <name>KRRouteImport</name>
    <message>
        <source>Dieses Dateiformat wird nicht unterstützt (lesbar sind %1).</source>
        <translation>This file format is not supported (readable are %1).</translation>
    </message>
    <message>
        <source>Die Datei enthält keine Route.</source>
        <translation>The file contains no route.</translation>
    </message>
</context>
<context>
    <name>KRSegmentSplitter</name>
    <message>
        <source>Zerlegt wären es mehr als %1 Routen.</source>
        <translation>Split, these would be more than %1 routes.</translation>
    </message>
    <message>
        <source>Zerlegt hätten die Routen zu lange Namen und Beschreibungen (mehr als %1 Millionen Zeichen).</source>
        <translation>Split, the routes would have too long names and descriptions (more than %1 million characters).</translation>
    </message>
</context>
<context>
    <name>KRTiffDirectory</name>
    <message>
        <source>Das Bild ist ein TIFF mit zu viel neben seinen Pixeln.</source>
        <translation>The picture is a TIFF with too much beside its pixels.</translation>
    </message>
    <message>
        <source>Das Bild ist ein TIFF mit zu großen Kacheln oder Streifen.</source>
        <translation>The picture is a TIFF with tiles or strips that are too large.</translation>
    </message>
    <message>
        <source>Das Bild ist zu groß (mehr als %1 MB im Speicher).</source>
        <translation>The picture is too large (more than %1 MB in memory).</translation>
    </message>
</context>
<context>
    <name>KRTileDecoder</name>
    <message>
        <source>Eine Kachel ist weder PNG noch JPEG noch WebP.</source>
        <translation>A tile is neither PNG nor JPEG nor WebP.</translation>
    </message>
    <message>
        <source>Eine Kachel hat eine ungewöhnliche Größe.</source>
        <translation>A tile has an unusual size.</translation>
    </message>
    <message>
        <source>Eine Kachel ist beschädigt.</source>
        <translation>A tile is damaged.</translation>
    </message>
</context>
<context>
    <name>KRTileFolderSource</name>
    <message>
        <source>Der Ordner „%1“ ist nicht da.</source>
        <translation>The folder &quot;%1&quot; does not exist.</translation>
    </message>
    <message>
        <source>Der Ordner „%1“ ist nicht lesbar.</source>
        <translation>The folder &quot;%1&quot; cannot be read.</translation>
    </message>
    <message>
        <source>Der Ordner enthält keine Kacheln der Form Stufe/Spalte/Zeile.</source>
        <translation>The folder holds no tiles in the form z/x/y.</translation>
    </message>
</context>
<context>
    <name>KRTileGround</name>
    <message>
        <source>Die Quelle hat keine Kacheln für einen so großen Ausschnitt.</source>
        <translation>The source has no tiles for an area of this size.</translation>
    </message>
    <message>
        <source>Die Zeit reichte nicht.</source>
        <translation>There was not enough time.</translation>
    </message>
    <message>
        <source>Das System startet keinen weiteren Thread.</source>
        <translation>The system starts no further thread.</translation>
    </message>
</context>
<context>
    <name>KRTileMbtilesSource</name>
    <message>
        <source>Das ist keine MBTiles-Datei.</source>
        <translation>This is not an MBTiles file.</translation>
    </message>
    <message>
        <source>Auf diesem Rechner fehlt Qts Treiber für SQLite.</source>
        <translation>Qt&apos;s driver for SQLite is missing on this computer.</translation>
    </message>
    <message>
        <source>Die Datei kann nicht geöffnet werden: %1</source>
        <translation>The file cannot be opened: %1</translation>
    </message>
    <message>
        <source>Die Datei kann nicht gelesen werden: %1</source>
        <translation>The file cannot be read: %1</translation>
    </message>
    <message>
        <source>Die Datei enthält Vektoren und keine Bilder.</source>
        <translation>The file holds vectors, not pictures.</translation>
    </message>
    <message>
        <source>Eine Kachel ist zu groß.</source>
        <translation>A tile is too large.</translation>
    </message>
    <message>
        <source>Die Datei antwortet zu langsam.</source>
        <translation>The file answers too slowly.</translation>
    </message>
    <message>
        <source>„%1“ daneben ist keine gewöhnliche Datei.</source>
        <translation>&quot;%1&quot; beside it is no regular file.</translation>
    </message>
    <message>
        <source>Die Datei wurde verändert, während sie offen war.</source>
        <translation>The file was changed while it was open.</translation>
    </message>
    <message>
        <source>Die Datei braucht zu viel Speicher.</source>
        <translation>The file needs too much memory.</translation>
    </message>
    <message>
        <source>Die Datei rechnet ihre Kacheln aus, statt sie zu enthalten.</source>
        <translation>The file computes its tiles instead of holding them.</translation>
    </message>
</context>
<context>
    <name>KRTilePainter</name>
    <message>
        <source>Die Quelle hat dort keine Kacheln.</source>
        <translation>The source has no tiles there.</translation>
    </message>
    <message>
        <source>Die Zeit reichte nicht.</source>
        <translation>There was not enough time.</translation>
    </message>
</context>
<context>
    <name>KRTileTemplate</name>
    <message>
        <source>Die Vorlage braucht {z}, {x} und {y} oder {-y}.</source>
        <translation>The template needs {z}, {x} and {y} or {-y}.</translation>
    </message>
    <message>
        <source>Die Vorlage enthält „%1“, was niemand ersetzt.</source>
        <translation>The template holds &quot;%1&quot;, which nothing replaces.</translation>
    </message>
</context>
<context>
    <name>KRTileUrlSource</name>
    <message>
        <source>Der Server „%1“ ist nicht bekannt.</source>
        <translation>The server &quot;%1&quot; is not known.</translation>
    </message>
    <message>
        <source>Der Server „%1“ nimmt keine Verbindung an.</source>
        <translation>The server &quot;%1&quot; takes no connection.</translation>
    </message>
    <message>
        <source>Der Server „%1“ antwortet nicht.</source>
        <translation>The server &quot;%1&quot; does not answer.</translation>
    </message>
    <message>
        <source>Eine sichere Verbindung zu „%1“ kommt nicht zustande.</source>
        <translation>A secure connection to &quot;%1&quot; cannot be made.</translation>
    </message>
    <message>
        <source>Der Server „%1“ schickt im Kreis.</source>
        <translation>The server &quot;%1&quot; redirects in a circle.</translation>
    </message>
    <message>
        <source>Das ist keine Adresse.</source>
        <translation>This is not an address.</translation>
    </message>
    <message>
        <source>Nur Adressen mit http:// und https:// werden geladen.</source>
        <translation>Only addresses with http:// and https:// are loaded.</translation>
    </message>
    <message>
        <source>Auf diesem Rechner fehlt, was https:// braucht.</source>
        <translation>What https:// needs is missing on this computer.</translation>
    </message>
    <message>
        <source>Der Server antwortet mit %1.</source>
        <translation>The server answers with %1.</translation>
    </message>
    <message>
        <source>Eine Kachel ist zu groß.</source>
        <translation>A tile is too large.</translation>
    </message>
</context>
<context>
    <name>KRTrackFileReader</name>
    <message>
        <source>Die Datei enthält keine Route.</source>
        <translation>The file contains no route.</translation>
    </message>
</context>
<context>
    <name>KRTrackFileWriter</name>
    <message>
        <source>Die Route „%1“ ließe sich nicht wieder öffnen: %2</source>
        <translation>The route &quot;%1&quot; could not be opened again: %2</translation>
    </message>
</context>
<context>
    <name>KRXmlStream</name>
    <message>
        <source>Das Dokument wird nicht verstanden: %1</source>
        <translation>The document is not understood: %1</translation>
    </message>
    <message>
        <source>Kein lesbares XML: %1</source>
        <translation>No readable XML: %1</translation>
    </message>
    <message>
        <source>Das Dokument ist zu groß, um seine Fehler zu übergehen.</source>
        <translation>The document is too large for its faults to be passed over.</translation>
    </message>
    <message>
        <source>Ein Text ist zu lang.</source>
        <translation>A text is too long.</translation>
    </message>
    <message>
        <source>Ein Text ist zu zerstückelt.</source>
        <translation>A text is in too many pieces.</translation>
    </message>
</context>
</TS>
