// SPDX-License-Identifier: GPL-3.0-or-later
// A layout with its plot configuration, and the collection of layouts.
//
// Every operation may throw HostError; a failing read leaves its out-parameters alone. Lengths are millimetres
// unless a comment says otherwise. Writing a property changes the drawing in memory only.
#pragma once

#include "ports/IAcadEntity.h"

namespace sm {

class IAcadLayout {
public:
    virtual ~IAcadLayout() = default;

    virtual std::string Name() = 0;
    /// Position of the tab: 0 is the model tab, paper tabs count from 1.
    virtual std::int32_t TabOrder() = 0;
    virtual bool ModelType() = 0;
    /// The space that holds the layout's entities.
    virtual std::shared_ptr<IAcadBlock> Block() = 0;

    virtual std::string ConfigName() = 0;
    /// Throws when the device isn't in the list of plot devices.
    virtual void SetConfigName(const std::string& name) = 0;
    virtual std::string CanonicalMediaName() = 0;
    /// Throws when the device doesn't offer the medium.
    virtual void SetCanonicalMediaName(const std::string& name) = 0;
    virtual std::string GetLocaleMediaName(const std::string& canonicalName) = 0;
    virtual std::string StyleSheet() = 0;
    virtual void SetStyleSheet(const std::string& name) = 0;

    /// 0, 1 (90 degrees), 2, 3 (270 degrees), counter-clockwise.
    virtual std::int32_t PlotRotation() = 0;
    virtual void SetPlotRotation(std::int32_t rotation) = 0;
    /// 0 Display, 1 Extents, 2 Limits, 3 View, 4 Window, 5 Layout.
    virtual std::int32_t PlotType() = 0;
    virtual void SetPlotType(std::int32_t type) = 0;
    virtual std::string ViewToPlot() = 0;
    virtual void SetViewToPlot(const std::string& name) = 0;
    /// Drawing units.
    virtual void GetWindowToPlot(AcadPoint& lowerLeft, AcadPoint& upperRight) = 0;
    virtual void SetWindowToPlot(const AcadPoint& lowerLeft, const AcadPoint& upperRight) = 0;

    virtual bool CenterPlot() = 0;
    virtual void SetCenterPlot(bool value) = 0;
    virtual AcadPoint PlotOrigin() = 0;
    virtual void SetPlotOrigin(const AcadPoint& origin) = 0;

    /// 0 Inches, 1 Millimeters, 2 Pixels.
    virtual std::int32_t PaperUnits() = 0;
    virtual void SetPaperUnits(std::int32_t units) = 0;
    virtual bool UseStandardScale() = 0;
    virtual void SetUseStandardScale(bool value) = 0;
    /// The host's scale code; 0 is scale to fit.
    virtual std::int32_t StandardScale() = 0;
    virtual void SetStandardScale(std::int32_t code) = 0;
    /// The scale in force: paper units (numerator) per drawing units (denominator); under scale to fit, the fitted one.
    virtual void GetCustomScale(double& numerator, double& denominator) = 0;
    virtual void SetCustomScale(double numerator, double denominator) = 0;

    virtual bool PlotWithPlotStyles() = 0;
    virtual void SetPlotWithPlotStyles(bool value) = 0;
    virtual bool ShowPlotStyles() = 0;
    virtual void SetShowPlotStyles(bool value) = 0;
    virtual bool PlotHidden() = 0;
    virtual void SetPlotHidden(bool value) = 0;
    virtual bool PlotViewportBorders() = 0;
    virtual void SetPlotViewportBorders(bool value) = 0;
    virtual bool PlotWithLineweights() = 0;
    virtual void SetPlotWithLineweights(bool value) = 0;
    virtual bool ScaleLineweights() = 0;
    virtual void SetScaleLineweights(bool value) = 0;
    virtual bool PlotViewportsFirst() = 0;
    virtual void SetPlotViewportsFirst(bool value) = 0;

    /// Size of the medium as it lies unturned, whatever the rotation.
    virtual void GetPaperSize(double& width, double& height) = 0;
    /// Unprintable strips of the unturned medium: `lowerLeft` holds left and bottom, `upperRight` right and top.
    virtual void GetPaperMargins(AcadPoint& lowerLeft, AcadPoint& upperRight) = 0;

    /// Reads the devices, media and styles anew; the lists below are as of the last refresh.
    virtual void RefreshPlotDeviceInfo() = 0;
    virtual std::vector<std::string> GetPlotDeviceNames() = 0;
    virtual std::vector<std::string> GetCanonicalMediaNames() = 0;
    virtual std::vector<std::string> GetPlotStyleTableNames() = 0;
};

class IAcadLayouts {
public:
    virtual ~IAcadLayouts() = default;
    /// Model included.
    virtual std::int32_t Count() = 0;
    /// 0-based, in collection order.
    virtual std::shared_ptr<IAcadLayout> Item(std::int32_t index) = 0;
    /// Throws HostError when the name is unknown.
    virtual std::shared_ptr<IAcadLayout> Item(const std::string& name) = 0;
};

} // namespace sm
