// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// What a program left behind when it ended.
struct program_result {
    int status = -1;  ///< exit status; -1 if it had to be killed or died from a signal
    bool timed_out = false;
    QByteArray output;
    QByteArray errors;
};

/// A folder of its own for a program that takes the metadata tool from beside itself, with the
/// program in it and, as the test wants it, some tool or none.
class isolated_program
{
public:
    /// @param program  path of the program to run; it is linked or copied, not moved
    explicit isolated_program(const QString &program);

    /// Puts the scripted stand-in, the real tool or any other file beside the program.
    void use_stand_in();
    void use_real_tool();
    QString tool_path() const;

    /// Runs the program to its end; kills it after `limit_ms`.
    program_result run(const QStringList &arguments, int limit_ms = 60000) const;

    QString program_path() const { return program; }

private:
    void place(const QString &source, const QString &target) const;

    QTemporaryDir folder;
    QString program;
};
