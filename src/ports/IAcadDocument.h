// SPDX-License-Identifier: GPL-3.0-or-later
// A drawing, and the small objects it hands out.
//
// Every operation may throw HostError; a failing call changes nothing.
#pragma once

#include "ports/IAcadLayout.h"

namespace sm {

class IAcadApplication;

class IAcadDictionaries {
public:
    virtual ~IAcadDictionaries() = default;
    /// The record of `appName`, or an empty one when the drawing holds none. Numbers may come back as text.
    virtual AcadXData GetXData(const std::string& appName) = 0;
    /// Replaces the whole record of the application named at position 0 of the values. A number in a string item
    /// (group code 1000) is kept as its text. Changes the drawing in memory.
    virtual void SetXData(const AcadXData& data) = 0;
};

class IAcadView {
public:
    virtual ~IAcadView() = default;
    virtual std::string Name() = 0;
    virtual AcadPoint Center() = 0;
    virtual double Width() = 0;
    virtual double Height() = 0;
};

class IAcadViews {
public:
    virtual ~IAcadViews() = default;
    virtual std::int32_t Count() = 0;
    /// 0-based.
    virtual std::shared_ptr<IAcadView> Item(std::int32_t index) = 0;
    /// Throws HostError when no view has that name.
    virtual std::shared_ptr<IAcadView> Item(const std::string& name) = 0;
};

class IAcadUtility {
public:
    virtual ~IAcadUtility() = default;
    /// Coordinate codes: 0 world, 2 display. `displacement` 0 means a point, 1 a vector.
    virtual AcadPoint TranslateCoordinates(const AcadPoint& point, std::int32_t from, std::int32_t to,
                                           std::int32_t displacement) = 0;
    /// Asks the user for a point; throws HostError when the user cancels.
    virtual AcadPoint GetPoint(const std::string& prompt) = 0;
    /// Asks for the corner opposite to `first`; throws HostError when the user cancels.
    virtual AcadPoint GetCorner(const AcadPoint& first, const std::string& prompt) = 0;
};

class IAcadPlot {
public:
    virtual ~IAcadPlot() = default;
    virtual void SetQuietErrorMode(bool value) = 0;
    /// Plots the active layout to `path` with the layout's own plot configuration; false when the plot failed.
    virtual bool PlotToFile(const std::string& path) = 0;
};

class IAcadDocument {
public:
    virtual ~IAcadDocument() = default;
    virtual std::shared_ptr<IAcadApplication> Application() = 0;
    /// With extension.
    virtual std::string Name() = 0;
    /// Full path; empty while the drawing has never been saved.
    virtual std::string FullName() = 0;
    virtual bool Active() = 0;
    /// A 32-bit handle by which the host lets the document own a dialog; 0 without windows.
    virtual std::int32_t HWND() = 0;
    virtual std::int32_t WindowState() = 0;
    virtual void SetWindowState(std::int32_t state) = 0;

    virtual std::shared_ptr<IAcadLayouts> Layouts() = 0;
    /// Null when the drawing has none.
    virtual std::shared_ptr<IAcadLayout> ActiveLayout() = 0;
    virtual void SetActiveLayout(const std::shared_ptr<IAcadLayout>& layout) = 0;
    /// 0 leaves the model tab for the last active layout tab, 1 is the model tab.
    virtual void SetActiveSpace(std::int32_t space) = 0;

    virtual std::shared_ptr<IAcadBlocks> Blocks() = 0;
    virtual std::shared_ptr<IAcadDictionaries> Dictionaries() = 0;
    virtual std::shared_ptr<IAcadViews> Views() = 0;
    virtual std::shared_ptr<IAcadUtility> Utility() = 0;
    virtual std::shared_ptr<IAcadPlot> Plot() = 0;

    /// A system variable such as "LOGINNAME" (text), "EXTMIN" (point).
    virtual AcadVariant GetVariable(const std::string& name) = 0;
    /// Lower-left x and y, upper-right x and y of the drawing limits.
    virtual std::array<double, 4> Limits() = 0;

    virtual void Close(bool saveChanges) = 0;
    virtual void AuditInfo(bool fixErrors) = 0;
};

class IAcadDocuments {
public:
    virtual ~IAcadDocuments() = default;
    virtual std::int32_t Count() = 0;
    /// 0-based.
    virtual std::shared_ptr<IAcadDocument> Item(std::int32_t index) = 0;
    virtual std::shared_ptr<IAcadDocument> Open(const std::string& fileName) = 0;
};

} // namespace sm
