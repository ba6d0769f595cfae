// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/wrapped_label.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTextDocument>
#include <QtMath>

namespace orv
{

namespace
{

/// The direction is the one that QLabel would use, the same for the whole text.
QTextOption line_option(const QString &text)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    return option;
}

/// A document lays out all its lines again whenever its width is set, even to the same value.
void set_width(QTextDocument &document, int width)
{
    if (document.textWidth() != width)
        document.setTextWidth(width);
}

}  // namespace

wrapped_label::wrapped_label(const QString &text, Qt::TextFormat format, QWidget *parent)
    : QLabel(parent), document(new QTextDocument(this))
{
    setTextFormat(format);
    setText(text);
    setWordWrap(true);
    document->setUndoRedoEnabled(false);
    document->setDocumentMargin(0);
    document->setDefaultFont(font());
    document->setDefaultTextOption(line_option(text));
    if (format == Qt::RichText)
        document->setHtml(text);
    else
        document->setPlainText(text);
}

QSize wrapped_label::sizeHint() const
{
    return {width(), heightForWidth(width())};
}

/// Any word can be broken, so there is no minimum width.
QSize wrapped_label::minimumSizeHint() const
{
    return {0, fontMetrics().height()};
}

int wrapped_label::heightForWidth(int width) const
{
    ensurePolished();
    set_width(*document, width);
    return qCeil(document->size().height());
}

void wrapped_label::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        document->setDefaultFont(font());
}

void wrapped_label::paintEvent(QPaintEvent *event)
{
    set_width(*document, width());
    QPainter painter(this);
    painter.setClipRect(event->rect());
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = event->rect();
    context.palette = palette();
    document->documentLayout()->draw(&painter, context);
}

}  // namespace orv
