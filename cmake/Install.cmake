# SPDX-License-Identifier: GPL-3.0-or-later
# What "cmake --install" puts where, by component:
#   program, windows-program, share, desktop, docs, man, completions; copyright, windows-copyright: for the packages alone
# The program finds its share folder from its own place: bin/../share/sheetmaker-pdf.
include(GNUInstallDirs)
set(share ${CMAKE_SOURCE_DIR}/share)

install(TARGETS sheetmaker RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
install(DIRECTORY ${share}/sheetmaker-pdf DESTINATION ${CMAKE_INSTALL_DATADIR} COMPONENT share
        USE_SOURCE_PERMISSIONS PATTERN node_modules EXCLUDE)
install(FILES README.md CHANGELOG.md SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT docs)
install(DIRECTORY packaging/slurm DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples COMPONENT docs USE_SOURCE_PERMISSIONS)

set(pages ${CMAKE_BINARY_DIR}/pages)
install(DIRECTORY ${pages}/man DESTINATION ${CMAKE_INSTALL_DATADIR} COMPONENT man)
install(FILES ${pages}/completions/sheetmaker DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        COMPONENT completions)
install(FILES ${pages}/completions/_sheetmaker DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions
        COMPONENT completions)
install(FILES ${pages}/completions/sheetmaker.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
        COMPONENT completions)

if(SM_WINDOWS_PROGRAM)
    # Nobody types its name: "sheetmaker settings" becomes it.
    install(TARGETS sheetmaker-windows RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/sheetmaker-pdf
            COMPONENT windows-program)
    install(DIRECTORY ${share}/applications ${share}/icons ${share}/mime ${share}/metainfo
            DESTINATION ${CMAKE_INSTALL_DATADIR} COMPONENT desktop)
endif()

# Each package has its own.
function(install_copyright package component)
    set(CPACK_DEBIAN_PACKAGE_NAME_IN ${package})
    configure_file(packaging/deb/changelog.in ${CMAKE_BINARY_DIR}/${component}/changelog @ONLY)
    install(FILES packaging/deb/copyright ${CMAKE_BINARY_DIR}/${component}/changelog
            DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()
install(FILES packaging/deb/sheetmaker-pdf.lintian-overrides RENAME sheetmaker-pdf
        DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT copyright EXCLUDE_FROM_ALL)
install_copyright(sheetmaker-pdf copyright)
install_copyright(sheetmaker-pdf-windows windows-copyright)
include(cmake/Package.cmake)
