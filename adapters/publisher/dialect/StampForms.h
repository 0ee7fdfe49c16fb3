// SPDX-License-Identifier: GPL-3.0-or-later
// Stamps whose text the standard fonts lack: each text a form of its own, in fonts that the PDF holds.
#pragma once

#include "marks/StampText.h"
#include "pdf/Qpdf.h"
#include "publisher/StampTexts.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sm::publisher {

/// A form one em of whose text is 1 high, from (0, 0) along x.
struct StampForm {
    QPDFObjectHandle object;
    std::string key; ///< its name in a page's resources
    double width = 0;
};

using StampTextsMaker = std::function<std::unique_ptr<IStampTexts>()>;

/// The forms of a document; pages with the same text share one.
class StampForms {
public:
    StampForms(QPDF& pdf, StampTextsMaker make) : m_pdf(pdf), m_make(std::move(make)) {}
    /// `color`: red in the low byte. Nothing where nobody can set the text, and why in `reason` when it was tried.
    std::optional<StampForm> Form(const std::string& text, const StampFont& font, std::int32_t color,
                                  std::string& reason);
    /// Gives the forms their fonts. Throws PublishFailure when these can't be read.
    /// Answers what is to be told.
    std::vector<std::string> Finish();

private:
    StampForm Make(const std::string& text, const StampLook& look);

    QPDF& m_pdf;
    StampTextsMaker m_make;
    std::unique_ptr<IStampTexts> m_texts;
    std::map<std::string, StampForm> m_forms; ///< by look and text
};

} // namespace sm::publisher
