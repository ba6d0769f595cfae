// SPDX-License-Identifier: GPL-3.0-or-later

#include "startup/language_setting.h"

#include <QLocale>
#include <QSettings>
#include <QVariant>

QString language_setting(const QString &key)
{
    const QString stored = QSettings().value(key, QVariant()).toString();
    if (!stored.isEmpty())
        return stored;
    return QLocale::system().language() == QLocale::German ? "de" : "en";
}
