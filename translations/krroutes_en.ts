<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="de_DE">
<context>
    <name>KRAutosave</name>
    <message>
        <source>Der Ordner für ungesicherte Änderungen kann nicht beschrieben werden.</source>
        <translation>The folder for unsaved changes cannot be written.</translation>
    </message>
</context>
<context>
    <name>KRColorButton</name>
    <message>
        <source>%1, zu %2 % deckend</source>
        <translation>%1, %2 % opaque</translation>
    </message>
</context>
<context>
    <name>KRCroppingControl</name>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>&amp;Umgebung:</source>
        <translation>S&amp;urroundings:</translation>
    </message>
    <message>
        <source>Wie deutlich die Karte außerhalb der Routen zu sehen ist</source>
        <translation>How clearly the map shows outside the routes</translation>
    </message>
</context>
<context>
    <name>KRDocumentActions</name>
    <message>
        <source>&amp;Neu</source>
        <translation>&amp;New</translation>
    </message>
    <message>
        <source>Ö&amp;ffnen …</source>
        <translation>&amp;Open …</translation>
    </message>
    <message>
        <source>&amp;Speichern</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>Speichern &amp;unter …</source>
        <translation>Save &amp;as …</translation>
    </message>
    <message>
        <source>Öffnet ein Routendokument oder fügt Routen aus anderen Dateien hinzu</source>
        <translation>Opens a route document or adds routes from other files</translation>
    </message>
    <message>
        <source>Unbenannt</source>
        <translation>Untitled</translation>
    </message>
    <message>
        <source>Ungesicherte Änderungen</source>
        <translation>Unsaved changes</translation>
    </message>
    <message>
        <source>Das Dokument „%1“ wurde geändert.</source>
        <translation>The document &quot;%1&quot; has been changed.</translation>
    </message>
    <message>
        <source>Sollen die Änderungen gespeichert werden?</source>
        <translation>Save the changes?</translation>
    </message>
    <message>
        <source>Öffnen</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Ein anderes Programm hat die Datei seit dem letzten Lesen oder Speichern geändert.</source>
        <translation>Another program has changed the file since it was last read or saved.</translation>
    </message>
    <message>
        <source>Speichern unter</source>
        <translation>Save as</translation>
    </message>
    <message>
        <source>Routendokumente (%1)</source>
        <translation>Route documents (%1)</translation>
    </message>
    <message>
        <source>Es gibt die Datei schon.</source>
        <translation>The file exists already.</translation>
    </message>
    <message>
        <source>Speichern</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>„%1“ kann nicht gespeichert werden. Die Änderungen sind noch da.

%2</source>
        <translation>&quot;%1&quot; cannot be saved. The changes are still there.

%2</translation>
    </message>
    <message>
        <source>„%1“ überschreiben?</source>
        <translation>Overwrite &quot;%1&quot;?</translation>
    </message>
    <message>
        <source>Ü&amp;berschreiben</source>
        <translation>&amp;Overwrite</translation>
    </message>
    <message>
        <source>„%1“ wird gespeichert …</source>
        <translation>Saving &quot;%1&quot; …</translation>
    </message>
