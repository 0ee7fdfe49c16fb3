// Reads bytes one after the other, and writes into a buffer of fixed size: what both compressions stand on.
#pragma once

#include <algorithm>
#include <cstring>
#include <span>
#include <string_view>

namespace sm::drawing::dwg {

class ByteSource {
public:
    explicit ByteSource(std::string_view bytes) : m_bytes(bytes) {}
    /// 0 behind the end, which is remembered.
    unsigned Next()
    {
        if (m_at < m_bytes.size())
            return static_cast<unsigned char>(m_bytes[m_at++]);
        m_cutOff = true;
        return 0;
    }
    /// Fewer than asked for at the end, which is remembered.
    std::string_view Take(std::size_t count)
    {
        const std::string_view taken = m_bytes.substr(m_at, count);
        m_cutOff = m_cutOff || taken.size() < count;
        m_at += taken.size();
        return taken;
    }
    [[nodiscard]] bool AtEnd() const { return m_at >= m_bytes.size(); }
    [[nodiscard]] bool CutOff() const { return m_cutOff; }

private:
    std::string_view m_bytes;
    std::size_t m_at = 0;
    bool m_cutOff = false;
};

class ByteTarget {
public:
    explicit ByteTarget(std::span<char> bytes) : m_bytes(bytes) {}
    [[nodiscard]] std::size_t Written() const { return m_at; }
    [[nodiscard]] bool Full() const { return m_at >= m_bytes.size(); }
    [[nodiscard]] std::size_t Left() const { return m_bytes.size() - m_at; }

    /// Room for so many bytes, which the caller writes; null when they don't fit.
    char* Claim(std::size_t count)
    {
        if (Left() < count)
            return nullptr;
        char* const room = m_bytes.data() + m_at;
        m_at += count;
        return room;
    }
    void Put(std::string_view bytes)
    {
        const std::size_t count = std::min(bytes.size(), Left());
        constexpr std::size_t kFew = 4;
        char* const to = m_bytes.data() + m_at;
        if (count <= kFew)
            for (std::size_t i = 0; i < count; ++i)
                to[i] = bytes[i];
        else
            std::memcpy(to, bytes.data(), count);
        m_at += count;
    }
    /// Repeats what stands `distance` bytes back; the repetition may run into itself. False: nothing stands there.
    bool Repeat(std::size_t distance, std::size_t count)
    {
        if (distance == 0 || distance > m_at)
            return false;
        count = std::min(count, Left());
        char* to = m_bytes.data() + m_at;
        const char* from = to - distance;
        if (distance >= kWord && Left() >= count + kWord) {
            // Whole words: what is written too far is overwritten, or cleared by Finish.
            for (std::size_t done = 0; done < count; done += kWord)
                std::memcpy(to + done, from + done, kWord);
            m_at += count;
            return true;
        }
        m_at += count;
        if (distance >= count) {
            if (count != 0)
                std::memcpy(to, from, count);
            return true;
        }
        while (count-- != 0)
            *to++ = *from++;
        return true;
    }

    /// Clears what stands behind the last byte by the way of writing.
    void Finish()
    {
        const std::size_t count = std::min(Left(), kWord);
        if (count != 0)
            std::memset(m_bytes.data() + m_at, 0, count);
    }

private:
    static constexpr std::size_t kWord = 8;

    std::span<char> m_bytes;
    std::size_t m_at = 0;
};

} // namespace sm::drawing::dwg
