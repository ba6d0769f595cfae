// SPDX-License-Identifier: GPL-3.0-or-later

#include "form_parts.h"

#include <QGridLayout>

QGridLayout *add_grid(QWidget *widget, const QString &name)
{
    auto *grid = new QGridLayout(widget);
    grid->setObjectName(name);
    grid->setContentsMargins(0, 0, 0, 0);
    return grid;
}

QGridLayout *add_tight_grid(QWidget *widget, const QString &name)
{
    QGridLayout *grid = add_grid(widget, name);
    grid->setSpacing(0);
    return grid;
}