</context>
<context>
    <name>KRExportDialog</name>
    <message>
        <source>&amp;Karte</source>
        <translation>&amp;Map</translation>
    </message>
    <message>
        <source>&amp;Legende</source>
        <translation>&amp;Legend</translation>
    </message>
    <message>
        <source>&amp;Namen der Routen</source>
        <translation>&amp;Names of the routes</translation>
    </message>
    <message>
        <source>Exportieren</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>&amp;Exportieren</source>
        <translation>&amp;Export</translation>
    </message>
    <message>
        <source>PNG-Bild</source>
        <translation>PNG picture</translation>
    </message>
    <message>
        <source>JPEG-Bild</source>
        <translation>JPEG picture</translation>
    </message>
    <message>
        <source>SVG-Zeichnung</source>
        <translation>SVG drawing</translation>
    </message>
    <message>
        <source>PDF-Dokument</source>
        <translation>PDF document</translation>
    </message>
    <message>
        <source>GPX: Routen für andere Programme</source>
        <translation>GPX: routes for other programs</translation>
    </message>
    <message>
        <source>KML: Routen mit Aussehen</source>
        <translation>KML: routes with their looks</translation>
    </message>
    <message>
        <source>KMZ: dasselbe gepackt</source>
        <translation>KMZ: the same, compressed</translation>
    </message>
    <message>
        <source>&amp;Wählen …</source>
        <translation>&amp;Choose …</translation>
    </message>
    <message>
        <source>Ziel</source>
        <translation>Target</translation>
    </message>
    <message>
        <source>&amp;Format:</source>
        <translation>&amp;Format:</translation>
    </message>
    <message>
        <source>&amp;Datei:</source>
        <translation>F&amp;ile:</translation>
    </message>
    <message>
        <source>wie auf der Karte</source>
        <translation>as on the map</translation>
    </message>
    <message>
        <source>alle Routen</source>
        <translation>all routes</translation>
    </message>
    <message>
        <source>Höhe in Pixeln</source>
        <translation>Height in pixels</translation>
    </message>
    <message>
        <source>Breite in Pixeln</source>
        <translation>Width in pixels</translation>
    </message>
    <message>
        <source>Pixel</source>
        <translation>pixels</translation>
    </message>
    <message>
        <source>Vergrößert Linien und Schrift, zum Beispiel 2 für hohe Auflösung.</source>
        <translation>Enlarges lines and lettering, for example 2 for high density.</translation>
    </message>
    <message>
        <source>Bild</source>
        <translation>Picture</translation>
    </message>
    <message>
        <source>&amp;Ausschnitt:</source>
        <translation>&amp;Area:</translation>
    </message>
    <message>
        <source>&amp;Größe:</source>
        <translation>&amp;Size:</translation>
    </message>
    <message>
        <source>&amp;Vergrößerung:</source>
        <translation>Sca&amp;le:</translation>
    </message>
    <message>
        <source>Es zeigt:</source>
        <translation>It shows:</translation>
    </message>
    <message>
        <source>Karte</source>
        <translation>Map</translation>
    </message>
    <message>
        <source>Es fehlt der Name der Datei.</source>
        <translation>The name of the file is missing.</translation>
    </message>
    <message>
        <source>„%1“ gibt es schon. Ersetzen?</source>
        <translation>&quot;%1&quot; exists already. Replace it?</translation>
    </message>
    <message>
        <source>Die Routen werden geschrieben …</source>
        <translation>Writing the routes …</translation>
    </message>
    <message>
        <source>Das Ergebnis ist zu groß für diesen Rechner oder dieses Format.</source>
        <translation>The result is too large for this computer or this format.</translation>
    </message>
    <message>
        <source>Es gibt nichts zu zeichnen.</source>
        <translation>There is nothing to draw.</translation>
    </message>
    <message>
        <source>Die Karte wird gezeichnet …</source>
        <translation>Drawing the map …</translation>
    </message>
    <message>
        <source>„%1“ kann nicht geschrieben werden.

%2</source>
        <translation>&quot;%1&quot; cannot be written.

%2</translation>
    </message>
    <message>
        <source>WebP-Bild</source>
        <translation>WebP picture</translation>
    </message>
    <message>
        <source>„%1“ wurde geschrieben. Darin fehlt, was dieses Format nicht aufnimmt:

%2</source>
        <translation>&quot;%1&quot; was written. It lacks what this format does not hold:

%2</translation>
    </message>
    <message>
        <source>Das Bild der Karte unter den Routen wäre zu groß; es ist gröber als verlangt.</source>
        <translation>The image of the map below the routes would be too large; it is coarser than asked for.</translation>
    </message>
</context>
<context>
    <name>KRFigureTexts</name>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>%1 km</source>
        <translation>%1 km</translation>
    </message>
    <message>
        <source>%1 km/h</source>
        <translation>%1 km/h</translation>
    </message>
    <message>
        <source>%1:%2:%3 h</source>
        <translation>%1:%2:%3 h</translation>
    </message>
</context>
<context>
    <name>KRFiguresPanel</name>
    <message>
        <source>Länge:</source>
        <translation>Length:</translation>
    </message>
    <message>
        <source>Anstieg:</source>
        <translation>Climb:</translation>
    </message>
    <message>
        <source>Abstieg:</source>
        <translation>Descent:</translation>
    </message>
    <message>
        <source>Höhen:</source>
        <translation>Elevations:</translation>
    </message>
    <message>
        <source>Punkte:</source>
        <translation>Points:</translation>
    </message>
    <message>
        <source>Segmente:</source>
        <translation>Segments:</translation>
    </message>
    <message>
        <source>Beginn:</source>
        <translation>Start:</translation>
    </message>
    <message>
        <source>Ende:</source>
        <translation>End:</translation>
    </message>
    <message>
        <source>Dauer:</source>
        <translation>Duration:</translation>
    </message>
    <message>
        <source>Durchschnitt:</source>
        <translation>Average:</translation>
    </message>
    <message>
        <source>Höchsttempo:</source>
        <translation>Top speed:</translation>
    </message>
    <message>
        <source>Wechsel zwischen auf und ab zählen ab %1 m, denn so weit schwanken Messungen.</source>
        <translation>Turns between up and down count from %1 m on, since measurements waver by that much.</translation>
    </message>
    <message>
        <source>Mit den Pausen innerhalb der Segmente, ohne die zwischen ihnen</source>
        <translation>With the pauses within segments, without those between them</translation>
    </message>
    <message>
        <source>Über wenigstens zehn Sekunden</source>
        <translation>Over at least ten seconds</translation>
    </message>
    <message>
        <source>%1 bis %2</source>
        <translation>%1 to %2</translation>
    </message>
