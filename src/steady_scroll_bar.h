// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QRect>
#include <QScrollBar>

/// A scroll bar that isn't painted for a longer range unless that moves its handle by a pixel.
///
/// A plain QScrollBar is painted for each row that comes in, and in a long list hardly ever looks
/// different. Without Q_OBJECT on purpose: to style sheets it is a QScrollBar.
class steady_scroll_bar : public QScrollBar
{
public:
    using QScrollBar::QScrollBar;

protected:
    void sliderChange(SliderChange change) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRect handle() const;

    QRect painted_handle;
};
