// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "processes.h"
#include "tool_lines.h"

#include <QProcess>
#include <QStringList>

/// A session of tool_session that waits for a reply without an end; killed with this, and its tool
/// with it.
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

    /// Whether the session goes on after `enough` warnings, with nothing between them. The output
    /// before the first one is in `said`.
    bool warns_without_an_end(int enough = 2000)
    {
        const QByteArray warnings = tool_lines::no_data.repeated(enough);
        QByteArray output;
        int first = -1;
        while ((first == -1 || output.size() < first + warnings.size()) &&
               process.waitForReadyRead(30000)) {
            output += process.readAllStandardOutput();
            first = output.indexOf(tool_lines::no_data);
        }
        said = output.left(first);
        errors = process.readAllStandardError();
        return output.mid(said.size()).startsWith(warnings) && process.state() == QProcess::Running;
    }

    /// Whether the session ends of itself after all; `said` is then its whole output but for the
    /// warnings.
    bool ends()
    {
        const bool ended = process.waitForFinished(30000);
        said += process.readAllStandardOutput().replace(tool_lines::no_data, "");
        errors += process.readAllStandardError();
        return ended && process.exitStatus() == QProcess::NormalExit;
    }

    QByteArray said;
    QByteArray errors;  ///< all of the standard error up to the last warning that was counted

private:
    QProcess process;
};
