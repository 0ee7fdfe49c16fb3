// SPDX-License-Identifier: GPL-3.0-or-later
// What a drawing brings along from other files: pictures, pages of PDF files, other drawings. Found and opened once for
// all its sheets.
#pragma once

#include "drawing/Properties.h"
#include "render/Matrix.h"
#include "render/ReferenceOptions.h"

#include <compare>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace sm::drawing {
class Drawing;
struct Block;
struct Finding;
struct ImageDefinition;
} // namespace sm::drawing

namespace sm::render {

class RenderReport;
struct Picture;

/// How an entity shows a picture. Values as in the drawing.
struct PictureLook {
    std::int32_t brightness = 50, contrast = 50, fade = 0; ///< 0 to 100; 50, 50, 0 leave it as it is
    std::int32_t reduce = 1;                               ///< this many pixels each way become one
    bool monochrome = false;                               ///< in shades of gray
    bool clear = false;                                    ///< what was transparent shows what is beneath
    friend auto operator<=>(const PictureLook&, const PictureLook&) = default;
    [[nodiscard]] bool KeepsColors() const { return brightness == 50 && contrast == 50 && fade == 0 && !monochrome; }
};

class References {
public:
    /// `drawing` must outlive it.
    References(const drawing::Drawing& drawing, ReferenceOptions options);
    ~References();
    References(const References&) = delete;
    References& operator=(const References&) = delete;

    /// Another drawing that stands in for a block of this one.
    struct Xref {
        std::string prefix; ///< the block's name, which the external reference's layers bear in the host drawing:
                            ///< "PREFIX|LAYER"
        std::unique_ptr<drawing::Drawing> file;
        std::unique_ptr<References> references;
        std::unique_ptr<RenderReport> report;
        std::uint32_t space = drawing::kNoBlock; ///< its model space
        Vec3 base;                               ///< $INSBASE
        double unit = 1; ///< of the host for one of the reference, where both name theirs ($INSUNITS)
    };
    /// True when another drawing is to be shown in place of the block.
    [[nodiscard]] bool IsXref(std::uint32_t block) const;
    /// Null when that drawing can't be shown: missing, unloaded, in a circle, too many.
    Xref* XrefOf(std::uint32_t block);

    [[nodiscard]] const drawing::ImageDefinition* Definition(drawing::Handle handle) const;
    /// The picture of an IMAGE that takes `size` mm on paper, made coarser when it has far more than `dots` pixels a
    /// mm. Null when it can't be shown.
    std::shared_ptr<const Picture> PictureOf(const drawing::ImageDefinition& definition, PictureLook look, Vec2 size,
                                             double dots);
    /// A page of which an inch takes `inch` mm on paper; 0: its size is wanted alone.
    struct PagePicture {
        std::shared_ptr<const Picture> picture;
        Vec2 size; ///< inches; {0, 0} when the page can't be shown
    };
    PagePicture PageOf(const drawing::ImageDefinition& definition, const PictureLook& look, double inch);

    /// What the file at `path` is to the drawing or to an external reference that was opened: "the underlay
    /// \"plan.pdf\"". Shown or not, it must not be replaced. Empty when they don't name it.
    [[nodiscard]] std::string UseOf(const std::string& path) const;

    /// What could not be found or used, each once, external references' included.
    [[nodiscard]] std::vector<drawing::Finding> Findings() const;
    /// The external references that were opened, theirs included; prefixes from the host on ("SITE|TREES").
    struct XrefReport {
        std::string prefix;
        const drawing::Drawing* file = nullptr;
        const RenderReport* report = nullptr;
    };
    [[nodiscard]] std::vector<XrefReport> Xrefs() const;

private:
    struct Shared;
    struct Parts;
    References(const drawing::Drawing& drawing, std::shared_ptr<Shared> shared, const References* host,
               std::string path);
    void Report(std::int32_t code, const std::string& text, bool contentLost = true);
    bool IsLoaded(const drawing::ImageDefinition& definition);
    std::string PagePath(const drawing::ImageDefinition& definition);
    PagePicture ShowPage(const drawing::ImageDefinition& definition, const PictureLook& look, const std::string& path,
                         double inch);
    std::unique_ptr<Xref> OpenXref(const drawing::Block& block);
    std::unique_ptr<Xref> OpenXrefFile(const drawing::Block& block, const std::string& path);
    [[nodiscard]] bool IsOpenAbove(const std::string& path) const;
    [[nodiscard]] std::string Find(const std::string& name) const;
    std::unique_ptr<Parts> m_parts;
};

} // namespace sm::render
