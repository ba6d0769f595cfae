// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/scrolled_text.h"

#include "orv/skin_scroll_bars.h"
#include "orv/wrapped_label.h"

#include <QCoreApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QTextDocument>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <memory>
#include <utility>

namespace orv
{

namespace
{

constexpr int fewest_scrolled_lines = 3;  // above a question that stays in place
constexpr char empty_line[] = "\n\n";

/// The format in which a label shows its text, with Qt::AutoText resolved.
Qt::TextFormat format_of(const QLabel &label)
{
    const bool is_rich = label.textFormat() == Qt::RichText ||
                         (label.textFormat() == Qt::AutoText && Qt::mightBeRichText(label.text()));
    return is_rich ? Qt::RichText : Qt::PlainText;
}

/// A text in two parts. A plain text is split at its last empty line. If it has none, or if the
/// text is rich, there is no last paragraph.
struct parted_text {
    QString start;
    QString last_paragraph;
};

parted_text part(const QString &text, Qt::TextFormat format)
{
    const int line = text.lastIndexOf(empty_line);
    if (format == Qt::RichText || line < 0)
        return {text, QString()};
    return {text.left(line), text.mid(line + static_cast<int>(qstrlen(empty_line)))};
}

/// A label with the paragraph; null if it is empty or leaves too little room above it.
wrapped_label *make_question(const QString &paragraph, QSize room, QWidget *parent)
{
    auto question = std::make_unique<wrapped_label>(paragraph, Qt::PlainText, parent);
    const int height_above = room.height() - question->heightForWidth(room.width());
    const int line_height = question->fontMetrics().lineSpacing();
    const bool fits = height_above >= (fewest_scrolled_lines + 1) * line_height;
    return paragraph.isEmpty() || !fits ? nullptr : question.release();
}

/// Has no preferred size: it takes the room that its owner has for it.
QScrollArea *make_area(wrapped_label *text, QWidget *parent)
{
    auto *area = new QScrollArea(parent);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    area->setWidgetResizable(true);
    area->verticalScrollBar()->setSingleStep(text->fontMetrics().lineSpacing());
    area->setWidget(text);
    skin_scroll_bars(area);
    return area;
}

}  // namespace

scrolled_text::scrolled_text(const QLabel &label, QSize room, QWidget *parent) : QWidget(parent)
{
    const Qt::TextFormat format = format_of(label);
    const auto [start, last_paragraph] = part(label.text(), format);
    const int text_width = qMin(label.width(), room.width());
    auto *question = make_question(last_paragraph, {text_width, room.height()}, this);
    auto *scrolled = new wrapped_label(question ? start : label.text(), format, this);
    int height = scrolled->heightForWidth(text_width);
    area = make_area(scrolled, this);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(fontMetrics().lineSpacing());
    column->addWidget(area, 1);
    if (question) {
        column->addWidget(question);
        question->raise();  // screen readers follow the order of the widgets
        height += column->spacing() + question->heightForWidth(text_width);
    }
    needed = QSize(text_width, height);
    if (height > room.height())
        add_scrolling();
    needed = needed.boundedTo(room);
    // Otherwise the box's layout would use heightForWidth(), which leaves out the area.
    setFixedHeight(needed.height());
}

void scrolled_text::wheelEvent(QWheelEvent *event)
{
    QCoreApplication::sendEvent(area->verticalScrollBar(), event);
}

/// The bar is beside the text, so the text doesn't become narrower.
void scrolled_text::add_scrolling()
{
    constexpr std::pair<Qt::Key, QAbstractSlider::SliderAction> keys[] = {
        {Qt::Key_Up, QAbstractSlider::SliderSingleStepSub},
        {Qt::Key_Down, QAbstractSlider::SliderSingleStepAdd},
        {Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub},
        {Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd},
        {Qt::Key_Home, QAbstractSlider::SliderToMinimum},
        {Qt::Key_End, QAbstractSlider::SliderToMaximum},
    };
    QScrollBar *bar = area->verticalScrollBar();
    needed.rwidth() += bar->sizeHint().width();
    for (const auto &[key, action] : keys) {
        const auto *shortcut = new QShortcut(key, this);
        const auto step = action;
        connect(shortcut, &QShortcut::activated, bar, [bar, step] { bar->triggerAction(step); });
    }
}

}  // namespace orv
