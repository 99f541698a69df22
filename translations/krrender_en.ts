<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="de_DE">
<context>
    <name>KRPlaceTable</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Breite</source>
        <translation>Latitude</translation>
    </message>
    <message>
        <source>Länge</source>
        <translation>Longitude</translation>
    </message>
</context>
<context>
    <name>KRRenderOptions</name>
    <message>
        <source>Es fehlt eine Datei.</source>
        <translation>A file is missing.</translation>
    </message>
    <message>
        <source>Zeichnet Routen auf eine Landkarte.</source>
        <translation>Draws routes onto a map.</translation>
    </message>
    <message>
        <source>Größe des Bildes in Pixeln (1600x1200).</source>
        <translation>Size of the picture in pixels (1600x1200).</translation>
    </message>
    <message>
        <source>Vergrößert Linien und Schrift, zum Beispiel 2 für hohe Auflösung.</source>
        <translation>Enlarges lines and lettering, for example 2 for high density.</translation>
    </message>
    <message>
        <source>Ausschnitt von der Nordwest- zur Südostecke, zum Beispiel „N53.5 E8.0 .. N53.0 E9.0“. Ohne Angabe der, in dem die Routen liegen.</source>
        <translation>Area from its north-western to its south-eastern corner, for example &quot;N53.5 E8.0 .. N53.0 E9.0&quot;. By default the one that the routes cover.</translation>
    </message>
    <message>
        <source>Linienfarbe: #RRGGBB, #AARRGGBB oder ein Name.</source>
        <translation>Line colour: #RRGGBB, #AARRGGBB or a name.</translation>
    </message>
    <message>
        <source>Linienbreite in Pixeln.</source>
        <translation>Line width in pixels.</translation>
    </message>
    <message>
        <source>Füllfarbe von Flächen und Markern.</source>
        <translation>Fill colour of areas and markers.</translation>
    </message>
    <message>
        <source>Breite des Hofes um die Linien in Pixeln, 0 für keinen.</source>
        <translation>Width of the halo around the lines in pixels, 0 for none.</translation>
    </message>
    <message>
        <source>Marker für Punkte: disk, circle, x, block, rhombus, star6, star9, star12; arrow für Pfeile an Strecken.</source>
        <translation>Marker of points: disk, circle, x, block, rhombus, star6, star9, star12; arrow for arrow heads on lines.</translation>
    </message>
    <message>
        <source>Form: auto, point, linestring, polygon oder hop.</source>
        <translation>Shape: auto, point, linestring, polygon or hop.</translation>
    </message>
    <message>
        <source>Was von Flächen und Markern gezeichnet wird: stroke, fill oder stroke,fill.</source>
        <translation>What is drawn of areas and markers: stroke, fill or stroke,fill.</translation>
    </message>
    <message>
        <source>Linienart: solid, dash, dot, dashdot oder dashdotdot.</source>
        <translation>Pen style: solid, dash, dot, dashdot or dashdotdot.</translation>
    </message>
    <message>
        <source>Glättet Strecken: Stärke von 100 (gar nicht) bis 0 (ganz gerade), nach einem Komma die Zahl der Abschnitte.</source>
        <translation>Smooths lines: strength from 100 (not at all) to 0 (straight), after a comma the number of stretches.</translation>
    </message>
    <message>
        <source>Zeichenart: styled, opaque oder halo.</source>
        <translation>Way of drawing: styled, opaque or halo.</translation>
    </message>
    <message>
        <source>Deckkraft der Karte außerhalb der Routen, 0 bis 255.</source>
        <translation>Opacity of the map outside the routes, 0 to 255.</translation>
    </message>
    <message>
        <source>Ein Bild als Karte des Ausschnitts.</source>
        <translation>A picture as the map of the area.</translation>
    </message>
    <message>
        <source>Keine Karte, durchsichtiger Grund.</source>
        <translation>No map, transparent ground.</translation>
    </message>
    <message>
        <source>Gibt eine Tabelle der Routen aus, statt zu zeichnen.</source>
        <translation>Prints a table of the routes instead of drawing them.</translation>
    </message>
    <message>
        <source>Gibt dasselbe als JSON aus.</source>
        <translation>Prints the same as JSON.</translation>
    </message>
    <message>
        <source>Meldet nur Fehler.</source>
        <translation>Reports errors only.</translation>
    </message>
    <message>
        <source>Meldet jeden Schritt.</source>
        <translation>Reports every step.</translation>
    </message>
    <message>
        <source>Zeigt diese Hilfe.</source>
        <translation>Shows this help.</translation>
    </message>
    <message>
        <source>Zeigt die Version.</source>
        <translation>Shows the version.</translation>
    </message>
    <message>
        <source>--area: „%1“ ist kein Ausschnitt wie „N53.5 E8.0 .. N53.0 E9.0“.</source>
        <translation>--area: &quot;%1&quot; is no area such as &quot;N53.5 E8.0 .. N53.0 E9.0&quot;.</translation>
    </message>
    <message>
        <source>--render: „%1“ ist keine Zeichenart (styled, opaque, halo).</source>
        <translation>--render: &quot;%1&quot; is no way of drawing (styled, opaque, halo).</translation>
    </message>
    <message>
        <source>--crop: „%1“ ist keine Deckkraft von 0 bis 255.</source>
        <translation>--crop: &quot;%1&quot; is no opacity from 0 to 255.</translation>
    </message>
    <message>
        <source>„%1“ wird gelesen und nicht überschrieben.</source>
        <translation>&quot;%1&quot; is read and will not be overwritten.</translation>
    </message>
    <message>
        <source>Speichert die Routen mit ihrem Aussehen als Routendokument (.krroute), ihre Punkte in einem Ordner daneben.</source>
        <translation>Saves the routes with their looks as a route document (.krroute), and their points in a folder beside it.</translation>
    </message>
    <message>
        <source>Zeichnet die Fluglinie zwischen zwei Orten, zum Beispiel „Oldenburg .. Sydney“ oder „N53.1 E8.2 .. S33.9 E151.2“; auch mehrmals.</source>
        <translation>Draws the flight line between two places, for example &quot;Oldenburg .. Sydney&quot; or &quot;N53.1 E8.2 .. S33.9 E151.2&quot;; may be repeated.</translation>
    </message>
    <message>
        <source>Gibt jeder Route eine eigene, gut unterscheidbare Farbe.</source>
        <translation>Gives each route a colour of its own, easy to tell from the others.</translation>
    </message>
    <message>
        <source>Kein Maßstab auf der Karte.</source>
        <translation>No scale bar on the map.</translation>
    </message>
    <message>
        <source>Keine Quellenangabe auf der Karte.</source>
        <translation>No credit of the map data on the map.</translation>
    </message>
    <message>
        <source>Nennt die Orte, die mit Namen bekannt sind.</source>
        <translation>Lists the places that are known by name.</translation>
    </message>
    <message>
        <source>Routen (GPX, KML, KMZ oder ein Routendokument), eine oder mehrere.</source>
        <translation>Routes (GPX, KML, KMZ or a route document), one or more.</translation>
    </message>
    <message>
        <source>Liest aus GPX nur Aufzeichnungen (trk) und aus KML nur einfache Ortsmarken, ohne zu sagen, was fehlt.</source>
        <translation>Reads only tracks from GPX and only simple placemarks from KML, and does not tell what is missing.</translation>
    </message>
    <message>
        <source>Macht jedes Segment zu einer eigenen Route, ohne Linie über die Pausen.</source>
        <translation>Makes each segment a route of its own, without a line across the pauses.</translation>
    </message>
    <message>
        <source>Endet mit 1, wenn etwas in einer Datei nicht gezeichnet werden kann.</source>
        <translation>Exits with 1 when something in a file cannot be drawn.</translation>
    </message>
    <message>
        <source>Bilddatei: PNG, JPEG, WebP, SVG oder PDF nach der Endung; „-“ schreibt PNG auf die Standardausgabe. Ohne Angabe steht das Bild mit dem Namen der ersten Datei im aktuellen Ordner. Mit der Endung gpx, kml oder kmz werden statt eines Bildes die Routen geschrieben, so dass andere Programme sie lesen.</source>
        <translation>Picture file: PNG, JPEG, WebP, SVG or PDF by its suffix; &quot;-&quot; writes PNG to standard output. By default the picture is named after the first file and lies in the current folder. With the suffix gpx, kml or kmz the routes are written instead of a picture, so that other programs can read them.</translation>
    </message>
    <message>
        <source>Eine Karte aus Kacheln: eine MBTiles-Datei, ein Ordner mit Stufe/Spalte/Zeile oder eine Adresse mit {z}, {x} und {y}. Nur mit einer Adresse wird etwas aus dem Netz geladen.</source>
        <translation>A map of tiles: an MBTiles file, a folder with z/x/y, or an address with {z}, {x} and {y}. Nothing is loaded from the network unless it is an address.</translation>
    </message>
    <message>
        <source>Quellenangabe der Kacheln, anstatt der in der MBTiles-Datei.</source>
        <translation>Credit of the tiles, instead of that in the MBTiles file.</translation>
    </message>
    <message>
        <source>Nennt die Routen mit ihrem Aussehen in einem Kasten oben rechts.</source>
        <translation>Names the routes with their looks in a box at the top right.</translation>
    </message>
    <message>
        <source>Schreibt die Namen der Routen neben ihre Linien.</source>
        <translation>Writes the names of the routes beside their lines.</translation>
    </message>
    <message>
        <source>--map, --tiles und --no-map schließen einander aus.</source>
        <translation>--map, --tiles and --no-map exclude each other.</translation>
    </message>
    <message>
        <source>--tiles-credit braucht --tiles.</source>
        <translation>--tiles-credit needs --tiles.</translation>
    </message>
    <message>
        <source>--save: „%1“ endet nicht auf „.%2“; Bilder, GPX und KML schreibt „-o“.</source>
        <translation>--save: &quot;%1&quot; does not end in &quot;.%2&quot;; pictures, GPX and KML are written by &quot;-o&quot;.</translation>
    </message>
    <message>
        <source>„%1“ ist ein Routendokument; das schreibt „--save“.</source>
        <translation>&quot;%1&quot; is a route document; that is written by &quot;--save&quot;.</translation>
    </message>
    <message>
        <source>„%1“ hat keine bekannte Endung (%2).</source>
        <translation>&quot;%1&quot; has no known suffix (%2).</translation>
    </message>
    <message>
        <source>--format: „%1“ ist kein bekanntes Format (%2).</source>
        <translation>--format: &quot;%1&quot; is no known format (%2).</translation>
    </message>
    <message>
        <source>--format gilt nicht für --save und braucht daneben „-o“.</source>
        <translation>--format does not apply to --save and needs &quot;-o&quot; beside it.</translation>
    </message>
    <message>
        <source>--list und --json schreiben keine Datei; „-o“ und „--save“ gehören nicht dazu.</source>
        <translation>--list and --json write no file; &quot;-o&quot; and &quot;--save&quot; do not go with them.</translation>
    </message>
    <message>
        <source>„%1“ ist kein gültiges UTF-8.</source>
        <translation>&quot;%1&quot; is not valid UTF-8.</translation>
    </message>
    <message>
        <source>--%1 braucht eine Angabe.</source>
        <translation>--%1 needs a value.</translation>
    </message>
    <message>
        <source>--beeline: „%1“ nennt nicht zwei Orte wie „Oldenburg .. Sydney“; N0 E0 gilt als keiner.</source>
        <translation>--beeline: &quot;%1&quot; does not name two places such as &quot;Oldenburg .. Sydney&quot;; N0 E0 counts as none.</translation>
    </message>
    <message>
        <source>--scale: „%1“ ist keine Zahl von %2 bis %3.</source>
        <translation>--scale: &quot;%1&quot; is no number from %2 to %3.</translation>
    </message>
    <message>
        <source>„%1“ gehört zum Routendokument „%2“.</source>
        <translation>&quot;%1&quot; belongs to the route document &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>Format der Ausgabe, unabhängig von der Endung: png, jpeg, webp, svg, pdf, gpx, kml oder kmz; auch mit „-“.</source>
        <translation>Format of the output, whatever its suffix: png, jpeg, webp, svg, pdf, gpx, kml or kmz; also with &quot;-&quot;.</translation>
    </message>
    <message>
        <source>--size: „%1“ ist keine Größe wie 1600x1200, mit Seiten bis %2.</source>
        <translation>--size: &quot;%1&quot; is no size such as 1600x1200, with sides of up to %2.</translation>
    </message>
    <message>
        <source>Der Name einer Datei ist leer.</source>
        <translation>The name of a file is empty.</translation>
    </message>
    <message>
        <source>Zeichnet auch Routen, für die das Bild sehr lange dauert.</source>
        <translation>Also draws routes with which the picture takes very long.</translation>
    </message>
    <message>
        <source>--%1 kann nur einmal angegeben werden.</source>
        <translation>--%1 can be given only once.</translation>
    </message>
    <message>
        <source>„%1“ gehört zu den Kacheln „%2“, die gelesen werden.</source>
        <translation>&quot;%1&quot; belongs to the tiles &quot;%2&quot;, which are read.</translation>
    </message>
