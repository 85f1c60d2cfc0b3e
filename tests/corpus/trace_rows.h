// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "trace_recipe.h"

namespace corpus {

/// Recipes that belong together; each family is a table of its own in tests/data/traces.
struct Family
{
    QString name;
    QVector<Recipe> recipes;
};

/// All trace files of the corpus, family by family.
QVector<Family> traceFamilies();

/// The table of \a family as it lies in the tree: for each file a line "NAME: RECIPE" and the lines
/// of what is expected of it, two blanks before each.
QString tableOf(const Family &family);

} // namespace corpus
