// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/clickable_label.h"

#include <QMouseEvent>

namespace orv
{

void clickable_label::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        emit clicked();
}

}  // namespace orv
