<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_GB" sourcelanguage="de_DE">
<context>
    <name>KRFileHandler</name>
    <message>
        <source>Die Datei ist zu groß (mehr als %1 MB).</source>
        <translation>The file is too large (more than %1 MB).</translation>
    </message>
    <message>
        <source>Die Verknüpfung führt zu keiner Datei.</source>
        <translation>The link leads to no file.</translation>
    </message>
    <message>
        <source>Die Datei wurde nicht gefunden.</source>
        <translation>The file was not found.</translation>
    </message>
    <message>
        <source>Das ist ein Ordner und keine Datei.</source>
        <translation>This is a folder, not a file.</translation>
    </message>
    <message>
        <source>Das ist keine gewöhnliche Datei.</source>
        <translation>This is not a regular file.</translation>
    </message>
    <message>
        <source>Die Datei kann nicht gelesen werden: %1</source>
        <translation>The file cannot be read: %1</translation>
    </message>
    <message>
        <source>Die Datei hat zu viele Zeilen (mehr als %1).</source>
        <translation>The file has too many lines (more than %1).</translation>
    </message>
</context>
<context>
    <name>KRFileState</name>
    <message>
        <source>Die Datei wurde geändert, während sie gelesen wurde.</source>
        <translation>The file was changed while it was read.</translation>
    </message>
</context>
<context>
    <name>KRSettings</name>
    <message>
        <source>Die Einstellungen konnten nicht gespeichert werden.</source>
        <translation>The settings could not be saved.</translation>
    </message>
    <message>
        <source>Das kann keine Datei mit Einstellungen sein; es gelten die üblichen.</source>
        <translation>This cannot be a file of settings; the usual ones apply.</translation>
    </message>
</context>
<context>
    <name>KRXMLBuilder</name>
    <message>
        <source>Es wäre größer als %1 MB.</source>
        <translation>It would be larger than %1 MB.</translation>
    </message>
</context>
<context>
    <name>KRXMLGuard</name>
    <message>
        <source>Die Elemente sind tiefer als %1 Ebenen geschachtelt.</source>
        <translation>The elements are nested more than %1 levels deep.</translation>
    </message>
    <message>
        <source>Das Dokument hat mehr als %1 Knoten.</source>
        <translation>The document has more than %1 nodes.</translation>
    </message>
    <message>
        <source>Die Entitäten des Dokuments werden zu lang.</source>
        <translation>The entities of the document grow too long.</translation>
    </message>
    <message>
        <source>Kein lesbares XML: %1</source>
        <translation>No readable XML: %1</translation>
    </message>
    <message>
        <source>Ein Name, ein Attribut oder ein Kommentar ist zu lang.</source>
        <translation>A name, an attribute or a comment is too long.</translation>
    </message>
    <message>
        <source>Der Dokumenttyp hat mehr als %1 Vereinbarungen.</source>
        <translation>The document type has more than %1 declarations.</translation>
    </message>
    <message>
        <source>Die Elemente haben zu viele Attribute.</source>
        <translation>The elements have too many attributes.</translation>
    </message>
    <message>
        <source>Der Dokumenttyp hat Parameter-Entitäten.</source>
        <translation>The document type has parameter entities.</translation>
    </message>
    <message>
        <source>Die Texte des Dokuments haben mehr als %1 Wörter.</source>
        <translation>The texts of the document have more than %1 words.</translation>
    </message>
    <message>
        <source>Die Datei ist leer.</source>
        <translation>The file is empty.</translation>
    </message>
    <message>
        <source>Das Dokument hat mehr als %1 Verweise auf Zeichen und Entitäten.</source>
        <translation>The document has more than %1 references to characters and entities.</translation>
    </message>
    <message>
        <source>Der Dokumenttyp ist zu tief geschachtelt.</source>
        <translation>The document type is nested too deeply.</translation>
    </message>
    <message>
        <source>Ein Element oder ein Kommentar ist zu lang.</source>
        <translation>An element or a comment is too long.</translation>
    </message>
    <message>
        <source>Die XML-Deklaration ist zu lang.</source>
        <translation>The XML declaration is too long.</translation>
    </message>
    <message>
        <source>Ein Text hat ein zu langes Wort oder zu viele Leerzeichen.</source>
        <translation>A text has too long a word or too many blanks.</translation>
    </message>
</context>
<context>
    <name>KRZIP</name>
    <message>
        <source>zwei Einträge haben denselben Namen</source>
        <translation>two entries have the same name</translation>
    </message>
    <message>
        <source>seine Angaben sind unvollständig</source>
        <translation>its details are incomplete</translation>
    </message>
    <message>
        <source>er ist verschlüsselt</source>
        <translation>it is encrypted</translation>
    </message>
    <message>
        <source>sein Packverfahren wird nicht unterstützt</source>
        <translation>its compression method is not supported</translation>
    </message>
    <message>
        <source>er ist beschädigt (%1)</source>
        <translation>it is damaged (%1)</translation>
    </message>
    <message>
        <source>er ist zu groß (mehr als %1 MB)</source>
        <translation>it is too large (more than %1 MB)</translation>
    </message>
    <message>
        <source>er ist verdächtig dicht gepackt (mehr als %1:1)</source>
        <translation>it is packed suspiciously tight (more than %1:1)</translation>
    </message>
    <message>
        <source>er hat nicht die angegebene Größe</source>
        <translation>it does not have the size that it states</translation>
    </message>
    <message>
        <source>Kein lesbares ZIP-Archiv: %1</source>
        <translation>No readable ZIP archive: %1</translation>
    </message>
    <message>
        <source>Das Archiv hat %1 Einträge, nur die ersten %2 werden beachtet.</source>
        <translation>The archive has %1 entries, only the first %2 are regarded.</translation>
    </message>
    <message>
        <source>Das Archiv hat keinen Eintrag „%1“.</source>
        <translation>The archive has no entry &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Der Eintrag „%1“ kann nicht gelesen werden: %2.</source>
        <translation>The entry &quot;%1&quot; cannot be read: %2.</translation>
    </message>
</context>
<context>
    <name>KRZIPGuard</name>
    <message>
        <source>Kein lesbares ZIP-Archiv, oder sein Ende fehlt.</source>
        <translation>No readable ZIP archive, or its end is missing.</translation>
    </message>
    <message>
        <source>Das Inhaltsverzeichnis des Archivs ist zu groß (mehr als %1 MB).</source>
        <translation>The directory of the archive is too large (more than %1 MB).</translation>
    </message>
    <message>
        <source>Das Inhaltsverzeichnis des Archivs ist beschädigt.</source>
        <translation>The directory of the archive is damaged.</translation>
    </message>
    <message>
        <source>Einträge des Archivs überlappen sich.</source>
        <translation>Entries of the archive overlap.</translation>
    </message>
</context>
</TS>
