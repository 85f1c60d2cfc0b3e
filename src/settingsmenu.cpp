// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settingsmenu.h"

#include "base/constants.h"
#include "base/program_files.h"
#include "dictionary.h"
#include "settingsdata.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QLatin1String defaultSettings = constants::latin1(":/ini/settings_default.ini");
constexpr int minSpeed = 10;
constexpr int maxSpeed = 1000;
constexpr int speedStep = 10;
constexpr int labelStretch = 2;
constexpr int speedStretch = 1;

// The built-in sheet gives the captions of tabs the colour of their background.
constexpr QLatin1String tabBackground
    = constants::latin1("QTabBar::tab { background: rgb(185, 187, 190); padding: 4px 12px;"
                        " border: 1px solid rgb(110, 112, 115); }"
                        "QTabBar::tab:selected { background: rgb(225, 227, 230); }");
constexpr int tabFrame = 4; ///< px around a tab that are not examined
constexpr int darkGray = 96; ///< of 255; black on it has a contrast of 3.3

/// True when \a sheet gives tabs a background.
bool hasTabBackground(QString sheet)
{
    static const QRegularExpression comment(QStringLiteral("/\\*.*?\\*/"),
                                            QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression background(
        QStringLiteral("QTabBar::tab[^{}]*\\{[^{}]*background"));
    return sheet.remove(comment).contains(background);
}

/// True when the tabs of \a bar have dark captions on a dark background.
bool isDark(QTabBar *bar)
{
    const QRect tab = bar->tabRect(bar->currentIndex());
    const QImage picture
        = bar->grab(tab.adjusted(tabFrame, tabFrame, -tabFrame, -tabFrame)).toImage();
    int lightest = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            lightest = qMax(lightest, qGray(picture.pixel(x, y)));
    return lightest < darkGray;
}

/// Styles draw the outline of a check box in a shade of the background. This grey has a contrast of
/// 3:1 to the built-in sheet's background and to white.
constexpr QLatin1String boxSelector = constants::latin1("QCheckBox::indicator");
constexpr QLatin1String boxOutline
    = constants::latin1("QCheckBox::indicator:unchecked { border: 1px solid rgb(141, 142, 143); }");

/// Accepts digits only; any other text stays as typed and is refused. QSpinBox reads "12.5" and
/// "12,5" as 125, because it drops group separators and unknown characters.
class SpeedBox : public QSpinBox
{
public:
    using QSpinBox::QSpinBox;

    QValidator::State validate(QString &text, int &position) const override
    {
        const bool isWhole = std::all_of(text.cbegin(), text.cend(),
                                         [](QChar letter) { return letter.isDigit(); });
        return isWhole ? qMax(QSpinBox::validate(text, position), QValidator::Intermediate)
                       : QValidator::Intermediate;
    }
};

void limitSpeed(QSpinBox *box)
{
    // setRange moves the value to 10. No signal is sent, because this is not an edit.
    const QSignalBlocker quiet(box);
    box->setRange(minSpeed, maxSpeed);
    box->setSingleStep(speedStep);
    box->setAccelerated(true);
}

QHBoxLayout *speedRow(QLabel *label, QSpinBox *box)
{
    auto *row = new QHBoxLayout;
    row->addWidget(label, labelStretch);
    row->addWidget(box, speedStretch);
    return row;
}

} // namespace

SettingsMenu::SettingsMenu(Dictionary *words, SettingsData *store, QWidget *parent)
    : QDialog(parent)
    , dict(words)
    , data_ex(store)
    , data_in(new SettingsData(this))
{
    createControls();
    connectControls();
    layOut();
    limitSpeed(cursor_accur);
    limitSpeed(param_accur);
    // Set after the connections, so that the ticks reach save_load_index. Open files and folders
    // are not ticked.
    CSS_settings_check->setChecked(true);
    lang_settings_check->setChecked(true);
    geometry_settings_check->setChecked(true);
    dial_settings_check->setChecked(true);
}

