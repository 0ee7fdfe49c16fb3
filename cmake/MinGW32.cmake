# SPDX-License-Identifier: GPL-3.0-or-later
# The component for 32-bit processes.
set(SM_MACHINE i686)
include(${CMAKE_CURRENT_LIST_DIR}/MinGW.cmake)
