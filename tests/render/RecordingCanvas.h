// SPDX-License-Identifier: GPL-3.0-or-later
// A canvas that writes each call as one line of text:
//
//   begin 2A LINE Walls                      (only with marks)
//   clip box 0 0 100 100 | clip m 0 0 l ...
//   stroke 000000 0.25 m 0 0 l 10 0          colour, width, path; ends that aren't round follow the width
//   stroke 000000~128 ...                    the same half transparent
//   fill FF0000 nonzero m 0 0 l 10 0 l 10 10 h
//   text 000000 [2 0 0 2 5 5] Hello          colour, em to paper, text
//   image rgb 8x4 [20 0 0 10 5 5]            form (a mask with its colour), pixels, unit square to paper
//   pop
//
// Numbers have at most three decimals, without trailing zeros.
#pragma once

#include "render/Canvas.h"
#include "render/Picture.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <vector>

namespace sm::render {

class RecordingCanvas final : public ICanvas {
public:
    explicit RecordingCanvas(bool marks = false) : m_marks(marks) {}
    std::vector<std::string> lines;

    void BeginEntity(const EntityMark& mark) override
    {
        if (m_marks) {
            std::array<char, 17> hex{};
            const auto end = std::to_chars(hex.data(), hex.data() + hex.size(), mark.handle, 16).ptr;
            lines.push_back("begin " + std::string(hex.data(), end) + " " + std::string(mark.kind) + " " +
                            std::string(mark.layer) + (mark.shownBy == 0 ? "" : " by " + std::to_string(mark.shownBy)));
        }
    }
    void EndEntity() override
    {
        if (m_marks) {
            lines.emplace_back("end");
        }
    }
    void PushClip(const Path& path, FillRule rule) override
    {
        lines.push_back("clip" + std::string(rule == FillRule::EvenOdd ? " evenodd" : "") + Shape(path));
    }
    void PopClip() override { lines.emplace_back("pop"); }
    void Stroke(const Path& path, const StrokeStyle& style) override
    {
        static constexpr std::array<const char*, 3> kCaps{" butt", "", " square"};
        static constexpr std::array<const char*, 3> kJoins{" miter", "", " bevel"};
        lines.push_back("stroke " + Color(style.color) + " " + Number(style.width) +
                        kCaps[static_cast<std::size_t>(style.cap)] + kJoins[static_cast<std::size_t>(style.join)] +
                        Shape(path));
    }
    void Fill(const Path& path, std::uint32_t color, FillRule rule) override
    {
        lines.push_back("fill " + Color(color) + (rule == FillRule::EvenOdd ? " evenodd" : " nonzero") + Shape(path));
    }
    void Text(const TextRun& run) override
    {
        const Matrix2& m = run.toPaper;
        lines.push_back("text " + Color(run.color) + (run.invisible ? " invisible" : "") + " [" + Number(m.a) + " " +
                        Number(m.b) + " " + Number(m.c) + " " + Number(m.d) + " " + Number(m.e) + " " + Number(m.f) +
                        "] " + run.text);
    }

    void Image(const Picture& picture, const Matrix2& m, std::uint32_t color) override
    {
        static constexpr std::array<const char*, 5> kForms{"mask ", "gray", "rgb", "jpeg gray", "jpeg"};
        lines.push_back("image " + std::string(kForms[static_cast<std::size_t>(picture.form)]) +
                        (picture.form == Picture::Form::Mask ? Color(color) : "") +
                        (picture.whiteIsClear ? " clear" : "") + " " + std::to_string(picture.width) + "x" +
                        std::to_string(picture.height) + " [" + Number(m.a) + " " + Number(m.b) + " " + Number(m.c) +
                        " " + Number(m.d) + " " + Number(m.e) + " " + Number(m.f) + "]");
        pictures.push_back(picture);
    }
    std::vector<Picture> pictures;

    static std::string Number(double value)
    {
        std::array<char, 400> digits{};
        const auto end =
            std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 3).ptr;
        std::string text(digits.data(), end);
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') {
            text.pop_back();
        }
        return text == "-0" ? "0" : text;
    }
    static std::string Color(std::uint32_t color)
    {
        std::string text = "000000";
        std::uint32_t rgb = color;
        for (std::size_t i = 6; i-- > 0; rgb >>= 4) {
            text[i] = "0123456789ABCDEF"[rgb & 15];
        }
        return color >> 24 == 0 ? text : text + "~" + std::to_string(color >> 24);
    }
    static std::string Points(const Path& path)
    {
        std::string text;
        const Vec2* point = path.points.data();
        for (const Verb verb : path.verbs) {
            text += verb == Verb::Move ? " m" : verb == Verb::Line ? " l" : verb == Verb::Cubic ? " c" : " h";
            const int count = verb == Verb::Cubic ? 3 : verb == Verb::Close ? 0 : 1;
            for (int i = 0; i < count; ++i, ++point) {
                text += " " + Number(point->x) + " " + Number(point->y);
            }
        }
        return text;
    }

private:
    static bool IsBox(const Path& path)
    {
        const auto& p = path.points;
        return path.verbs == std::vector{Verb::Move, Verb::Line, Verb::Line, Verb::Line, Verb::Close} &&
               p[0].y == p[1].y && p[1].x == p[2].x && p[2].y == p[3].y && p[3].x == p[0].x && p[0].x < p[1].x &&
               p[0].y < p[3].y;
    }
    static std::string Shape(const Path& path)
    {
        if (!IsBox(path)) {
            return Points(path);
        }
        return " box " + Number(path.points[0].x) + " " + Number(path.points[0].y) + " " + Number(path.points[2].x) +
               " " + Number(path.points[2].y);
    }
    bool m_marks;
};

} // namespace sm::render
