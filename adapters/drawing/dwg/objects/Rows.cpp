// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/objects/Rows.h"

namespace sm::drawing::dwg {

namespace {

/// Where the values of a row go: into variables of the header, or into groups of an entry.
class RowWriter {
public:
    /// Of variables with somewhere for the links, of groups without.
    RowWriter(Object& object, LinkedRows* links) : m_object(object), m_links(links) {}

    void Write(const Row& row)
    {
        m_row = &row;
        BitReader& data = m_object.data;
        switch (row.field) {
        case Field::Bit:
            return Integer(data.B() ? 1 : 0);
        case Field::Char:
            return Integer(data.RC());
        case Field::Short:
            return Integer(data.SignedBS());
        case Field::Long:
            return Integer(data.SignedBL());
        case Field::LongLong:
            (void)data.BLL();
            return;
        case Field::Double:
            return Real(data.BD());
        case Field::Text:
            return Text(m_object.T());
        case Field::Color:
            return Integer(m_object.CMC().Index());
        case Field::Handle:
            return Link(m_object.H());
        case Field::DataHandle:
            (void)m_object.DataH();
            return;
        case Field::Point2:
            return Point(m_object.RD2());
        case Field::Point3:
            return Point(m_object.BD3());
        default:
            WriteSpecial(row.field);
        }
    }

private:
    void WriteSpecial(Field field)
    {
        BitReader& data = m_object.data;
        if (field == Field::Date) {
            constexpr double kMillisecondsOfDay = 86'400'000;
            const double days = data.BL();
            Real(days + data.BL() / kMillisecondsOfDay);
        } else if (field == Field::Flags) {
            Flags(data.BL());
        } else {
            constexpr std::int32_t kByHandle = 3;
            const std::int32_t type = data.SignedBS();
            Integer(type);
            if (type == kByHandle)
                (void)m_object.H();
        }
    }
    void Flags(std::uint32_t flags)
    {
        Variable("$CELWEIGHT", 370, LineweightOf(flags & 0x1F));
        Variable("$ENDCAPS", 280, flags >> 5 & 3);
        Variable("$JOINSTYLE", 280, flags >> 7 & 3);
        Variable("$LWDISPLAY", 290, (flags & 0x200) == 0 ? 1 : 0);
        Variable("$XEDIT", 290, (flags & 0x400) == 0 ? 1 : 0);
        Variable("$EXTNAMES", 290, (flags & 0x800) != 0 ? 1 : 0);
        Variable("$PSTYLEMODE", 290, (flags & 0x2000) != 0 ? 1 : 0);
        Variable("$OLESTARTUP", 290, (flags & 0x4000) != 0 ? 1 : 0);
    }
    void Variable(const char* name, int code, std::int64_t value)
    {
        m_object.sink.Variable(name);
        m_object.sink.Integer(code, value);
    }
    /// The group that the value gets, 0 when nobody asks for it. `usual`: that of a header variable of its kind.
    int Begin(int usual)
    {
        if (m_row->name == nullptr)
            return 0;
        if (m_links == nullptr)
            return m_row->code;
        m_object.sink.Variable(m_row->name);
        // The codes of dimension variables are those of the style's groups.
        const bool own = m_row->code != 0 && !std::string_view(m_row->name).starts_with("$DIM");
        return own ? m_row->code : usual;
    }
    void Integer(std::int64_t value)
    {
        if (const int code = Begin(70); code != 0)
            m_object.sink.Integer(code, value);
    }
    void Real(double value)
    {
        if (const int code = Begin(40); code != 0)
            m_object.sink.Real(code, value);
    }
    void Text(std::string_view text)
    {
        if (const int code = Begin(1); code != 0)
            m_object.sink.Text(code, text);
    }
    template <class Place> void Point(const Place& point)
    {
        if (const int code = Begin(10); code != 0)
            m_object.sink.Point(code, point);
    }
    void Link(Handle handle)
    {
        if (m_row->name == nullptr)
            return;
        if (m_links != nullptr)
            m_links->push_back({m_row, handle});
        else if (handle != 0)
            m_object.sink.HandleTag(m_row->code, handle);
    }

    Object& m_object;
    const Row* m_row = nullptr;
    LinkedRows* m_links;
};

void WriteRows(Object& object, std::span<const Row> rows, LinkedRows* links)
{
    RowWriter writer(object, links);
    for (const Row& row : rows) {
        if (object.Lost())
            return;
        if (object.release >= row.first && object.release <= row.last)
            writer.Write(row);
    }
}

} // namespace

void WriteVariables(Object& object, std::span<const Row> rows, LinkedRows& links)
{
    WriteRows(object, rows, &links);
}

void WriteLinked(const Object& object, const LinkedRows& links)
{
    constexpr int kName = 2;
    for (const LinkedRow& link : links) {
        const std::string_view variable = link.row->name;
        if (variable.starts_with('#'))
            continue;
        std::string_view name = object.names.Of(link.handle);
        // The header calls the built-in arrows by their names without the underscore of their blocks.
        if (variable.starts_with("$DIM") && variable.find("BLK") != std::string_view::npos && name.starts_with('_'))
            name.remove_prefix(1);
        const bool own = link.row->code != 0 && !variable.starts_with("$DIM");
        object.sink.Variable(link.row->name);
        object.sink.Text(own ? link.row->code : kName, name);
    }
}

void WriteGroups(Object& object, std::span<const Row> rows)
{
    WriteRows(object, rows, nullptr);
}

} // namespace sm::drawing::dwg