</context>
<context>
    <name>KRFlightLineDialog</name>
    <message>
        <source>Von</source>
        <translation>From</translation>
    </message>
    <message>
        <source>Nach</source>
        <translation>To</translation>
    </message>
    <message>
        <source>Fluglinie</source>
        <translation>Flight line</translation>
    </message>
    <message>
        <source>Ein&amp;fügen</source>
        <translation>&amp;Add</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Breiten reichen bis 90°, Längen bis 180°. 0° und 0° gilt nicht als Ort.</source>
        <translation>Latitudes reach to 90°, longitudes to 180°. 0° and 0° is not a place.</translation>
    </message>
    <message>
        <source>Beide Orte sind derselbe.</source>
        <translation>Both places are the same.</translation>
    </message>
    <message>
        <source>Entfernung: %1</source>
        <translation>Distance: %1</translation>
    </message>
</context>
<context>
    <name>KRGapsWarning</name>
    <message numerus="yes">
        <source>Auf der Karte fehlen %n Kacheln.</source>
        <translation>
            <numerusform>%n tile is missing on the map.</numerusform>
            <numerusform>%n tiles are missing on the map.</numerusform>
        </translation>
    </message>
    <message>
        <source>Soll es ohne sie weitergehen?</source>
        <translation>Go on with what there is?</translation>
    </message>
    <message>
        <source>&amp;Trotzdem weiter</source>
        <translation>&amp;Go on anyway</translation>
    </message>
</context>
<context>
    <name>KRGroundChoice</name>
    <message>
        <source>Eingebaute Karte</source>
        <translation>Built-in map</translation>
    </message>
    <message>
        <source>Keine Karte</source>
        <translation>No map</translation>
    </message>
</context>
<context>
    <name>KRGroundDialog</name>
    <message>
        <source>Karte aus Kacheln</source>
        <translation>Map of tiles</translation>
    </message>
    <message>
        <source>Eine MBTiles-Datei, ein Ordner mit Stufe/Spalte/Zeile oder eine Adresse mit {z}, {x} und {y}; {-y} zählt die Zeilen von Süden.</source>
        <translation>An MBTiles file, a folder with z/x/y, or an address with {z}, {x} and {y}; {-y} counts the rows from the south.</translation>
    </message>
    <message>
        <source>&amp;Datei …</source>
        <translation>&amp;File …</translation>
    </message>
    <message>
        <source>&amp;Ordner …</source>
        <translation>F&amp;older …</translation>
    </message>
    <message>
        <source>&amp;Quelle:</source>
        <translation>&amp;Source:</translation>
    </message>
    <message>
        <source>Quellen&amp;angabe:</source>
        <translation>&amp;Credit:</translation>
    </message>
    <message>
        <source>MBTiles-Dateien (*.mbtiles);;Alle Dateien (*)</source>
        <translation>MBTiles files (*.mbtiles);;All files (*)</translation>
    </message>
    <message>
        <source>Datei mit Kacheln</source>
        <translation>File of tiles</translation>
    </message>
    <message>
        <source>Ordner mit Kacheln</source>
        <translation>Folder of tiles</translation>
    </message>
    <message>
        <source>Die Kacheln liegen auf diesem Rechner; es wird nichts aus dem Netz geladen.</source>
        <translation>The tiles lie on this computer; nothing is loaded from the network.</translation>
    </message>
    <message>
        <source>Was die Karte zeigt, wird von %1 geladen und auf diesem Rechner aufbewahrt. Wer dort Karten anbietet, erfährt dadurch, welche Gegend Sie betrachten, und verlangt meist eine Quellenangabe.</source>
        <translation>What the map shows is loaded from %1 and kept on this computer. Whoever offers maps there learns which region you look at, and mostly asks for a credit.</translation>
    </message>
</context>
<context>
    <name>KRGroundMenu</name>
    <message>
        <source>&amp;Karte</source>
        <translation>&amp;Map</translation>
    </message>
    <message>
        <source>&amp;Eingebaute Karte</source>
        <translation>&amp;Built-in map</translation>
    </message>
    <message>
        <source>&amp;Keine Karte</source>
        <translation>&amp;No map</translation>
    </message>
    <message>
        <source>Karte aus Ka&amp;cheln …</source>
        <translation>Map of &amp;tiles …</translation>
    </message>
    <message>
        <source>Liste &amp;leeren</source>
        <translation>&amp;Clear list</translation>
    </message>
