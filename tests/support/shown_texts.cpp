// SPDX-License-Identifier: GPL-3.0-or-later

#include "shown_texts.h"

#include "orv/wrapped_label.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOption>
#include <QTextDocument>

namespace
{

constexpr int combobox_text_margin_px = 1;   // beside the text, as QCommonStyle draws it
constexpr QSize edit_text_margins_px(4, 2);  // around the text of a QLineEdit

template <class Option>
Option option_of(const QWidget &widget)
{
    Option option;
    option.initFrom(&widget);
    return option;
}

QSize size_of(const QString &text, const QFont &font)
{
    return QFontMetrics(font).size(Qt::TextShowMnemonic, text);
}

shown_text text_in(const QWidget &widget, const QString &text, const QRect &room)
{
    return {text, widget.font(), size_of(text, widget.font()), room, &widget};
}

QRect room_of(const QLabel &label)
{
    const int margin = label.margin();
    return label.contentsRect().adjusted(margin, margin, -margin, -margin);
}

QSize wrapped_size(const QLabel &label)
{
    const int wrap = label.wordWrap() ? Qt::TextWordWrap : 0;
    return QFontMetrics(label.font())
        .boundingRect(room_of(label), Qt::TextExpandTabs | wrap, label.text())
        .size();
}

shown_text rich_text_of(const QLabel &label)
{
    QTextDocument document;
    document.setDefaultFont(label.font());
    document.setDocumentMargin(0);
    document.setHtml(label.text());
    return {document.toPlainText(), label.font(), document.size().toSize(), room_of(label), &label};
}

shown_text text_of(const QLabel &label)
{
    const QRect room = room_of(label);
    if (const auto *wrapped = qobject_cast<const orv::wrapped_label *>(&label))
        return {
            label.text(), label.font(), {0, wrapped->heightForWidth(room.width())}, room, &label};
    const bool is_rich = label.textFormat() == Qt::RichText || Qt::mightBeRichText(label.text());
    if (is_rich)
        return rich_text_of(label);
    return {label.text(), label.font(), wrapped_size(label), room, &label};
}

shown_text text_of(const QAbstractButton &button)
{
    auto contents = QStyle::SE_PushButtonContents;
    if (qobject_cast<const QRadioButton *>(&button))
        contents = QStyle::SE_RadioButtonContents;
    else if (qobject_cast<const QCheckBox *>(&button))
        contents = QStyle::SE_CheckBoxContents;
    auto option = option_of<QStyleOptionButton>(button);
    option.text = button.text();
    return text_in(button, button.text(),
                   button.style()->subElementRect(contents, &option, &button));
}

shown_text text_of(const QComboBox &box)
{
    auto option = option_of<QStyleOptionComboBox>(box);
    option.currentText = box.currentText();
    const QRect field = box.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                    QStyle::SC_ComboBoxEditField, &box);
    return text_in(box, box.currentText(),
                   field.adjusted(combobox_text_margin_px, 0, -combobox_text_margin_px, 0));
}

shown_text text_of(const QLineEdit &edit)
{
    const QString text = edit.text().isEmpty() ? edit.placeholderText() : edit.text();
    const auto option = option_of<QStyleOptionFrame>(edit);
    const QRect contents =
        edit.style()->subElementRect(QStyle::SE_LineEditContents, &option, &edit);
    shown_text shown = text_in(edit, text, contents);
    shown.needed += edit_text_margins_px;
    return shown;
}

shown_text text_of(const QProgressBar &bar)
{
    auto option = option_of<QStyleOptionProgressBar>(bar);
    option.text = bar.text();
    return text_in(bar, bar.text(),
                   bar.style()->subElementRect(QStyle::SE_ProgressBarContents, &option, &bar));
}

/// The visible widgets of a class in the screen, including the screen itself.
template <class Widget>
QList<const Widget *> visible_widgets(const QWidget &screen)
{
    QList<const Widget *> widgets;
    if (auto *itself = qobject_cast<const Widget *>(&screen))
        widgets << itself;
    for (const Widget *widget : screen.findChildren<Widget *>()) {
        if (widget->isVisible())
            widgets << widget;
    }
    return widgets;
}

template <class Widget>
void add_texts(QList<shown_text> &texts, const QWidget &screen)
{
    for (const Widget *widget : visible_widgets<Widget>(screen)) {
        const shown_text shown = text_of(*widget);
        if (!shown.text.isEmpty())
            texts << shown;
    }
}

shown_text text_of(const QAbstractItemView &view, const QModelIndex &index)
{
    auto option = option_of<QStyleOptionViewItem>(view);
    option.rect = view.visualRect(index);
    option.font = view.font();
    option.features = QStyleOptionViewItem::HasDisplay;
    option.text = index.data().toString();
    option.widget = &view;
    const QStyle &style = *view.style();
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view) + 1;
    QRect room = style.subElementRect(QStyle::SE_ItemViewItemText, &option, &view);
    room.setRight(qMin(room.right(), view.viewport()->width() - 1));
    return text_in(view, option.text, room.adjusted(margin, 0, -margin, 0));
}

void add_cells(QList<shown_text> &cells, const QAbstractItemView &view)
{
    const QAbstractItemModel &model = *view.model();
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column)
            cells << text_of(view, model.index(row, column));
    }
}

shown_text title_of(const QHeaderView &header, int section, bool is_sorted)
{
    const auto value = [&](int role) {
        return header.model()->headerData(section, header.orientation(), role);
    };
    auto option = option_of<QStyleOptionHeader>(header);
    option.rect = QRect(header.sectionViewportPosition(section), 0, header.sectionSize(section),
                        header.height());
    option.section = section;
    option.text = value(Qt::DisplayRole).toString();
    option.state |= QStyle::State_Horizontal;
    if (is_sorted)
        option.sortIndicator = QStyleOptionHeader::SortDown;
    const auto font = value(Qt::FontRole).value<QFont>();
    option.fontMetrics = QFontMetrics(font);
    const QStyle &style = *header.style();
    QRect room = style.subElementRect(QStyle::SE_HeaderLabel, &option, &header);
    if (is_sorted) {
        const QRect arrow = style.subElementRect(QStyle::SE_HeaderArrow, &option, &header);
        room.setRight(qMin(room.right(), arrow.left() - 1));
    }
    return {option.text, font, size_of(option.text, font), room, &header};
}

}  // namespace

QList<shown_text> shown_texts(const QWidget &screen)
{
    QList<shown_text> texts;
    add_texts<QLabel>(texts, screen);
    add_texts<QAbstractButton>(texts, screen);
    add_texts<QComboBox>(texts, screen);
    add_texts<QLineEdit>(texts, screen);
    add_texts<QProgressBar>(texts, screen);
    return texts;
}

QList<shown_text> shown_cells(const QWidget &screen)
{
    QList<shown_text> cells;
    for (const auto *view : visible_widgets<QAbstractItemView>(screen)) {
        if (!qobject_cast<const QHeaderView *>(view))
            add_cells(cells, *view);
    }
    return cells;
}

QList<shown_text> shown_titles(const QHeaderView &header, int sorted_section)
{
    QList<shown_text> titles;
    for (int section = 0; section < header.count(); ++section)
        titles << title_of(header, section, section == sorted_section);
    return titles;
}
