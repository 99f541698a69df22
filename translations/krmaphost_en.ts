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
</TS>
