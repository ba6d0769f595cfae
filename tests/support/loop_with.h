// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QTimer>

#include <functional>

constexpr int loop_went_on = 7;

/// Runs the program's loop with this step in it; what the loop gives: 0 if the step quits the
/// program, `loop_went_on` if not.
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
