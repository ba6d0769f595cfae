// SPDX-License-Identifier: GPL-3.0-or-later

#include "qor/free_memory.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace qor
{

void return_free_memory()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

}  // namespace qor
