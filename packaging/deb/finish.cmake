# SPDX-License-Identifier: GPL-3.0-or-later
# Run by cpack once the files of a package lie in place: adds the list of what the program is made of, and compresses what
# Debian wants compressed, without the time, so that the same files give the same package.
file(GLOB_RECURSE programs ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/sheetmaker
    ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/bin/sheetmaker)
foreach(program ${programs})
    get_filename_component(usr ${program}/../.. ABSOLUTE)
    execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/make_sbom.py ${CPACK_PACKAGE_DIRECTORY_OF_BUILD} ${CPACK_PACKAGE_VERSION}
        ${usr}/share/doc/sheetmaker-pdf/sheetmaker-pdf.spdx.json COMMAND_ERROR_IS_FATAL ANY)
endforeach()
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/share/man/*.[15]
    ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share/man/*.[15])
file(GLOB_RECURSE changes ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/changelog
    ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/changelog ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/CHANGELOG.md)
foreach(file ${pages} ${changes})
    execute_process(COMMAND gzip -9nf ${file} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
