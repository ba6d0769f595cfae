// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QRect>
#include <QScrollBar>

/// A scroll bar that is repainted for a new range only if its handle changes by at least a pixel.
///
/// A plain QScrollBar is repainted for each inserted row, although in a long list it hardly ever
/// looks different. It has no Q_OBJECT on purpose: to style sheets it is a QScrollBar.
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
