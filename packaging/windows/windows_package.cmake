# SPDX-License-Identifier: GPL-3.0-or-later

# The Windows package: everything that the program needs in one folder, as a portable archive and as
# an installer. Paths of this list are in the cross-built Qt, in the tool's folder, or in Debian's
# packages.

find_package(Qt5 REQUIRED COMPONENTS Core Gui Widgets)
find_program(lconvert_program lconvert REQUIRED)
cmake_path(GET exiftool_program PARENT_PATH tool_folder)

install(TARGETS kelvra RUNTIME DESTINATION .)

# Qt and the plugin for the window system. The plugin for the style of Windows is left out: it marks
# list entries in a light blue of its own, on which the skin's light text can't be read.
foreach(library Core Gui Widgets)
    install(FILES $<TARGET_FILE:Qt5::${library}> DESTINATION .)
endforeach()
install(FILES $<TARGET_FILE:Qt5::QWindowsIntegrationPlugin> DESTINATION plugins/platforms)
install(FILES windows/qt.conf DESTINATION .)

# The compiler's runtime libraries, without what only a debugger reads.
set(runtime_folder ${CMAKE_CURRENT_BINARY_DIR}/runtime)
file(MAKE_DIRECTORY ${runtime_folder})
foreach(library libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll)
    execute_process(
        COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
        OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE
        COMMAND_ERROR_IS_FATAL ANY)
    file(REAL_PATH ${file} file)
    execute_process(
        COMMAND ${CMAKE_STRIP} --strip-unneeded -o ${runtime_folder}/${library} ${file}
        COMMAND_ERROR_IS_FATAL ANY)
    install(FILES ${runtime_folder}/${library} DESTINATION .)
    list(APPEND files_of_debian ${file})
endforeach()

# Qt's German texts as one catalogue; Debian's own qt_de.qm only names those of Qt's modules.
set(qtbase_texts /usr/share/qt5/translations/qtbase_de.qm)
set(qt_texts ${CMAKE_CURRENT_BINARY_DIR}/qt_de.qm)
add_custom_command(OUTPUT ${qt_texts}
    COMMAND ${lconvert_program} -o ${qt_texts} ${qtbase_texts}
    VERBATIM)
add_custom_target(windows_texts ALL DEPENDS ${qt_texts})
install(FILES ${qt_texts} DESTINATION translations)
list(APPEND files_of_debian ${qtbase_texts} ${free_sans_file} ${free_sans_bold_file})

# The metadata tool.
install(PROGRAMS ${exiftool_program} DESTINATION .)
install(DIRECTORY ${tool_folder}/exiftool_files DESTINATION .)
install(FILES windows/exiftool_config.pl DESTINATION . RENAME .ExifTool_config)

set(license_folder licenses)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${license_folder} RENAME GPL-3.txt)
install(FILES licenses/LGPL-3.txt licenses/FreeSans.txt DESTINATION ${license_folder})
install(FILES ${windows_parts}/qt/copyright DESTINATION ${license_folder} RENAME Qt.txt)
install(FILES ${tool_folder}/exiftool_files/LICENSE
    DESTINATION ${license_folder} RENAME ExifTool.txt)
install(FILES /usr/share/common-licenses/Artistic DESTINATION ${license_folder} RENAME Perl.txt)
install(FILES /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright
    DESTINATION ${license_folder} RENAME GCC.txt)
install(FILES /usr/share/doc/mingw-w64-x86-64-dev/copyright
    DESTINATION ${license_folder} RENAME MinGW-w64.txt)
install(FILES ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION . RENAME changes.txt)

# What the package was made from, as the licences ask.
file(READ windows/sources.sha256 fetched)
set(source_package [[${source:Package} ${source:Version}]])
set(installed "")
foreach(file ${files_of_debian})
    execute_process(
        COMMAND dpkg-query --search ${file}
        COMMAND cut --delimiter=: --fields=1
        COMMAND xargs dpkg-query --show --showformat=${source_package}
        OUTPUT_VARIABLE source
        COMMAND_ERROR_IS_FATAL ANY)
    file(SHA256 ${file} sum)
    cmake_path(GET file FILENAME name)
    string(APPEND installed "${sum}  ${name}, from ${source}\n")
endforeach()
configure_file(windows/sources.txt.in ${CMAKE_CURRENT_BINARY_DIR}/sources.txt @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/sources.txt DESTINATION .)

set(CPACK_GENERATOR ZIP NSIS)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_FILE_NAME kelvra-${PROJECT_VERSION}-windows)
set(CPACK_PACKAGE_INSTALL_DIRECTORY Kelvra)
set(CPACK_NSIS_MUI_ICON ${PROJECT_BINARY_DIR}/src/windows_resource/kelvra.ico)
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_SOURCE_DIR}/windows)
include(CPack)
