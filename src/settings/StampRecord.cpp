#include "ports/IAcadDocument.h"
#include "settings/DrawingValues.h"
#include "settings/mdlDataKegIO.h"

namespace sm {

bool ReadStamp(CallContext& context, IAcadDocument& document, StampSettings& stamp)
{
    const std::vector<std::string> values = GetDrawingData(context, "Stamp", 8, document);
    const StampSettings defaults;
    stamp.StampIndex = IntegerAt(values, 1, defaults.StampIndex);
    stamp.FontName = TextOrDefault(ValueAt(values, 2), defaults.FontName);
    stamp.FontSize = IntegerAt(values, 3, defaults.FontSize);
    stamp.Justification = IntegerAt(values, 4, defaults.Justification);
    stamp.X = NumberOrDefault(ValueAt(values, 5), defaults.X);
    stamp.Y = NumberOrDefault(ValueAt(values, 6), defaults.Y);
    stamp.Color = IntegerAt(values, 7, defaults.Color);
    stamp.LayoutName = ValueAt(values, 8);
    return true;
}

bool WriteStamp(CallContext& context, IAcadDocument& document, const StampSettings& stamp)
{
    const auto text = [&](const AcadVariant& value) { return BoolToText(context.surroundings.locale, value); };
    SetDrawingData(context, "Stamp",
                   {text(stamp.StampIndex), text(stamp.FontName), text(stamp.FontSize), text(stamp.Justification),
                    text(stamp.X), text(stamp.Y), text(stamp.Color), text(stamp.LayoutName)},
                   document);
    return true;
}

} // namespace sm
