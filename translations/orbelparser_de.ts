<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>KV218::FreqRangeTable</name>
    <message>
        <source>min</source>
        <translation>min</translation>
    </message>
    <message>
        <source>max</source>
        <translation>max</translation>
    </message>
    <message>
        <source>&amp;New row</source>
        <translation>&amp;Neue Zeile</translation>
    </message>
    <message>
        <source>Create a new row in the list box</source>
        <translation>Legt eine neue Zeile in der Liste an</translation>
    </message>
    <message>
        <source>&amp;Delete row</source>
        <translation>Zeile &amp;löschen</translation>
    </message>
    <message>
        <source>Delete the selected element in the row</source>
        <translation>Löscht die gewählte Zeile</translation>
    </message>
</context>
<context>
    <name>KV218::OrbelChannelSpacingTable</name>
    <message>
        <source>Set to all</source>
        <translation>Für alle übernehmen</translation>
    </message>
</context>
<context>
    <name>KV218::OrbelDSCObject</name>
    <message>
        <source>Excluded ranges (kHz)</source>
        <translation>Ausgeschlossene Bereiche (kHz)</translation>
    </message>
    <message>
        <source>&amp;Sort</source>
        <translation>&amp;Sortieren</translation>
    </message>
    <message>
        <source>Sort entries by start frequency in ascending order</source>
        <translation>Sortiert die Einträge aufsteigend nach der Startfrequenz</translation>
    </message>
</context>
<context>
    <name>KV218::OrbelFHPObject</name>
    <message>
        <source>Excluded ranges (kHz)</source>
        <translation>Ausgeschlossene Bereiche (kHz)</translation>
    </message>
    <message>
        <source>&amp;Sort</source>
        <translation>&amp;Sortieren</translation>
    </message>
    <message>
        <source>Sort entries by start frequency in ascending order</source>
        <translation>Sortiert die Einträge aufsteigend nach der Startfrequenz</translation>
    </message>
</context>
<context>
    <name>KV218::OrbelFrequencyEdit</name>
    <message>
        <source>Unlock frequency range</source>
        <translation>Frequenzbereich entsperren</translation>
    </message>
    <message>
        <source>Lock frequency range</source>
        <translation>Frequenzbereich sperren</translation>
    </message>
</context>
<context>
    <name>KV218::OrbelFrequencyRangeEdit</name>
    <message>
        <source>Start Frequency</source>
        <translation>Startfrequenz</translation>
    </message>
    <message>
        <source>Stop Frequency</source>
        <translation>Stoppfrequenz</translation>
    </message>
</context>
<context>
    <name>KV218::OrbelHeadline</name>
    <message>
        <source>Hide %1</source>
        <translation>%1 ausblenden</translation>
    </message>
    <message>
        <source>Show %1</source>
        <translation>%1 einblenden</translation>
    </message>
</context>
<context>
    <name>KV218::OrbelScriptControl</name>
    <message>
        <source>Script loaded</source>
        <translation>Skript geladen</translation>
    </message>
    <message>
        <source>NO Script loaded</source>
        <translation>KEIN Skript geladen</translation>
    </message>
</context>
<context>
    <name>KV218::OrbelSheetUi</name>
    <message>
        <source>Apply</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Auto Apply</source>
        <translation>Automatisch übernehmen</translation>
    </message>
    <message>
        <source>Text size</source>
        <translation>Schriftgröße</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>Groß</translation>
    </message>
</context>
<context>
    <name>VCFrequency</name>
    <message>
        <source>Frequency</source>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Step up the marked digit</source>
        <translation>Markierte Ziffer erhöhen</translation>
    </message>
    <message>
        <source>Step down the marked digit</source>
        <translation>Markierte Ziffer verringern</translation>
    </message>
    <message>
        <source>Type a frequency</source>
        <translation>Frequenz eingeben</translation>
    </message>
    <message>
        <source>Last frequencies (F4)</source>
        <translation>Letzte Frequenzen (F4)</translation>
    </message>
    <message>
        <source>Last frequencies</source>
        <translation>Letzte Frequenzen</translation>
    </message>
    <message>
        <source>Tune</source>
        <translation>Abstimmen</translation>
    </message>
    <message>
        <source>Bandwidth %1</source>
        <translation>Bandbreite %1</translation>
    </message>
    <message>
        <source>No frequency yet</source>
        <translation>Noch keine Frequenz</translation>
    </message>
</context>
</TS>
