// SPDX-License-Identifier: GPL-3.0-or-later
// Text across the border: UTF-8 on our side.
#pragma once

#include <QString>

#include <cstddef>
#include <string>

namespace sm::qt {

inline QString ToQt(const std::string& text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text)
{
    return text.toStdString();
}

/// Bytes that the first `position` places of `text` take in UTF-8.
inline std::size_t BytesBefore(const QString& text, int position)
{
    return static_cast<std::size_t>(text.left(position).toUtf8().size());
}

/// The place in `text` behind its first `bytes` bytes.
inline int PlaceBehind(const std::string& text, std::size_t bytes)
{
    return static_cast<int>(ToQt(text.substr(0, bytes)).size());
}

} // namespace sm::qt
