// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotter/Placement.h"

#include <array>

namespace sm::plotter {

namespace {

/// The automation model's standard scales in their order, 1 first. Scales of feet are inches of paper for 12 of
/// drawing.
constexpr std::array<StandardScaleValue, 32> kScales{{
    {1.0 / 128, 12}, {1.0 / 64, 12}, {1.0 / 32, 12}, {1.0 / 16, 12}, {3.0 / 32, 12}, {1.0 / 8, 12}, {3.0 / 16, 12},
    {1.0 / 4, 12},   {3.0 / 8, 12},  {1.0 / 2, 12},  {3.0 / 4, 12},  {1, 12},        {3, 12},       {6, 12},
    {12, 12},        {1, 1},         {1, 2},         {1, 4},         {1, 8},         {1, 10},       {1, 16},
    {1, 20},         {1, 30},        {1, 40},        {1, 50},        {1, 100},       {2, 1},        {4, 1},
    {8, 1},          {10, 1},        {100, 1},       {1000, 1},
}};
constexpr StandardScaleValue kFit{1, 1};

} // namespace

const StandardScaleValue* FindStandardScale(std::int32_t code)
{
    if (code == 0) {
        return &kFit;
    }
    if (code < 1 || code > static_cast<std::int32_t>(kScales.size())) {
        return nullptr;
    }
    return &kScales[static_cast<std::size_t>(code - 1)];
}

} // namespace sm::plotter
