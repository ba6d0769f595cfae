// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/lineedit.h"

#include <QContextMenuEvent>
#include <QMenu>

namespace orv
{

namespace
{

constexpr char menu_sheet[] =
    "QMenu{background:rgb(47,47,47);color:rgb(198,213,210);border:1px solid rgb(99,99,99);}"
    "QMenu::item:enabled:selected{background:rgb(198,213,210);color:#000;}"
    "QMenu::item:disabled{color:rgb(100,100,100);}"
    "QMenu::separator{height:1px;background:rgb(99,99,99);margin:4px 0px;}";

}  // namespace

const char lineedit::sheet[] =
    "orv--lineedit{    background:rgb(38,38,38);    color:rgb(198,213,210);    "
    "border: 1px solid rgb(99,99,99);    selection-background-color:rgb(198,213,210);    "
    "selection-color: #000;}"
    "orv--lineedit:disabled{    border: 1px solid rgb(75,75,75);    background: rgb(47,47,47);    "
    "color: rgb(100,100,100);}"
    "QToolTip{border:1px solid rgb(99,99,99);background-image:none;"
    "background-color:rgb(47,47,47);}";

void lineedit::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setStyleSheet(menu_sheet);
    menu->popup(event->globalPos());
}

}  // namespace orv
