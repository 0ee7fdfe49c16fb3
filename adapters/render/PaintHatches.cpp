#include "render/Painter.h"

namespace sm::render {

bool Painter::Draw(const drawing::HatchData&, drawing::EntityKind)
{
    return false;
}

} // namespace sm::render
