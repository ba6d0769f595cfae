// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

namespace orv
{

/// A plain widget whose style sheet shows a picture. The picture is smoothed if its pixels don't
/// match a whole number of screen pixels.
///
/// It has no meta-object of its own on purpose: Qt paints a style sheet's background automatically
/// only for a widget whose meta-object is that of QWidget.
class picture_widget : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void initPainter(QPainter *painter) const override;
};

}  // namespace orv
