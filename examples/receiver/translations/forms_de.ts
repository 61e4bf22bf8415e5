<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
    <context>
        <name>scanHeadline</name>
        <message>
            <source>Scan</source>
            <translation>Suchlauf</translation>
        </message>
    </context>
    <context>
        <name>start</name>
        <message>
            <source>Start</source>
            <translation>Anfang</translation>
        </message>
    </context>
    <context>
        <name>stop</name>
        <message>
            <source>Stop</source>
            <translation>Ende</translation>
        </message>
    </context>
    <context>
        <name>step</name>
        <message>
            <source>Step</source>
            <translation>Schritt</translation>
        </message>
    </context>
    <context>
        <name>dwell</name>
        <message>
            <source>Dwell time</source>
            <translation>Verweilzeit</translation>
        </message>
    </context>
    <context>
        <name>duration</name>
        <message>
            <source>One pass</source>
            <translation>Ein Durchlauf</translation>
        </message>
        <message>
            <source>-</source>
            <translation>-</translation>
        </message>
    </context>
    <context>
        <name>run</name>
        <message>
            <source>Run</source>
            <translation>Läuft</translation>
        </message>
    </context>
    <context>
        <name>Bandwidths</name>
        <message>
            <source>100 Hz</source>
            <translation>100 Hz</translation>
        </message>
        <message>
            <source>300 Hz</source>
            <translation>300 Hz</translation>
        </message>
        <message>
            <source>600 Hz</source>
            <translation>600 Hz</translation>
        </message>
        <message>
            <source>1 kHz</source>
            <translation>1 kHz</translation>
        </message>
        <message>
            <source>1.5 kHz</source>
            <translation>1,5 kHz</translation>
        </message>
        <message>
            <source>2.4 kHz</source>
            <translation>2,4 kHz</translation>
        </message>
        <message>
            <source>6 kHz</source>
            <translation>6 kHz</translation>
        </message>
        <message>
            <source>9 kHz</source>
            <translation>9 kHz</translation>
        </message>
        <message>
            <source>12 kHz</source>
            <translation>12 kHz</translation>
        </message>
        <message>
            <source>15 kHz</source>
            <translation>15 kHz</translation>
        </message>
        <message>
            <source>30 kHz</source>
            <translation>30 kHz</translation>
        </message>
        <message>
            <source>50 kHz</source>
            <translation>50 kHz</translation>
        </message>
        <message>
            <source>120 kHz</source>
            <translation>120 kHz</translation>
        </message>
        <message>
            <source>150 kHz</source>
            <translation>150 kHz</translation>
        </message>
        <message>
            <source>250 kHz</source>
            <translation>250 kHz</translation>
        </message>
        <message>
            <source>500 kHz</source>
            <translation>500 kHz</translation>
        </message>
        <message>
            <source>1 MHz</source>
            <translation>1 MHz</translation>
        </message>
        <message>
            <source>2 MHz</source>
            <translation>2 MHz</translation>
        </message>
    </context>
    <context>
        <name>Demodulations</name>
        <message>
            <source>AM</source>
            <translation>AM</translation>
        </message>
        <message>
            <source>FM</source>
            <translation>FM</translation>
        </message>
        <message>
            <source>Upper sideband</source>
            <translation>Oberes Seitenband</translation>
        </message>
        <message>
            <source>Lower sideband</source>
            <translation>Unteres Seitenband</translation>
        </message>
        <message>
            <source>Telegraphy</source>
            <translation>Telegrafie</translation>
        </message>
        <message>
            <source>Pulses</source>
            <translation>Impulse</translation>
        </message>
        <message>
            <source>None (IQ)</source>
            <translation>Keine (IQ)</translation>
        </message>
    </context>
    <context>
        <name>tuningHeadline</name>
        <message>
            <source>Tuning</source>
            <translation>Abstimmung</translation>
        </message>
    </context>
    <context>
        <name>frequency</name>
        <message>
            <source>Frequency</source>
            <translation>Frequenz</translation>
        </message>
    </context>
    <context>
        <name>bandwidth</name>
        <message>
            <source>Bandwidth</source>
            <translation>Bandbreite</translation>
        </message>
    </context>
    <context>
        <name>demodulation</name>
        <message>
            <source>Demodulation</source>
            <translation>Demodulation</translation>
        </message>
    </context>
    <context>
        <name>gainHeadline</name>
        <message>
            <source>Gain</source>
            <translation>Verstärkung</translation>
        </message>
    </context>
    <context>
        <name>automaticGain</name>
        <message>
            <source>Automatic</source>
            <translation>Automatisch</translation>
        </message>
    </context>
    <context>
        <name>gain</name>
        <message>
            <source>Gain</source>
            <translation>Verstärkung</translation>
        </message>
    </context>
    <context>
        <name>audioHeadline</name>
        <message>
            <source>Audio</source>
            <translation>Audio</translation>
        </message>
    </context>
    <context>
        <name>squelch</name>
        <message>
            <source>Squelch</source>
            <translation>Rauschsperre</translation>
        </message>
    </context>
    <context>
        <name>threshold</name>
        <message>
            <source>Threshold</source>
            <translation>Schwelle</translation>
        </message>
    </context>
    <context>
        <name>volume</name>
        <message>
            <source>Volume</source>
            <translation>Lautstärke</translation>
        </message>
    </context>
</TS>
