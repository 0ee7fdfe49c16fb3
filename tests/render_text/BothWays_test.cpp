// SPDX-License-Identifier: GPL-3.0-or-later
// Texts that run from right to left, alone and beside others.
#include "TextFixture.h"

#include <map>

namespace sm::render {
namespace {

class BothWaysTest : public TextFixture {};

TEST_F(BothWaysTest, PartsStandInTheirOrder)
{
    struct Row {
        const char* text;
        std::vector<std::string> fromTheLeft;
    };
    for (const Row& row : std::vector<Row>{{"שלום עולם", {"עולם", " ", "שלום"}},
                                           {"חדר 12 א", {"א", " ", "12", " ", "חדר"}},
                                           {"DOOR דלת 3", {"DOOR ", "3", " ", "דלת"}},
                                           {"A (דלת) B", {"A (", "דלת", ") B"}},
                                           {"plain", {"plain"}}}) {
        SCOPED_TRACE(row.text);
        drawing::TextData data;
        data.text = row.text;
        data.style = 1;
        data.height = 10;
        const LaidText& laid = engine->Lay(drawing, data);
        std::string read;
        for (const GlyphPart& part : laid.glyphs) {
            read += part.run.text;
        }
        EXPECT_EQ(read, row.text); // runs come as they are read
        std::map<double, const TextRun*> seen;
        for (const GlyphPart& part : laid.glyphs) {
            seen[part.run.toPaper.e] = &part.run;
        }
        std::vector<std::string> texts;
        double right = 0;
        for (const auto& [left, run] : seen) {
            texts.push_back(run->text);
            EXPECT_NEAR(left, right, 1e-9); // each begins where the one before ends
            right = run->toPaper.Apply({run->advance, 0}).x;
        }
        EXPECT_EQ(texts, row.fromTheLeft);
    }
}

} // namespace
} // namespace sm::render
