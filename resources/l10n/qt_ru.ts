<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- Only refers to Qt's own catalogues. They are not shipped, so Qt's dialogs stay English. -->
<TS version="2.1" language="ru" sourcelanguage="en">
<dependencies>
    <dependency catalog="qtbase_ru"/>
    <dependency catalog="qtscript_ru"/>
    <dependency catalog="qtmultimedia_ru"/>
    <dependency catalog="qtxmlpatterns_ru"/>
</dependencies>
</TS>
