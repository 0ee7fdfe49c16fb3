// Draws the entities of a block, each as what it means, through Ink.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/entities/Curves.h"
#include "drawing/entities/Graphics.h"
#include "drawing/entities/Hatches.h"
#include "drawing/entities/Images.h"
#include "drawing/entities/Inserts.h"
#include "drawing/entities/Points.h"
#include "drawing/entities/Polylines.h"
#include "drawing/entities/Solids.h"
#include "drawing/entities/Texts.h"
#include "drawing/entities/Viewports.h"
#include "ink/Ink.h"
#include "notes/NotePicture.h"
#include "render/Arcs.h"
#include "render/FrontEnd.h"
#include "render/Projection.h"
#include "render/References.h"
#include "render/Style.h"
#include "shapes/ShapeLibrary.h"

#include <memory>
#include <vector>

namespace sm::render {

class PlotPens;
struct PlotPen;

/// How the entities of one block land on the sheet, and what they take over from their insert.
struct Frame {
    Projection toPaper;
    Inherited inherited;
    double dashScale = 1; ///< mm for one unit of a line type, $LTSCALE included
};

/// What holds for a whole run of the painter.
struct PaintOptions {
    bool lineweights = true;
    double lineweightScale = 1;
    bool paperSpace = false;
    bool viewportsFirst = true;
    bool viewportBorders = false;
    bool scaleLinetypesWithPaper = true;     ///< PSLTSCALE
    double paperDashScale = 1;               ///< of the sheet, for viewports under PSLTSCALE
    const PlotPens* pens = nullptr;          ///< null: plot styles change nothing
    bool everyLayer = false;                 ///< draw what layers hide as well
    References* references = nullptr;        ///< null: made when they are needed
    double dotsPerMillimetre = 24;           ///< finer pictures are made coarser
    const std::atomic<bool>* stop = nullptr; ///< once true, no further entity is begun
    bool boxesOnly = false;                  ///< text and viewports as their outlines, continuous lines: for bounds
};

struct ImagePlace;

class Painter {
public:
    Painter(const drawing::Drawing& drawing, ICanvas& canvas, TextEngine& text, RenderReport* report, const Box2& clip,
            const PaintOptions& options, bool hideLayers = true);
    ~Painter();
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;

    void PaintSpace(std::uint32_t block, const Frame& frame);
    Outcome PaintEntity(const drawing::EntityRecord& record, const Frame& frame);
    [[nodiscard]] Ink& Output() { return m_ink; }

private:
    template <class Data> Outcome Leaf(Data& data, const drawing::EntityRecord& record, const Frame& frame);
    Outcome Try(const drawing::EntityRecord& record, const Frame& frame);
    Outcome Dispatch(const drawing::EntityRecord& record, const Frame& frame);
    Outcome PaintAll(std::uint32_t block, const Frame& frame);
    Outcome PaintBlock(std::uint32_t block, const Frame& frame);

    // One entity each; false: of a kind or with content that can't be drawn.
    bool Draw(const drawing::LineData& line, drawing::EntityKind kind);
    bool Draw(const drawing::CircleData& circle, drawing::EntityKind kind);
    bool Draw(const drawing::ArcData& arc, drawing::EntityKind kind);
    bool Draw(const drawing::EllipseData& ellipse, drawing::EntityKind kind);
    bool Draw(const drawing::PolylineData& polyline, drawing::EntityKind kind);
    bool Draw(const drawing::SplineData& spline, drawing::EntityKind kind);
    bool Draw(const drawing::PointData& point, drawing::EntityKind kind);
    bool Draw(const drawing::QuadData& quad, drawing::EntityKind kind);
    bool Draw(const drawing::TextData& text, drawing::EntityKind kind);
    bool Draw(const drawing::MTextData& text, drawing::EntityKind kind);
    bool Draw(const drawing::HatchData& hatch, drawing::EntityKind kind);
    bool Draw(const drawing::ShapeData& shape, drawing::EntityKind kind);
    bool Draw(const drawing::SolidData& solid, drawing::EntityKind kind);
    bool Draw(const drawing::MeshData& mesh, drawing::EntityKind kind);
    void DrawThickness(const drawing::Entity& entity);
    bool Draw(const drawing::GraphicsData& graphics, drawing::EntityKind kind);
    friend class GraphicsPainter;

