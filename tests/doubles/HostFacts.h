// SPDX-License-Identifier: GPL-3.0-or-later
// What the scripted host holds: a drawing session as plain structs that a test fills and looks at.
#pragma once

#include "ports/IAcadDocument.h"

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sm {

struct HyperlinkFacts {
    std::string URL, URLDescription;
};

struct AttributeFacts {
    std::string TagString, TextString;
};

struct BlockReferenceFacts {
    std::string Name;
    AcadPoint InsertionPoint;
    std::vector<AttributeFacts> Attributes, ConstantAttributes;
};

struct EntityFacts {
    std::string ObjectName = "AcDbLine";
    AcadPoint LowerLeft, UpperRight;
    std::vector<HyperlinkFacts> Hyperlinks;
    std::optional<BlockReferenceFacts> Reference; ///< set for a block reference
};

struct BlockFacts {
    std::string Name;
    std::vector<EntityFacts> Entities;
};

struct LayoutFacts {
    std::string Name = "Layout1";
    std::int32_t TabOrder = 1;
    bool ModelType = false;
    BlockFacts Block{"*Paper_Space", {}};
    std::string ConfigName = "None";
    std::string CanonicalMediaName = "ISO_A3_(420.00_x_297.00_MM)";
    std::string StyleSheet;
    std::int32_t PlotRotation = 0, PlotType = 5;
    std::string ViewToPlot;
    AcadPoint WindowLowerLeft, WindowUpperRight;
    bool CenterPlot = false;
    AcadPoint PlotOrigin;
    std::int32_t PaperUnits = 1;
    bool UseStandardScale = true;
    std::int32_t StandardScale = 16; ///< 1:1
    double ScaleNumerator = 1, ScaleDenominator = 1;
    bool PlotWithPlotStyles = true, ShowPlotStyles = false, PlotHidden = false, PlotViewportBorders = false,
         PlotWithLineweights = true, ScaleLineweights = false, PlotViewportsFirst = true;
    double PaperWidth = 420, PaperHeight = 297; ///< unturned sheet, mm
    AcadPoint MarginLowerLeft{5, 17, 0}, MarginUpperRight{6, 18, 0};
    /// As of the last refresh of the plot device information; empty before the first.
    std::vector<std::string> ListedDevices, ListedMedia;
};

struct ViewFacts {
    std::string Name;
    AcadPoint Center;
    double Width = 0, Height = 0;
};

struct DocumentFacts {
    std::string Name = "Plan.dwg";
    std::string FullName = "C:\\Jobs\\Plan.dwg";
    bool Active = true;
    std::int32_t HWND = 4711;
    std::int32_t WindowState = 1;
    std::vector<std::shared_ptr<LayoutFacts>> Layouts;
    std::shared_ptr<LayoutFacts> ActiveLayout;         ///< null: the document has none
    std::shared_ptr<LayoutFacts> LastActivePaperSheet; ///< what active space 0 goes to, when set
    std::vector<BlockFacts> Blocks;
    std::vector<ViewFacts> Views;
    std::map<std::string, AcadXData> XData; ///< records of the named-object dictionary by application name
    std::map<std::string, AcadVariant> Variables{{"LOGINNAME", std::string("R. Draughtsman")}};
    std::array<double, 4> Limits{0, 0, 420, 297};
    AcadPoint DisplayOrigin;            ///< display coordinates are world minus this
    std::deque<AcadPoint> PointsPicked; ///< answers of GetPoint and GetCorner; empty means cancelled
    bool PlotResult = true;             ///< what PlotToFile answers
    std::deque<bool> PlotResults;       ///< its first answers, before PlotResult
    bool Closed = false;

    std::shared_ptr<LayoutFacts> AddLayout(const LayoutFacts& facts);
    std::shared_ptr<LayoutFacts> FindLayout(const std::string& name) const;
};

struct SheetFacts {
    double Width = 0, Height = 0; ///< mm
};

struct SessionFacts {
    std::string DriversPath = "C:\\Acad\\Drivers";
    std::string PrinterConfigPath = "C:\\Users\\me\\Plotters";
    std::string ActiveProfile = "Unnamed Profile";
    std::vector<std::string> RefusedPlotterFolders;
    std::vector<std::string> Devices{"None"};                  ///< known wherever the plotter folder points
    std::map<std::string, std::vector<std::string>> DevicesIn; ///< more, by plotter folder
    std::map<std::string, std::vector<std::string>> MediaOf;   ///< canonical media names, by device
    std::map<std::string, SheetFacts> Sheets;                  ///< size, by canonical media name
    std::vector<std::string> Styles;
    std::vector<std::shared_ptr<DocumentFacts>> Documents;
    std::shared_ptr<DocumentFacts> ActiveDocument;               ///< null: no drawing open
    std::map<std::string, std::shared_ptr<DocumentFacts>> Files; ///< drawings that can be opened, by path
};

} // namespace sm
