// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/panel.h"

#include <QVBoxLayout>

namespace orv
{

namespace
{

constexpr int border_px = 3;

constexpr char frame_sheet[] = "#orv--panel%1 {border-style:solid; border-width:3px; "
                               "border-image:url(:/gui/panel/border%1.png) 3 stretch;}";

QVBoxLayout *make_layout(QWidget *widget, int margin_px)
{
    auto *layout = new QVBoxLayout(widget);
    layout->setSpacing(0);
    layout->setContentsMargins(margin_px, margin_px, margin_px, margin_px);
    return layout;
}

}  // namespace

void panel::set_up(QWidget *content, const QString &suffix)
{
    QVBoxLayout *outer_layout = make_layout(this, 0);
    auto *frame = new QWidget;
    frame->setObjectName("orv--panel");
    setStyleSheet(QString(frame_sheet).arg(suffix));
    make_layout(frame, border_px)->addWidget(content, 1);
    outer_layout->addWidget(frame, 1);
}

}  // namespace orv
