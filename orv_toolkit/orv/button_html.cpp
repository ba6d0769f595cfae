// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/button_html.h"

#include <QPainter>
#include <QPixmap>
#include <QTextDocument>

namespace orv
{

namespace
{

QPixmap drawn(const QString &html)
{
    QTextDocument document;
    document.setHtml(html);
    const QSizeF size = document.size();
    QPixmap picture(static_cast<int>(size.width()), static_cast<int>(size.height()));
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    document.drawContents(&painter, picture.rect());
    return picture;
}

}  // namespace

button_html::button_html(QString html, QWidget *parent) : button(parent, QRect())
{
    const QPixmap picture = drawn(html);
    setIcon(picture);
    setIconSize(picture.size());
}

button_html::button_html(QWidget *parent) : button_html(QString(), parent) {}

}  // namespace orv
