// Letter case folded away, for names that are compared without regard to it.
#pragma once

#include <string>

namespace sm::store {

/// `utf8` in lower case by the Unicode rules of one character for one; the same on every machine whatever its locale.
/// Text that isn't UTF-8 has its ASCII letters folded only.
std::string FoldCase(const std::string& utf8);

/// A key path as it is compared: folded, without leading, trailing and doubled "\".
std::string FoldKeyPath(const std::string& path);

} // namespace sm::store
