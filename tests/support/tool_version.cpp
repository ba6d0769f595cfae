// SPDX-License-Identifier: GPL-3.0-or-later

#include "tool_version.h"

#include "sample_photos.h"

#include <QVersionNumber>

namespace
{

QVersionNumber tool_version()
{
    const QString text = QString::fromLatin1(run_exiftool({"-ver"}));
    const QVersionNumber version = QVersionNumber::fromString(text.trimmed());
    if (version.isNull())
        qFatal("a tool of the version \"%s\"", qPrintable(text));
    return version;
}

}  // namespace

bool tool_opens_pipes()
{
    static const bool opens = tool_version() >= QVersionNumber(12, 65);
    return opens;
}
