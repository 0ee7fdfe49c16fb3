# SPDX-License-Identifier: GPL-3.0-or-later
# The Debian packages: cpack -G DEB --config build/release/CPackConfig.cmake
#   sheetmaker-pdf           the command line's program and its data
#   sheetmaker-pdf-windows   the windows, with the toolkit that they need
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME sheetmaker-pdf)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Sheetmaker PDF")
set(CPACK_PACKAGE_CONTACT "The Sheetmaker PDF developers <developers@sheetmaker-pdf.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_COMPONENTS_ALL program share docs man completions copyright)
set(CPACK_COMPONENT_PROGRAM_GROUP main)
set(CPACK_COMPONENT_SHARE_GROUP main)
set(CPACK_COMPONENT_DOCS_GROUP main)
set(CPACK_COMPONENT_MAN_GROUP main)
set(CPACK_COMPONENT_COMPLETIONS_GROUP main)
set(CPACK_COMPONENT_COPYRIGHT_GROUP main)
if(SM_WINDOWS_PROGRAM)
    list(APPEND CPACK_COMPONENTS_ALL windows-program desktop windows-copyright)
    set(CPACK_COMPONENT_WINDOWS-PROGRAM_GROUP windows)
    set(CPACK_COMPONENT_DESKTOP_GROUP windows)
    set(CPACK_COMPONENT_WINDOWS-COPYRIGHT_GROUP windows)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE "")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

# Beside the libraries that the program is linked with: those that it loads when a drawing needs them, and fonts.
# packaging/packages-runtime.txt holds the same names for those who install by hand.
file(STRINGS ${CMAKE_SOURCE_DIR}/packaging/packages-runtime.txt runtime REGEX "^[a-z]")
list(JOIN runtime ", " runtime)
set(CPACK_DEBIAN_MAIN_PACKAGE_NAME sheetmaker-pdf)
set(CPACK_DEBIAN_MAIN_PACKAGE_DEPENDS ${runtime})
set(CPACK_DEBIAN_MAIN_PACKAGE_RECOMMENDS "fonts-urw-base35, fonts-wqy-microhei, librecad-data")
set(CPACK_DEBIAN_MAIN_PACKAGE_SUGGESTS "sheetmaker-pdf-windows, nodejs, npm, xdg-utils")
set(CPACK_COMPONENT_MAIN_DESCRIPTION
    "PDF documents from the sheets of CAD drawings
Reads DXF and DWG drawings, plots the layouts that are asked for to scale,
and makes one PDF of them with page sizes, text stamps, attached files,
signature fields, hyperlinks and block attributes as properties.")
set(CPACK_DEBIAN_WINDOWS_PACKAGE_NAME sheetmaker-pdf-windows)
set(CPACK_DEBIAN_WINDOWS_PACKAGE_DEPENDS "sheetmaker-pdf (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_WINDOWS_DESCRIPTION
    "windows for the PDF documents of CAD drawings
The dialogs of sheetmaker-pdf: settings, page setup, stamps, attachments and
signature fields of a drawing, with a window to pick places in it.")

set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/packaging/deb/finish.cmake)
set(CPACK_PACKAGE_DIRECTORY_OF_BUILD ${CMAKE_BINARY_DIR}) # for that script
include(CPack)