    void DrawEndlessLine(const drawing::LineData& line, bool bothWays);
    void DrawSpacePolyline(const drawing::PolylineData& polyline);
    void DrawMesh(const drawing::PolylineData& mesh);
    void DrawPolyface(const drawing::PolylineData& face);
    void DrawFaceEdges(const drawing::QuadData& quad);
    void DrawPlainPolyline(const drawing::PolylineData& polyline, const Matrix2& plane);
    void DrawWidePolyline(const drawing::PolylineData& polyline, const Matrix2& plane);
    void DrawText(const LaidText& text);
    void DrawText(const LaidText& text, const Matrix2& plane);
    void DrawSymbols(const Pen& pen);
    [[nodiscard]] LaidText LaySymbol(const drawing::LinetypeElement& element);
    [[nodiscard]] bool CanDrawSymbols(const drawing::Linetype& linetype);
    [[nodiscard]] ShapeLibrary& Shapes();
    void DrawRun(const TextRun& from, const Matrix2& plane, std::uint32_t color);
    void DrawTextPath(const Path& path, const Matrix2& plane, std::uint32_t color, bool filled);
    [[nodiscard]] std::uint32_t TextPartColor(const std::optional<TextColor>& color) const;
    void DrawMask(const drawing::MTextData& text, const LaidText& laid);
    void DrawGradient(const drawing::HatchData& hatch, const Matrix2& plane);
    void AppendSources(const drawing::HatchData& hatch);
    void DrawPatternHatch(const drawing::HatchData& hatch, const Matrix2& plane);

    Outcome PaintInsert(const drawing::EntityRecord& record, const Frame& frame);
    Outcome PaintCopies(const drawing::InsertData& insert, const std::vector<Vec3>& clip, const Frame& frame,
                        const Style& style);
    Outcome PaintClippedBlock(std::uint32_t block, const std::vector<Vec3>& clip, const Frame& frame);
    Outcome PaintAttributes(const drawing::InsertData& insert, const Frame& frame, const Style& style);
    Outcome PaintGuest(References::Guest& guest, std::uint64_t insert, const Frame& frame);
    void BeGuest(const Painter& host, const References::Guest& guest, std::uint64_t insert, const Frame& frame);
    Outcome PaintImage(const drawing::EntityRecord& record, const Frame& frame);
    bool DrawImage(const drawing::ImageData& image);
    bool DrawUnderlay(const drawing::ImageData& image);
    bool DrawWipeout(const drawing::ImageData& image);
    void DrawPicture(const Picture& picture, const drawing::ImageData& image, const ImagePlace& place, bool opaque);
    void DrawMissing(const std::string& name, const ImagePlace& place);
    void StrokeFrame(const drawing::ImageData& image, const ImagePlace& place, std::int32_t setting);
    [[nodiscard]] References& Referenced();
    Outcome PaintDimension(const drawing::EntityRecord& record, const Frame& frame);
    Outcome PaintNote(const drawing::EntityRecord& record, const Frame& frame);
    template <class Data> Outcome PaintNote(const drawing::EntityRecord& record, const Frame& frame);
    template <class Data> Outcome PaintStyledNote(const drawing::EntityRecord& record, const Frame& frame);
    Outcome PaintPicture(const NotePicture& picture, const drawing::Entity& entity, const drawing::EntityRecord& record,
                         const Frame& frame);
    void PaintNoteShapes(const NotePicture& picture, const Frame& frame, const Inherited& inherited);
    Outcome PaintNoteCopy(const NotePicture::Copy& copy, const Frame& frame, const Inherited& inherited);
    Outcome PaintNoteAttributes(const NotePicture::Copy& copy, const Frame& inner);
    Outcome PaintViewport(const drawing::EntityRecord& record, const Frame& frame);
    bool ViewportIsOff(const drawing::ViewportData& viewport) const;
    Outcome PaintAttribute(const drawing::EntityRecord& record, const Frame& frame);
    Outcome PaintReadAttribute(const drawing::EntityRecord& record, const Frame& frame);
    Outcome PaintAttdef(const drawing::EntityRecord& record, const Frame& frame);
    Outcome PaintViewportContent(const drawing::EntityRecord& record, const drawing::ViewportData& viewport,
                                 const Frame& frame);
    bool MakeClipPath(const drawing::ViewportData& viewport, const Frame& frame);
    bool CatchPath(const drawing::EntityRecord& record, const Frame& frame, Path& path);
    void FindSheetViewport(std::uint32_t block);
    [[nodiscard]] bool CanEnter(std::uint32_t block);

