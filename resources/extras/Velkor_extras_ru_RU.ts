<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en_US">
<context>
    <name>Extras</name>
    <message>
        <source>No trace in this slot</source>
        <translation>В этой ячейке нет рефлектограммы</translation>
    </message>
</context>
</TS>
