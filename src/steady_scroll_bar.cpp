// SPDX-License-Identifier: GPL-3.0-or-later

#include "steady_scroll_bar.h"

#include <QStyleOptionSlider>

void steady_scroll_bar::sliderChange(SliderChange change)
{
    if (change != SliderRangeChange || handle() != painted_handle)
        QScrollBar::sliderChange(change);
}

void steady_scroll_bar::paintEvent(QPaintEvent *event)
{
    QScrollBar::paintEvent(event);
    painted_handle = handle();
}

QRect steady_scroll_bar::handle() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
}
