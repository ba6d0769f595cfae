# SPDX-License-Identifier: GPL-3.0-or-later

# The Debian package: its documents, as Debian's policy requires them, and the contents of its
# control file. Licences that every Debian system has anyway are installed as links to its copies.

function(install_compressed file folder name)
    set(compressed ${CMAKE_CURRENT_BINARY_DIR}/${name}.gz)
    execute_process(
        COMMAND gzip --best --no-name --stdout ${CMAKE_CURRENT_SOURCE_DIR}/${file}
        OUTPUT_FILE ${compressed}
        COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    install(FILES ${compressed} DESTINATION ${folder})
endfunction()

install_compressed(man/kelvra.1 share/man/man1 kelvra.1)
install_compressed(debian/changelog ${document_folder} changelog)
install(FILES debian/copyright DESTINATION ${document_folder})

file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/licenses)
foreach(license GPL-3 LGPL-3)
    set(link ${CMAKE_CURRENT_BINARY_DIR}/licenses/${license}.txt)
    file(CREATE_LINK ../../common-licenses/${license} ${link} SYMBOLIC)
    install(FILES ${link} DESTINATION ${document_folder})
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CONTACT "Vorrin <kelvra@vorrin.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "correct the recording times of photos")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Shows the recording time of each photo of a folder, takes a shift or a time
zone, shows the new times live, and writes them into all the date tags that
each photo has: EXIF, IPTC, XMP and the dates of the file. Photos that can't
be written are named, and the last batch can be undone.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://vorrin.example/)
# The dependencies on libraries follow from what the program is linked to.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libimage-exiftool-perl, qttranslations5-l10n")
# Opens the help page and the links in the browser.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)
include(CPack)
