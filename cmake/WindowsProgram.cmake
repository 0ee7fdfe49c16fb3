# SPDX-License-Identifier: GPL-3.0-or-later
# The rooms of the embedded road for Windows that the programs alone need, over those of WindowsPublisher.cmake.
add_room(system adapters/system plugin base)
add_room(terminal adapters/terminal plugin base fmt::fmt)
add_room(store adapters/store plugin base)
add_room(cadhost adapters/cadhost plugin plotter)
add_room(beside adapters/beside ports render)
add_room(scene adapters/scene cadhost beside Threads::Threads)
add_room(win32 adapters/win32 scene windows)
foreach(room system terminal store cadhost)
    optimise_little(${room})
endforeach()
