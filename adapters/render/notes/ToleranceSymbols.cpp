// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/ToleranceSymbols.h"
#include "render/Arcs.h"

#include <array>

namespace sm::render {

namespace {

/// Strokes on a grid of 0 to 9: "L" a line through points of two digits each, "O" a circle and "U" its upper half by
/// centre and radius.
struct Symbol {
    char letter; ///< of the symbol font "gdt"
    std::string_view strokes;
    char inside = ' '; ///< a letter in the circle
};
constexpr std::array kSymbols{Symbol{'a', "L910198"},
                              Symbol{'b', "L0191 L5159"},
                              Symbol{'c', "L0262973702"},
                              Symbol{'d', "U424 L0282"},
                              Symbol{'e', "O444"},
                              Symbol{'f', "L1148 L5188"},
                              Symbol{'g', "O442 L0138 L6198"},
                              Symbol{'h', "L1188 L578875"},
                              Symbol{'i', "L2373 L0595 L2777"},
                              Symbol{'j', "O443 L4048 L0484"},
                              Symbol{'k', "U424"},
                              Symbol{'l', "O444", 'L'},
                              Symbol{'m', "O444", 'M'},
                              Symbol{'n', "O443 L0088"},
                              Symbol{'o', "L1171771711"},
                              Symbol{'p', "O444", 'P'},
                              Symbol{'r', "O444 O442"},
                              Symbol{'s', "O444", 'S'},
                              Symbol{'t', "L0158 L275855 L4198 L679895 L0141"},
                              Symbol{'u', "L0595"},
                              Symbol{'v', "L07018187"},
                              Symbol{'w', "L074187"},
                              Symbol{'x', "L0888 L4841 L234163"},
                              Symbol{'y', "L05888205 L0595"},
                              Symbol{'z', "L08019108"}};

const Symbol* Find(char letter)
{
    for (const Symbol& symbol : kSymbols) {
        if (symbol.letter == letter) {
            return &symbol;
        }
    }
    return nullptr;
}

double Digit(char c)
{
    return c - '0';
}

void AppendStroke(Path& path, std::string_view stroke, const Matrix2& grid)
{
    const auto at = [&](std::size_t i) { return grid.Apply({Digit(stroke[i]), Digit(stroke[i + 1])}); };
    if (stroke.front() == 'L') {
        for (std::size_t i = 1; i + 1 < stroke.size(); i += 2) {
            i == 1 ? path.MoveTo(at(i)) : path.LineTo(at(i));
        }
        return;
    }
    const double radius = Digit(stroke[3]);
    const Vec2 u = grid.ApplyVector({radius, 0}), v = grid.ApplyVector({0, radius});
    if (stroke.front() == 'O') {
        AppendEllipse(path, at(1), u, v);
    } else {
        AppendArc(path, {at(1), u, v, 0, kTurn / 2}, Join::Move);
    }
}

} // namespace

bool IsToleranceSymbol(char letter)
{
    return Find(letter) != nullptr;
}

void AppendToleranceSymbol(Path& path, char letter, const Matrix2& square)
{
    const Symbol* symbol = Find(letter);
    if (symbol == nullptr) {
        return;
    }
    constexpr double kGrid = 9;
    const Matrix2 grid = Compose(square, {1 / kGrid, 0, 0, 1 / kGrid, 0, 0});
    std::string_view rest = symbol->strokes;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(' '), rest.size());
        AppendStroke(path, rest.substr(0, end), grid);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

char ToleranceSymbolLetter(char letter)
{
    const Symbol* symbol = Find(letter);
    return symbol == nullptr ? ' ' : symbol->inside;
}

} // namespace sm::render
