// SPDX-License-Identifier: GPL-3.0-or-later

#include "scripted_tool.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

scripted_tool::scripted_tool()
{
    QDir(folder.path()).mkpath("tags");
    QDir(folder.path()).mkpath("failing");
    QDir(folder.path()).mkpath("script");
    qputenv("KELVRA_STAND_IN", QFile::encodeName(folder.path()));
}

void scripted_tool::set_tags(const QString &name, const QStringList &tags)
{
    QByteArray reply;
    for (const QString &tag : tags)
        reply += "-" + tag.toUtf8() + "\n";
    write("tags/" + name, reply);
}

void scripted_tool::refuse_writes(const QString &name)
{
    write("failing/" + name, QByteArray());
}

void scripted_tool::script(const QString &moment, const QStringList &actions)
{
    write("script/" + moment, actions.join("\n").toUtf8() + "\n");
}

void scripted_tool::hold(int request)
{
    const QString number = QString::number(request);
    script(number, {"touch held_" + number, "await go_" + number, "answer"});
}

bool scripted_tool::holds(int request) const
{
    return has_touched(QString("held_%1").arg(request));
}

void scripted_tool::let_go(int request)
{
    touch(QString("go_%1").arg(request));
}

QByteArray scripted_tool::input() const
{
    return read("input");
}

QList<QByteArray> scripted_tool::requests() const
{
    const QByteArray end = "-execute\n";
    QList<QByteArray> requests;
    QByteArray rest = input();
    for (int at = rest.indexOf(end); at != -1; at = rest.indexOf(end)) {
        requests << rest.left(at + end.size());
        rest.remove(0, at + end.size());
    }
    return requests;
}

void scripted_tool::forget()
{
    write("input", QByteArray());
}

QStringList scripted_tool::arguments() const
{
    return QString::fromUtf8(read("arguments")).split('\n', Qt::SkipEmptyParts);
}

QList<qint64> scripted_tool::process_ids() const
{
    QList<qint64> ids;
    for (const QByteArray &line : read("starts").split('\n')) {
        if (!line.isEmpty())
            ids << line.toLongLong();
    }
    return ids;
}

bool scripted_tool::has_touched(const QString &name) const
{
    return QFile::exists(folder.filePath(name));
}

void scripted_tool::touch(const QString &name)
{
    write(name, QByteArray());
}

void scripted_tool::write(const QString &name, const QByteArray &bytes) const
{
    // Written under another name first: the stand-in must never see half a script.
    const QString target = folder.filePath(name);
    QFile file(target + ".part");
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("can't write %s", qPrintable(target));
    file.close();
    QFile::remove(target);
    if (!file.rename(target))
        qFatal("can't rename to %s", qPrintable(target));
}

QByteArray scripted_tool::read(const QString &name) const
{
    QFile file(folder.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write_shell_script(const QString &path, const QStringList &lines)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("can't write %s", qPrintable(path));
    file.write("#!/bin/sh\n" + lines.join("\n").toUtf8() + "\n");
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}
