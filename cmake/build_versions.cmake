# SPDX-License-Identifier: GPL-3.0-or-later
#
# Writes the header with the versions of the program and of its source trees, if they have changed.
#
# usage: cmake -D source_folder=FOLDER -D project_version=1.2.3 -D header=FILE
#              -P build_versions.cmake
#
# The source folder counts as a repository if it is the top of one that git can read. If git gives
# no answer, as in a source archive, the commit is 0000000.
cmake_minimum_required(VERSION 3.25)

# A build that a git hook starts inherits variables that name the hook's repository.
unset(ENV{GIT_DIR})
unset(ENV{GIT_WORK_TREE})

file(REAL_PATH "${source_folder}" source_folder)

# Puts git's output into `answer`, which is unchanged if git fails or prints nothing. The owner of
# the folder doesn't matter: it is being built anyway.
function(ask_git answer)
    execute_process(
        COMMAND git -c "safe.directory=${source_folder}" ${ARGN}
        WORKING_DIRECTORY "${source_folder}"
        OUTPUT_VARIABLE output
        OUTPUT_STRIP_TRAILING_WHITESPACE
        ERROR_QUIET)
    if(NOT "${output}" STREQUAL "")
        set(${answer} "${output}" PARENT_SCOPE)
    endif()
endfunction()

# The last commit that touched one of the paths.
macro(ask_last_commit answer)
    ask_git(${answer} rev-list --max-count=1 --abbrev-commit --abbrev=7 HEAD -- ${ARGN})
endmacro()

set(head_commit 0000000)
set(commit_count 0)
set(orv_infrastructure 0000000)
set(orv_toolkit 0000000)
set(qor 0000000)

set(top_folder "")
ask_git(top_folder rev-parse --show-toplevel)
if(top_folder STREQUAL source_folder)
    ask_git(head_commit rev-parse --short=7 HEAD)
    ask_git(commit_count rev-list --count HEAD)
    ask_git(described describe --long --tags --abbrev=7 --match "v[0-9]*")
    ask_last_commit(orv_infrastructure
        cmake packaging resources tools CMakeLists.txt CMakePresets.json ":(glob)*.sh")
    ask_last_commit(orv_toolkit orv_toolkit)
    ask_last_commit(qor qor)
endif()

set(application "v${project_version}-${commit_count}-g${head_commit}")
if(DEFINED described)
    set(application "${described}")
endif()

file(CONFIGURE OUTPUT "${header}" @ONLY CONTENT [=[
#pragma once

// Written by the build.

namespace orv::build_versions
{

constexpr char application[] = "@application@";
constexpr char orv_infrastructure[] = "@orv_infrastructure@";
constexpr char orv_toolkit[] = "@orv_toolkit@";
constexpr char qor[] = "@qor@";

}  // namespace orv::build_versions
]=])
