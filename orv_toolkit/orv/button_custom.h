// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPushButton>

#include <functional>

class QPainter;

namespace orv
{

/// A button that is painted entirely by a function; without one it shows nothing.
class button_custom : public QPushButton
{
    Q_OBJECT

public:
    explicit button_custom(QWidget *parent, std::function<void(QPainter &)> paint_callback = {});

    std::function<void(QPainter &)> paint_callback;

protected:
    void paintEvent(QPaintEvent *event) override;
};

}  // namespace orv
