// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PlotSettingsReader.h"

namespace sm::drawing {

namespace {

bool TakeText(const Model& model, const TagCursor& tag, PlotSettings& plot)
{
    switch (tag.Code()) {
    case 1:
        plot.pageSetupName = model.Text(tag.Name());
        break;
    case 2:
        plot.configName = model.Text(tag.Name());
        break;
    case 4:
        plot.mediaName = model.Text(tag.Name());
        break;
    case 6:
        plot.viewName = model.Text(tag.Name());
        break;
    case 7:
        plot.styleSheet = model.Text(tag.Name());
        break;
    default:
        return false;
    }
    return true;
}

bool TakeLength(const TagCursor& tag, PlotSettings& plot)
{
    switch (tag.Code()) {
    case 40:
        plot.marginLeft = tag.Real();
        break;
    case 41:
        plot.marginBottom = tag.Real();
        break;
    case 42:
        plot.marginRight = tag.Real();
        break;
    case 43:
        plot.marginTop = tag.Real();
        break;
    case 44:
        plot.paperWidth = tag.Real();
        break;
    case 45:
        plot.paperHeight = tag.Real();
        break;
    case 46:
        plot.origin.x = tag.Real();
        break;
    case 47:
        plot.origin.y = tag.Real();
        break;
    case 48:
        plot.window.min.x = tag.Real();
        break;
    case 49:
        plot.window.min.y = tag.Real();
        break;
    case 140:
        plot.window.max.x = tag.Real();
        break;
    case 141:
        plot.window.max.y = tag.Real();
        break;
    case 142:
        plot.scaleNumerator = tag.Real();
        break;
    case 143:
        plot.scaleDenominator = tag.Real();
        break;
    case 147:
        plot.standardScaleFactor = tag.Real();
        break;
    default:
        return false;
    }
    return true;
}

} // namespace

void TakePlotSettingsTag(const Model& model, const TagCursor& tag, PlotSettings& plot)
{
    if (TakeText(model, tag, plot) || TakeLength(tag, plot))
        return;
    switch (tag.Code()) {
    case 70:
        plot.flags = tag.Integer();
        break;
    case 72:
        plot.paperUnits = tag.Integer();
        break;
    case 73:
        plot.rotation = tag.Integer() & 3;
        break;
    case 74:
        plot.plotType = tag.Integer();
        break;
    case 75:
        plot.standardScale = tag.Integer();
        break;
    default:
        break;
    }
}

} // namespace sm::drawing
