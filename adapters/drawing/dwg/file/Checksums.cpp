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

namespace {

/// The two sums of a page over a block: each byte counts for itself, and in the second sum once more for each byte from
/// it to the end of the block. Written so that the compiler adds many bytes at once.
constexpr std::size_t kBlock = 32;
void AddBlock(const char* bytes, std::uint32_t& low, std::uint32_t& high)
{
    std::uint32_t sum = 0, weighted = 0;
    for (std::uint32_t i = 0; i < kBlock; ++i) {
        const std::uint32_t byte = static_cast<unsigned char>(bytes[i]);
        sum += byte;
        weighted += byte * (kBlock - i);
    }
    high += kBlock * low + weighted;
    low += sum;
}

} // namespace

std::uint32_t PageSum(std::uint32_t seed, std::string_view bytes)
{
    // The largest run after which neither sum can have left 32 bits.
    constexpr std::size_t kRun = 0x15B0;
    constexpr std::uint32_t kModulus = 0xFFF1;
    std::uint32_t low = seed & 0xFFFFU;
    std::uint32_t high = seed >> 16U;
    while (!bytes.empty()) {
        std::string_view run = bytes.substr(0, kRun);
        bytes.remove_prefix(run.size());
        for (; run.size() >= kBlock; run.remove_prefix(kBlock))
            AddBlock(run.data(), low, high);
        for (const char c : run) {
            low += static_cast<unsigned char>(c);
            high += low;
        }
        low %= kModulus;
        high %= kModulus;
    }
    return (high << 16U) | low;
}

} // namespace sm::drawing::dwg
