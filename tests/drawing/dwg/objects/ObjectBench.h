// SPDX-License-Identifier: GPL-3.0-or-later
// An object on bits of a test's own: texts and handles follow the numbers in the same stream, as if it had no other.
#pragma once

#include "drawing/dwg/BitWriter.h"
#include "drawing/dwg/DwgFiles.h"
#include "dwg/objects/Object.h"

#include <sstream>

namespace sm::drawing::dwg::testing {

class ObjectBench {
public:
    ObjectBench(Release release, BitWriter bits)
        : m_bits(std::move(bits)), m_file(FileOf2000({8}, 1).bytes),
          m_container(Container::Open(m_file, "bench.dwg", m_findings)), object(m_container, m_sink, names)
    {
        object.release = release;
        object.Fields::Open(BitReader(m_bits.Bytes(), 0, m_bits.Count()));
        m_sink.Object("BENCH");
    }
    /// The tags that were written: code and value of each.
    std::string Tags()
    {
        const DecodedTags decoded = m_sink.Finish();
        TagCursor tags(decoded.bytes, TagFormat::BinaryLong, 0, decoded.bytes.size(), 1);
        std::ostringstream out;
        while (tags.Next()) {
            out << tags.Code() << '=';
            if (tags.Type() == ValueType::Real)
                out << tags.Real() << ' ';
            else if (tags.Type() == ValueType::Integer)
                out << tags.Long() << ' ';
            else
                out << tags.Text() << ' ';
        }
        return out.str();
    }

private:
    BitWriter m_bits;
    std::string m_file;
    FindingList m_findings;
    Container m_container;
    TagSink m_sink;

public:
    Names names;
    Object object;
};

} // namespace sm::drawing::dwg::testing
