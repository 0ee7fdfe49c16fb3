// SPDX-License-Identifier: GPL-3.0-or-later
// Compresses the uncompressed streams of a PDF, several at a time.
#pragma once

class QPDF;

namespace sm::publisher {

/// Deflates every stream that has no filter yet and becomes smaller by it.
void CompressStreams(QPDF& pdf);

} // namespace sm::publisher
