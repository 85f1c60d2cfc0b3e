<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en_US">
<context>
    <name>Dictionary</name>
    <message>
        <source>Gain</source>
        <translation>Усиление</translation>
    </message>
    <message>
        <source>KU</source>
        <translation>КУ</translation>
    </message>
    <message>
        <source>Average</source>
        <translation>Усреднение</translation>
    </message>
    <message>
        <source>Y Shift</source>
        <translation>Y Сдвиг</translation>
    </message>
    <message>
        <source>Pulse Width</source>
        <translation>Ширина импульса</translation>
    </message>
    <message>
        <source>Pulse Amp</source>
        <translation>Амплитуда</translation>
    </message>
    <message>
        <source>Impedance</source>
        <translation>Импеданс</translation>
    </message>
    <message>
        <source>X Shift</source>
        <translation>X Сдвиг</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Масштаб</translation>
    </message>
    <message>
        <source>Cursor A</source>
        <translation>Курсор A</translation>
    </message>
    <message>
        <source>Cursor B</source>
        <translation>Курсор B</translation>
    </message>
    <message>
        <source>Δ</source>
        <translation>Δ</translation>
    </message>
    <message>
        <source>cursor step</source>
        <translation>шаг курсора</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Диапазон</translation>
    </message>
    <message>
        <source>Wheel moves cursors</source>
        <translation>Колесо двигает курсоры</translation>
    </message>
    <message>
        <source>Wheel chahges scale</source>
        <translation>Колесо меняет масштаб</translation>
    </message>
    <message>
        <source>RFG</source>
        <translation>РФГ</translation>
    </message>
    <message>
        <source>(not loaded)</source>
        <translation>(не загружено)</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Параметр</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Файлы</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>Normal Mode</source>
        <translation>Нормальный режим</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>Вычитание</translation>
    </message>
    <message>
        <source>m</source>
        <translation>м</translation>
    </message>
    <message>
        <source>ns</source>
        <translation>нс</translation>
    </message>
    <message>
        <source>V</source>
        <translation>В</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Загрузить</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Сбросить</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Отчистить</translation>
    </message>
    <message>
        <source>set Visible</source>
        <translation>Отобразить</translation>
    </message>
    <message>
        <source>Set as Master</source>
        <translation>Сделать мастером</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>ОК</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Применить</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Сохранить</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Папки</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Язык</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Date</source>
        <translation>Дата</translation>
    </message>
    <message>
        <source>RFG</source>
        <translation>РФГ</translation>
    </message>
    <message>
        <source>Reset All</source>
        <translation>Сбросить всё</translation>
    </message>
    <message>
        <source>Select RFG file to open</source>
        <translation>Выбор файла рефлектограммы для загрузки</translation>
    </message>
    <message>
        <source>Select RFG files to open</source>
        <translation>Выбор файлов рефлектограммы для загрузки</translation>
    </message>
    <message>
        <source>Smooth</source>
        <translation>Сглаживание</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Время</translation>
    </message>
    <message>
        <source>rfg (*.tdr)</source>
        <translation>рфг файлы (*.tdr)</translation>
    </message>
</context>
<context>
    <name>SettingsMenu</name>
    <message>
        <source>Colors</source>
        <translation>Цвета</translation>
    </message>
    <message>
        <source>Cursor dial speed</source>
        <translation>Скорость энкодера курсоров</translation>
    </message>
    <message>
        <source>Defines step number per dial turn</source>
        <translation>Определяет количество шагов за оборот энкодера</translation>
    </message>
    <message>
        <source>Dials</source>
        <translation>Энкодеры</translation>
    </message>
    <message>
        <source>Dials speed</source>
        <translation>Скорость энкодеров</translation>
    </message>
    <message>
        <source>Load default</source>
        <translation>По умолчанию</translation>
    </message>
    <message>
        <source>Parameter dial speed</source>
        <translation>Скорость энкодера параметров</translation>
    </message>
    <message>
        <source>Reload starting</source>
        <translation>Загрузить стартовые</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Сохранить как</translation>
    </message>
    <message>
        <source>Select settings file to load</source>
        <translation>Выбор файла настроек для загрузки</translation>
    </message>
    <message>
        <source>Window size</source>
        <translation>Размер окна</translation>
    </message>
    <message>
        <source>settings (*.ini)</source>
        <translation>файлы настроек (*.ini)</translation>
    </message>
</context>
</TS>
