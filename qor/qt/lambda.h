// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <functional>

namespace qor::qt
{

/// Calls a stored function when it receives a signal; used as the receiver of connections by name,
/// as in `connect(button, "2clicked()", receiver, "1call()")`.
///
/// Without a parent it has no owner and lives until the process ends.
class lambda : public QObject
{
    Q_OBJECT

public:
    explicit lambda(std::function<void()> function, QObject *parent = nullptr);

public slots:
    /// Runs the function; does nothing if there is none.
    void call();

private:
    std::function<void()> function;
};

}  // namespace qor::qt
