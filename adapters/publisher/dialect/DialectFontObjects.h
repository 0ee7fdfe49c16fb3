// A page's fonts as PDF objects.
#pragma once

#include "dialect/DialectPage.h"
#include "pdf/Qpdf.h"

namespace sm::publisher {

/// The font dictionary; a null object when the font can't be used.
QPDFObjectHandle MakeFontObject(QPDF& pdf, const DialectFont& font);

} // namespace sm::publisher
