# The component of Windows: the plug-in, its adapters, the server that holds them, and their tests under Wine.
enable_language(RC)
add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)

# Where objects of COM are written: its interfaces have no destructors, and nobody deletes through them.
set(SM_COM_WARNINGS ${SM_WARNINGS} -Wno-non-virtual-dtor)

add_room(plugin src)
file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/adapters/windows/*.cpp)
list(FILTER sources EXCLUDE REGEX "/adapters/windows/server/")
add_library(windows STATIC ${sources})
target_link_libraries(windows PUBLIC plugin comctl32 comdlg32 gdi32 ole32 oleaut32 shell32 uuid version uxtheme)
target_compile_options(windows PRIVATE ${SM_WARNINGS})
add_subdirectory(adapters/windows/server)

# Programs are run by Wine in a prefix of the build's own.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_SOURCE_DIR}/tests/windows/run-wine ${CMAKE_BINARY_DIR}/wine)
enable_testing()
include(GoogleTest)
set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
add_subdirectory(tests/windows)
