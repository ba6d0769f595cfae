// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDir>
#include <QProcess>
#include <QString>
#include <QStringList>

/// Runs git in a folder, with no settings other than those given here.
class git_folder
{
public:
    explicit git_folder(const QString &path) : path(QDir(path).canonicalPath()) {}

    /// What git prints, without the line end; empty if it fails.
    QString run(const QStringList &arguments) const
    {
        QProcess git;
        git.setWorkingDirectory(path);
        git.setProcessEnvironment(environment_without_git());
        const QStringList settings = {"-c", "user.name=Somebody",
                                      "-c", "user.email=somebody@example.com",
                                      "-c", "safe.directory=" + path};
        git.start("git", settings + arguments);
        git.waitForFinished();
        if (git.error() == QProcess::FailedToStart)
            qFatal("git isn't installed");
        if (git.exitStatus() != QProcess::NormalExit || git.exitCode() != 0)
            return QString();
        return QString::fromUtf8(git.readAllStandardOutput()).trimmed();
    }

    bool is_top_of_repository() const { return run({"rev-parse", "--show-toplevel"}) == path; }

    const QString path;  ///< without symbolic links

private:
    /// A git hook that runs the tests sets git's variables to its own repository; they are left
    /// out.
    static QProcessEnvironment environment_without_git()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const QString &variable : environment.keys()) {
            if (variable.startsWith("GIT_"))
                environment.remove(variable);
        }
        return environment;
    }
};
