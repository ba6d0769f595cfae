# SPDX-License-Identifier: GPL-3.0-or-later

# Gives a program for Windows its icon, version and manifest.

find_program(icotool_program icotool REQUIRED)

function(add_windows_resource target)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/windows_resource)
    set(source ${PROJECT_SOURCE_DIR}/packaging/windows)
    set(icon ${folder}/kelvra.ico)
    set(manifest ${folder}/kelvra.manifest)
    configure_file(${source}/kelvra.manifest.in ${manifest} @ONLY)
    configure_file(${source}/kelvra.rc.in ${folder}/kelvra.rc @ONLY)
    set(pictures ${PROJECT_SOURCE_DIR}/resources/program_icon)
    add_custom_command(OUTPUT ${icon}
        COMMAND ${icotool_program} --create --output=${icon}
            kelvra-16.png kelvra-24.png kelvra-32.png kelvra-48.png kelvra-64.png kelvra-128.png
            --raw=kelvra-256.png
        WORKING_DIRECTORY ${pictures}
        DEPENDS ${pictures}/kelvra-16.png ${pictures}/kelvra-24.png ${pictures}/kelvra-32.png
            ${pictures}/kelvra-48.png ${pictures}/kelvra-64.png ${pictures}/kelvra-128.png
            ${pictures}/kelvra-256.png
        VERBATIM)
    enable_language(RC)
    set_source_files_properties(${folder}/kelvra.rc PROPERTIES
        OBJECT_DEPENDS "${icon};${manifest}")
    target_sources(${target} PRIVATE ${folder}/kelvra.rc)
    set_target_properties(${target} PROPERTIES WIN32_EXECUTABLE ON)
endfunction()
