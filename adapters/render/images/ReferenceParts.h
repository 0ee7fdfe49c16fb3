// SPDX-License-Identifier: GPL-3.0-or-later
// What References keep between calls.
#pragma once

#include "drawing/FindReferenced.h"
#include "drawing/Finding.h"
#include "images/MakePicture.h"
#include "render/References.h"

#include <map>
#include <optional>
#include <set>

namespace sm::render {

/// What a drawing and all its external references share.
struct References::Shared {
    ReferenceOptions options;
    std::size_t xrefs = 0;       ///< opened so far
    std::uint64_t xrefBytes = 0; ///< size of their files
};

struct References::Parts {
    /// A picture as one look shows it; of an underlay also its page and resolution.
    struct Key {
        drawing::Handle definition = 0;
        PictureLook look;
        std::int32_t page = 0, dots = 0;
        friend auto operator<=>(const Key&, const Key&) = default;
    };
    Parts(const drawing::Drawing& ofDrawing, std::shared_ptr<Shared> sharedParts)
        : drawing(ofDrawing), shared(std::move(sharedParts))
    {
    }

    const drawing::Drawing& drawing;
    std::shared_ptr<Shared> shared;
    const References* host = nullptr;
    std::string path; ///< of the drawing, without links in it; empty when it has none
    drawing::SearchPlaces places;
    std::map<drawing::Handle, std::string> files; ///< paths found; empty for missing ones
    std::set<drawing::Handle> unusable;
    std::map<Key, std::uint64_t> ids;
    std::map<Key, std::shared_ptr<const Picture>> pictures;
    std::size_t pictureBytes = 0;
    std::map<drawing::Handle, PictureHead> heads; ///< of the pictures read so far
    std::map<drawing::Handle, Vec2> pageSizes;
    std::map<std::uint32_t, std::unique_ptr<Xref>> xrefs; ///< by block; null for those that can't be shown
    std::vector<drawing::Finding> findings;

    std::uint64_t IdOf(const Key& key);
    /// The picture known under `key`, or null.
    [[nodiscard]] std::shared_ptr<const Picture> Known(const Key& key) const;
    std::shared_ptr<const Picture> Keep(const Key& key, Picture picture);
};

/// Codes of what References find; stable.
namespace ReferenceFinding {
inline constexpr std::int32_t kMissing = 201, kUnusable = 202, kUnloaded = 203, kLeftOut = 204;
}

/// A file of raw pixels, as if it had been read. White counts as transparent.
std::unique_ptr<PictureFile> FromPixels(IPageRasterizer::Pixels pixels);

} // namespace sm::render
