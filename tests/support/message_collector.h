// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>
#include <QtGlobal>

/// While it exists, collects everything reported through Qt, of any severity: Qt reports some
/// errors, such as an unknown property in a style sheet, as mere debug output.
class message_collector
{
public:
    message_collector()
    {
        collected.clear();
        before = qInstallMessageHandler(take);
    }
    ~message_collector() { qInstallMessageHandler(before); }

    message_collector(const message_collector &) = delete;
    message_collector &operator=(const message_collector &) = delete;

    QStringList messages() const { return collected; }

private:
    static void take(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        if (type == QtFatalMsg)
            before(type, context, text);
        else
            collected << text;
    }

    static inline QStringList collected;
    static inline QtMessageHandler before = nullptr;
};
