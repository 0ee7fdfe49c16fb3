// SPDX-License-Identifier: GPL-3.0-or-later
// One object of a DWG being read: its frame, its streams, and the tags that it becomes. For this room only.
#pragma once

#include "dwg/TagSink.h"
#include "dwg/objects/Fields.h"
#include "dwg/objects/Names.h"

namespace sm::drawing::dwg {

/// What stands in front of an object's own fields (the frame), as far as the type.
struct Frame {
    std::uint64_t first = 0; ///< bit that sizes are counted from
    std::uint64_t end = 0;   ///< bit behind the handles
    std::uint64_t links = 0; ///< bit where the handles begin; 0: stands further on (R13, R14)
    std::uint32_t type = 0;
    bool sound = false;
};

/// The frame of what lies at `offset`.
Frame ReadFrame(std::string_view objects, std::uint64_t offset, Release release);

/// The object that is being read, with the helpers that all decoders share. One is used for all objects in turn.
class Object : public Fields {
public:
    Object(const Container& container, TagSink& tags, const Names& known);

    /// Moves to the object at `offset`; false when its frame is unsound or names another handle than `expected`.
    bool Open(std::uint64_t offset, Handle expected);
    /// Reads what all objects, or all entities, have in front of their own fields.
    void ReadObjectHead();
    void ReadEntityHead();

    TagSink& sink;
    const Names& names;
    std::uint32_t type = 0;

    // Of an object, after its head.
    Handle owner = 0, extension = 0;
    // Of an entity, after its head.
    std::uint32_t mode = 0;                             ///< 0 the owner is stored, 1 paper space, 2 model space
    Handle previous = 0, next = 0;                      ///< up to R2000
    std::vector<Handle> members;                        ///< vertices and attributes, from R2004 on
    Handle firstMember = 0, lastMember = 0;             ///< up to R2000: the ends of their chain
    std::vector<std::pair<Handle, std::string>> bodies; ///< binary saves of bodies by their entity
    std::vector<Handle> records;                        ///< XRECORDs that dictionaries led to, over all objects
    Handle annotation = 0;                              ///< the text that a LEADER leads to
    std::int32_t viewports = 0;                         ///< counted over a block
    bool hasData = false;                               ///< more of it lies in the data store
    std::uint64_t graphics = 0, graphicsSize = 0;       ///< bit where its graphics begin, and their bytes

    /// The tags that all objects have: handle, owner, extension dictionary.
    void WriteObjectHead(int handle = 5);
    void WriteEntityHead();
    /// The extended data: last of all.
    void WriteExtended();

    // Reading and writing in one.
    void WriteT(int code) { sink.Text(code, T()); }
    void WriteName(int code, Handle record);
    /// The links to `count` members (from R2004 on) or to the ends of their chain.
    void ReadMembers(std::uint32_t count);
    void WriteAngle(int code, double radians);
    void WriteThickness(double thickness);
    void WriteExtrusion(const Vec3& normal);
    /// Groups 62, 420 and 430, or others in their places.
    void WriteColor(const Color& color, int index = 62, int rgb = 420);
    /// The object's preview as groups 160 and 310.
    void WriteGraphics();

    /// The same head without graphics, as an MTEXT inside an attribute has it.
    void ReadEmbeddedHead();

private:
    void SkipExtended();
    void WriteExtendedOf(std::uint64_t end);
    void WriteItem(int code);
    void SetStreams(std::uint64_t links);
    void ReadEntityColor();
    void ReadEntityLinks(std::uint32_t reactors, bool hasExtension, bool hasLinks, std::uint32_t materials,
                         std::uint32_t visualStyles);
    void WriteEntityColor();

    /// The properties that all entities share.
    struct Look {
        Handle layer = 0, linetype = 0, plotStyle = 0, color = 0;
        std::uint32_t linetypeFlags = 0, plotStyleFlags = 0, lineweight = 29;
        std::int32_t index = kByLayer;
        std::optional<std::uint32_t> rgb, transparency;
        double linetypeScale = 1;
        bool invisible = false;
    };

    std::string_view m_objects;
    Frame m_frame;
    Look m_look;
    std::uint64_t m_extended = 0; ///< bit where the extended data begin
    bool m_hasExtended = false;
};

/// Hundredths of a millimetre, -1 by layer, -2 by block, -3 default, from the index that layers and entities store.
std::int32_t LineweightOf(std::uint32_t index);

} // namespace sm::drawing::dwg
