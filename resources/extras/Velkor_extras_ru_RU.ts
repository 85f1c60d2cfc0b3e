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
        <source>Makes cursor A the active one</source>
        <translation>Делает активным курсор A</translation>
    </message>
    <message>
        <source>Makes cursor B the active one</source>
        <translation>Делает активным курсор B</translation>
    </message>
    <message>
        <source>Distance between the cursors</source>
        <translation>Расстояние между курсорами</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>Дата и время</translation>
    </message>
    <message>
        <source>Makes the dial shift the selected trace along the cable</source>
        <translation>Энкодер будет сдвигать выбранную рефлектограмму вдоль кабеля</translation>
    </message>
    <message>
        <source>Makes the dial shift the selected trace up or down</source>
        <translation>Энкодер будет сдвигать выбранную рефлектограмму вверх и вниз</translation>
    </message>
    <message>
        <source>Makes the dial set KU = c/v, the shortening factor of all traces</source>
        <translation>Энкодер будет задавать КУ = c/v, коэффициент укорочения всех рефлектограмм</translation>
    </message>
    <message>
        <source>Makes the dial set the scale</source>
        <translation>Энкодер будет задавать масштаб</translation>
    </message>
    <message>
        <source>Recorded with the trace, read-only</source>
        <translation>Записано вместе с рефлектограммой, не изменяется</translation>
    </message>
    <message>
        <source>Not used</source>
        <translation>Не используется</translation>
    </message>
    <message>
        <source>Velkor %1; a click tells about Qt</source>
        <translation>Velkor %1; щелчок — сведения о Qt</translation>
    </message>
    <message>
        <source>Opens trace files in place of the present ones</source>
        <translation>Открывает файлы рефлектограмм вместо нынешних</translation>
    </message>
    <message>
        <source>Language, speed of the dials, settings files</source>
        <translation>Язык, скорость энкодеров, файлы настроек</translation>
    </message>
    <message>
        <source>Draws each trace as its difference from the master</source>
        <translation>Рисует разность каждой рефлектограммы с мастером</translation>
    </message>
    <message>
        <source>Draws the traces as smooth curves or as steps</source>
        <translation>Рисует рефлектограммы гладкими кривыми или ступенями</translation>
    </message>
    <message>
        <source>Reads all traces again and drops all shifts</source>
        <translation>Читает все рефлектограммы заново, без сдвигов</translation>
    </message>
    <message>
        <source>Magnifies</source>
        <translation>Увеличивает</translation>
    </message>
    <message>
        <source>Shows more of the cable</source>
        <translation>Показывает больше кабеля</translation>
    </message>
    <message>
        <source>Scrolls to the left</source>
        <translation>Прокручивает влево</translation>
    </message>
    <message>
        <source>Scrolls to the right</source>
        <translation>Прокручивает вправо</translation>
    </message>
    <message>
        <source>+ and -</source>
        <translation>+ и -</translation>
    </message>
    <message>
        <source>Changes the pressed parameter: drag the knob or turn the wheel</source>
        <translation>Меняет нажатый параметр: поворачивайте ручку или крутите колесо</translation>
    </message>
    <message>
        <source>, and .</source>
        <translation>, и .</translation>
    </message>
    <message>
        <source>Moves the active cursor: drag the knob or turn the wheel</source>
        <translation>Двигает активный курсор: поворачивайте ручку или крутите колесо</translation>
    </message>
    <message>
        <source>Key: %1</source>
        <translation>Клавиша: %1</translation>
    </message>
    <message>
        <source>Selects the trace; right click: its menu</source>
        <translation>Выбирает рефлектограмму; правая кнопка: её меню</translation>
    </message>
    <message>
        <source>Right click: type a value</source>
        <translation>Правая кнопка: ввести значение</translation>
    </message>
    <message>
        <source>Steps per turn of the dial: %1</source>
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
        <source>The file does not exist any more</source>
        <translation>Файла больше нет на месте</translation>
    </message>
    <message>
        <source>Measured: %1</source>
        <translation>Измерено: %1</translation>
    </message>
    <message>
        <source>No date of the measurement in the file</source>
        <translation>В файле нет даты измерения</translation>
    </message>
    <message>
        <source>Nothing to shift: no trace in this slot</source>
        <translation>Нечего сдвигать: в этой ячейке нет рефлектограммы</translation>
    </message>
    <message>
        <source>From %1 to %2 levels, one level per step</source>
        <translation>От %1 до %2 уровней, по одному за шаг</translation>
    </message>
    <message>
        <source>In whole samples; one sample per notch of the wheel</source>
        <translation>Целыми отсчётами; по отсчёту за щелчок колеса</translation>
    </message>
    <message>
        <source>From %1 to %2, %3 per step</source>
        <translation>От %1 до %2 с шагом %3</translation>
    </message>
    <message>
        <source>Velocity factor v/c = 1/KU: %1</source>
        <translation>Относительная скорость v/c = 1/КУ: %1</translation>
    </message>
    <message>
        <source>From %1 to %2; each step doubles or halves it</source>
        <translation>От %1 до %2; каждый шаг вдвое больше или вдвое меньше</translation>
    </message>
    <message>
        <source>In view at this KU: %1</source>
        <translation>Видно при этом КУ: %1</translation>
    </message>
    <message>
        <source>Level: %1</source>
        <translation>Уровень: %1</translation>
    </message>
    <message>
        <source>No level here</source>
        <translation>Здесь нет уровня</translation>
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
