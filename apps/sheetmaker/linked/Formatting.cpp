// SPDX-License-Identifier: GPL-3.0-or-later
// What the rooms call of the formatting library, compiled into the program: the machine has it as a shared library
// alone, which brings the shared library of C++ along, and loading that takes half the time of a small command.
#include <fmt/format-inl.h>

FMT_BEGIN_NAMESPACE
namespace detail {

// Templates of which the library's headers say that they are compiled elsewhere.
template auto dragonbox::to_decimal(float) noexcept -> dragonbox::decimal_fp<float>;
template auto dragonbox::to_decimal(double) noexcept -> dragonbox::decimal_fp<double>;
template auto thousands_sep_impl(locale_ref) -> thousands_sep_result<char>;
template auto decimal_point_impl(locale_ref) -> char;
template void buffer<char>::append(const char*, const char*);

} // namespace detail
FMT_END_NAMESPACE
