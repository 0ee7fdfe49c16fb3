// SPDX-License-Identifier: GPL-3.0-or-later
// The end of a chain of the PDF library's filters: the file that is being saved.
#pragma once

#include "pdf/Qpdf.h"
#include "pdf/TargetFile.h"

namespace sm::publisher {

/// qpdf's own file output doesn't notice a full disk.
class FilePipeline : public Pipeline {
public:
    explicit FilePipeline(TargetFile& file) : Pipeline("pdf file", nullptr), m_file(file) {}
    void write(unsigned char const* data, std::size_t size) override { m_file.Write(data, size); }
    void finish() override {}

private:
    TargetFile& m_file;
};

} // namespace sm::publisher
