// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>

namespace orv
{

/// A label that can be clicked with the left mouse button.
class clickable_label : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

signals:
    /// Sent when the button is pressed, not when it is released.
    void clicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
};

}  // namespace orv
