# SPDX-License-Identifier: GPL-3.0-or-later
# The plug-in and its tests on scripted hosts, built for the machine at hand with nothing but a compiler.
add_plugin()
set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
add_room(doubles tests/doubles plugin GTest::gmock)
target_include_directories(doubles PUBLIC ${CMAKE_SOURCE_DIR}/tests)
foreach(room plugin plotting annotations hostobjects settings ui)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${room}/*.cpp)
    add_executable(test_${room} ${sources})
    target_link_libraries(test_${room} PRIVATE plugin doubles GTest::gmock_main)
    target_compile_options(test_${room} PRIVATE ${SM_WARNINGS} -O0)
    target_compile_definitions(test_${room} PRIVATE SM_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
endforeach()
