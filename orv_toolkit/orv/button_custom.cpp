// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/button_custom.h"

#include <QPainter>

#include <utility>

namespace orv
{

button_custom::button_custom(QWidget *parent, std::function<void(QPainter &)> paint_callback)
    : QPushButton(parent), paint_callback(std::move(paint_callback))
{
}

void button_custom::paintEvent(QPaintEvent *)
{
    if (!paint_callback)
        return;
    QPainter painter(this);
    paint_callback(painter);
}

}  // namespace orv