</context>
<context>
    <name>KRRenderProgram</name>
    <message>
        <source>„krrender --help“ nennt alle Möglichkeiten.</source>
        <translation>&quot;krrender --help&quot; lists all options.</translation>
    </message>
    <message>
        <source>%1/%2 %3 wird gelesen</source>
        <translation>%1/%2 reading %3</translation>
    </message>
    <message>
        <source>Die Route „%1“ hat keine Position.</source>
        <translation>The route &quot;%1&quot; has no position.</translation>
    </message>
    <message>
        <source>Es gibt nichts zu zeichnen.</source>
        <translation>There is nothing to draw.</translation>
    </message>
    <message>
        <source>Die Karte wird gezeichnet</source>
        <translation>Drawing the map</translation>
    </message>
    <message>
        <source>in %1 ms gezeichnet</source>
        <translation>drawn in %1 ms</translation>
    </message>
    <message>
        <source>Routen: %1, in %2 ms gelesen</source>
        <translation>Routes: %1, read in %2 ms</translation>
    </message>
    <message>
        <source>Es gibt nichts zu schreiben.</source>
        <translation>There is nothing to write.</translation>
    </message>
    <message>
        <source>Die Standardausgabe nimmt das Ergebnis nicht an.</source>
        <translation>Standard output does not take the result.</translation>
    </message>
    <message>
        <source>Fehlende Kacheln: %1. %2</source>
        <translation>Missing tiles: %1. %2</translation>
    </message>
    <message>
        <source>Das System startet keinen weiteren Thread, und ohne wird nicht gezeichnet.</source>
        <translation>The system starts no further thread, and without one nothing is drawn.</translation>
    </message>
    <message>
        <source>Bilder im Format %1 haben höchstens %2 Pixel je Seite.</source>
        <translation>Pictures of the format %1 have at most %2 pixels a side.</translation>
    </message>
    <message>
        <source>Die Karte wird gezeichnet; fehlende Kacheln: %1</source>
        <translation>The map is drawn; missing tiles: %1</translation>
    </message>
    <message>
        <source>Das Ergebnis kann nicht als %1 geschrieben werden; vielleicht ist es zu groß für diesen Rechner.</source>
        <translation>The result cannot be written as %1; perhaps it is too large for this computer.</translation>
    </message>
    <message>
        <source>Das Bild ist zu groß für eine ebenso große Karte; --size gibt ihr eine andere Größe.</source>
        <translation>The picture is too large for a map as large; --size gives it another size.</translation>
    </message>
    <message>
        <source>Das Bild der Karte unter den Routen wäre zu groß; es ist gröber als verlangt.</source>
        <translation>The image of the map below the routes would be too large; it is coarser than asked for.</translation>
    </message>
    <message>
        <source>Nicht gezeichnete Routen: %1. Das Bild würde mit ihnen sehr lange dauern; --patient zeichnet sie.</source>
        <translation>Routes that are not drawn: %1. The picture would take very long with them; --patient draws them.</translation>
    </message>
    <message>
        <source>Die Routen sind deckend und ohne Halo gezeichnet. Das PDF würde mit ihnen sonst sehr lange dauern; --patient zeichnet sie wie verlangt.</source>
        <translation>The routes are drawn opaque and without halos. The PDF would take very long otherwise; --patient draws them as asked for.</translation>
    </message>
