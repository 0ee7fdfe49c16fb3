// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures that forms ask for by name, drawn afresh at any size.
#pragma once

#include <QString>

#include <string>

class QIcon;
class QPainter;
class QRect;
class QWidget;

namespace sm::qt {

/// "logo": the maker's name beside a sheet. "warning": the desktop's own sign. Others: nothing. Kept in proportion, in
/// the middle of `place`, in the colours of `owner`.
void PaintPicture(QPainter& painter, const std::string& picture, const QRect& place, const QWidget& owner);

/// What a screen reader says.
QString PictureName(const std::string& picture);

/// The program's icon, in the sizes that window systems ask for.
QIcon ProgramIcon();

} // namespace sm::qt
