// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

/// The lines that the program prints about the metadata tool, each with its line end.
namespace tool_lines
{

const QByteArray no_data = "Warning: Exiftool didn't supply any data in the last 1000 msec.\n";
const QByteArray not_started = "Error: Could not start Exiftool...\n";
const QByteArray no_request = "Uh oh...\n";
const QByteArray failed_write = "[write_to_proc] proc->write() failed (rc=-1)\n";
const QByteArray killed = "Exiftool didn't quit in time. Killing it.\n";
const QByteArray not_running = "Exiftool is not running... It exited with code 0 and status is 0\n";

inline QByteArray missing(const QString &path)
{
    return "Exiftool executable " + path.toUtf8() + " does not exist...\n";
}

inline QByteArray lost_bytes(int written, int wanted)
{
    return "[write_to_proc] Could not write all required data to exiftool pipe. Wrote: " +
           QByteArray::number(written) + ". Wanted: " + QByteArray::number(wanted) + "!\n";
}

inline QByteArray standard_error(const QByteArray &text)
{
    return "[exiftool cerr] '" + text + "'\n";
}

inline QByteArray exit_data(const QByteArray &text)
{
    return "[exiftool2] exit data: '" + text + "'\n";
}

/// The tool's text in an output of only `standard_error` or `exit_data` lines, of which there is
/// one per read from the pipe. The text must not contain an apostrophe.
inline QByteArray relayed_text(const QByteArray &output)
{
    QByteArray text = output;
    return text.replace("[exiftool cerr] '", "")
        .replace("[exiftool2] exit data: '", "")
        .replace("'\n", "");
}

}  // namespace tool_lines
