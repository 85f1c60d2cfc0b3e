<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- Only refers to the toolkit's own catalogues. They are not shipped, so its dialogs stay English. -->
<TS version="2.1" language="ru" sourcelanguage="en">
<dependencies>
    <dependency catalog="qtbase_ru"/>
    <dependency catalog="qtscript_ru"/>
    <dependency catalog="qtmultimedia_ru"/>
    <dependency catalog="qtxmlpatterns_ru"/>
</dependencies>
</TS>
