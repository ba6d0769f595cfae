// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/picture_widget.h"

#include <QPainter>

namespace orv
{

/// Qt also calls this for the painter of the background.
void picture_widget::initPainter(QPainter *painter) const
{
    QWidget::initPainter(painter);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
}

}  // namespace orv
