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
</TS>