</context>
<context>
    <name>KRImportReportDialog</name>
    <message>
        <source>Nicht alles wird gezeichnet</source>
        <translation>Not everything is drawn</translation>
    </message>
    <message>
        <source>Das Folgende fehlt auf der Karte; die Dateien bleiben, wie sie sind.</source>
        <translation>The following is missing on the map; the files stay as they are.</translation>
    </message>
    <message>
        <source>Datei und Grund</source>
        <translation>File and reason</translation>
    </message>
    <message>
        <source>Zeile</source>
        <translation>Line</translation>
    </message>
    <message>
        <source>Text &amp;kopieren</source>
        <translation>&amp;Copy text</translation>
    </message>
    <message numerus="yes">
        <source>… und %n weitere im kopierten Text</source>
        <translation>
            <numerusform>… and %n more in the copied text</numerusform>
            <numerusform>… and %n more in the copied text</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KRLookEditor</name>
    <message>
        <source>&amp;Linie zeichnen</source>
        <translation>&amp;Draw line</translation>
    </message>
    <message>
        <source>Farbe der Linie</source>
        <translation>Colour of the line</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>&amp;Strichart:</source>
        <translation>Pen &amp;style:</translation>
    </message>
    <message>
        <source>Wie die Linie gestrichelt wird</source>
        <translation>How the line is dashed</translation>
    </message>
    <message>
        <source>Breite des Hofes um die Linie; 0 für keinen</source>
        <translation>Width of the halo around the line; 0 for none</translation>
    </message>
    <message>
        <source>Fläche f&amp;üllen</source>
        <translation>F&amp;ill area</translation>
    </message>
    <message>
        <source>Nur Flächen und Punkte können gefüllt werden.</source>
        <translation>Only areas and points can be filled.</translation>
    </message>
    <message>
        <source>Farbe der Füllung</source>
        <translation>Colour of the filling</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>&amp;Glättung:</source>
        <translation>S&amp;moothing:</translation>
    </message>
    <message>
        <source>Wie weit die Punkte auf die geraden Linien zwischen den festen Punkten rücken</source>
        <translation>How far the points move onto the straight lines between the fixed points</translation>
    </message>
    <message>
        <source>Feste &amp;Punkte:</source>
        <translation>Fixed &amp;points:</translation>
    </message>
    <message>
        <source>Wie viele Punkte, gleichmäßig verteilt, beim Glätten ihren Ort behalten</source>
        <translation>How many points, evenly spread, keep their place in smoothing</translation>
    </message>
    <message>
        <source>Gibt allen Routen dieses Aussehen.</source>
        <translation>Gives all routes this look.</translation>
    </message>
    <message>
        <source>Als S&amp;tandard</source>
        <translation>As defaul&amp;t</translation>
    </message>
    <message>
        <source>Gibt neuen Routen dieses Aussehen.</source>
        <translation>Gives new routes this look.</translation>
    </message>
    <message>
        <source>für Punkte; die Form wird erkannt</source>
        <translation>for points; the shape is detected</translation>
    </message>
    <message>
        <source>Weder Linie noch Füllung wird gezeichnet: So ist nichts zu sehen.</source>
        <translation>Neither line nor filling is drawn: nothing can be seen.</translation>
    </message>
    <message>
        <source>Diese Form kann nicht gefüllt werden: Ohne Linie ist nichts zu sehen.</source>
        <translation>This shape cannot be filled: without a line nothing can be seen.</translation>
    </message>
    <message>
        <source>For&amp;m:</source>
        <translation>Sh&amp;ape:</translation>
    </message>
    <message>
        <source>Linie&amp;nfarbe:</source>
        <translation>&amp;Line colour:</translation>
    </message>
    <message>
        <source>Bre&amp;ite:</source>
        <translation>&amp;Width:</translation>
    </message>
    <message>
        <source>H&amp;of:</source>
        <translation>Hal&amp;o:</translation>
    </message>
    <message>
        <source>&amp;Füllfarbe:</source>
        <translation>Fill &amp;colour:</translation>
    </message>
    <message>
        <source>Für all&amp;e Routen</source>
        <translation>Appl&amp;y to all routes</translation>
    </message>
    <message>
        <source>Breite der Linie, bei Punkten auch die Größe des Markers</source>
        <translation>Width of the line, for points also the size of the marker</translation>
    </message>
