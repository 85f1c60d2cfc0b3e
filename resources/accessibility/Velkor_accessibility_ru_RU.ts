<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en_US">
<context>
    <name>Accessibility</name>
    <message>
        <source>Open trace files</source>
        <translation>Открыть файлы рефлектограмм</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>Difference from the master</source>
        <translation>Разность с мастером</translation>
    </message>
    <message>
        <source>Smooth traces</source>
        <translation>Сглаживание рефлектограмм</translation>
    </message>
    <message>
        <source>Reset all</source>
        <translation>Сбросить всё</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Уменьшить</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Увеличить</translation>
    </message>
    <message>
        <source>Scroll left</source>
        <translation>Прокрутить влево</translation>
    </message>
    <message>
        <source>Scroll right</source>
        <translation>Прокрутить вправо</translation>
    </message>
    <message>
        <source>Choose cursor A</source>
        <translation>Выбрать курсор A</translation>
    </message>
    <message>
        <source>Choose cursor B</source>
        <translation>Выбрать курсор B</translation>
    </message>
    <message>
        <source>Horizontal shift</source>
        <translation>Горизонтальный сдвиг</translation>
    </message>
    <message>
        <source>Shortening factor</source>
        <translation>Коэффициент укорочения</translation>
    </message>
    <message>
        <source>Averaging</source>
        <translation>Усреднение</translation>
    </message>
    <message>
        <source>Vertical shift</source>
        <translation>Вертикальный сдвиг</translation>
    </message>
    <message>
        <source>Pulse amplitude</source>
        <translation>Амплитуда импульса</translation>
    </message>
    <message>
        <source>Reserved</source>
        <translation>Резерв</translation>
    </message>
    <message>
        <source>Trace %1</source>
        <translation>Рефлектограмма %1</translation>
    </message>
    <message>
        <source>master</source>
        <translation>мастер</translation>
    </message>
    <message>
        <source>hidden</source>
        <translation>скрыта</translation>
    </message>
    <message>
        <source>Parameter dial</source>
        <translation>Энкодер параметров</translation>
    </message>
    <message>
        <source>Cursor dial</source>
        <translation>Энкодер курсоров</translation>
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
        <source>Logo</source>
        <translation>Логотип</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>График</translation>
    </message>
</context>
</TS>
