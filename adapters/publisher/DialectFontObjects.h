// A page's fonts as PDF objects.
#pragma once

#include "publisher/DialectPage.h"
#include "publisher/Qpdf.h"

namespace sm::publisher {

/// The font dictionary; a null object when the font can't be used.
QPDFObjectHandle MakeFontObject(QPDF& pdf, const DialectFont& font);

} // namespace sm::publisher
