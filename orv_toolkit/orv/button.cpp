// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/button.h"

#include "qor/qt/stylesheet.h"

#include <QPainter>
#include <QTimer>

namespace orv
{

namespace
{

constexpr int flash_ms = 200;
constexpr int frame_px = 2;
constexpr QColor frame_colour(222, 222, 222);

constexpr char calm_sheet[] = "border:none;margin:2px 2px 2px 2px;";
constexpr char flash_sheet[] = "margin:0px 0px 0px 0px;border:2px solid rgb(222,222,222);";

}  // namespace

button::button(QString text, QWidget *parent) : QPushButton(text, parent)
{
    merge_sheet(calm_sheet);
    setFocusPolicy(Qt::NoFocus);
}

button::button(QWidget *parent, QRect rect) : button(QString(), parent)
{
    highlight_rect = rect.adjusted(4, 4, 1, 1);
}

void button::deaktivate_highlight()
{
    if (!highlight_rect.isValid())
        merge_sheet(calm_sheet);
    highlight = false;
    update();
}

void button::mouseReleaseEvent(QMouseEvent *)
{
    if (!highlight_rect.isValid())
        merge_sheet(flash_sheet);
    QTimer::singleShot(flash_ms, this, "1deaktivate_highlight()");
    highlight = true;
    update();
    emit clicked(false);
    emit released();
    emit toggled(isChecked());
}

void button::paintEvent(QPaintEvent *event)
{
    QPushButton::paintEvent(event);
    if (!highlight_rect.isValid() || !highlight)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(frame_colour, frame_px));
    painter.drawRects(&highlight_rect, 1);
}

void button::merge_sheet(QString declarations)
{
    qor::qt::stylesheet::merge(this, declarations);
}

}  // namespace orv
