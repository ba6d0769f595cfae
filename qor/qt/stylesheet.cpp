// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/qt/stylesheet.h"

#include "qor/string.h"

#include <QWidget>

#include <vector>

namespace qor::qt
{

namespace
{

/// The part of `text` from `position` through the next `end`, or to the end of the text.
QString part_through(const QString &text, int position, QChar end)
{
    const int found = text.indexOf(end, position);
    return found < 0 ? text.mid(position) : text.mid(position, found - position + 1);
}

}  // namespace

stylesheet::stylesheet(const QString &sheet)
{
    groups[""];
    set(sheet.toStdString());
}

void stylesheet::set(const std::string &text)
{
    for (const string &piece : string::split(text, ';', 0)) {
        const std::vector<string> parts = string::split(piece, ':', 1);
        if (parts.size() == 2 && !parts[0].empty() && !parts[1].empty())
            groups[""][parts[0]] = parts[1];
    }
}

std::string stylesheet::to_string() const
{
    std::string text;
    for (const auto &[selector, declarations] : groups) {
        if (declarations.empty())
            continue;
        if (!selector.empty())
            text += selector + "{";
        for (const auto &[name, value] : declarations)
            text += name + ":" + value + ";";
        if (!selector.empty())
            text += "}\n";
    }
    return text;
}

void stylesheet::apply_to(QWidget *widget) const
{
    widget->setStyleSheet(QString::fromStdString(to_string()));
}

void stylesheet::merge(QWidget *widget, QString &addition)
{
    if (addition.isEmpty())
        return;
    if (!addition.endsWith(';'))
        addition += ';';

    QString sheet = widget->styleSheet();
    int position = 0;
    while (position < addition.size()) {
        const QString declaration = part_through(addition, position, ';');
        const QString name = part_through(addition, position, ':');
        const int found = sheet.indexOf(name);
        if (found < 0) {
            sheet += declaration;
        } else {
            const QString present = part_through(sheet, found, ';');
            if (present == declaration)
                return;
            sheet.replace(found, present.size(), declaration);
        }
        position += declaration.size();
    }
    widget->setStyleSheet(sheet);
}

}  // namespace qor::qt
