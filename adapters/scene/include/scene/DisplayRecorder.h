// SPDX-License-Identifier: GPL-3.0-or-later
// The canvas that keeps what is drawn for the screen, and where one may snap to.
#pragma once

#include "scene/DisplayList.h"
#include "scene/SnapShapes.h"

#include <unordered_map>
#include <utility>

namespace sm::scene {

class DisplayRecorder final : public render::ICanvas {
public:
    /// Without shapes nothing is kept to snap to.
    explicit DisplayRecorder(bool keepsShapes = true) : m_keepsShapes(keepsShapes) {}
    void BeginEntity(const render::EntityMark& mark) override;
    void EndEntity() override;
    void PushClip(const Path& path, render::FillRule rule) override;
    void PopClip() override;
    void Course(const Path& path) override;
    void Stroke(const Path& path, const render::StrokeStyle& style) override;
    void Fill(const Path& path, std::uint32_t color, render::FillRule rule) override;
    void Text(const render::TextRun& run) override;
    void Image(const render::Picture& picture, const Matrix2& toPaper, std::uint32_t color) override;

    /// What was recorded; the recorder is empty afterwards.
    DisplayList TakeList();
    /// The shapes that one may snap to; their clips are those of the list.
    SnapShapes TakeShapes() { return std::move(m_shapes); }

private:
    /// What the entity at hand gives to snap to.
    enum class Snapping : std::uint8_t { None, Lines, Curves };
    void AddPieces(const Path& path, Item item);
    void AddPath(const Path& path, std::size_t verb, std::size_t verbEnd, std::size_t point, Item item);
    void Add(Item item, const Box2& box);
    void Snap(const Path& path);
    std::uint32_t GlyphIndex(const render::FontFace& face, std::uint32_t glyph);
    [[nodiscard]] std::uint32_t ClipAtHand() const { return m_open.empty() ? 0 : m_open.back(); }

    DisplayList m_list;
    SnapShapes m_shapes;
    std::vector<std::uint32_t> m_open; ///< clips in force
    Snapping m_snapping = Snapping::None;
    bool m_endless = false;
    bool m_keepsShapes;
    bool m_hasCourse = false; ///< the next stroke's shapes are known already
    struct FaceGlyph {
        const render::FontFace* face = nullptr;
        std::uint32_t glyph = 0;
        friend bool operator==(const FaceGlyph&, const FaceGlyph&) = default;
    };
    struct HashOf {
        std::size_t operator()(const FaceGlyph& key) const noexcept
        {
            return std::hash<const void*>{}(key.face) * 31 + key.glyph;
        }
    };
    std::unordered_map<FaceGlyph, std::uint32_t, HashOf> m_glyphs;
    std::map<std::uint64_t, std::shared_ptr<const render::Picture>> m_pictures;
};

} // namespace sm::scene
