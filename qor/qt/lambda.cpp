// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/qt/lambda.h"

#include <utility>

namespace qor::qt
{

lambda::lambda(std::function<void()> function, QObject *parent)
    : QObject(parent), function(std::move(function))
{
}

void lambda::call()
{
    if (function)
        function();
}

}  // namespace qor::qt
