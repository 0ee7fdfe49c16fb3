# SPDX-License-Identifier: GPL-3.0-or-later
# The component of Windows: the plug-in, its adapters, the server that holds them, and their tests under Wine.
enable_language(RC)
add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)

# Numbers as in 64-bit processes, to the last bit, and not as x87 rounds them. Callers of 32 bits align the stack to four
# bytes: what needs more aligns it by itself.
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    add_compile_options(-msse2 -mfpmath=sse -mincoming-stack-boundary=2)
endif()

# Where objects of COM are written: its interfaces have no destructors, and nobody deletes through them.
set(SM_COM_WARNINGS ${SM_WARNINGS} -Wno-non-virtual-dtor)

add_plugin()
file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/adapters/windows/*.cpp)
list(FILTER sources EXCLUDE REGEX "/adapters/windows/(server|objects)/")
add_library(windows STATIC ${sources})
target_link_libraries(windows PUBLIC plugin comctl32 comdlg32 gdi32 ole32 oleaut32 shell32 uuid version uxtheme)
target_compile_options(windows PRIVATE ${SM_WARNINGS})
target_include_directories(windows PUBLIC ${CMAKE_SOURCE_DIR}/adapters)
precompile(windows SystemHeaders.h)

# What the component publishes with where there is no publishing library, and the program, which is of 64 bits alone: where
# their libraries are.
set(SM_WINDOWS_LIBRARIES ${CMAKE_SOURCE_DIR}/build/windows-libraries/${SM_MACHINE} CACHE PATH
    "What packaging/windows/build-libraries made; without it the component is built alone, and needs a publishing library")
set(SM_PROGRAM OFF)
if(EXISTS ${SM_WINDOWS_LIBRARIES}/key)
    include(cmake/WindowsPublisher.cmake)
    if(SM_MACHINE STREQUAL "x86_64")
        set(SM_PROGRAM ON)
        include(cmake/WindowsProgram.cmake)
        add_subdirectory(apps/sheetmaker)
    endif()
endif()
add_subdirectory(adapters/windows/server)

# What is handed out: an installer, and a zip of the same files.
set(component $<TARGET_FILE:TwAcadPdf>)
set(share ${CMAKE_SOURCE_DIR}/share/sheetmaker-pdf)
set(SM_SETUP ${CMAKE_BINARY_DIR}/SheetmakerPdfAutoCAD-${PROJECT_VERSION}.exe)
set(SM_ZIP ${CMAKE_BINARY_DIR}/SheetmakerPdfAutoCAD-${PROJECT_VERSION}.zip)
set(packaging ${CMAKE_SOURCE_DIR}/packaging/windows)
# That of the other preset goes along, under a name of its own, when it has been built.
set(component32 ${CMAKE_SOURCE_DIR}/build/windows32/adapters/windows/server/TwAcadPdf.dll)
file(GLOB built32 CONFIGURE_DEPENDS ${component32})
# The installer offers Ghostscript where one is handed to it.
set(SM_GHOSTSCRIPT none CACHE PATH "What packaging/windows/build-ghostscript made; none: the installer brings no Ghostscript")
file(GLOB ghostscript CONFIGURE_DEPENDS ${SM_GHOSTSCRIPT}/gs.exe)
file(GLOB_RECURSE shipped CONFIGURE_DEPENDS ${share}/*)
set(programs)
if(SM_PROGRAM)
    set(programs $<TARGET_FILE:sheetmaker> $<TARGET_FILE:sheetmaker-windows>)
endif()
set(stage ${CMAKE_BINARY_DIR}/stage)
set(files ${CMAKE_BINARY_DIR}/files.nsh)
file(GLOB packing CONFIGURE_DEPENDS ${packaging}/*)
file(GLOB windows_help CONFIGURE_DEPENDS ${packaging}/help/*)
add_custom_command(OUTPUT ${files}
    COMMAND ${packaging}/stage-files ${stage} ${component} ${component32} ${SM_GHOSTSCRIPT} ${share}
            ${CMAKE_SOURCE_DIR}/LICENSE ${programs}
    COMMAND ${packaging}/list-files ${stage} ${files}
    DEPENDS TwAcadPdf ${built32} ${ghostscript} ${programs} ${packing} ${windows_help} ${shipped} VERBATIM)
add_custom_command(OUTPUT ${SM_SETUP}
    COMMAND makensis -V1 -WX -DVERSION=${PROJECT_VERSION} -DSTAGE=${stage} -DFILES=${files} -DSIGN=${packaging}/sign
            -DICON=${packaging}/sheetmaker-pdf.ico -DOUTPUT=${SM_SETUP} ${packaging}/installer.nsi
    DEPENDS ${files} VERBATIM)
add_custom_command(OUTPUT ${SM_ZIP}
    COMMAND ${packaging}/make-zip ${SM_ZIP} ${stage}
    DEPENDS ${files} VERBATIM)
set(always)
if(SM_MACHINE STREQUAL "x86_64")
    set(always ALL)
endif()
add_custom_target(installer ${always} DEPENDS ${SM_SETUP} ${SM_ZIP})

# Programs are run by Wine in a prefix of the build's own.
set(runner run-wine)
if(SM_MACHINE STREQUAL "i686")
    set(runner run-wine32)
endif()
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_SOURCE_DIR}/tests/windows/${runner} ${CMAKE_BINARY_DIR}/wine)
enable_testing()
include(GoogleTest)
set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
add_subdirectory(tests/windows)
