// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <functional>

namespace qor::qt
{

/// Turns a signal into a call of a stored function: the receiver of connections by name, as in
/// `connect(button, "2clicked()", receiver, "1call()")`.
///
/// Without a parent it belongs to nobody and lives to the end of the process.
class lambda : public QObject
{
    Q_OBJECT

public:
    explicit lambda(std::function<void()> function, QObject *parent = nullptr);

public slots:
    /// Runs the function; does nothing where there is none.
    void call();

private:
    std::function<void()> function;
};

}  // namespace qor::qt
