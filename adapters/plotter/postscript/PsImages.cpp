// SPDX-License-Identifier: GPL-3.0-or-later
// Places pictures on the page.
#include "postscript/PsWriter.h"

namespace sm::plotter {

void PsWriter::Image(const render::Picture& picture, const render::Matrix2& toPaper, std::uint32_t color)
{
    EnterLayer();
    m_hasInk = true;
    EndStroke();
    const std::size_t number = m_pictures.Add(picture);
    if (picture.form == render::Picture::Form::Mask) {
        SetColor(color, false);
    }
    SetTransparency(color);
    Write("q");
    for (const double value : {toPaper.a, toPaper.b, toPaper.c, toPaper.d, toPaper.e, toPaper.f}) {
        WriteNumber(value * m_units, 3);
    }
    Write("cm");
    Write(("/I" + std::to_string(number) + " Do").c_str());
    Write("Q");
}

} // namespace sm::plotter
