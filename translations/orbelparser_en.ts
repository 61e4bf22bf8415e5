<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>NumberReader</name>
    <message numerus="yes">
        <source>at most %n digits behind the point</source>
        <translation>
            <numerusform>at most %n digit behind the point</numerusform>
            <numerusform>at most %n digits behind the point</numerusform>
        </translation>
    </message>
</context>
</TS>
