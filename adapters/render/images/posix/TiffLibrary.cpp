// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/TiffLibrary.h"

#include "base/process/SharedLibrary.h"

namespace sm::render {
namespace {

/// What it has to say goes to the error stream, where the run's own lines stand.
void MakeSilent(const base::SharedLibrary& library)
{
    decltype(&TIFFSetErrorHandler) setErrorHandler = nullptr;
    decltype(&TIFFSetWarningHandler) setWarningHandler = nullptr;
    library.Find(setErrorHandler, "TIFFSetErrorHandler");
    library.Find(setWarningHandler, "TIFFSetWarningHandler");
    setErrorHandler(nullptr);
    setWarningHandler(nullptr);
}

TiffLibrary Load()
{
    const base::SharedLibrary library("libtiff.so.6");
    TiffLibrary tiff{};
    library.Find(tiff.clientOpenExt, "TIFFClientOpenExt");
    library.Find(tiff.close, "TIFFClose");
    library.Find(tiff.getField, "TIFFGetField");
    library.Find(tiff.getFieldDefaulted, "TIFFGetFieldDefaulted");
    library.Find(tiff.isTiled, "TIFFIsTiled");
    library.Find(tiff.openOptionsAlloc, "TIFFOpenOptionsAlloc");
    library.Find(tiff.openOptionsFree, "TIFFOpenOptionsFree");
    library.Find(tiff.openOptionsSetMaxSingleMemAlloc, "TIFFOpenOptionsSetMaxSingleMemAlloc");
    library.Find(tiff.rgbaImageOk, "TIFFRGBAImageOK");
    library.Find(tiff.readRgbaImageOriented, "TIFFReadRGBAImageOriented");
    library.Find(tiff.readScanline, "TIFFReadScanline");
    library.Find(tiff.scanlineSize, "TIFFScanlineSize");
    MakeSilent(library);
    return tiff;
}

} // namespace

const TiffLibrary& TiffLibrary::Loaded()
{
    static const TiffLibrary kLoaded = Load();
    return kLoaded;
}

} // namespace sm::render