</context>
<context>
    <name>KRMainWindow</name>
    <message>
        <source>&amp;Datei</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Beenden</source>
        <translation>&amp;Quit</translation>
    </message>
    <message>
        <source>Werkzeugleiste</source>
        <translation>Tool bar</translation>
    </message>
    <message>
        <source>&amp;Route</source>
        <translation>&amp;Route</translation>
    </message>
    <message>
        <source>&amp;Bearbeiten</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>&amp;Einstellungen …</source>
        <translation>&amp;Preferences …</translation>
    </message>
    <message>
        <source>&amp;Ansicht</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>&amp;Nächster Bereich</source>
        <translation>Ne&amp;xt area</translation>
    </message>
    <message>
        <source>&amp;Voriger Bereich</source>
        <translation>Previo&amp;us area</translation>
    </message>
    <message>
        <source>&amp;Hilfe</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>&amp;Über dieses Programm</source>
        <translation>&amp;About this program</translation>
    </message>
    <message>
        <source>Ungesicherte Änderungen sind nicht vor einem Absturz sicher: %1</source>
        <translation>Unsaved changes are not safe from a crash: %1</translation>
    </message>
    <message>
        <source>So werden neue Routen gezeichnet.</source>
        <translation>New routes are drawn like this.</translation>
    </message>
    <message>
        <source>Unbenannt</source>
        <translation>Untitled</translation>
    </message>
    <message>
        <source>%1[*] – Routen</source>
        <translation>%1[*] – Routes</translation>
    </message>
    <message>
        <source>Über dieses Programm</source>
        <translation>About this program</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Routen %1&lt;/h3&gt;&lt;p&gt;Zeigt, bearbeitet und druckt Routen und Orte auf einer Landkarte.&lt;/p&gt;&lt;p&gt;Eingebaute Karte: Made with Natural Earth.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Routes %1&lt;/h3&gt;&lt;p&gt;Shows, edits and prints routes and places on a map.&lt;/p&gt;&lt;p&gt;Built-in map: Made with Natural Earth.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Karte: %1</source>
        <translation>Map: %1</translation>
    </message>
    <message>
        <source>Das System startet keinen weiteren Thread, und ohne wird nichts gezeichnet.</source>
        <translation>The system starts no further thread, and nothing is drawn without one.</translation>
    </message>
</context>
<context>
    <name>KRMapActions</name>
    <message>
        <source>&amp;Alle Routen zeigen</source>
        <translation>&amp;All routes</translation>
    </message>
    <message>
        <source>Ver&amp;größern</source>
        <translation>Zoom &amp;in</translation>
    </message>
    <message>
        <source>Na&amp;men der Routen</source>
        <translation>&amp;Names of the routes</translation>
    </message>
    <message>
        <source>&amp;Legende</source>
        <translation>&amp;Legend</translation>
    </message>
    <message>
        <source>V&amp;erkleinern</source>
        <translation>Zoom &amp;out</translation>
    </message>
</context>
<context>
    <name>KRMapPrinter</name>
    <message>
        <source>Drucken</source>
        <translation>Print</translation>
    </message>
    <message>
        <source>Es gibt nichts zu drucken.</source>
        <translation>There is nothing to print.</translation>
    </message>
    <message>
        <source>Der Drucker nimmt die Karte nicht an.</source>
        <translation>The printer does not accept the map.</translation>
    </message>
    <message>
        <source>Die Karte kann nicht gezeichnet werden.</source>
        <translation>The map cannot be drawn.</translation>
    </message>
    <message>
        <source>Die Karte wird gezeichnet …</source>
        <translation>Drawing the map …</translation>
    </message>
    <message>
        <source>Die Karte wird gedruckt …</source>
        <translation>Printing the map …</translation>
    </message>
    <message>
        <source>Der Druck ließ sich nicht mehr abbrechen.</source>
        <translation>It was too late to cancel printing.</translation>
    </message>
</context>
<context>
    <name>KRMapView</name>
    <message>
        <source>Karte</source>
        <translation>Map</translation>
    </message>
    <message>
        <source>Pfeiltasten verschieben die Karte, Plus und Minus ändern den Maßstab, Pos1 zeigt alle Routen.</source>
        <translation>Arrow keys move the map, plus and minus change the scale, Home shows all routes.</translation>
    </message>
</context>
<context>
    <name>KROutputActions</name>
    <message>
        <source>&amp;Exportieren …</source>
        <translation>&amp;Export …</translation>
    </message>
    <message>
        <source>&amp;Drucken …</source>
        <translation>&amp;Print …</translation>
    </message>
    <message>
        <source>Schreibt die Karte als Bild oder die Routen für andere Programme</source>
        <translation>Writes the map as a picture, or the routes for other programs</translation>
    </message>
    <message>
        <source>„%1“ wurde geschrieben.</source>
        <translation>&quot;%1&quot; has been written.</translation>
    </message>
    <message>
        <source>Karte</source>
        <translation>Map</translation>
    </message>
