# SPDX-License-Identifier: GPL-3.0-or-later
# The libraries of the machine: lib_<name> for each. A program whose property SM_STATIC_LIBRARIES is set takes them
# from static archives where the machine has them all: loading thirty shared libraries takes longer than a small
# drawing. All others (tests, the program with the windows, whose toolkit brings some of them along) take shared ones.
option(SM_STATIC "Link the command line's program with static libraries where the machine has them" ON)

# archive(<name> [<archive that it needs>...]): archive_<name> for lib<name>.a
function(archive name)
    find_library(SM_ARCHIVE_${name} lib${name}.a)
    mark_as_advanced(SM_ARCHIVE_${name})
    if(NOT SM_ARCHIVE_${name})
        message(STATUS "lib${name}.a is not there: all libraries are linked as shared ones")
        set(SM_STATIC OFF PARENT_SCOPE)
        return()
    endif()
    add_library(archive_${name} STATIC IMPORTED GLOBAL)
    set_target_properties(archive_${name} PROPERTIES IMPORTED_LOCATION ${SM_ARCHIVE_${name}})
    foreach(needed ${ARGN})
        set_property(TARGET archive_${name} APPEND PROPERTY INTERFACE_LINK_LIBRARIES ${needed})
    endforeach()
endfunction()

# library(<name> <module of pkg-config> <archive>...): lib_<name>
function(library name module)
    pkg_check_modules(${name} REQUIRED IMPORTED_TARGET GLOBAL ${module})
    add_library(lib_${name} INTERFACE)
    target_include_directories(lib_${name} SYSTEM INTERFACE ${${name}_INCLUDE_DIRS})
    if(SM_STATIC)
        set(static $<BOOL:$<TARGET_PROPERTY:SM_STATIC_LIBRARIES>>)
        target_link_libraries(lib_${name} INTERFACE "$<$<NOT:${static}>:PkgConfig::${name}>")
        foreach(one ${ARGN})
            target_link_libraries(lib_${name} INTERFACE "$<${static}:${one}>")
        endforeach()
    else()
        target_link_libraries(lib_${name} INTERFACE PkgConfig::${name})
    endif()
endfunction()

# loaded(<name> <module of pkg-config>): lib_<name>, the headers alone; the program loads the library when it needs it
function(loaded name module)
    pkg_check_modules(${name} REQUIRED ${module})
    add_library(lib_${name} INTERFACE)
    target_include_directories(lib_${name} SYSTEM INTERFACE ${${name}_INCLUDE_DIRS})
endfunction()

# own(<name> <target> <archive>): lib_<name>, the target, or <archive> in a program of static libraries
function(own name target archive)
    add_library(lib_${name} INTERFACE)
    set(static $<AND:$<BOOL:${SM_STATIC}>,$<BOOL:$<TARGET_PROPERTY:SM_STATIC_LIBRARIES>>>)
    target_link_libraries(lib_${name} INTERFACE "$<$<NOT:${static}>:${target}>" "$<${static}:${archive}>")
endfunction()

if(SM_STATIC)
    archive(utf8proc)
    archive(z)
    archive(deflate)
    archive(sqlite3 m)
    archive(jpeg)
    archive(png16 archive_z m)
    archive(brotlicommon)
    archive(brotlidec archive_brotlicommon)
    archive(freetype archive_png16 archive_z archive_brotlidec)
    archive(expat)
    archive(fontconfig archive_freetype archive_expat)
    archive(nettle)
    archive(qpdf archive_jpeg archive_z ondemand) # room "ondemand" stands for the library of ciphers
endif()
own(utf8proc PkgConfig::UTF8PROC archive_utf8proc)
own(fmt fmt::fmt formatting)
library(sqlite sqlite3 archive_sqlite3)
library(deflate libdeflate archive_deflate)
library(qpdf libqpdf archive_qpdf)
library(freetype freetype2 archive_freetype)
library(fontconfig fontconfig archive_fontconfig)
library(png libpng archive_png16)
library(jpeg libjpeg archive_jpeg)
loaded(harfbuzz harfbuzz) # its subsetter too
loaded(tiff libtiff-4)
