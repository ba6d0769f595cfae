// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// The test's end of the scripted stand-in for the metadata tool.
///
/// Points KELVRA_STAND_IN to a folder of its own, so it must be made before the tool is started.
/// The files there: `input` (each byte that the stand-in has received), `arguments` and `starts`
/// (its own arguments, and a process number for each start), `tags/NAME` (the reply to a read of a
/// file called NAME), `failing/NAME` (a write of NAME is refused), `script/N` (what to do for the
/// n-th request instead), `script/next` (the same, for one request whatever its number),
/// `script/start` and `script/quit`.
///
/// A script is a list of lines: `out TEXT` and `err TEXT` (with \n, \r, \t, \0, \\ and \xHH),
/// `fill N` and `fill_err N` (N bytes "x"), `wait MS`, `touch NAME`, `await NAME` (until the test
/// has touched it), `answer` (as without a script), `signal NUMBER` (to itself), `exit STATUS`,
/// `hang`.
class scripted_tool
{
public:
    scripted_tool();

    /// The tags, as "Group:Name=Value", that a read of a file called `name` gives.
    void set_tags(const QString &name, const QStringList &tags);
    void refuse_writes(const QString &name);

    /// @param moment  the number of a request, from 1, or "next", "start" or "quit"
    void script(const QString &moment, const QStringList &actions);

    /// Makes the tool wait at this request until `let_go`, and answer it then.
    void hold(int request);

    /// Whether it waits there, or has done so.
    bool holds(int request) const;
    void let_go(int request);

    /// Everything received since the start or the last `forget`.
    QByteArray input() const;
    /// The same, cut behind each "-execute" line.
    QList<QByteArray> requests() const;
    void forget();

    QStringList arguments() const;
    QList<qint64> process_ids() const;
    bool has_touched(const QString &name) const;
    void touch(const QString &name);
    QString path() const { return folder.path(); }

private:
    void write(const QString &name, const QByteArray &bytes) const;
    QByteArray read(const QString &name) const;

    QTemporaryDir folder;
};

/// Executable text file at `path` with these lines; for tools simpler than the stand-in.
void write_shell_script(const QString &path, const QStringList &lines);