</context>
<context>
    <name>KRPenStyleBox</name>
    <message>
        <source>durchgezogen</source>
        <translation>solid</translation>
    </message>
    <message>
        <source>gestrichelt</source>
        <translation>dashed</translation>
    </message>
    <message>
        <source>gepunktet</source>
        <translation>dotted</translation>
    </message>
    <message>
        <source>Strich, Punkt</source>
        <translation>dash, dot</translation>
    </message>
    <message>
        <source>Strich, Punkt, Punkt</source>
        <translation>dash, dot, dot</translation>
    </message>
</context>
<context>
    <name>KRPlaceActions</name>
    <message>
        <source>&amp;Ort …</source>
        <translation>&amp;Place …</translation>
    </message>
    <message>
        <source>&amp;Fluglinie …</source>
        <translation>&amp;Flight line …</translation>
    </message>
    <message>
        <source>&amp;Ort hier hinzufügen</source>
        <translation>Add &amp;place here</translation>
    </message>
    <message>
        <source>Ort</source>
        <translation>Place</translation>
    </message>
    <message>
        <source>&amp;Fluglinie von hier …</source>
        <translation>&amp;Flight line from here …</translation>
    </message>
    <message>
        <source>Ort „%1“ hinzufügen</source>
        <translation>Add place &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Fluglinie „%1“ hinzufügen</source>
        <translation>Add flight line &quot;%1&quot;</translation>
    </message>
</context>
<context>
    <name>KRPlaceEdit</name>
    <message>
        <source>Eigener Ort</source>
        <translation>Own place</translation>
    </message>
    <message>
        <source>Ort:</source>
        <translation>Place:</translation>
    </message>
    <message>
        <source>Breite:</source>
        <translation>Latitude:</translation>
    </message>
    <message>
        <source>Länge:</source>
        <translation>Longitude:</translation>
    </message>
</context>
<context>
    <name>KRPlacesPanel</name>
    <message>
        <source>Ort oder Koordinaten</source>
        <translation>Place or coordinates</translation>
    </message>
    <message>
        <source>Teil eines Namens, oder Koordinaten wie „N53.14 E8.21“ und „53,8,12N; 8,12,36E“</source>
        <translation>Part of a name, or coordinates such as &quot;N53.14 E8.21&quot; and &quot;53,8,12N; 8,12,36E&quot;</translation>
    </message>
    <message>
        <source>Gefundene Orte</source>
        <translation>Places found</translation>
    </message>
    <message>
        <source>Kein Ort gefunden. Auch Koordinaten wie „N53.14 E8.21“ werden verstanden.</source>
        <translation>No place found. Coordinates such as &quot;N53.14 E8.21&quot; are understood as well.</translation>
    </message>
    <message>
        <source>Ein Klick fügt den Ort als Punkt ein.</source>
        <translation>A click adds the place as a point.</translation>
    </message>
    <message>
        <source>Als Pun&amp;kt einfügen</source>
        <translation>Add as poi&amp;nt</translation>
    </message>
</context>
<context>
    <name>KRPreferencesDialog</name>
    <message>
        <source>Allgemein</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Karten und Orte</source>
        <translation>Maps and places</translation>
    </message>
    <message>
        <source>Routen</source>
        <translation>Routes</translation>
    </message>
    <message>
        <source>Einstellungen</source>
        <translation>Preferences</translation>
    </message>
</context>
<context>
    <name>KRPreferencesLook</name>
    <message>
        <source>Aussehen neuer Routen</source>
        <translation>Look of new routes</translation>
    </message>
    <message>
        <source>&amp;Zurücksetzen</source>
        <translation>&amp;Reset</translation>
    </message>
    <message>
        <source>Stellt das Aussehen her, das am Anfang galt.</source>
        <translation>Brings back the look of the beginning.</translation>
    </message>
</context>
<context>
    <name>KRProfileView</name>
    <message>
        <source>Höhenprofil</source>
        <translation>Elevation profile</translation>
    </message>
    <message>
        <source>Keine Route ausgewählt</source>
        <translation>No route selected</translation>
    </message>
    <message>
        <source>Die Route wird gelesen …</source>
        <translation>Reading the route …</translation>
    </message>
    <message>
        <source>Diese Route hat keine Höhenangaben.</source>
        <translation>This route has no elevations.</translation>
    </message>
    <message>
        <source>Ein einzelner Ort hat kein Höhenprofil.</source>
        <translation>A single place has no elevation profile.</translation>
    </message>
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
    <name>KRProgressDialog</name>
    <message>
        <source>Abbrechen</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Wird abgebrochen …</source>
        <translation>Cancelling …</translation>
    </message>
