// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/read/ObjectIndex.h"

#include "dwg/recovery/ObjectSearch.h"

#include <algorithm>

namespace sm::drawing::dwg {

namespace {

constexpr std::uint32_t kEntityItem = 0x1F2;

/// Sets the streams of the class section; the bit where the classes end, 0 when there are none.
std::uint64_t OpenClasses(Fields& fields, const Container& container)
{
    const std::string_view bytes = container.Classes();
    BitReader bits(bytes);
    const std::uint64_t size = bits.RL();
    if (container.HasLongSizes())
        (void)bits.RL();
    const std::uint64_t first = bits.At();
    bits.EndAt(first + size * 8);
    std::uint64_t end = bits.End();
    if (fields.Since(Release::R2007)) {
        end = first + bits.RL();
        if (end > bits.End())
            return 0;
    }
    fields.Open(bits);
    if (fields.Since(Release::R2007)) {
        fields.data.EndAt(end);
        fields.FindTexts(bytes, end);
    }
    if (fields.Since(Release::R2004)) {
        (void)fields.data.BS();
        fields.data.Skip(16);
        fields.data.B();
    }
    return bits.Overrun() ? 0 : fields.data.End();
}

ObjectClass ReadClass(Fields& fields)
{
    ObjectClass one;
    one.number = fields.data.BS();
    (void)fields.data.BS();
    fields.SkipT();
    fields.SkipT();
    one.name = fields.T();
    fields.data.B();
    one.isEntity = fields.data.BS() == kEntityItem;
    for (int i = 0; i < 5 && fields.Since(Release::R2004); ++i)
        (void)fields.data.BL();
    return one;
}

} // namespace

std::vector<ObjectClass> ReadClasses(const Container& container)
{
    Fields fields(container.FileRelease(), false);
    std::vector<ObjectClass> classes;
    if (OpenClasses(fields, container) == 0)
        return classes;
    constexpr std::uint64_t kLeast = 16; ///< bits of a class; what is left behind the last one are fewer
    while (fields.data.Left() >= kLeast && !fields.Lost()) {
        ObjectClass one = ReadClass(fields);
        if (!fields.Lost() && one.number >= kFirstClass)
            classes.push_back(std::move(one));
    }
    std::ranges::sort(classes, {}, &ObjectClass::number);
    return classes;
}

ObjectIndex::ObjectIndex(const Container& container, const std::vector<ObjectClass>& classes, FindingList& findings)
{
    const std::uint32_t typeEnd = classes.empty() ? 0 : classes.back().number + 1;
    const std::vector<FoundObject> found = ProvenPlaces(container, typeEnd, findings);
    m_objects.reserve(found.size());
    for (const FoundObject& object : found)
        m_objects.push_back({object.handle, object.offset, object.type, false, false});
    m_classes.resize(typeEnd > kFirstClass ? typeEnd - kFirstClass : 0);
    for (const ObjectClass& one : classes) {
        ClassRows& rows = m_classes[one.number - kFirstClass];
        rows.own = &one;
        rows.entity = FindEntityRow(one.name);
        rows.record = FindRecordRow(one.name);
    }
}

IndexedObject* ObjectIndex::Find(Handle handle)
{
    if (m_last + 1 < m_objects.size() && m_objects[m_last + 1].handle == handle)
        return &m_objects[++m_last];
    const auto found = std::ranges::lower_bound(m_objects, handle, {}, &IndexedObject::handle);
    if (found == m_objects.end() || found->handle != handle)
        return nullptr;
    m_last = static_cast<std::size_t>(found - m_objects.begin());
    return &*found;
}

const ObjectIndex::ClassRows* ObjectIndex::RowsOf(std::uint32_t type) const
{
    return type >= kFirstClass && type - kFirstClass < m_classes.size() ? &m_classes[type - kFirstClass] : nullptr;
}

const EntityRow* ObjectIndex::EntityOf(std::uint32_t type) const
{
    const ClassRows* const rows = RowsOf(type);
    return rows == nullptr ? FindEntityRow(type) : rows->entity;
}

const RecordRow* ObjectIndex::RecordOf(std::uint32_t type) const
{
    const ClassRows* const rows = RowsOf(type);
    return rows == nullptr ? FindRecordRow(type) : rows->record;
}

const ObjectClass* ObjectIndex::ClassOf(std::uint32_t type) const
{
    const ClassRows* const rows = RowsOf(type);
    return rows == nullptr ? nullptr : rows->own;
}

} // namespace sm::drawing::dwg
