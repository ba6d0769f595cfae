// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace qor
{

/// Gives the memory that the program has freed back to the system. The GNU C library keeps what
/// lies between pieces in use until it is asked (malloc_trim(3)); other libraries aren't asked.
void return_free_memory();

}  // namespace qor
