// SPDX-License-Identifier: GPL-3.0-or-later
// Where the copies of an insert's block stand.
#pragma once

#include "drawing/entities/Inserts.h"
#include "render/Matrix.h"

namespace sm::render {

/// Block coordinates to those of the insert's owner, for the copy at `row` and `column`; `unit`: what a unit of the
/// block counts besides.
Matrix3 Placing(const drawing::InsertData& insert, Vec3 base, std::int32_t row, std::int32_t column, double unit = 1);

} // namespace sm::render
