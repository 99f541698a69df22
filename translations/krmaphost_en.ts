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
    <name>KRGpxImport</name>
    <message>
        <source>Die Datei kann nicht umgeschrieben werden: %1</source>
        <translation>The file cannot be rewritten: %1</translation>
    </message>
</context>
<context>
    <name>KRGpxPreparation</name>
    <message>
        <source>Wegpunkt %1</source>
        <translation>Way point %1</translation>
    </message>
    <message>
        <source>Route %1</source>
        <translation>Route %1</translation>
    </message>
    <message>
        <source>Die Datei hat mehr als %1 Wegpunkte und Punkte von Routen.</source>
        <translation>The file has more than %1 way points and points of routes.</translation>
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
        <translation>way point without a readable position</translation>
    </message>
    <message>
        <source>Wegpunkte ohne lesbare Position</source>
        <translation>way points without a readable position</translation>
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
    <name>KRKmlPreparation</name>
    <message>
        <source>Die Datei hat mehr als %1 Positionen.</source>
        <translation>The file has more than %1 positions.</translation>
    </message>
    <message>
        <source>Die Datei hat mehr als %1 Figuren.</source>
        <translation>The file has more than %1 figures.</translation>
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
    <name>KRRouteDocument</name>
    <message>
        <source>Das ist kein Routendokument.</source>
        <translation>This is no route document.</translation>
    </message>
    <message>
        <source>Der Ordner für die Strecken kann nicht angelegt werden.</source>
        <translation>The folder for the tracks cannot be created.</translation>
    </message>
    <message>
        <source>Die Strecke kann nicht gespeichert werden.</source>
        <translation>The track cannot be saved.</translation>
    </message>
</context>
<context>
    <name>KRRouteImport</name>
    <message>
        <source>Dieses Dateiformat wird nicht unterstützt (lesbar sind %1).</source>
        <translation>This file format is not supported (readable are %1).</translation>
    </message>
    <message>
        <source>Die Datei enthält keine Strecke.</source>
        <translation>The file holds no track.</translation>
    </message>
</context>
<context>
    <name>KRXmlStream</name>
    <message>
        <source>Die Elemente haben zu viele Attribute.</source>
        <translation>The elements have too many attributes.</translation>
    </message>
    <message>
        <source>Das Dokument wird nicht verstanden: %1</source>
        <translation>The document is not understood: %1</translation>
    </message>
</context>
</TS>
