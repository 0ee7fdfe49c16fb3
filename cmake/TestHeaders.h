// SPDX-License-Identifier: GPL-3.0-or-later
// What most tests include besides.
#include "CommonHeaders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
