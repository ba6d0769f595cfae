// SPDX-License-Identifier: GPL-3.0-or-later

#include "isolated_program.h"

#include "processes.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <filesystem>

namespace
{

/// On Windows, standard streams have "\r\n" at the end of each line.
QByteArray with_plain_line_ends(QByteArray bytes)
{
    return bytes.replace("\r\n", "\n");
}

}  // namespace

// On the disk of the build, so that big programs can be linked instead of copied.
isolated_program::isolated_program(const QString &source)
    : folder(QCoreApplication::applicationDirPath() + "/run-XXXXXX"),
      program(folder.filePath(QFileInfo(source).fileName()))
{
    place(source, program);
}

void isolated_program::use_stand_in()
{
    place(STAND_IN_PROGRAM, tool_path());
}

void isolated_program::use_real_tool()
{
    if (!QFile::link(EXIFTOOL_PROGRAM, tool_path()))
        qFatal("can't link the tool");
}

QString isolated_program::tool_path() const
{
    return folder.filePath("exiftool.exe");
}

program_result isolated_program::run(const QStringList &arguments, int limit_ms) const
{
    QProcess process;
    process.start(program, arguments);
    program_result result;
    result.timed_out = !process.waitForFinished(limit_ms);
    if (result.timed_out) {
        kill_with_children(process);
    } else if (process.exitStatus() == QProcess::NormalExit) {
        result.status = process.exitCode();
    }
    result.output = with_plain_line_ends(process.readAllStandardOutput());
    result.errors = with_plain_line_ends(process.readAllStandardError());
    return result;
}

/// Makes a hard link if possible, since a program finds its folder by the name it was run with.
void isolated_program::place(const QString &source, const QString &target) const
{
    std::error_code error;
    std::filesystem::create_hard_link(source.toStdWString(), target.toStdWString(), error);
    if (error && !QFile::copy(source, target))
        qFatal("can't place %s", qPrintable(target));
}
