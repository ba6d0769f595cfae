// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "processes.h"
#include "tool_lines.h"

#include <QProcess>
#include <QStringList>

/// A session of tool_session that waits forever for a reply. It is killed on destruction, together
/// with its tool.
class hanging_session
{
public:
    hanging_session(const QString &program, const QStringList &commands)
    {
        process.start(program, commands);
    }
    ~hanging_session() { kill_with_children(process); }

    hanging_session(const hanging_session &) = delete;
    hanging_session &operator=(const hanging_session &) = delete;

    /// Whether the session is still running after `enough` warnings with nothing between them.
    /// `printed` then holds the output before the first one.
    bool warns_endlessly(int enough = 2000)
    {
        const QByteArray warnings = tool_lines::no_data.repeated(enough);
        QByteArray output;
        int first = -1;
        while ((first == -1 || output.size() < first + warnings.size()) &&
               process.waitForReadyRead(30000)) {
            output += process.readAllStandardOutput();
            first = output.indexOf(tool_lines::no_data);
        }
        printed = output.left(first);
        errors = process.readAllStandardError();
        return output.mid(printed.size()).startsWith(warnings) &&
               process.state() == QProcess::Running;
    }

    /// Whether the session ends on its own after all. `printed` then holds its whole output except
    /// the warnings.
    bool ends()
    {
        const bool ended = process.waitForFinished(30000);
        printed += process.readAllStandardOutput().replace(tool_lines::no_data, "");
        errors += process.readAllStandardError();
        return ended && process.exitStatus() == QProcess::NormalExit;
    }

    QByteArray printed;
    QByteArray errors;  ///< standard error up to the last warning counted

private:
    QProcess process;
};
