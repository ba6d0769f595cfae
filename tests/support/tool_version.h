// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// How ExifTool's versions differ. Its file "Changes" says since when.

/// Whether the tool opens a pipe that is in the place of a photo, and so waits until somebody opens
/// the other end. Before 12.65 it reports such a file as missing. With a pipe in the place of its
/// temporary file it is the other way round: the older tool opens it, the newer one reports it.
bool tool_opens_pipes();
