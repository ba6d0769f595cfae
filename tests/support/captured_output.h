// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

#include <iostream>
#include <sstream>

/// While it exists, captures what this process writes to `std::cout`.
class captured_output
{
public:
    captured_output() : before(std::cout.rdbuf(stream.rdbuf())) {}
    ~captured_output() { std::cout.rdbuf(before); }

    captured_output(const captured_output &) = delete;
    captured_output &operator=(const captured_output &) = delete;

    QByteArray text() const { return QByteArray::fromStdString(stream.str()); }

private:
    std::ostringstream stream;
    std::streambuf *before;
};
