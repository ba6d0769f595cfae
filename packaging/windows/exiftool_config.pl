# SPDX-License-Identifier: GPL-3.0-or-later

# Installed as ".ExifTool_config" beside exiftool.exe, which reads it at its start.

use strict;
use warnings;
no warnings qw(once redefine);

# Kelvra writes file names in UTF-8.
%Image::ExifTool::UserDefined::Options = (CharsetFileName => 'UTF8');

# A request names one photo. The tool takes a name with "?" or "*" for a pattern, and would read or
# write other photos; such a name matches no file. No file on Windows has it, but a name that UTF-8
# can't express (half a surrogate pair) has such characters in a request.
require Win32::FindFile;
*Win32::FindFile::FindFile = sub ($) { return };

1;
