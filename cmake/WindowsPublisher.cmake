# SPDX-License-Identifier: GPL-3.0-or-later
# The rooms that the component publishes by itself with, which the program stands on as well: they ask nothing but the
# system's own libraries of the machine.
# Their libraries are static ones, which packaging/windows/build-libraries puts into SM_WINDOWS_LIBRARIES.
list(APPEND CMAKE_FIND_ROOT_PATH ${SM_WINDOWS_LIBRARIES})
list(APPEND CMAKE_PREFIX_PATH ${SM_WINDOWS_LIBRARIES})
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
find_package(fmt REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(Threads REQUIRED)

# lib_<name>, from its archives; each may need those behind it
set(libraries ${SM_WINDOWS_LIBRARIES})
function(library name)
    add_library(lib_${name} INTERFACE)
    target_include_directories(lib_${name} SYSTEM INTERFACE ${libraries}/include ${libraries}/include/${name}
        ${libraries}/include/${name}2)
    foreach(archive ${ARGN})
        target_link_libraries(lib_${name} INTERFACE ${libraries}/lib/lib${archive}.a)
    endforeach()
endfunction()
library(deflate deflate)
library(png png z)
library(jpeg jpeg)
library(tiff tiff jpeg z)
library(freetype freetype png z)
library(harfbuzz harfbuzz freetype png z)
library(fribidi fribidi)
library(utf8proc utf8proc)
library(qpdf qpdf jpeg z)
target_link_libraries(lib_qpdf INTERFACE advapi32)
target_compile_definitions(lib_fribidi INTERFACE FRIBIDI_LIB_STATIC)
target_compile_definitions(lib_utf8proc INTERFACE UTF8PROC_STATIC)

add_room(base adapters/base lib_utf8proc advapi32)
add_room(drawing adapters/drawing ports base nlohmann_json::nlohmann_json Threads::Threads)
add_room(render adapters/render drawing
    lib_deflate lib_png lib_jpeg lib_harfbuzz lib_freetype lib_tiff lib_fribidi)
add_room(prologue adapters/prologue)
add_room(plotter adapters/plotter render prologue lib_deflate)
add_room(ghostscript adapters/ghostscript base fmt::fmt)
add_room(publisher adapters/publisher plugin prologue base ghostscript lib_qpdf lib_deflate lib_harfbuzz fmt::fmt
    Threads::Threads)
add_room(stamptexts adapters/stamptexts plotter publisher)
optimise_little(ghostscript)
