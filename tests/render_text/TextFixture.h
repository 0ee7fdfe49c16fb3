// SPDX-License-Identifier: GPL-3.0-or-later
// A drawing with a stroke style and a TrueType style, and an engine to lay its texts.
#pragma once

#include "drawing/entities/Texts.h"
#include "plotter/FakeDrawing.h"
#include "render/FontFace.h"
#include "render/TextLayout.h"

#include <gtest/gtest.h>

namespace sm::render {

class TextFixture : public testing::Test {
protected:
    TextFixture() : engine(TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", ""}))
    {
        drawing::TextStyle standard, sans;
        standard.name = "Standard";
        standard.fontFile = "romans.shx";
        sans.name = "Sans";
        sans.fontFile = "LiberationSans-Regular.ttf";
        drawing.styles = {standard, sans};
    }
    /// 10 high, in Liberation Sans.
    static drawing::MTextData MText(const std::string& text)
    {
        drawing::MTextData data;
        data.text = text;
        data.style = 1;
        data.height = 10;
        return data;
    }
    plotter::FakeDrawing drawing;
    std::unique_ptr<TextEngine> engine;
};

} // namespace sm::render
