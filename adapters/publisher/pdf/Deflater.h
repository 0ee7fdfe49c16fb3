// SPDX-License-Identifier: GPL-3.0-or-later
// Compression as PDF's FlateDecode undoes it.
#pragma once

#include "pdf/Qpdf.h"

#include <memory>
#include <string_view>
#include <vector>

struct libdeflate_compressor;

namespace sm::publisher {

/// One a thread.
class Deflater {
public:
    /// Throws std::bad_alloc.
    Deflater();
    ~Deflater();
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;

    /// The compressed bytes, which may be more than were given where nothing repeats.
    std::shared_ptr<Buffer> Pack(std::string_view bytes);

private:
    libdeflate_compressor* m_compressor;
    std::vector<unsigned char> m_room;
};

} // namespace sm::publisher
