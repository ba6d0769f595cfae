#include "orv/tag_reply.h"

#include <QStringRef>
#include <QVector>

namespace orv
{

namespace
{

std::string utf8(const QStringRef &text)
{
    return text.toUtf8().toStdString();
}

}  // namespace

const char ready_text[] = "{ready}";

tag_map parse_tag_reply(const QString &reply)
{
    const QLatin1String ready(ready_text);
    tag_map tags;
    const QVector<QStringRef> lines = reply.splitRef(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QStringRef &line : lines) {
        if (line == ready)
            continue;
        const QVector<QStringRef> parts = line.split(QLatin1Char('='));
        if (parts.size() < 2)
            continue;
        tags[utf8(parts[0].mid(1).trimmed())] = utf8(parts[1].trimmed());
    }
    return tags;
}

}  // namespace orv
