<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- Empty for good: English is the language of the source, the catalogue only has to replace another one. -->
<TS version="2.1" language="en_US" sourcelanguage="en_US">
</TS>