    [[nodiscard]] bool Hidden(const drawing::Entity& entity, const Frame& frame) const;
    [[nodiscard]] std::optional<std::uint32_t> HidingLayer(const drawing::Entity& entity, const Frame& frame,
                                                           bool ofFrozen) const;
    void Enter(const drawing::Entity& entity, const drawing::EntityRecord& record, const Frame& frame);
    [[nodiscard]] Pen StrokePen() const;
    [[nodiscard]] double PenWidth(double lineweight) const;
    [[nodiscard]] std::uint32_t InkOf(const Style& style) const;
    void StrokePath(std::span<const std::uint32_t> breaks = {});
    void StrokePath(const Path& path, const Pen& pen, std::span<const std::uint32_t> breaks = {});
    void FillArea(const Path& path, FillRule rule);
    void Remark(std::string_view text);

    struct Buffers;
    /// Of a painter that draws a guest: what its entities count as in the host drawing.
    struct GuestMarks {
        std::uint64_t handle = 0;              ///< of the insert
        std::vector<std::string> layers;       ///< by the guest's own index; none: the painter draws no guest
        std::vector<std::uint32_t> shownBy;    ///< index in the outermost drawing's layers, by the guest's own
        std::optional<std::uint32_t> hiddenBy; ///< the outermost drawing's layer that hides the whole guest
        /// The outermost drawing's index of a layer of the drawing that is painted.
        [[nodiscard]] std::uint32_t InHost(std::uint32_t layer) const
        {
            return hiddenBy ? *hiddenBy : layer < shownBy.size() ? shownBy[layer] : layer;
        }
    };
    const drawing::Drawing& m_drawing;
    TextEngine& m_text;
    RenderReport* m_report;
    PaintOptions m_options;
    bool m_hideLayers;
    Ink m_ink;
    LayerStates m_ownLayers;
    const LayerStates* m_layers;
    drawing::Handle m_annotationScale = 0; ///< of the viewport at hand; 0: entities keep their own form
    std::vector<DashPattern> m_patterns;
    // The entity at hand.
    const Frame* m_frame = nullptr;
    const LayerState* m_layer = nullptr;
    Style m_style;                  ///< its colour as the plot style turns it, with its transparency
    const PlotPen* m_pen = nullptr; ///< of the entity; null: plot styles change nothing
    double m_linetypeScale = 1;
    Path m_path;
    Path m_outline;
    // Where the painter stands.
    std::vector<std::uint32_t> m_openBlocks;
    std::uint64_t m_budget;                                 ///< entities that blocks may still unfold to
    std::uint64_t m_viewportBudget = 100'000'000;           ///< entities that viewports may still look at
    const drawing::EntityRecord* m_sheetViewport = nullptr; ///< the one that stands for the sheet itself
    std::unique_ptr<Buffers> m_buffers;
    std::unique_ptr<References> m_ownReferences;
    GuestMarks m_guest;
    std::uint64_t m_insert = 0;           ///< handle of the insert whose block is painted next
    Outcome m_best = Outcome::NotReached; ///< of all entities painted so far
};

} // namespace sm::render
