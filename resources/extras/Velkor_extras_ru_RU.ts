<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en_US">
<context>
    <name>Extras</name>
    <message>
        <source>Back</source>
        <translation>Назад</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Вперёд</translation>
    </message>
    <message>
        <source>Steps in a turn of the dial: %1</source>
        <translation>Шагов за оборот энкодера: %1</translation>
    </message>
    <message>
        <source>Now: %1</source>
        <translation>Сейчас: %1</translation>
    </message>
    <message>
        <source>No trace in this slot</source>
        <translation>В этой ячейке нет рефлектограммы</translation>
    </message>
    <message>
        <source>The file could not be read</source>
        <translation>Файл не удалось прочитать</translation>
    </message>
    <message>
        <source>Size: %1 bytes</source>
        <translation>Размер: %1 байт</translation>
    </message>
    <message>
        <source>The file is not there any more</source>
        <translation>Файла больше нет на месте</translation>
    </message>
    <message>
        <source>Date of test: %1</source>
        <translation>Дата измерения: %1</translation>
    </message>
    <message>
        <source>No date of test in the file</source>
        <translation>В файле нет даты измерения</translation>
    </message>
    <message>
        <source>Nothing to shift: no trace in this slot</source>
        <translation>Нечего сдвигать: в этой ячейке нет рефлектограммы</translation>
    </message>
    <message>
        <source>Recorded with the trace; the dial leaves it as it is</source>
        <translation>Записано вместе с рефлектограммой; энкодер этого не меняет</translation>
    </message>
    <message>
        <source>The dial sets the velocity factor from %1 to %2,
by %3 a step, for all traces</source>
        <translation>Энкодер задаёт коэффициент укорочения от %1 до %2
с шагом %3, для всех рефлектограмм</translation>
    </message>
    <message>
        <source>The dial shifts the selected trace up or down,
from %1 to %2 levels, one a step</source>
        <translation>Энкодер сдвигает выбранную рефлектограмму вверх и вниз,
от %1 до %2 уровней, по одному за шаг</translation>
    </message>
    <message>
        <source>The dial shifts the selected trace along the cable,
in whole samples; the wheel over it by one sample a notch</source>
        <translation>Энкодер сдвигает выбранную рефлектограмму вдоль кабеля
целыми отсчётами; колесо над ним — по отсчёту за щелчок</translation>
    </message>
    <message>
        <source>The dial sets the scale from %1 to %2;
each step shows twice as much or half of it</source>
        <translation>Энкодер задаёт масштаб от %1 до %2;
каждый шаг показывает вдвое больше или вдвое меньше</translation>
    </message>
    <message>
        <source>In view at this velocity factor: %1</source>
        <translation>Видно при этом коэффициенте укорочения: %1</translation>
    </message>
    <message>
        <source>No level here</source>
        <translation>Здесь нет уровня</translation>
    </message>
    <message>
        <source>Level: %1</source>
        <translation>Уровень: %1</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Сохранить как</translation>
    </message>
    <message>
        <source>PNG picture</source>
        <translation>Рисунок PNG</translation>
    </message>
    <message>
        <source>PNG picture for paper</source>
        <translation>Рисунок PNG для печати</translation>
    </message>
    <message>
        <source>PDF page</source>
        <translation>Страница PDF</translation>
    </message>
    <message>
        <source>SVG drawing</source>
        <translation>Чертёж SVG</translation>
    </message>
    <message>
        <source>CSV table</source>
        <translation>Таблица CSV</translation>
    </message>
    <message>
        <source>%1 saved</source>
        <translation>Сохранено: %1</translation>
    </message>
    <message>
        <source>Not saved: %1</source>
        <translation>Не сохранено: %1</translation>
    </message>
    <message>
        <source>a folder has this name</source>
        <translation>так называется папка</translation>
    </message>
    <message>
        <source>this is not a regular file</source>
        <translation>это не обычный файл</translation>
    </message>
    <message>
        <source>the file is read-only</source>
        <translation>файл только для чтения</translation>
    </message>
    <message>
        <source>the folder does not exist</source>
        <translation>такой папки нет</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>на диске нет места</translation>
    </message>
    <message>
        <source>the folder is read-only</source>
        <translation>в эту папку нельзя писать</translation>
    </message>
    <message>
        <source>there is not enough memory</source>
        <translation>не хватает памяти</translation>
    </message>
    <message>
        <source>Picture and readings copied</source>
        <translation>Рисунок и показания скопированы</translation>
    </message>
    <message>
        <source>Readings copied as text; there is not enough memory for the picture</source>
        <translation>Показания скопированы текстом; на рисунок не хватает памяти</translation>
    </message>
    <message>
        <source>Velocity factor 1/KU</source>
        <translation>Относительная скорость 1/КУ</translation>
    </message>
    <message>
        <source>%1 m/µs</source>
        <translation>%1 м/мкс</translation>
    </message>
    <message>
        <source>%1 Ω</source>
        <translation>%1 Ом</translation>
    </message>
    <message>
        <source>Selected</source>
        <translation>Выбрана</translation>
    </message>
    <message>
        <source>selected</source>
        <translation>выбрана</translation>
    </message>
    <message>
        <source>master</source>
        <translation>мастер</translation>
    </message>
    <message>
        <source>%1 minus each</source>
        <translation>%1 минус каждая</translation>
    </message>
    <message>
        <source>on</source>
        <translation>вкл.</translation>
    </message>
    <message>
        <source>Reflection %1</source>
        <translation>Отражение %1</translation>
    </message>
</context>
</TS>
