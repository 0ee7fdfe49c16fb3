// SPDX-License-Identifier: GPL-3.0-or-later
// The streams that the fields of one object (or of the header, or of the classes) are read from, and the fields that
// take more than a number. For this room only.
#pragma once

#include "base/Geometry.h"
#include "drawing/Properties.h"
#include "dwg/bits/BitReader.h"
#include "dwg/file/Container.h"

#include <optional>
#include <string>
#include <string_view>

namespace sm::drawing::dwg {

/// A colour of tables, styles and gradients.
struct Color {
    std::uint32_t raw = 0; ///< the highest byte: C0 by layer, C1 by block, C2 red green blue, C3 index, C8 none
    std::string name;      ///< "BOOK$COLOUR" or "COLOUR" of a colour book; empty without one
    /// 0 by block, 256 by layer; the nearest one to a true colour, beside which none is stored.
    [[nodiscard]] std::int32_t Index() const;
    [[nodiscard]] std::optional<std::uint32_t> Rgb() const;
    /// From an index as files up to R2000 store it.
    static Color OfIndex(std::int32_t index);
};

/// Fields in the order of the format: `data` holds numbers; texts and handles come from streams of their own where the
/// release has them, whatever their place among the numbers.
class Fields {
public:
    Fields(Release fileRelease, bool doubleByte) : release(fileRelease), m_doubleByte(doubleByte) {}

    Release release;
    Handle own = 0; ///< of the object: relative handles count from it
    BitReader data;

    [[nodiscard]] bool Since(Release first) const { return release >= first; }
    [[nodiscard]] bool Before(Release later) const { return release < later; }

    /// From here on `data` alone is read: no streams of their own.
    void Open(BitReader whole);
    void SetLinks(BitReader links)
    {
        m_links = links;
        m_ownLinks = true;
    }
    /// From R2007 on: the texts end before bit `end`, which tells whether there are any. The data end where they begin.
    void FindTexts(std::string_view bytes, std::uint64_t end);
    [[nodiscard]] BitReader& Links() { return m_ownLinks ? m_links : data; }
    [[nodiscard]] BitReader& Texts() { return m_ownTexts ? m_texts : data; }
    /// A stream was read beyond its end; that of the handles may be: what is missing is null.
    [[nodiscard]] bool Lost() const { return data.Overrun() || (m_ownTexts && m_texts.Overrun()); }

    /// A text as tags hold it: UTF-8 from R2007 on, else in the file's code page; control characters as carets.
    /// Valid until the next call.
    std::string_view T();
    void SkipT();
    /// `units` units of UTF-16 of the data as UTF-8, with carets.
    std::string_view Utf16(std::uint64_t units);
    /// `length` bytes of the data in the file's code page, with carets.
    std::string_view Bytes(BitReader& reader, std::uint64_t length);

    /// The next handle, null when they ran out.
    Handle H() { return Resolve(Links().H()); }
    void SkipH(std::uint32_t count)
    {
        for (; count > 0 && Links().Left() > 0; --count)
            (void)Links().H();
    }
    Handle DataH() { return Resolve(data.H()); }

    Vec2 RD2();
    Vec3 RD3();
    Vec2 BD2();
    Vec3 BD3();
    Vec2 DD2(Vec2 normal);
    double BT();
    Vec3 BE();
    /// Up to R2000 an index.
    Color CMC() { return Since(Release::R2004) ? CMTC() : Color::OfIndex(data.SignedBS()); }
    /// The newer form in every release.
    Color CMTC();

private:
    [[nodiscard]] Handle Resolve(RawHandle raw) const;
    std::string_view Utf16(BitReader& reader, std::uint64_t units);
    std::string_view ShortBytes(BitReader& reader, std::uint64_t length);
    std::string_view ShortUtf16(BitReader& reader, std::uint64_t units);

    BitReader m_texts, m_links;
    bool m_ownTexts = false, m_ownLinks = false;
    bool m_doubleByte; ///< the file's code page has characters of two bytes
    static constexpr std::uint64_t kShort = 96;
    char m_short[kShort] = {}; ///< a text of plain letters
    std::string m_text;        ///< any other
};

} // namespace sm::drawing::dwg
