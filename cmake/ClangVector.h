// SPDX-License-Identifier: GPL-3.0-or-later
// Read before everything else by clang 14: a class of qpdf holds a vector of itself, which that compiler refuses where
// the vector's own operations are constexpr.
#pragma once

#include <memory>
#include <string>

#ifndef _GLIBCXX_VECTOR
#undef _GLIBCXX20_CONSTEXPR
#define _GLIBCXX20_CONSTEXPR inline
#define __fill_a1 __fill_a1_of_bits // declared before, constexpr; nobody calls it for single bits
#include <vector>
#undef __fill_a1
#undef _GLIBCXX20_CONSTEXPR
#define _GLIBCXX20_CONSTEXPR constexpr
#endif
