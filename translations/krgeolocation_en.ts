<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="de_DE">
<context>
    <name>KRGPXBeelineCreator</name>
    <message>
        <source>Fluglinie</source>
        <translation>Flight line</translation>
    </message>
</context>
<context>
    <name>KRGPXStreamReader</name>
    <message>
        <source>Kein lesbares XML: %1</source>
        <translation>No readable XML: %1</translation>
    </message>
    <message>
        <source>Die Datei hat mehr als %1 Punkte.</source>
        <translation>The file has more than %1 points.</translation>
    </message>
    <message>
        <source>Die Datei hat mehr als %1 Strecken.</source>
        <translation>The file has more than %1 tracks.</translation>
    </message>
    <message>
        <source>Ein Text ist zu lang oder zu zerstückelt.</source>
        <translation>A text is too long or in too many pieces.</translation>
    </message>
    <message>
        <source>Die Namen und Beschreibungen sind zusammen zu lang.</source>
        <translation>The names and descriptions are too long in all.</translation>
    </message>
    <message>
        <source>Ein Text hat mehr als %1 Punkte.</source>
        <translation>A text has more than %1 points.</translation>
    </message>
    <message>
        <source>Die Datei hat mehr als %1 Segmente.</source>
        <translation>The file has more than %1 segments.</translation>
    </message>
</context>
<context>
    <name>KRGPXTokenStream</name>
    <message>
        <source>Ein Text oder ein Element ist zu groß.</source>
        <translation>A text or an element is too large.</translation>
    </message>
    <message>
        <source>Die Datei hat für das, was zu zeichnen ist, zu viel anderen Inhalt.</source>
        <translation>The file has too much other content for what there is to draw.</translation>
    </message>
    <message>
        <source>Große Dateien mit Dokumenttyp werden nicht gelesen.</source>
        <translation>Large files with a document type are not read.</translation>
    </message>
    <message>
        <source>Die Elemente haben zu viele Attribute.</source>
        <translation>The elements have too many attributes.</translation>
    </message>
    <message>
        <source>Die Elemente sind tiefer als %1 Ebenen geschachtelt.</source>
        <translation>The elements are nested more than %1 levels deep.</translation>
    </message>
</context>
<context>
    <name>KRGPXTrackListModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
</context>
<context>
    <name>KRGPXTrackMultiFunctionDelegateWidget</name>
    <message>
        <source>%1 bearbeiten</source>
        <translation>Edit %1</translation>
    </message>
    <message>
        <source>%1 löschen</source>
        <translation>Delete %1</translation>
    </message>
    <message>
        <source>&lt;b&gt;Zoome auf&lt;/b&gt; %1</source>
        <translation>&lt;b&gt;Zoom to&lt;/b&gt; %1</translation>
    </message>
    <message>
        <source>&lt;b&gt;Markiere&lt;/b&gt; %1</source>
        <translation>&lt;b&gt;Mark&lt;/b&gt; %1</translation>
    </message>
</context>
<context>
    <name>KRGPXTrackShape</name>
    <message>
        <source>unbekannt</source>
        <translation>unknown</translation>
    </message>
    <message>
        <source>Punkt</source>
        <translation>Point</translation>
    </message>
    <message>
        <source>Fluglinie</source>
        <translation>Flight line</translation>
    </message>
    <message>
        <source>Pfeil</source>
        <translation>Arrow</translation>
    </message>
    <message>
        <source>Strecke</source>
        <translation>Line</translation>
    </message>
    <message>
        <source>Fläche</source>
        <translation>Area</translation>
    </message>
    <message>
        <source>Automatisch erkannt</source>
        <translation>Detected automatically</translation>
    </message>
    <message>
        <source>Wir wissen die Form nicht.</source>
        <translation>We do not know the shape.</translation>
    </message>
    <message>
        <source>Ein Punkt kann als verschiedene vorgefertigte Formen gezeichnet werden.</source>
        <translation>A point can be drawn as one of several ready-made shapes.</translation>
    </message>
    <message>
        <source>Die beiden Punkt werden als Fluglinie betrachtet.</source>
        <translation>The two points are regarded as a flight line.</translation>
    </message>
    <message>
        <source>Alle Punkte werden zu einer Strecke verbunden.</source>
        <translation>All points are joined to a line.</translation>
    </message>
    <message>
        <source>Alle Punkte werden als Außenlinie einer Fläche betrachtet.</source>
        <translation>All points are regarded as the outline of an area.</translation>
    </message>
    <message>
        <source>Die Form wird automatisch erkannt.</source>
        <translation>The shape is detected automatically.</translation>
    </message>
