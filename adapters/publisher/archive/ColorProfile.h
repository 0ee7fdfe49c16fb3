// SPDX-License-Identifier: GPL-3.0-or-later
// The profile that says which colours a page's red, green and blue are.
#pragma once

#include <string>

namespace sm::publisher {

/// An ICC profile, version 2.1, of IEC 61966-2-1 (sRGB): a display profile of a matrix and one curve of 1,024 places.
/// Made here, so that it may be shipped. (ICC.1:2001-04; the colorants are those of IEC 61966-2-1, adapted to D50 by
/// Bradford.)
std::string StandardRgbProfile();

} // namespace sm::publisher