void SettingsMenu::createControls()
{
    tabs = new QTabWidget(this);
    files_widget = new QWidget(tabs);
    settings_widget = new QWidget(tabs);
    settings_box = new QGroupBox(settings_widget);
    dial_accur_box = new QGroupBox(settings_widget);
    language_box = new QGroupBox(settings_widget);
    settings_check_box = new QGroupBox(settings_box);
    ok_button = new QPushButton(this);
    cancel_button = new QPushButton(this);
    apply_button = new QPushButton(this);

    language_select = new QComboBox(language_box);
    load_default_button = new QPushButton(settings_box);
    load_last_button = new QPushButton(settings_box);
    load_settings_button = new QPushButton(settings_box);
    save_settings_button = new QPushButton(settings_box);
    settings_check_group = new QButtonGroup(this);
    files_settings_check = new QCheckBox(settings_check_box);
    CSS_settings_check = new QCheckBox(settings_check_box);
    dir_settings_check = new QCheckBox(settings_check_box);
    lang_settings_check = new QCheckBox(settings_check_box);
    geometry_settings_check = new QCheckBox(settings_check_box);
    dial_settings_check = new QCheckBox(settings_check_box);
    param_accur_lbl = new QLabel(dial_accur_box);
    cursor_accur_lbl = new QLabel(dial_accur_box);
    accur_lbl = new QLabel(dial_accur_box);
    param_accur = new SpeedBox(dial_accur_box);
    cursor_accur = new SpeedBox(dial_accur_box);
    int section = 0;
    for (QCheckBox *check : { files_settings_check, CSS_settings_check, dir_settings_check,
                              lang_settings_check, geometry_settings_check, dial_settings_check })
        settings_check_group->addButton(check, section++);
    settings_check_group->setExclusive(false);
}

void SettingsMenu::connectControls()
{
    connect(settings_check_group, &QButtonGroup::idToggled, this,
            &SettingsMenu::sectionToggled_slot);
    connect(language_select, &QComboBox::currentTextChanged, this,
            &SettingsMenu::languageChosen_slot);
    const auto speedChanged = qOverload<int>(&QSpinBox::valueChanged);
    connect(cursor_accur, speedChanged, this,
            [this](int speed) { setSpeed(&SettingsData::cursor_dial_speed, speed); });
    connect(param_accur, speedChanged, this,
            [this](int speed) { setSpeed(&SettingsData::param_dial_speed, speed); });
    for (const QSpinBox *box : { cursor_accur, param_accur })
        connect(box->findChild<QLineEdit *>(), &QLineEdit::textChanged, this, [this] {
            const bool areSpeeds
                = cursor_accur->hasAcceptableInput() && param_accur->hasAcceptableInput();
            ok_button->setEnabled(areSpeeds);
            apply_button->setEnabled(areSpeeds && update_index != 0);
        });

    connect(load_default_button, &QPushButton::pressed, this,
            [this] { loadIntoLiveStore(defaultSettings); });
    connect(load_settings_button, &QPushButton::pressed, this, &SettingsMenu::loadFile_slot);
    connect(save_settings_button, &QPushButton::pressed, this, &SettingsMenu::saveFile_slot);
    connect(load_last_button, &QPushButton::pressed, this,
            [this] { loadIntoLiveStore(program_files::settingsFileToRead()); });
    connect(ok_button, &QPushButton::pressed, this, &SettingsMenu::ok_slot);
    connect(apply_button, &QPushButton::pressed, this, &SettingsMenu::apply_slot);
    connect(cancel_button, &QPushButton::pressed, this, &QDialog::reject);
}

void SettingsMenu::layOut()
{
    auto *language = new QVBoxLayout(language_box);
    language->addWidget(language_select);

    auto *dials = new QVBoxLayout(dial_accur_box);
    dials->addLayout(speedRow(cursor_accur_lbl, cursor_accur));
    dials->addLayout(speedRow(param_accur_lbl, param_accur));
    dials->addWidget(accur_lbl);

    auto *fileButtons = new QVBoxLayout;
    fileButtons->addWidget(load_settings_button);
    fileButtons->addWidget(load_last_button);
    fileButtons->addWidget(load_default_button);
    fileButtons->addWidget(save_settings_button);

    auto *checks = new QVBoxLayout(settings_check_box);
    const QList<QAbstractButton *> sections = settings_check_group->buttons();
    for (QAbstractButton *check : sections)
        checks->addWidget(check);

    auto *files = new QHBoxLayout(settings_box);
    files->addLayout(fileButtons);
    files->addWidget(settings_check_box);

    auto *page = new QVBoxLayout(settings_widget);
    page->addWidget(language_box);
    page->addWidget(dial_accur_box);
    page->addWidget(settings_box);

    // The first page stays empty: the dialog is always opened on the second.
    tabs->addTab(files_widget, QString());
    tabs->addTab(settings_widget, QString());

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(ok_button);
    buttons->addWidget(apply_button);
    buttons->addWidget(cancel_button);

    auto *dialog = new QVBoxLayout(this);
    dialog->addWidget(tabs);
    dialog->addLayout(buttons);
}

