// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// The test's side of the scripted stand-in for the metadata tool.
///
/// Points KELVRA_STAND_IN to its own folder, so create it before the tool is started. The files
/// there: `input` (each byte that the stand-in has received), `arguments` and `starts` (its own
/// arguments, and a process number for each start), `tags/NAME` (the reply to a read of a file
/// called NAME), `failing/NAME` (a write of NAME is refused), `script/N` (what to do instead for
/// the n-th request), `script/next` (the same for the next request), `script/start` and
/// `script/quit`.
///
/// A script is a list of lines: `out TEXT` and `err TEXT` (with \n, \r, \t, \0, \\ and \xHH),
/// `fill N` and `fill_err N` (N bytes "x"), `wait MS`, `touch NAME`, `await NAME` (until the test
/// has touched it), `answer` (as without a script), `signal NUMBER` (to itself), `exit STATUS`,
/// `hang`.
class scripted_tool
{
public:
    scripted_tool();

    /// Sets the tags, as "Group:Name=Value", that a read of a file called `name` returns.
    void set_tags(const QString &name, const QStringList &tags);
    void refuse_writes(const QString &name);

    /// @param moment  the number of a request, starting at 1, or "next", "start" or "quit"
    void script(const QString &moment, const QStringList &actions);

    /// Makes the tool wait at this request until `let_go`, then answer it.
    void hold(int request);

    /// Whether the tool is waiting there, or has waited there.
    bool holds(int request) const;
    void let_go(int request);

    /// All input since the start or the last `forget`.
    QByteArray input() const;
    /// The same, split after each "-execute" line.
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

/// Writes an executable script of these lines to `path`, for tools simpler than the stand-in.
void write_shell_script(const QString &path, const QStringList &lines);
