#include "drawing/DxfDrawing.h"

namespace sm::drawing {

std::vector<XDataItem> DxfDrawing::RecordOf(const std::string&) const
{
    return {};
}

void DxfDrawing::SetRecord(const std::string&, const std::vector<XDataItem>&)
{
    throw DrawingError(Path() + ": records can't be written yet");
}

void DxfDrawing::Save(bool)
{
    throw DrawingError(Path() + ": saving is not there yet");
}

} // namespace sm::drawing
