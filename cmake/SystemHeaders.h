// SPDX-License-Identifier: GPL-3.0-or-later
// What most sources of the component of Windows include besides.
#include "CommonHeaders.h"

#include <windows.h>

#include <oleauto.h>
