# SPDX-License-Identifier: GPL-3.0-or-later

# Builds for 64-bit Windows with Debian's cross compiler. Its variant with POSIX threads is the one
# that has the threads of the C++ library. Qt and ExifTool come from the folder of parts, where
# build_qt.sh and fetch_tool.sh put them.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/run_in_wine.sh)

cmake_path(SET windows_parts NORMALIZE ${CMAKE_CURRENT_LIST_DIR}/../../build/windows_parts)
set(CMAKE_FIND_ROOT_PATH ${windows_parts}/qt /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The catalogues are compiled by the tools of this computer.
set(Qt5LinguistTools_DIR /usr/lib/x86_64-linux-gnu/cmake/Qt5LinguistTools)
set(exiftool_program ${windows_parts}/exiftool/exiftool.exe CACHE FILEPATH "the metadata tool")
