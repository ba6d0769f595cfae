// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// What ExifTool does in one version and not in another. Its file "Changes" says since when.

/// Whether the tool opens a pipe that lies where a photo was, and so waits until somebody opens the
/// other end. Before 12.65 it reports such a file as missing. Where a pipe lies in the place of its
/// temporary file it is the other way round: the older tool opens it, the newer one reports it.
bool tool_opens_pipes();
