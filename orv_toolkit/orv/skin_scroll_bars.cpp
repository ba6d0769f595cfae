// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/skin_scroll_bars.h"

#include <QAbstractScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QStyleFactory>

namespace orv
{

namespace
{

constexpr char vertical_sheet[] =
    "QScrollBar:vertical {    border: none;    background-color:rgb(47,47,47);    "
    "width:11px;        margin: 0px 0px 0px 0px;}"
    "QScrollBar::handle:vertical {    border: 1px solid black;    border-radius: 5px;    "
    "background: rgb(0,0,0);    min-height: 20px;}"
    "QScrollBar::add-line:vertical {    background: black;    height: 0px;    "
    "subcontrol-position: bottom;    subcontrol-origin: margin;}"
    "QScrollBar::sub-line:vertical {    background: black;    height: 0px;    "
    "subcontrol-position: top;    subcontrol-origin: margin;}";

// The positions of add-line and sub-line are swapped, which can't be seen: both are 0 wide.
constexpr char horizontal_sheet[] =
    "QScrollBar:horizontal {    border: none;    background-color:rgb(47,47,47);    "
    "height:11px;        margin: 0px 0px 0px 0px;}"
    "QScrollBar::handle:horizontal {    border: 1px solid black;    border-radius: 5px;    "
    "background: rgb(0,0,0);    min-width: 20px;}"
    "QScrollBar::add-line:horizontal {    background: black;    width: 0px;    "
    "subcontrol-position: left;    subcontrol-origin: margin;}"
    "QScrollBar::sub-line:horizontal {    background: black;    width: 0px;    "
    "subcontrol-position: right;    subcontrol-origin: margin;}";

/// The style is the bar's child, since QWidget::setStyle doesn't take ownership.
void skin(QScrollBar *bar, const QString &sheet)
{
    QStyle *style = QStyleFactory::create("fusion");
    style->setParent(bar);
    bar->setStyle(style);
    bar->setStyleSheet(sheet);
}

}  // namespace

void skin_scroll_bars(QAbstractScrollArea *area)
{
    skin(area->verticalScrollBar(), vertical_sheet);
    skin(area->horizontalScrollBar(), horizontal_sheet);
}

}  // namespace orv
