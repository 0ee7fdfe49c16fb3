// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/TiffLibrary.h"

namespace sm::render {

// Part of the program: one file is all that is to be installed there.
const TiffLibrary& TiffLibrary::Loaded()
{
    static const TiffLibrary kLinked = [] {
        // What it has to say goes to the error stream, where the run's own lines stand.
        TIFFSetErrorHandler(nullptr);
        TIFFSetWarningHandler(nullptr);
        return TiffLibrary{
            TIFFClientOpenExt,   TIFFClose,
            TIFFGetField,        TIFFGetFieldDefaulted,
            TIFFIsTiled,         TIFFOpenOptionsAlloc,
            TIFFOpenOptionsFree, TIFFOpenOptionsSetMaxSingleMemAlloc,
            TIFFRGBAImageOK,     TIFFReadRGBAImageOriented,
            TIFFReadScanline,    TIFFScanlineSize,
        };
    }();
    return kLinked;
}

} // namespace sm::render
