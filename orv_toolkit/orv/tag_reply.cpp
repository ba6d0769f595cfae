// SPDX-License-Identifier: GPL-3.0-or-later

#include "orv/tag_reply.h"

#include <QStringRef>

namespace orv
{

namespace
{

std::string utf8(const QStringRef &text)
{
    return text.toUtf8().toStdString();
}

int line_end(const QString &text, int begin)
{
    const int end = text.indexOf(QLatin1Char('\n'), begin);
    return end == -1 ? text.size() : end;
}

}  // namespace

const char ready_text[] = "{ready}";

tag_map parse_tag_reply(const QString &reply)
{
    const QLatin1Char equals('=');
    tag_map tags;
    for (int begin = 0, end = 0; begin < reply.size(); begin = end + 1) {
        end = line_end(reply, begin);
        const QStringRef line = reply.midRef(begin, end - begin);
        const int first = line.indexOf(equals);
        if (first == -1)
            continue;
        const int second = line.indexOf(equals, first + 1);
        const QStringRef value = line.mid(first + 1, second == -1 ? -1 : second - first - 1);
        tags[utf8(line.left(first).mid(1).trimmed())] = utf8(value.trimmed());
    }
    return tags;
}

}  // namespace orv
