// SPDX-License-Identifier: GPL-3.0-or-later
// A drawing file (DXF, or DWG through a converter), memory-mapped and read in one pass: tables, blocks, entities and
// objects.
//
// Reading is safe for files from outside: everything readable is used, and what was mended or skipped is reported once
// a kind with its first line number. Only a file that holds no drawing at all is an error.
#pragma once

#include "drawing/DrawingError.h"
#include "drawing/EntityRecord.h"
#include "drawing/Layouts.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sm::drawing {

struct DwgOptions;
struct Finding;

enum class Version : std::uint8_t { Unknown, R2_6, R9, R10, R12, R13, R14, R2000, R2004, R2007, R2010, R2013, R2018 };

struct Block {
    std::string name;
    Handle handle = 0; ///< of the BLOCK_RECORD
    Vec3 base;
    std::int32_t flags = 0; ///< 70: 1 anonymous, 2 has attribute definitions, 4 external reference, 8 overlay
    std::string xrefPath;
    bool isModelSpace = false, isPaperSpace = false;
    std::int32_t units = 0;
};

/// An item of extended data (codes 1000 to 1071) in its text form, UTF-8.
struct XDataItem {
    std::int16_t code = 0;
    std::string text;
    friend bool operator==(const XDataItem&, const XDataItem&) = default;
};

/// A file that IMAGE and UNDERLAY entities show.
struct ImageDefinition {
    Handle handle = 0;
    std::string path;
    Vec2 pixels;
    enum class Kind : std::uint8_t { Image, Pdf, Dwf, Dgn } kind = Kind::Image;
    std::string page;   ///< of an underlay: "1", or a sheet's name
    bool loaded = true; ///< false: unloaded by the user, not shown
};

/// Frames of images, wipeouts, PDF underlays and clipped references: 0 none, 1 shown and plotted, 2 shown and not
/// plotted.
struct FrameSettings {
    std::int32_t image = 1, wipeout = 1, underlay = 1, clip = 0;
};

class Drawing {
public:
    /// Opens `path`. A DWG is read through the converter that `dwg` asks for; its records stand in a file of their own
    /// beside it (`path` + ".sheetmaker"), over those in the DWG. Throws DrawingError: missing, unreadable, empty, not
    /// a drawing, cut off before anything usable, a DWG that can't be converted, a records file that can't be read.
    static std::unique_ptr<Drawing> Open(const std::string& path, const DwgOptions& dwg);
    /// The same with what converts a DWG wherever it is found.
    static std::unique_ptr<Drawing> Open(const std::string& path);
    /// The same over bytes in memory, for tests; `name` stands for the path in messages.
    static std::unique_ptr<Drawing> FromBytes(std::string bytes, const std::string& name);
    virtual ~Drawing() = default;

    [[nodiscard]] virtual const std::string& Path() const = 0;
    /// As given to `Open`: the drawings that this one refers to are opened with the same.
    [[nodiscard]] virtual const DwgOptions& Dwg() const = 0;
    [[nodiscard]] virtual Version FileVersion() const = 0;
    [[nodiscard]] virtual bool IsBinary() const = 0;
    [[nodiscard]] virtual const std::string& CodePage() const = 0; ///< as in the file; "UTF-8" from R2007

    // Header variables; names with "$". `fallback` when missing or of another kind.
    [[nodiscard]] virtual double HeaderReal(std::string_view name, double fallback) const = 0;
    [[nodiscard]] virtual std::int32_t HeaderInteger(std::string_view name, std::int32_t fallback) const = 0;
    [[nodiscard]] virtual std::string HeaderText(std::string_view name, const std::string& fallback) const = 0;
    [[nodiscard]] virtual std::optional<Vec3> HeaderPoint(std::string_view name) const = 0;

    // Tables. Index 0 of layers is layer "0"; of linetypes "ByLayer", 1 "ByBlock", 2 "Continuous"; of styles
    // "Standard".
    [[nodiscard]] virtual const std::vector<Layer>& Layers() const = 0;
    [[nodiscard]] virtual const std::vector<Linetype>& Linetypes() const = 0;
    [[nodiscard]] virtual const std::vector<TextStyle>& TextStyles() const = 0;
    [[nodiscard]] virtual const std::vector<NamedView>& Views() const = 0;
    [[nodiscard]] virtual const std::vector<std::string>& ApplicationNames() const = 0;
    [[nodiscard]] virtual std::optional<ModelView> ActiveModelView() const = 0;

    [[nodiscard]] virtual const std::vector<Block>& Blocks() const = 0;
    /// Letter case aside; kNoBlock when there is none.
    [[nodiscard]] virtual std::uint32_t FindBlock(std::string_view name) const = 0;
    /// The block's entities in draw order.
    [[nodiscard]] virtual std::span<const EntityRecord> EntitiesOf(std::uint32_t block) const = 0;
    /// The entity with that handle, or null.
    [[nodiscard]] virtual const EntityRecord* FindEntity(Handle handle) const = 0;
    /// Position of a record among all entities of blocks and spaces, below EntityCount(); attributes have none.
    [[nodiscard]] virtual std::uint64_t RecordIndex(const EntityRecord& record) const = 0;
    /// The DXF name of a record, also for unknown kinds.
    [[nodiscard]] virtual std::string_view EntityName(const EntityRecord& record) const = 0;
    /// How many entities were read into blocks and spaces, attributes and vertices aside.
    [[nodiscard]] virtual std::uint64_t EntityCount() const = 0;

    /// Model first, then the paper layouts in tab order. There are always a model and at least one paper layout.
    [[nodiscard]] virtual const std::vector<Layout>& Layouts() const = 0;
    [[nodiscard]] virtual std::size_t ActiveLayout() const = 0;
    [[nodiscard]] virtual const std::vector<PlotSettings>& PageSetups() const = 0;
    [[nodiscard]] virtual const std::vector<ImageDefinition>& ImageDefinitions() const = 0;
    /// The named plot styles; empty in drawings with colour-dependent ones.
    [[nodiscard]] virtual const std::vector<PlotStyleName>& PlotStyleNames() const = 0;
    [[nodiscard]] virtual FrameSettings Frames() const { return {}; }
    [[nodiscard]] virtual const std::vector<Finding>& Findings() const = 0;

    // Extended data of the named-object dictionary.
    /// The record of `application`, the 1001 item first; empty when there is none.
    [[nodiscard]] virtual std::vector<XDataItem> RecordOf(const std::string& application) const = 0;
    /// Replaces the record in memory; the application name is registered when the drawing is saved. Throws DrawingError
    /// when the file can't hold one (a DXF without named-object dictionary: R12 and older), naming the remedy.
    virtual void SetRecord(const std::string& application, const std::vector<XDataItem>& items) = 0;
    [[nodiscard]] virtual bool Modified() const = 0;
    /// Writes the changed records: only their own tags, the application's entry in the APPID table and the handle seed
    /// differ from the file as read. Atomic (written beside, synced, renamed); with `keepBackup` the former file stays
    /// as `path` + ".bak". Throws DrawingError and leaves the file as it was. A DWG is never
    /// written: its records file is.
    virtual void Save(bool keepBackup) = 0;
    /// Another drawing over what this one has read, which isn't read again. It begins with the records as they are here
    /// now and has its own from then on; `Save` refuses. The two may be used by two threads, and each may outlive the
    /// other. Null for a drawing that can't be shared.
    [[nodiscard]] virtual std::unique_ptr<Drawing> Twin() const { return nullptr; }

    // For the readers of entities; not for others.
    class Source;
    [[nodiscard]] virtual const Source& Tags() const = 0;
};

} // namespace sm::drawing
