// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "qor/qt/cell.h"

#include <QString>
#include <QStringList>

/// The margins of a cell in the order in which a property takes them.
inline QStringList margins_of(const qor::qt::cell &shown)
{
    QStringList sides;
    for (float side :
         {shown.margin_top, shown.margin_right, shown.margin_bottom, shown.margin_left})
        sides << QString::number(side);
    return sides;
}
