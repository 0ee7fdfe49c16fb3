// SPDX-License-Identifier: GPL-3.0-or-later
// Points and boxes, in drawing units unless said otherwise. Every room speaks of them: they are of the whole house.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace sm {

struct Vec2 {
    double x = 0, y = 0;
    friend bool operator==(const Vec2&, const Vec2&) = default;
    friend Vec2 operator+(Vec2 a, Vec2 b) { return {a.x + b.x, a.y + b.y}; }
    friend Vec2 operator-(Vec2 a, Vec2 b) { return {a.x - b.x, a.y - b.y}; }
    friend Vec2 operator*(Vec2 a, double k) { return {a.x * k, a.y * k}; }
};

struct Vec3 {
    double x = 0, y = 0, z = 0;
    friend bool operator==(const Vec3&, const Vec3&) = default;
    friend Vec3 operator+(Vec3 a, Vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend Vec3 operator-(Vec3 a, Vec3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Vec3 operator*(Vec3 a, double k) { return {a.x * k, a.y * k, a.z * k}; }
};

/// An axis-parallel box; empty until something is added.
struct Box2 {
    Vec2 min{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    Vec2 max{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
    [[nodiscard]] bool Empty() const { return !(min.x <= max.x && min.y <= max.y); }
    [[nodiscard]] double Width() const { return max.x - min.x; }
    [[nodiscard]] double Height() const { return max.y - min.y; }
    void Add(Vec2 p)
    {
        min = {std::min(min.x, p.x), std::min(min.y, p.y)};
        max = {std::max(max.x, p.x), std::max(max.y, p.y)};
    }
    void Add(const Box2& box)
    {
        if (!box.Empty()) {
            Add(box.min);
            Add(box.max);
        }
    }
    friend bool operator==(const Box2&, const Box2&) = default;
};

} // namespace sm
