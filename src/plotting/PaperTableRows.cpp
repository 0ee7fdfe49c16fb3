// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotting/PaperTable.h"

namespace sm {

namespace {

struct Row {
    const char* localeName;
    const char* canonicalName;
    double width, height;
};

// The sizes are written out: inches times 25.4 doesn't give the same doubles.
constexpr Row kRows[] = {
    {"ANSI A (8.50 x 11.00 Inches)", "ANSI_A_(8.50_x_11.00_Inches)", 215.9, 279.4},
    {"ANSI A (11.00 x 8.50 Inches)", "ANSI_A_(11.00_x_8.50_Inches)", 279.4, 215.9},
    {"ANSI B (11.00 x 17.00 Inches)", "ANSI_B_(11.00_x_17.00_Inches)", 279.4, 431.8},
    {"ANSI B (17.00 x 11.00 Inches)", "ANSI_B_(17.00_x_11.00_Inches)", 431.8, 279.4},
    {"ANSI C (17.00 x 22.00 Inches)", "ANSI_C_(17.00_x_22.00_Inches)", 431.8, 558.8},
    {"ANSI C (22.00 x 17.00 Inches)", "ANSI_C_(22.00_x_17.00_Inches)", 558.8, 431.8},
    {"ANSI D (22.00 x 34.00 Inches)", "ANSI_D_(22.00_x_34.00_Inches)", 558.8, 863.6},
    {"ANSI D (34.00 x 22.00 Inches)", "ANSI_D_(34.00_x_22.00_Inches)", 863.6, 558.8},
    {"ANSI E (34.00 x 44.00 Inches)", "ANSI_E_(34.00_x_44.00_Inches)", 863.6, 1117.6},
    {"ANSI E (44.00 x 34.00 Inches)", "ANSI_E_(44.00_x_34.00_Inches)", 1117.6, 863.6},
    {"ARCH C (18.00 x 24.00 Inches)", "ARCH_C_(18.00_x_24.00_Inches)", 457.2, 609.6},
    {"ARCH C (24.00 x 18.00 Inches)", "ARCH_C_(24.00_x_18.00_Inches)", 609.6, 457.2},
    {"ARCH D (24.00 x 36.00 Inches)", "ARCH_D_(24.00_x_36.00_Inches)", 609.6, 914.4},
    {"ARCH D (36.00 x 24.00 Inches)", "ARCH_D_(36.00_x_24.00_Inches)", 914.4, 609.6},
    {"ARCH E (36.00 x 48.00 Inches)", "ARCH_E_(36.00_x_48.00_Inches)", 914.4, 1219.2},
    {"ARCH E (48.00 x 36.00 Inches)", "ARCH_E_(48.00_x_36.00_Inches)", 1219.2, 914.4},
    {"ARCH E1 (30.00 x 42.00 Inches)", "ARCH_E1_(30.00_x_42.00_Inches)", 762, 1066.8},
    {"ARCH E1 (42.00 x 30.00 Inches)", "ARCH_E1_(42.00_x_30.00_Inches)", 1066.8, 762},
    {"ISO A0 (1189.00 x 841.00 MM)", "ISO_A0_(1189.00_x_841.00_MM)", 1189, 841},
    {"ISO A0 (841.00 x 1189.00 MM)", "ISO_A0_(841.00_x_1189.00_MM)", 841, 1189},
    {"ISO A1 (594.00 x 841.00 MM)", "ISO_A1_(594.00_x_841.00_MM)", 594, 841},
    {"ISO A1 (841.00 x 594.00 MM)", "ISO_A1_(841.00_x_594.00_MM)", 841, 594},
    {"ISO A2 (420.00 x 594.00 MM)", "ISO_A2_(420.00_x_594.00_MM)", 420, 594},
    {"ISO A2 (594.00 x 420.00 MM)", "ISO_A2_(594.00_x_420.00_MM)", 594, 420},
    {"ISO A3 (297.00 x 420.00 MM)", "ISO_A3_(297.00_x_420.00_MM)", 297, 420},
    {"ISO A3 (420.00 x 297.00 MM)", "ISO_A3_(420.00_x_297.00_MM)", 420, 297},
    {"ISO A4 (210.00 x 297.00 MM)", "ISO_A4_(210.00_x_297.00_MM)", 210, 297},
    {"ISO A4 (297.00 x 210.00 MM)", "ISO_A4_(297.00_x_210.00_MM)", 297, 210},
};

} // namespace

std::int32_t LoadPaperTable(std::vector<PaperSize>& table)
{
    table.clear();
    for (const Row& row : kRows)
        table.push_back({row.localeName, row.canonicalName, row.width, row.height});
    return static_cast<std::int32_t>(table.size());
}

} // namespace sm
