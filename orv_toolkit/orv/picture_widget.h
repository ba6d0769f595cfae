// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

namespace orv
{

/// A plain widget whose style sheet shows a picture, which is smoothed where the screen has no
/// whole number of pixels for each of the picture's.
///
/// Without a meta-object of its own on purpose: Qt paints the background of a style sheet by itself
/// only for a widget that its meta-object calls a QWidget.
class picture_widget : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void initPainter(QPainter *painter) const override;
};

}  // namespace orv
