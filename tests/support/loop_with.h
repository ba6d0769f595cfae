// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QTimer>

#include <functional>

constexpr int loop_went_on = 7;

/// Runs the program's event loop with this step in it. Returns the loop's result: 0 if the step
/// quits the program, otherwise `loop_went_on`.
inline int loop_with(const std::function<void()> &step)
{
    QTimer end;
    QObject::connect(&end, &QTimer::timeout, [] { QCoreApplication::exit(loop_went_on); });
    QTimer begin;
    begin.setSingleShot(true);
    QObject::connect(&begin, &QTimer::timeout, [&] {
        step();
        end.start(0);
    });
    begin.start(0);
    return QCoreApplication::exec();
}
