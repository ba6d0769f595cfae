// SPDX-License-Identifier: GPL-3.0-or-later

#include "running_program.h"

#include "processes.h"

#include <QtTest>

#include <csignal>

namespace
{

constexpr int limit_ms = 60000;

}  // namespace

running_program::running_program(const QString &program, const QString &steps,
                                 const QStringList &arguments, const QString &locale)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_PLUGIN_PATH", INSIDE_DRIVER_PLUGINS);
    environment.insert("QT_QPA_GENERIC_PLUGINS", "inside_driver");
    environment.insert("INSIDE_DRIVER", steps);
    environment.insert("LC_ALL", locale);
    // Otherwise the leak checker's list would end up in the report's stream.
    environment.insert("LSAN_OPTIONS", environment.value("LSAN_OPTIONS") + ":print_suppressions=0");
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
}

running_program::~running_program()
{
    kill_with_children(process);
}

bool running_program::wait_until_shown()
{
    return wait_until_printed("shown") && wait_until_asleep();
}

bool running_program::wait_until_printed(const QByteArray &line)
{
    const auto is_there = [&] { return ("\n" + output).contains("\n" + line + "\n"); };
    while (!is_there() && process.waitForReadyRead(limit_ms))
        output += process.readAllStandardOutput();
    output += process.readAllStandardOutput();
    return is_there();
}

bool running_program::wait_until_asleep() const
{
    return QTest::qWaitFor([this] { return sleeps(process_id()); }, limit_ms);
}

bool running_program::wait_until_ended()
{
    const bool ended = process.state() == QProcess::NotRunning || process.waitForFinished(limit_ms);
    output += process.readAllStandardOutput();
    errors += process.readAllStandardError();
    return ended;
}

void running_program::receive(int signal_number) const
{
    if (process.state() == QProcess::Running)
        kill(static_cast<pid_t>(process_id()), signal_number);
}

int running_program::status() const
{
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

QStringList running_program::printed(const QString &name) const
{
    QStringList texts;
    for (const QString &line : QString::fromUtf8(output).split('\n')) {
        if (line.startsWith(name + ": "))
            texts << line.mid(name.size() + 2);
    }
    return texts;
}