</context>
<context>
    <name>KRGeoArcEdit</name>
    <message>
        <source>Nord</source>
        <comment>COMBOBOX  Coordinate/Nautical bearing</comment>
        <translation>North</translation>
    </message>
    <message>
        <source>Süd</source>
        <comment>COMBOBOX  Coordinate/Nautical bearing</comment>
        <translation>South</translation>
    </message>
    <message>
        <source>Ost</source>
        <comment>COMBOBOX  Coordinate/Nautical bearing</comment>
        <translation>East</translation>
    </message>
    <message>
        <source>West</source>
        <comment>COMBOBOX  Coordinate/Nautical bearing</comment>
        <translation>West</translation>
    </message>
</context>
<context>
    <name>KRLatitude</name>
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
    <name>KRLongitude</name>
    <message>
        <source>W</source>
        <comment>short for &apos;west&apos;</comment>
        <translation>W</translation>
    </message>
    <message>
        <source>E</source>
        <comment>short for &apos;east&apos;</comment>
        <translation>E</translation>
    </message>
</context>
<context>
    <name>KROsmScaleRenderer</name>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>%1 km</source>
        <translation>%1 km</translation>
    </message>
</context>
<context>
    <name>KRPreferencesGeoLocation</name>
    <message>
        <source>Landkarten</source>
        <translation>Maps</translation>
    </message>
    <message>
        <source>Wenn man ein Suchergebnis anklickt, soll es direkt in die Liste der Orte eingefügt werden.</source>
        <comment>CHECKBOX</comment>
        <translation>A click on a search result adds it to the list of places at once.</translation>
    </message>
    <message>
        <source>Alternativ wird hierfür ein Knopf angeboten, der explizit benutzt werden muss.</source>
        <translation>Otherwise there is a button that has to be used for it.</translation>
    </message>
</context>
<context>
    <name>KRTrackSelectionFactoryKmlFile</name>
    <message>
        <source>Das Archiv enthält keinen Eintrag „*.kml“.</source>
        <translation>The archive holds no entry &quot;*.kml&quot;.</translation>
    </message>
    <message>
        <source>Die Datei enthält keinen KML-Text.</source>
        <translation>The file holds no KML text.</translation>
    </message>
    <message>
        <source>Das Dokument hat kein Element „%1“.</source>
        <translation>The document has no element &quot;%1&quot;.</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>%1° %2′ %3″ Süd</source>
        <comment>Coordinate / Nautical Bearing  Latitude  Breite</comment>
        <translation>%1° %2′ %3″ South</translation>
    </message>
    <message>
        <source>%1° %2′ %3″ Nord</source>
        <comment>Coordinate / Nautical Bearing  Latitude  Breite</comment>
        <translation>%1° %2′ %3″ North</translation>
    </message>
    <message>
        <source>%1° %2′ %3″ West</source>
        <comment>Coordinate / Nautilal Bearing   Longitude/Länge</comment>
        <translation>%1° %2′ %3″ West</translation>
    </message>
    <message>
        <source>%1° %2′ %3″ Ost</source>
        <comment>Coordinate / Nautilal Bearing   Longitude/Länge</comment>
        <translation>%1° %2′ %3″ East</translation>
    </message>
    <message>
        <source>Datei für Route öffnen</source>
        <translation>Open route file</translation>
    </message>
</context>
</TS>
