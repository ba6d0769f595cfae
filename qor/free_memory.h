// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace qor
{

/// Returns the memory that the program has freed to the system. The GNU C library keeps free memory
/// between blocks in use until this call (malloc_trim(3)); with other C libraries nothing is done.
void return_free_memory();

}  // namespace qor
