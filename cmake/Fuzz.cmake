# SPDX-License-Identifier: GPL-3.0-or-later
# The rooms that read what comes from outside, and what fuzzes them; nothing else. Shared libraries alone.
set(SM_STATIC OFF)
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(fmt REQUIRED)
find_package(nlohmann_json REQUIRED)
pkg_check_modules(UTF8PROC REQUIRED IMPORTED_TARGET libutf8proc)
include(cmake/Libraries.cmake)

add_ports()
add_room(base adapters/base PkgConfig::UTF8PROC ${CMAKE_DL_LIBS})
add_room(store adapters/store ports base lib_sqlite)
add_room(drawing adapters/drawing ports base nlohmann_json::nlohmann_json)
add_room(render adapters/render drawing
    lib_deflate lib_freetype lib_fontconfig lib_png lib_jpeg lib_harfbuzz lib_tiff)
add_room(prologue adapters/prologue)
add_room(plotter adapters/plotter render prologue lib_deflate)
add_room(ghostscript adapters/ghostscript base fmt::fmt)
add_room(publisher adapters/publisher ports prologue base ghostscript lib_qpdf lib_deflate lib_harfbuzz fmt::fmt
    Threads::Threads)
target_compile_options(publisher PUBLIC "SHELL:-include ${CMAKE_SOURCE_DIR}/cmake/ClangVector.h")
add_subdirectory(tests/fuzz)
