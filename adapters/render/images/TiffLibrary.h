// SPDX-License-Identifier: GPL-3.0-or-later
// The reader of TIFF files, loaded with the first such file.
#pragma once

#include <tiffio.h>

namespace sm::render {

/// The functions that are used, under their names without "TIFF".
struct TiffLibrary {
    decltype(&TIFFClientOpenExt) clientOpenExt;
    decltype(&TIFFClose) close;
    decltype(&TIFFGetField) getField;
    decltype(&TIFFGetFieldDefaulted) getFieldDefaulted;
    decltype(&TIFFIsTiled) isTiled;
    decltype(&TIFFOpenOptionsAlloc) openOptionsAlloc;
    decltype(&TIFFOpenOptionsFree) openOptionsFree;
    decltype(&TIFFOpenOptionsSetMaxSingleMemAlloc) openOptionsSetMaxSingleMemAlloc;
    decltype(&TIFFRGBAImageOK) rgbaImageOk;
    decltype(&TIFFReadRGBAImageOriented) readRgbaImageOriented;
    decltype(&TIFFReadScanline) readScanline;
    decltype(&TIFFScanlineSize) scanlineSize;

    /// Loads the library on the first call and makes it silent. Throws std::runtime_error when it isn't there.
    static const TiffLibrary& Loaded();
};

} // namespace sm::render
