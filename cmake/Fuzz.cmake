# The room of drawings and what fuzzes it, nothing else.
find_package(PkgConfig REQUIRED)
find_package(nlohmann_json REQUIRED)
pkg_check_modules(UTF8PROC REQUIRED IMPORTED_TARGET libutf8proc)
add_room(base adapters/base PkgConfig::UTF8PROC ${CMAKE_DL_LIBS})
add_ports()
add_room(drawing adapters/drawing ports base nlohmann_json::nlohmann_json)
add_subdirectory(tests/fuzz)
