// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "peer_model.h"
#include "peer_window.h"
#include "subject.h"

#include <QStringList>
#include <QTranslator>

/// A peer, made to do what the viewer does: the same state behind the plot, the same readouts.
class PeerSubject : public Subject
{
public:
    /// \a plot is taken over.
    PeerSubject(PeerPlot *plot, QSize size, const QStringList &files);
    ~PeerSubject() override;

    QWidget &window() override;
    QWidget &plot() override;
    QWidget &canvas() override;
    QVector<double> state() const override;
    void begin(Operation operation) override;
    void act(Operation operation, int number) override;
    void takeBack(Operation operation) override;
    void end(Operation operation) override;

private:
    void moveCursor(int counts);
    void pan(int counts);
    void zoom(int level);
    void shift(int samples, int counts);
    void turnFactor(int thousandths);
    void select(int slot);
    void load();
    void setDifference(bool on);
    void setSmooth(bool on);
    void speak(const QString &language);
    void showReadouts();
    void showParameter(int parameter, const QString &value);
    QString distance(int counts) const;
    QString stepText() const;

    PeerModel m_model;
    PeerWindow m_window;
    QStringList m_files;
    QSize m_size;
    QTranslator m_translator;
};
