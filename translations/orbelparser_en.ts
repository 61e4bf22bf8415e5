<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>KV218::ChangesButton</name>
    <message numerus="yes">
        <source>Changes that wait to be applied: %n</source>
        <translation>
            <numerusform>%n change waits to be applied</numerusform>
            <numerusform>%n changes wait to be applied</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Orbel::NumberReader</name>
    <message numerus="yes">
        <source>at most %n digits behind the point</source>
        <translation>
            <numerusform>at most %n digit behind the point</numerusform>
            <numerusform>at most %n digits behind the point</numerusform>
        </translation>
    </message>
</context>
</TS>
