// SPDX-License-Identifier: GPL-3.0-or-later
#include "Crowd.h"

#include <array>
#include <cmath>
#include <fmt/format.h>
#include <iterator>
#include <random>

namespace sm::bench {
namespace {

constexpr double kRoom = 60; // area that an entity has to itself

/// Numbers of one sequence on every machine, which the standard's distributions don't promise.
class Numbers {
public:
    double Upto(double most) { return static_cast<double>(m_engine()) / 4294967296.0 * most; }

private:
    std::mt19937 m_engine{12345};
};

class Writer {
public:
    explicit Writer(double side) : m_side(side) {}

    void Entity(std::size_t number)
    {
        // Of twenty: eleven lines, three arcs, two circles, three texts, an area.
        const std::size_t kind = number % 20;
        const double x = m_numbers.Upto(m_side), y = m_numbers.Upto(m_side);
        if (kind < 11)
            Line(number, x, y);
        else if (kind < 14)
            Add("ARC", number, " 10\n{:.4f}\n 20\n{:.4f}\n 40\n{:.4f}\n 50\n10\n 51\n{:.2f}\n", x, y, Size(), Angle());
        else if (kind < 16)
            Add("CIRCLE", number, " 10\n{:.4f}\n 20\n{:.4f}\n 40\n{:.4f}\n", x, y, Size());
        else if (kind < 19)
            Add("TEXT", number, " 10\n{:.4f}\n 20\n{:.4f}\n 40\n2.5\n  1\nitem {}\n", x, y, number);
        else
            Area(number, x, y);
    }

    /// The sheet's own viewport, the one that shows the model, and a frame.
    void Sheet()
    {
        const double middle = m_side / 2;
        Viewport(1, 210, 148.5, 420, 297, 210, 148.5, 297);
        Viewport(2, 210, 148.5, 380, 270, middle, middle, m_side);
        constexpr std::array<double, 5> xs{10, 410, 410, 10, 10}, ys{10, 10, 287, 287, 10};
        for (std::size_t i = 0; i + 1 < xs.size(); ++i)
            Add("LINE", 0, " 67\n1\n 10\n{}\n 20\n{}\n 11\n{}\n 21\n{}\n", xs[i], ys[i], xs[i + 1], ys[i + 1]);
    }

    std::string Take() { return std::move(m_text); }

private:
    template <class... Values>
    void Add(const char* kind, std::size_t number, fmt::format_string<Values...> groups, Values&&... values)
    {
        fmt::format_to(std::back_inserter(m_text), "  0\n{}\n  8\nL{}\n 62\n{}\n", kind, number % 20, number % 7 + 1);
        fmt::format_to(std::back_inserter(m_text), groups, std::forward<Values>(values)...);
    }
    void Line(std::size_t number, double x, double y)
    {
        Add("LINE", number, " 10\n{:.4f}\n 20\n{:.4f}\n 11\n{:.4f}\n 21\n{:.4f}\n", x, y, x + m_numbers.Upto(18) - 9,
            y + m_numbers.Upto(18) - 9);
    }
    void Area(std::size_t number, double x, double y)
    {
        const double size = Size();
        Add("SOLID", number,
            " 10\n{0:.4f}\n 20\n{1:.4f}\n 11\n{2:.4f}\n 21\n{1:.4f}\n 12\n{0:.4f}\n 22\n{3:.4f}\n 13\n{2:.4f}\n "
            "23\n{3:.4f}\n",
            x, y, x + size, y + size);
    }
    void Viewport(int id, double x, double y, double width, double height, double seenX, double seenY, double seen)
    {
        Add("VIEWPORT", 0,
            " 67\n1\n 10\n{}\n 20\n{}\n 30\n0\n 40\n{}\n 41\n{}\n 68\n{}\n 69\n{}\n1001\nACAD\n1000\nMVIEW\n1002\n{{\n"
            "1070\n16\n1010\n0\n1020\n0\n1030\n0\n1010\n0\n1020\n0\n1030\n1\n1040\n0\n1040\n{}\n1040\n{}\n1040\n{}\n"
            "1040\n50\n1040\n0\n1040\n0\n1070\n0\n1070\n100\n1070\n1\n1070\n0\n1070\n0\n1070\n0\n1070\n0\n1070\n0\n"
            "1040\n0\n1040\n0\n1040\n0\n1040\n1\n1040\n1\n1070\n0\n1002\n{{\n1002\n}}\n1002\n}}\n",
            x, y, width, height, id, id, seen, seenX, seenY);
    }
    double Size() { return 0.5 + m_numbers.Upto(5); }
    double Angle() { return 30 + m_numbers.Upto(300); }

    double m_side;
    Numbers m_numbers;
    std::string m_text;
};

} // namespace

std::string Crowd(std::size_t entities)
{
    const double side = std::ceil(std::sqrt(static_cast<double>(entities) * kRoom));
    Writer writer(side);
    for (std::size_t i = 0; i < entities; ++i)
        writer.Entity(i);
    writer.Sheet();
    return fmt::format("  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1009\n  9\n$TILEMODE\n 70\n1\n  9\n$LIMMAX\n "
                       "10\n{0}\n 20\n{0}\n  9\n$PLIMMAX\n 10\n420\n 20\n297\n  0\nENDSEC\n  0\nSECTION\n  "
                       "2\nENTITIES\n",
                       side) +
           writer.Take() + "  0\nENDSEC\n  0\nEOF\n";
}

} // namespace sm::bench