</context>
<context>
    <name>KRRecentFilesMenu</name>
    <message>
        <source>&amp;Zuletzt benutzt</source>
        <translation>&amp;Recent</translation>
    </message>
    <message>
        <source>Liste &amp;leeren</source>
        <translation>&amp;Clear list</translation>
    </message>
</context>
<context>
    <name>KRRecoveryOffer</name>
    <message>
        <source>Von einem noch nie gespeicherten Dokument sind Änderungen vom %1 übrig.</source>
        <translation>Changes of %1 are left of a document that was never saved.</translation>
    </message>
    <message>
        <source>Änderungen an „%1“ vom %2 wurden nicht gespeichert.</source>
        <translation>Changes to &quot;%1&quot; of %2 were not saved.</translation>
    </message>
    <message>
        <source>Ungesicherte Änderungen</source>
        <translation>Unsaved changes</translation>
    </message>
    <message>
        <source>Das Programm wurde zuletzt nicht ordentlich beendet. Was wiederhergestellt wird, steht erst nach dem Speichern in der Datei.</source>
        <translation>The program was not closed properly last time. What is recovered gets into the file only when it is saved.</translation>
    </message>
    <message>
        <source>&amp;Wiederherstellen</source>
        <translation>&amp;Recover</translation>
    </message>
    <message>
        <source>&amp;Verwerfen</source>
        <translation>&amp;Discard</translation>
    </message>
    <message>
        <source>&amp;Später</source>
        <translation>&amp;Later</translation>
    </message>
</context>
<context>
    <name>KRRouteLoader</name>
    <message>
        <source>Alle lesbaren Dateien (%1)</source>
        <translation>All readable files (%1)</translation>
    </message>
    <message>
        <source>Routendokumente (%1)</source>
        <translation>Route documents (%1)</translation>
    </message>
    <message>
        <source>Routen anderer Programme (%1)</source>
        <translation>Routes of other programs (%1)</translation>
    </message>
    <message>
        <source>Alle Dateien (*)</source>
        <translation>All files (*)</translation>
    </message>
    <message>
        <source>Dateien werden gelesen …</source>
        <translation>Reading files …</translation>
    </message>
    <message>
        <source>Routen öffnen</source>
        <translation>Open routes</translation>
    </message>
    <message>
        <source>„%1“ wird gelesen …</source>
        <translation>Reading &quot;%1&quot; …</translation>
    </message>
    <message>
        <source>Route hinzufügen</source>
        <translation>Add route</translation>
    </message>
    <message>
        <source>%1 Routen hinzufügen</source>
        <translation>Add %1 routes</translation>
    </message>
    <message>
        <source>Dokument öffnen</source>
        <translation>Open document</translation>
    </message>
    <message>
        <source>„%1“ kann nicht geöffnet werden.

%2</source>
        <translation>&quot;%1&quot; cannot be opened.

%2</translation>
    </message>
    <message>
        <source>Die Änderungen werden gelesen …</source>
        <translation>Reading the changes …</translation>
    </message>
    <message>
        <source>Ungesicherte Änderungen</source>
        <translation>Unsaved changes</translation>
    </message>
    <message>
        <source>Die Änderungen können nicht wiederhergestellt werden.

%1</source>
        <translation>The changes cannot be recovered.

%1</translation>
    </message>
</context>
<context>
    <name>KRRouteWorkspace</name>
    <message>
        <source>„%1“ löschen</source>
        <translation>Delete &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Reihenfolge ändern</source>
        <translation>Change order</translation>
    </message>
    <message>
        <source>Aussehen von „%1“ ändern</source>
        <translation>Change look of &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Aussehen aller Routen ändern</source>
        <translation>Change look of all routes</translation>
    </message>
    <message>
        <source>Deckkraft der Umgebung ändern</source>
        <translation>Change opacity of the surroundings</translation>
    </message>
</context>
<context>
    <name>KRSimplifyDialog</name>
    <message>
        <source>Route vereinfachen</source>
        <translation>Simplify route</translation>
    </message>
    <message>
        <source>Lässt Punkte weg, ohne die die Linie nirgends weiter als diesen Abstand von ihrem Ort rückt.</source>
        <translation>Leaves out points without which the line moves nowhere farther than this distance from its place.</translation>
    </message>
    <message>
        <source> m</source>
        <translation> m</translation>
    </message>
    <message>
        <source>Abstand</source>
        <translation>Distance</translation>
    </message>
    <message>
        <source>&amp;Vereinfachen</source>
        <translation>&amp;Simplify</translation>
    </message>
    <message>
        <source>&amp;Abstand:</source>
        <translation>&amp;Distance:</translation>
    </message>
    <message>
        <source>Die Route wird gemessen …</source>
        <translation>Measuring the route …</translation>
    </message>
    <message>
        <source>Von %1 Punkten bleiben %2.</source>
        <translation>Of %1 points %2 stay.</translation>
    </message>
    <message>
        <source>Alle %1 Punkte bleiben.</source>
        <translation>All %1 points stay.</translation>
    </message>
