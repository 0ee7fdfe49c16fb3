// SPDX-License-Identifier: GPL-3.0-or-later
// Entities, their hyperlinks, block references and attributes.
#include "answers/HostErrors.h"
#include "answers/HostText.h"
#include "drawing/EntityKinds.h"
#include "drawing/entities/Hyperlinks.h"
#include "drawing/entities/Inserts.h"
#include "drawing/entities/Texts.h"
#include "objects/EntityBox.h"
#include "objects/HostObjects.h"
#include "objects/ObjectNames.h"
#include "objects/Ocs.h"

#include <optional>

namespace sm::cadhost {
namespace {

using AttributeList = std::vector<std::shared_ptr<IAcadAttribute>>;

class HostHyperlink final : public IAcadHyperlink {
public:
    HostHyperlink(std::string url, std::string description)
        : m_url(std::move(url)), m_description(std::move(description))
    {
    }
    std::string URL() override { return m_url; }
    std::string URLDescription() override { return m_description; }

private:
    std::string m_url, m_description;
};

/// The sheet that a location inside the drawing names: of its parts ("Sheet 2,View A") the one that is a layout's name.
std::string SheetOf(const drawing::Drawing& drawing, const std::string& location)
{
    std::string_view rest = location;
    std::string first;
    while (!rest.empty()) {
        const auto comma = rest.find(',');
        const std::string_view part = Trimmed(rest.substr(0, comma));
        rest.remove_prefix(comma == std::string_view::npos ? rest.size() : comma + 1);
        for (const drawing::Layout& layout : drawing.Layouts()) {
            if (SameName(layout.name, part))
                return layout.name;
        }
        if (first.empty())
            first = part;
    }
    return first;
}

class HostHyperlinks final : public IAcadHyperlinks {
public:
    HostHyperlinks(OpenDrawingRef open, const drawing::EntityRecord& record) : m_open(std::move(open))
    {
        AsHost([&] { drawing::ReadHyperlinks(m_open->File(), record, m_links); });
    }
    std::int32_t Count() override { return static_cast<std::int32_t>(m_links.size()); }
    std::shared_ptr<IAcadHyperlink> Item(std::int32_t index) override
    {
        if (index < 0 || static_cast<std::size_t>(index) >= m_links.size())
            throw HostError("Hyperlinks: there is no item " + std::to_string(index));
        const drawing::Hyperlink& link = m_links[static_cast<std::size_t>(index)];
        const bool inside = link.url.empty() && !link.subLocation.empty();
        return std::make_shared<HostHyperlink>(inside ? "#" + SheetOf(m_open->File(), link.subLocation) : link.url,
                                               link.description);
    }

private:
    OpenDrawingRef m_open;
    std::vector<drawing::Hyperlink> m_links;
};

class HostAttribute final : public IAcadAttribute {
public:
    HostAttribute(std::string tag, std::string text) : m_tag(std::move(tag)), m_text(std::move(text)) {}
    std::string TagString() override { return m_tag; }
    std::string TextString() override { return m_text; }

private:
    std::string m_tag, m_text;
};

std::shared_ptr<IAcadAttribute> MakeAttribute(const drawing::Drawing& drawing, drawing::TextData& data)
{
    if (data.text.empty() && data.embeddedMText) {
        drawing::MTextData lines;
        drawing::Read(drawing, *data.embeddedMText, lines);
        data.text = lines.text;
    }
    return std::make_shared<HostAttribute>(data.tag, data.text);
}

class HostBlockReference final : public IAcadBlockReference {
public:
    HostBlockReference(OpenDrawingRef open, const drawing::EntityRecord& record) : m_open(std::move(open))
    {
        AsHost([&] { drawing::Read(m_open->File(), record, m_insert); });
    }
    bool HasAttributes() override { return !m_insert.attributes.empty(); }
    AttributeList GetAttributes() override
    {
        return AsHost([&] {
            AttributeList list;
            for (const drawing::EntityRecord& record : m_insert.attributes)
                list.push_back(Attribute(record));
            return list;
        });
    }
    AttributeList GetConstantAttributes() override
    {
        return AsHost([&] {
            AttributeList list;
            if (m_insert.block == drawing::kNoBlock)
                return list;
            for (const drawing::EntityRecord& record : m_open->File().EntitiesOf(m_insert.block)) {
                if (record.kind != drawing::EntityKind::Attdef)
                    continue;
                if (auto attribute = Attribute(record); (m_text.attributeFlags & kConstant) != 0)
                    list.push_back(std::move(attribute));
            }
            return list;
        });
    }
    std::string Name() override { return m_insert.blockName; }
    AcadPoint InsertionPoint() override
    {
        const Vec3 point = WorldPoint(m_insert.insertion, m_insert.extrusion);
        return {point.x, point.y, point.z};
    }

private:
    static constexpr std::int32_t kConstant = 2; // DXF reference, group 70 of ATTDEF

    std::shared_ptr<IAcadAttribute> Attribute(const drawing::EntityRecord& record)
    {
        drawing::Read(m_open->File(), record, m_text);
        return MakeAttribute(m_open->File(), m_text);
    }
    OpenDrawingRef m_open;
    drawing::InsertData m_insert;
    drawing::TextData m_text;
};

class HostEntity final : public IAcadEntity {
public:
    HostEntity(OpenDrawingRef open, const drawing::EntityRecord& record) : m_open(std::move(open)), m_record(record) {}
    std::string ObjectName() override
    {
        return AsHost([&] { return ObjectNameOf(m_open->File(), m_record); });
    }
    std::shared_ptr<IAcadHyperlinks> Hyperlinks() override
    {
        return std::make_shared<HostHyperlinks>(m_open, m_record);
    }
    void GetBoundingBox(AcadPoint& lowerLeft, AcadPoint& upperRight) override
    {
        const Box2 box = AsHost([&] { return BoxOf(m_open->File(), m_record, m_open->Text(), &m_open->References()); });
        if (box.Empty())
            throw HostError("GetBoundingBox: the " + std::string(m_open->File().EntityName(m_record)) + " of line " +
                            std::to_string(m_record.line) + " has no extents");
        lowerLeft = {box.min.x, box.min.y, 0};
        upperRight = {box.max.x, box.max.y, 0};
    }
    IAcadBlockReference* AsBlockReference() override
    {
        static_cast<void>(m_open->File());
        if (m_record.kind != drawing::EntityKind::Insert)
            return nullptr;
        if (!m_reference)
            m_reference.emplace(m_open, m_record);
        return &*m_reference;
    }

private:
    OpenDrawingRef m_open;
    drawing::EntityRecord m_record;
    std::optional<HostBlockReference> m_reference;
};

} // namespace

std::shared_ptr<IAcadEntity> MakeEntity(const OpenDrawingRef& open, const drawing::EntityRecord& record)
{
    return std::make_shared<HostEntity>(open, record);
}

} // namespace sm::cadhost
