// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/combobox.h"

#include <QAbstractItemView>
#include <QFrame>
#include <QStyledItemDelegate>

namespace orv
{

namespace
{

constexpr int row_height_px = 20;
constexpr int list_border_px = 1;

/// Draws rows that fill the list inside its border, even if there is only one. Qt's own delegate
/// draws them like those of a menu: too tall for the list, and without the style sheet's rules for
/// items.
class row_delegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const bool is_first = index.row() == 0;
        const bool is_last = index.row() == index.model()->rowCount() - 1;
        const int borders_px = (is_first + is_last) * list_border_px;
        return {QStyledItemDelegate::sizeHint(option, index).width(), row_height_px - borders_px};
    }
};

/// Hides the scroll arrows that Qt puts above and below a list, which would take the room of a row.
void hide_scroll_marks(const QFrame &popup, const QWidget *list)
{
    const auto parts = popup.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *part : parts)
        part->setVisible(part == list);
}

}  // namespace

combobox::combobox(QWidget *parent) : QComboBox(parent)
{
    setItemDelegate(new row_delegate(this));
}

void combobox::showPopup()
{
    QComboBox::showPopup();
    auto *popup = findChild<QFrame *>();
    hide_scroll_marks(*popup, view());
    popup->resize(popup->width(), count() * row_height_px);
}

const char combobox::sheet[] =
    "QComboBox{padding-left:0.2em;margin-top:0px;margin-bottom:0px;outline:0px;"
    "selection-background-color:rgb(200,210,200);font-size:12px;background-color:rgb(36,36,36);"
    "border: 1px solid rgb(99,99,99);selection-color:#000;}"
    "QComboBox QAbstractItemView{margin-top:0px;margin-bottom:0px;outline:0px;"
    "selection-background-color:rgb(200,210,200);background-color:rgb(36,36,36);"
    "border: 1px solid rgb(99,99,99);selection-color:#000;}"
    "QComboBox QAbstractItemView::item{padding-left:0.5em;}"
    "QComboBox::drop-down{outline:0px;selection-background-color:rgb(200,210,200);"
    "border-width:0px;border-left:1px solid rgb(99,99,99);}"
    "QComboBox::down-arrow{image:url(:/gui/combobox/arrow.png);width:20;}"
    "QToolTip{border:1px solid rgb(99,99,99);background-image:none;"
    "background-color:rgb(47,47,47);}"
    "QScrollBar:vertical{border: none; background-color:rgb(47,47,47); width:11px; "
    "margin: 0px 0px 0px 0px; }"
    "QScrollBar::handle:vertical{border: 1px solid black; border-radius: 5px; "
    "background: rgb(0,0,0); min-height: 20px;}"
    "QScrollBar::add-line:vertical{background: black; height: 0px; "
    "subcontrol-position: bottom; subcontrol-origin: margin;}"
    "QScrollBar::sub-line:vertical{background: black; height: 0px; "
    "subcontrol-position: top; subcontrol-origin: margin;}";

void combobox::wheelEvent(QWheelEvent *event)
{
    if (!wheel_disabled)
        QComboBox::wheelEvent(event);
}

}  // namespace orv
