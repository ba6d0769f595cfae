// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/property.h"

namespace qor
{

namespace
{

int next_id()
{
    static int next = 0;
    return next++;
}

}  // namespace

property::property() : id(next_id()) {}

}  // namespace qor