void SettingsMenu::retranslateUI()
{
    const QString dots = QStringLiteral("...");
    setWindowTitle(dict->SETTINGS_STR);
    tabs->setTabText(tabs->indexOf(files_widget), dict->FILES_STR);
    tabs->setTabText(tabs->indexOf(settings_widget), dict->SETTINGS_STR);
    language_box->setTitle(dict->LANGUAGE_STR);
    dial_accur_box->setTitle(tr("Dials speed"));
    settings_box->setTitle(dict->SETTINGS_STR);
    cursor_accur_lbl->setText(tr("Cursor dial speed"));
    param_accur_lbl->setText(tr("Parameter dial speed"));
    accur_lbl->setText(tr("Defines step number per dial turn"));
    load_settings_button->setText(dict->LOAD_STR + dots);
    save_settings_button->setText(dict->SAVE_STR + dots);
    load_default_button->setText(tr("Load default"));
    load_last_button->setText(tr("Reload starting"));
    files_settings_check->setText(dict->FILES_STR);
    CSS_settings_check->setText(tr("Colors"));
    dir_settings_check->setText(dict->FOLDERS_STR);
    lang_settings_check->setText(dict->LANGUAGE_STR);
    geometry_settings_check->setText(tr("Window size"));
    dial_settings_check->setText(tr("Dials"));
    ok_button->setText(dict->OK_STR);
    cancel_button->setText(dict->CANCEL_STR);
    apply_button->setText(dict->APPLY_STR);
}

void SettingsMenu::interfaceUpdate()
{
    data_in->copy(data_ex, constants::allSections);
    if (!initiated)
        interfaceInit();
    cursor_accur->setValue(data_ex->cursor_dial_speed);
    param_accur->setValue(data_ex->param_dial_speed);
    // A style sheet that has a rule for check boxes keeps its own outline.
    settings_check_box->setStyleSheet(data_ex->current_CSS.contains(boxSelector) ? QString()
                                                                                 : boxOutline);
    // The box lists labels, the store has a code: unless they are equal, the box keeps its choice.
    language_select->setCurrentText(data_ex->current_language);
    apply_button->setEnabled(false);
    tabs->setStyleSheet(QString());
    if (!hasTabBackground(data_ex->current_CSS) && isDark(tabs->tabBar()))
        tabs->setStyleSheet(tabBackground);
}

void SettingsMenu::interfaceInit()
{
    for (const language &entry : data_ex->languageList) {
        if (entry.id == -1)
            break;
        language_select->addItem(entry.label);
    }
    initiated = true;
}

void SettingsMenu::sectionToggled_slot(int id, bool checked)
{
    save_load_index = checked ? setbit(save_load_index, id) : unsetbit(save_load_index, id);
}

void SettingsMenu::languageChosen_slot(const QString &text)
{
    QString code;
    for (const language &entry : data_ex->languageList)
        if (entry.label == text)
            code = entry.CODE;
    if (code != data_ex->current_language) {
        update_index = setbit(update_index, SettingsData::LanguageSection);
        apply_button->setEnabled(true);
    } else {
        update_index = unsetbit(update_index, SettingsData::LanguageSection);
        if (update_index == 0)
            apply_button->setEnabled(false);
    }
    data_in->current_language = code;
}

void SettingsMenu::setSpeed(int SettingsData::*member, int speed)
{
    // The mark stays when the live speed is set again, because applying it again is harmless.
    if (speed != data_ex->*member) {
        update_index = setbit(update_index, SettingsData::DialsSection);
        apply_button->setEnabled(true);
    }
    data_in->*member = speed;
}

void SettingsMenu::loadIntoLiveStore(const QString &file)
{
    data_ex->loadSettings(file, save_load_index);
    data_ex->updateSettings(save_load_index);
    interfaceUpdate();
}

void SettingsMenu::loadFile_slot()
{
    const QString file = QFileDialog::getOpenFileName(
        this, tr("Select settings file to load"), program_files::programFolder(),
        tr("settings (*.ini)"), nullptr, QFileDialog::ReadOnly);
    if (!file.isEmpty())
        loadIntoLiveStore(file);
}

void SettingsMenu::saveFile_slot()
{
    const QString file = QFileDialog::getSaveFileName(
        this, tr("Save as"), program_files::programFolder(), tr("settings (*.ini)"));
    if (!file.isEmpty())
        data_ex->saveSettings(file, save_load_index);
}

void SettingsMenu::ok_slot()
{
    if (apply_button->isEnabled())
        applyEdits();
    accept();
}

void SettingsMenu::apply_slot()
{
    applyEdits();
    apply_button->setEnabled(false);
}

void SettingsMenu::applyEdits()
{
    data_ex->copy(data_in, update_index);
    data_ex->updateSettings(update_index);
}
