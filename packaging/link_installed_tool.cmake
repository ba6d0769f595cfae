# SPDX-License-Identifier: GPL-3.0-or-later

# Links the metadata tool into the installed program's folder, under the name by which the program
# starts it. The path is relative if the tool is below the prefix too, as in a Debian package,
# unless the prefix is the root folder: a folder there may be a link to another place, from which
# ".." leads astray.
#
# Runs in an installation, with `exiftool_program` and `private_folder` set.

set(target "${exiftool_program}")
cmake_path(IS_PREFIX CMAKE_INSTALL_PREFIX "${exiftool_program}" tool_is_near)
if(tool_is_near AND NOT CMAKE_INSTALL_PREFIX MATCHES "^/?$")
    cmake_path(RELATIVE_PATH target BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}/${private_folder}")
endif()

set(link "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/${private_folder}/exiftool.exe")
message(STATUS "Linking: ${link} -> ${target}")
file(CREATE_LINK "${target}" "${link}" SYMBOLIC)
list(APPEND CMAKE_INSTALL_MANIFEST_FILES "${CMAKE_INSTALL_PREFIX}/${private_folder}/exiftool.exe")
