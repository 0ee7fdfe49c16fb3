#include "dwg/file/Checksums.h"

#include <array>

namespace sm::drawing::dwg {

namespace {

template <class T> constexpr std::array<T, 256> TableOf(T polynomial)
{
    std::array<T, 256> table{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        T rest = static_cast<T>(byte);
        for (int bit = 0; bit < 8; ++bit)
            rest = static_cast<T>((rest & 1U) != 0 ? (rest >> 1U) ^ polynomial : rest >> 1U);
        table[byte] = rest;
    }
    return table;
}

constexpr auto kTable16 = TableOf<std::uint16_t>(0xA001);
constexpr auto kTable32 = TableOf<std::uint32_t>(0xEDB88320);

} // namespace

std::uint16_t Crc16(std::uint16_t seed, std::string_view bytes)
{
    unsigned rest = seed;
    for (const char c : bytes)
        rest = (rest >> 8U) ^ kTable16[(rest ^ static_cast<unsigned char>(c)) & 0xFFU];
    return static_cast<std::uint16_t>(rest);
}

std::uint32_t Crc32(std::string_view bytes)
{
    std::uint32_t rest = 0xFFFFFFFFU;
    for (const char c : bytes)
        rest = (rest >> 8U) ^ kTable32[(rest ^ static_cast<unsigned char>(c)) & 0xFFU];
    return ~rest;
}

std::uint32_t PageSum(std::uint32_t seed, std::string_view bytes)
{
    // The largest run after which neither sum can have left 32 bits.
    constexpr std::size_t kRun = 0x15B0;
    constexpr std::uint32_t kModulus = 0xFFF1;
    std::uint32_t low = seed & 0xFFFFU;
    std::uint32_t high = seed >> 16U;
    while (!bytes.empty()) {
        for (const char c : bytes.substr(0, kRun)) {
            low += static_cast<unsigned char>(c);
            high += low;
        }
        low %= kModulus;
        high %= kModulus;
        bytes.remove_prefix(bytes.size() < kRun ? bytes.size() : kRun);
    }
    return (high << 16U) | low;
}

} // namespace sm::drawing::dwg