</context>
<context>
    <name>KRTrackActions</name>
    <message>
        <source>&amp;Auf der Karte zeigen</source>
        <translation>Show on the &amp;map</translation>
    </message>
    <message>
        <source>&amp;Umbenennen …</source>
        <translation>&amp;Rename …</translation>
    </message>
    <message>
        <source>&amp;Verdoppeln</source>
        <translation>D&amp;uplicate</translation>
    </message>
    <message>
        <source>&amp;Löschen</source>
        <translation>&amp;Delete</translation>
    </message>
    <message>
        <source>&amp;Richtung umkehren</source>
        <translation>Re&amp;verse direction</translation>
    </message>
    <message>
        <source>Am markierten Punkt &amp;teilen</source>
        <translation>&amp;Split at the marked point</translation>
    </message>
    <message>
        <source>Markiert wird ein Punkt im Höhenprofil oder mit der rechten Maustaste</source>
        <translation>A point is marked in the elevation profile or with the right mouse button</translation>
    </message>
    <message>
        <source>In Segmente &amp;zerlegen</source>
        <translation>Take apart into se&amp;gments</translation>
    </message>
    <message>
        <source>Mit der nächsten ver&amp;binden</source>
        <translation>&amp;Join with the next</translation>
    </message>
    <message>
        <source>Verein&amp;fachen …</source>
        <translation>S&amp;implify …</translation>
    </message>
    <message>
        <source>Nach &amp;oben</source>
        <translation>Move u&amp;p</translation>
    </message>
    <message>
        <source>Nach u&amp;nten</source>
        <translation>Move do&amp;wn</translation>
    </message>
    <message>
        <source>Route umbenennen</source>
        <translation>Rename route</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>„%1“ umbenennen</source>
        <translation>Rename &quot;%1&quot;</translation>
    </message>
    <message>
        <source>%1 (Kopie)</source>
        <translation>%1 (copy)</translation>
    </message>
    <message>
        <source>„%1“ verdoppeln</source>
        <translation>Duplicate &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Richtung von „%1“ umkehren</source>
        <translation>Reverse &quot;%1&quot;</translation>
    </message>
    <message>
        <source>„%1“ teilen</source>
        <translation>Split &quot;%1&quot;</translation>
    </message>
    <message>
        <source>„%1“ zerlegen</source>
        <translation>Take &quot;%1&quot; apart</translation>
    </message>
    <message>
        <source>„%1“ und „%2“ verbinden</source>
        <translation>Join &quot;%1&quot; and &quot;%2&quot;</translation>
    </message>
    <message>
        <source>„%1“ vereinfachen</source>
        <translation>Simplify &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Zerlegen</source>
        <translation>Split</translation>
    </message>
</context>
<context>
    <name>KRTrackListView</name>
    <message>
        <source>Route %1</source>
        <translation>Route %1</translation>
    </message>
    <message>
        <source>Noch keine Routen. Dateien öffnen oder hierher ziehen.</source>
        <translation>No routes yet. Open files or drag them here.</translation>
    </message>
</context>
<context>
    <name>KRViewerDocks</name>
    <message>
        <source>&amp;Routen</source>
        <translation>&amp;Routes</translation>
    </message>
    <message>
        <source>&amp;Orte</source>
        <translation>&amp;Places</translation>
    </message>
    <message>
        <source>&amp;Höhenprofil</source>
        <translation>&amp;Elevation profile</translation>
    </message>
    <message>
        <source>A&amp;ussehen</source>
        <translation>&amp;Look</translation>
    </message>
    <message>
        <source>Kenn&amp;zahlen</source>
        <translation>&amp;Figures</translation>
    </message>
</context>
<context>
    <name>KRViewerOptions</name>
    <message>
        <source>Zeigt diese Hilfe.</source>
        <translation>Shows this help.</translation>
    </message>
    <message>
        <source>Zeigt die Version.</source>
        <translation>Shows the version.</translation>
    </message>
    <message>
        <source>Routendokumente, GPX-, KML- und KMZ-Dateien.</source>
        <translation>Route documents, GPX, KML and KMZ files.</translation>
    </message>
    <message>
        <source>Zeigt und bearbeitet Routen und Orte auf einer Landkarte.
Ein einzelnes Routendokument wird geöffnet; Routen aus anderen Dateien kommen hinzu.</source>
        <translation>Shows and edits routes and places on a map.
A single route document is opened; routes from other files are added.</translation>
    </message>
</context>
</TS>
