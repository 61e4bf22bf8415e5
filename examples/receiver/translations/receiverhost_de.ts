<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>MainWindow</name>
    <message>
        <source>connected</source>
        <translation>verbunden</translation>
    </message>
    <message>
        <source>not connected: %1</source>
        <translation>nicht verbunden: %1</translation>
    </message>
    <message>
        <source>Store...</source>
        <translation>Speichern...</translation>
    </message>
    <message>
        <source>Store a preset</source>
        <translation>Voreinstellung speichern</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Receiver</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Suchlauf</translation>
    </message>
    <message>
        <source>&amp;Presets</source>
        <translation>&amp;Voreinstellungen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Dark colours</source>
        <translation>Dunkle Farben</translation>
    </message>
    <message>
        <source>%1: read</source>
        <translation>%1: gelesen</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>nicht verbunden</translation>
    </message>
</context>
</TS>
