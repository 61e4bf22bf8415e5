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
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>ReceiverLink</name>
    <message>
        <source>Invalid character</source>
        <translation>Ungültiges Zeichen</translation>
    </message>
    <message>
        <source>Syntax error</source>
        <translation>Falsche Schreibweise</translation>
    </message>
    <message>
        <source>Invalid separator</source>
        <translation>Ungültiges Trennzeichen</translation>
    </message>
    <message>
        <source>Data type error</source>
        <translation>Falsche Art von Wert</translation>
    </message>
    <message>
        <source>Parameter not allowed</source>
        <translation>Zu viele Werte</translation>
    </message>
    <message>
        <source>Missing parameter</source>
        <translation>Wert fehlt</translation>
    </message>
    <message>
        <source>Undefined header</source>
        <translation>Unbekannter Befehl</translation>
    </message>
    <message>
        <source>Numeric data not allowed</source>
        <translation>Keine Zahl erlaubt</translation>
    </message>
    <message>
        <source>Invalid suffix</source>
        <translation>Falsche Einheit</translation>
    </message>
    <message>
        <source>Suffix not allowed</source>
        <translation>Keine Einheit erlaubt</translation>
    </message>
    <message>
        <source>Invalid character data</source>
        <translation>Falsches Wort</translation>
    </message>
    <message>
        <source>String data not allowed</source>
        <translation>Kein Text erlaubt</translation>
    </message>
    <message>
        <source>Command protected</source>
        <translation>Einstellung ist geschützt</translation>
    </message>
    <message>
        <source>Settings conflict</source>
        <translation>Widerspricht anderen Einstellungen</translation>
    </message>
    <message>
        <source>Data out of range</source>
        <translation>Außerhalb der Grenzen</translation>
    </message>
    <message>
        <source>Illegal parameter value</source>
        <translation>Kein erlaubter Wert</translation>
    </message>
    <message>
        <source>Queue overflow</source>
        <translation>Zu viele Fehler</translation>
    </message>
    <message>
        <source>Input buffer overrun</source>
        <translation>Befehl zu lang</translation>
    </message>
</context>
</TS>
