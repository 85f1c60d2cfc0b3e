// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <QVector>

class Cont_dial;
class Dictionary;
class DateTime_lbl;
class InterfaceButton;
class LegendButton;
class ParamButton;
class PeerPlot;
class QGridLayout;
class QLabel;
class QLayout;
class QPushButton;

/// The window around a peer's plot: the viewer's controls in the viewer's places, so that the plot
/// gets the same room and the readouts cost the same. The controls do nothing.
class PeerWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Takes \a plot over.
    explicit PeerWindow(PeerPlot *plot);
    ~PeerWindow() override;

    /// Texts of all controls, in the language that is installed.
    void retranslate();
    /// Base font size of the interface, whole points.
    int points() const;

    Dictionary *words = nullptr;
    InterfaceButton *cursorButtons[2] = {};
    QLabel *delta = nullptr;
    QVector<LegendButton *> traceButtons;
    QVector<ParamButton *> parameterButtons; ///< the index is the parameter
    QVector<QPushButton *> plainButtons;
    Cont_dial *parameterDial = nullptr;
    Cont_dial *cursorDial = nullptr;
    PeerPlot *plot = nullptr;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QLayout *topRow();
    QLayout *leftColumn();
    QLayout *rightColumn();
    QGridLayout *parameterGrid();
    QPushButton *plainButton();
    void scale();
};
