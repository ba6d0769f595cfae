// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// The exit status of a program that ended with -1: Linux keeps eight bits of it (exit(3)), Windows
/// all.
#ifdef Q_OS_WIN
constexpr int failed_status = -1;
#else
constexpr int failed_status = 255;
#endif

/// The outcome of a program's run.
struct program_result {
    int status = -1;  ///< exit status; -1 if it was killed or died from a signal
    bool timed_out = false;
    QByteArray output;  ///< with "\n" at the end of each line
    QByteArray errors;
};

/// A private folder for a program that looks for the metadata tool beside itself. It holds the
/// program and, as the test chooses, some tool or none.
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
