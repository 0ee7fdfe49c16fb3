# SPDX-License-Identifier: GPL-3.0-or-later
# The headers of the standard library that most sources include are read once a target. Developers' builds go without,
# so that a source that lacks an include is found; so does a room of few sources, which wouldn't win back
# what reading them apart takes.
option(SM_PRECOMPILED "Read the common headers once a target" ON)
function(precompile target header)
    get_target_property(sources ${target} SOURCES)
    list(LENGTH sources count)
    get_target_property(together ${target} UNITY_BUILD)
    if(together)
        math(EXPR count "${count} / 12")
    endif()
    if(SM_PRECOMPILED AND count GREATER 2)
        target_precompile_headers(${target} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/${header})
    endif()
endfunction()

# What runs once a sheet or less: optimising it further takes a third longer to compile and shows in no figure.
function(optimise_little target)
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1>)
endfunction()

# A room's sources are compiled twelve at a time: reading the headers costs more than most sources. The names of a room
# are therefore its own even where no header has them. Developers' presets go without, so that a touched source costs
# itself alone.
set(SM_UNITY_BATCH 12 CACHE STRING "How many sources are compiled together")
option(SM_UNITY "Compile a room's sources together" OFF)
function(compile_together target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ${SM_UNITY} UNITY_BUILD_BATCH_SIZE ${SM_UNITY_BATCH})
endfunction()

# compile_apart(<target> <regex>): its sources that match share no batch with the others, so that the headers which they
# alone include reach fewer batches. Not in releases: what is inlined from source to source there has been measured.
option(SM_APART "Keep sources apart that see other headers" OFF)
function(compile_apart target regex)
    if(NOT (SM_UNITY AND SM_APART))
        return()
    endif()
    get_target_property(others ${target} SOURCES)
    set(matching ${others})
    list(FILTER matching INCLUDE REGEX "${regex}")
    list(FILTER others EXCLUDE REGEX "${regex}")
    foreach(part matching others)
        list(LENGTH ${part} count)
        math(EXPR batches "(${count} + ${SM_UNITY_BATCH} / 2) / ${SM_UNITY_BATCH}")
        if(batches EQUAL 0)
            set(batches 1)
        endif()
        set(index 0)
        foreach(source ${${part}})
            math(EXPR batch "${index} * ${batches} / ${count}")
            math(EXPR index "${index} + 1")
            set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${part}${batch})
        endforeach()
    endforeach()
    set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
endfunction()

# What one system alone has lies in folders that are named after it.
if(WIN32)
    set(SM_OTHER_SYSTEMS "(^|/)(posix|sqlite)/") # settings lie in the registry there
else()
    set(SM_OTHER_SYSTEMS "(^|/)windows/")
endif()

# room_sources(<variable> <folder>): the sources in it that are for this system
function(room_sources variable folder)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS RELATIVE ${folder} ${folder}/*.cpp)
    list(FILTER sources EXCLUDE REGEX ${SM_OTHER_SYSTEMS})
    list(TRANSFORM sources PREPEND ${folder}/)
    if(WIN32) # the system's headers are full of macros
        foreach(source ${sources})
            if(source MATCHES "/windows/[^/]*$")
                set_source_files_properties(${source} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
            endif()
        endforeach()
    endif()
    set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# A room is a folder of the house: one static library from every source in it, or headers alone. Its public headers lie
# in <folder>/include; what lies beside that folder is seen by the room itself and its own tests.
#   add_room(<target> <folder> [<linked target>...])
function(add_room target folder)
    set(inside ${CMAKE_SOURCE_DIR}/${folder})
    room_sources(sources ${inside})
    if(sources)
        add_library(${target} STATIC ${sources})
        target_link_libraries(${target} PUBLIC ${ARGN})
        target_compile_options(${target} PRIVATE ${SM_WARNINGS})
        target_include_directories(${target} PUBLIC ${inside}/include PRIVATE ${inside})
        compile_together(${target})
        precompile(${target} CommonHeaders.h)
    else()
        add_library(${target} INTERFACE)
        target_link_libraries(${target} INTERFACE ${ARGN})
        target_include_directories(${target} INTERFACE ${inside}/include)
    endif()
    set_target_properties(${target} PROPERTIES SM_INSIDE ${inside})
endfunction()

# The ports of the plug-in, for rooms that stand below it and see nothing else of it.
function(add_ports)
    add_library(ports INTERFACE)
    target_include_directories(ports INTERFACE ${CMAKE_SOURCE_DIR}/src)
endfunction()

# The plug-in: its folders include each other by their names below src/. Rooms that stand below it see its ports alone,
# which the check of the house watches over.
function(add_plugin)
    add_ports()
    add_room(plugin src)
    target_include_directories(plugin PUBLIC ${CMAKE_SOURCE_DIR}/src)
    optimise_little(plugin)
endfunction()

# One test program for one room, from every source in tests/<name>/.
#   add_room_tests(<name> [<linked target>...])
function(add_room_tests name)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${name}/*.cpp)
    if(NOT sources)
        return()
    endif()
    add_executable(test_${name} ${sources})
    target_link_libraries(test_${name} PRIVATE ${ARGN} GTest::gmock_main)
    target_include_directories(test_${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    # Tests see the insides of the rooms that they name.
    foreach(room ${ARGN})
        if(TARGET ${room})
            get_target_property(inside ${room} SM_INSIDE)
            if(inside)
                target_include_directories(test_${name} PRIVATE ${inside})
            endif()
        endif()
    endforeach()
    # Test code is read once and run once: optimising it costs more than it gives.
    target_compile_options(test_${name} PRIVATE ${SM_WARNINGS} -O0)
    target_compile_definitions(test_${name} PRIVATE SM_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    compile_together(test_${name})
    precompile(test_${name} TestHeaders.h)
    set_property(GLOBAL APPEND PROPERTY SM_TEST_PROGRAMS test_${name})
    gtest_discover_tests(test_${name} TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 600)
endfunction()
