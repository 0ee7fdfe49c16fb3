// SPDX-License-Identifier: GPL-3.0-or-later
// A page body on its way into the PDF: checked and compressed part by part, on several cores where it is large.
#pragma once

#include "base/files/MappedFile.h"
#include "pdf/Deflater.h"
#include "pdf/Qpdf.h"

#include <memory>
#include <optional>
#include <set>
#include <string_view>
#include <vector>

namespace sm::publisher {

struct PackedDialectBody {
    std::vector<std::shared_ptr<Buffer>> parts; ///< content streams, compressed, that together are the page
    std::set<std::uint32_t> layers, opacities;  ///< that it names
};

/// Nothing when `body`, a part of `file`, isn't in the dialect or shows other pictures than I1 to I`pictures`. The
/// file's memory is given back on the way. `deflater` is this thread's.
std::optional<PackedDialectBody> PackDialectBody(const base::MappedFile& file, std::string_view body,
                                                 std::size_t pictures, Deflater& deflater);

} // namespace sm::publisher
