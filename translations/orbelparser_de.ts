<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>KV218::Assistive</name>
    <message>
        <source>not accepted</source>
        <translation>nicht angenommen</translation>
    </message>
    <message>
        <source>changed, not applied</source>
        <translation>geändert, nicht übernommen</translation>
    </message>
</context>
<context>
    <name>KV218::ChangesButton</name>
    <message>
        <source>Changes</source>
        <translation>Änderungen</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Rückgängig: %1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Wiederholen: %1</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Revert all</source>
        <translation>Alle zurücknehmen</translation>
    </message>
    <message>
        <source>%1 more</source>
        <translation>%1 weitere</translation>
    </message>
    <message numerus="yes">
        <source>Changes that wait to be applied: %n</source>
        <translation>
            <numerusform>%n Änderung ist noch nicht übernommen</numerusform>
            <numerusform>%n Änderungen sind noch nicht übernommen</numerusform>
        </translation>
    </message>
    <message>
        <source>Take from the device: %1 %2</source>
        <translation>Vom Gerät übernehmen: %1 %2</translation>
    </message>
</context>
<context>
    <name>KV218::DeviceNote</name>
    <message>
        <source>The device has not confirmed the value</source>
        <translation>Das Gerät hat den Wert nicht bestätigt</translation>
    </message>
    <message>
        <source>The device has refused the value</source>
        <translation>Das Gerät hat den Wert abgelehnt</translation>
    </message>
    <message>
        <source>The device has %1</source>
        <translation>Das Gerät hat %1</translation>
    </message>
</context>
<context>
    <name>KV218::ExclusionListDelegate</name>
    <message>
        <source>1 range</source>
        <translation>1 Bereich</translation>
    </message>
    <message>
        <source>%1 ranges</source>
        <translation>%1 Bereiche</translation>
    </message>
</context>
<context>
    <name>KV218::Face</name>
    <message>
        <source>up to %1</source>
        <translation>bis %1</translation>
    </message>
    <message>
        <source>from %1</source>
        <translation>ab %1</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>column %1, row %2</source>
        <translation>Spalte %1, Zeile %2</translation>
    </message>
</context>
<context>
    <name>KV218::FormChanges</name>
    <message>
        <source>%1 is locked</source>
        <translation>%1 ist gesperrt</translation>
    </message>
    <message>
        <source>Revert all</source>
        <translation>Alle zurücknehmen</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
</context>
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
    <message>
        <source>&quot;%1&quot; is read as %2</source>
        <translation>„%1“ wird als %2 gelesen</translation>
    </message>
    <message>
        <source>is read as %1</source>
        <translation>wird als %1 gelesen</translation>
    </message>
    <message>
        <source>Excluded ranges</source>
        <translation>Ausgeschlossene Bereiche</translation>
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
    <name>KV218::OrbelCheckBox</name>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
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
    <name>KV218::OrbelDelegate</name>
    <message>
        <source>(empty)</source>
        <translation>(leer)</translation>
    </message>
    <message>
        <source>%1: %2 values</source>
        <translation>%1: %2 Werte</translation>
    </message>
    <message>
        <source>item %1</source>
        <translation>Eintrag %1</translation>
    </message>
    <message>
        <source>%1 values</source>
        <translation>%1 Werte</translation>
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
    <message>
        <source>lock</source>
        <translation>Sperre</translation>
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
    <message>
        <source>start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>stop</source>
        <translation>Stopp</translation>
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
    <message>
        <source>load</source>
        <translation>laden</translation>
    </message>
    <message>
        <source>edit</source>
        <translation>bearbeiten</translation>
    </message>
    <message>
        <source>clear</source>
        <translation>entfernen</translation>
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
    <name>Orbel::FieldNote</name>
    <message>
        <source>not taken: %1</source>
        <translation>nicht übernommen: %1</translation>
    </message>
</context>
<context>
    <name>Orbel::NumberReader</name>
    <message>
        <source>two decimal points</source>
        <translation>zwei Dezimalzeichen</translation>
    </message>
    <message>
        <source>groups have three digits</source>
        <translation>Gruppen haben drei Ziffern</translation>
    </message>
    <message>
        <source>no number</source>
        <translation>keine Zahl</translation>
    </message>
    <message>
        <source>unknown unit &quot;%1&quot;</source>
        <translation>unbekannte Einheit „%1“</translation>
    </message>
    <message>
        <source>too large</source>
        <translation>zu groß</translation>
    </message>
    <message>
        <source>above %1</source>
        <translation>über %1</translation>
    </message>
    <message>
        <source>below %1</source>
        <translation>unter %1</translation>
    </message>
    <message numerus="yes">
        <source>at most %n digits behind the point</source>
        <translation>
            <numerusform>höchstens %n Nachkommastelle</numerusform>
            <numerusform>höchstens %n Nachkommastellen</numerusform>
        </translation>
    </message>
    <message>
        <source>whole numbers only</source>
        <translation>nur ganze Zahlen</translation>
    </message>
</context>
<context>
    <name>Orbel::TypedSpinBox</name>
    <message>
        <source>above %1: %1 is taken</source>
        <translation>über %1: %1 gilt</translation>
    </message>
    <message>
        <source>below %1: %1 is taken</source>
        <translation>unter %1: %1 gilt</translation>
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