</context>
<context>
    <name>KRTrackLook</name>
    <message>
        <source>„%1“ ist keine Farbe (#RRGGBB, #AARRGGBB oder ein Name wie „red“).</source>
        <translation>&quot;%1&quot; is no colour (#RRGGBB, #AARRGGBB or a name such as &quot;red&quot;).</translation>
    </message>
    <message>
        <source>„%1“ ist keine Breite in Pixeln (0 bis %2).</source>
        <translation>&quot;%1&quot; is no width in pixels (0 to %2).</translation>
    </message>
    <message>
        <source>„%1“ ist kein Marker (%2).</source>
        <translation>&quot;%1&quot; is no marker (%2).</translation>
    </message>
    <message>
        <source>„%1“ ist keine Form (%2).</source>
        <translation>&quot;%1&quot; is no shape (%2).</translation>
    </message>
    <message>
        <source>„%1“ ist keine Darstellung (%2, auch beides mit Komma).</source>
        <translation>&quot;%1&quot; is no display (%2, or both with a comma).</translation>
    </message>
    <message>
        <source>„%1“ ist keine Linienart (%2).</source>
        <translation>&quot;%1&quot; is no pen style (%2).</translation>
    </message>
    <message>
        <source>„%1“ ist keine Glättung (Stärke 0 bis 100, wobei 100 nichts ändert, und nach einem Komma die Zahl der Abschnitte).</source>
        <translation>&quot;%1&quot; is no smoothing (strength 0 to 100, where 100 changes nothing, and after a comma the number of stretches).</translation>
    </message>
</context>
<context>
    <name>KRTrackTable</name>
    <message>
        <source>Nr.</source>
        <translation>No.</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>Shape</translation>
    </message>
    <message>
        <source>Segmente</source>
        <translation>Segments</translation>
    </message>
    <message>
        <source>Punkte</source>
        <translation>Points</translation>
    </message>
    <message>
        <source>Länge (km)</source>
        <translation>Length (km)</translation>
    </message>
    <message>
        <source>von</source>
        <translation>from</translation>
    </message>
    <message>
        <source>bis</source>
        <translation>to</translation>
    </message>
    <message>
        <source>Ausschnitt (NW .. SO)</source>
        <translation>Area (NW .. SE)</translation>
    </message>
    <message>
        <source>Anstieg (m)</source>
        <translation>Climb (m)</translation>
    </message>
</context>
</TS>
