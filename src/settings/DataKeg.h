// SPDX-License-Identifier: GPL-3.0-or-later
// The settings bundle of one drawing.
#pragma once

#include "settings/PageSetupRecord.h"
#include "settings/StampChoices.h"
#include "settings/TransferFlags.h"

#include <string>
#include <vector>

namespace sm {

struct PaperSize {
    std::string LocaleMedianame;
    std::string CanonicalMediaName;
    double Width = 0, Height = 0; ///< mm
    friend bool operator==(const PaperSize&, const PaperSize&) = default;
};

struct StampSettings {
    std::int32_t Color = 255; ///< RGB, red in the low byte
    std::string FontName = "Helvetica";
    std::int32_t StampIndex = 0;    ///< 0 none, 1 to 15 into the stamp list
    std::int32_t Justification = 0; ///< see kStampJustifications
    std::string LayoutName;         ///< or kAllLayouts
    double X = 0, Y = 0;            ///< drawing units
    std::int32_t FontSize = 24;     ///< points
    friend bool operator==(const StampSettings&, const StampSettings&) = default;
};

struct AttachmentEntry {
    std::string FilePath;
    double X = 0, Y = 0; ///< drawing units
    std::string LayoutName;
    friend bool operator==(const AttachmentEntry&, const AttachmentEntry&) = default;
};

struct SignatureFieldEntry {
    std::string FieldName, FieldLabel;
    double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0; ///< drawing units, corners as entered
    std::string LayoutName;
    friend bool operator==(const SignatureFieldEntry&, const SignatureFieldEntry&) = default;
};

struct LayoutSettings {
    std::string DrawingFullName;
    std::string LayoutName;
    bool IsModelSpace = false;
    PageSetupRecord PageSetup;
    StampSettings Stamp;
    std::vector<AttachmentEntry> Attachments;
    std::vector<SignatureFieldEntry> SignatureFields;
};

struct GeneralSettings {
    TransferFlags Transfer;
    bool PromptForFileName = DefaultSwitch("PromptForFileName");
    bool DeletePs = DefaultSwitch("DeletePs");
    bool OpenInViewer = DefaultSwitch("OpenInViewer");
    std::int32_t WhatToPlot = DefaultWhole("WhatToPlot");     ///< see WhatToPlot
    std::int32_t Optimization = DefaultWhole("Optimization"); ///< see LineQuality
    std::string JobOptionsFile = DefaultName("JobOptionsFile");
    friend bool operator==(const GeneralSettings&, const GeneralSettings&) = default;
};

struct DataKeg {
    std::string LoginName;
    std::int32_t LayoutCount = 0;
    GeneralSettings General;
    std::vector<PaperSize> PaperSizes;
    std::vector<std::string> PlotStyles;
    StampTexts Stamps;
    std::vector<LayoutSettings> Layouts;
    /// "PltSel", see PageSetupSource; filled by the dialog's load only.
    std::int32_t PageSetupSelected = kPageSetupNative;
};

} // namespace sm
