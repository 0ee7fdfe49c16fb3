// SPDX-License-Identifier: GPL-3.0-or-later
// Reads bytes one after the other, and writes into a buffer of fixed size: what both compressions stand on.
#pragma once

#include <algorithm>
#include <cstring>
#include <span>
#include <string_view>

namespace sm::drawing::dwg {

class ByteSource {
public:
    explicit ByteSource(std::string_view bytes) : m_at(bytes.data()), m_end(bytes.data() + bytes.size()) {}
    /// 0 behind the end, which is remembered.
    unsigned Next()
    {
        if (m_at != m_end)
            return static_cast<unsigned char>(*m_at++);
        m_cutOff = true;
        return 0;
    }
    /// Fewer than asked for at the end, which is remembered.
    std::string_view Take(std::size_t count)
    {
        const std::string_view taken(m_at, std::min(count, Left()));
        m_cutOff = m_cutOff || taken.size() < count;
        m_at += taken.size();
        return taken;
    }
    [[nodiscard]] std::size_t Left() const { return static_cast<std::size_t>(m_end - m_at); }
    [[nodiscard]] bool AtEnd() const { return m_at == m_end; }
    [[nodiscard]] bool CutOff() const { return m_cutOff; }

    /// For who has proven that so many bytes are left.
    [[nodiscard]] const char* At() const { return m_at; }
    void MoveTo(const char* at) { m_at = at; }

private:
    const char* m_at;
    const char* m_end;
    bool m_cutOff = false;
};

class ByteTarget {
public:
    /// As many bytes as are written by the way behind the last one.
    static constexpr std::size_t kSlack = 16;

    explicit ByteTarget(std::span<char> bytes)
        : m_begin(bytes.data()), m_at(bytes.data()), m_end(bytes.data() + bytes.size())
    {
    }
    [[nodiscard]] std::size_t Written() const { return static_cast<std::size_t>(m_at - m_begin); }
    [[nodiscard]] bool Full() const { return m_at == m_end; }
    [[nodiscard]] std::size_t Left() const { return static_cast<std::size_t>(m_end - m_at); }

    /// For who has proven that there is room.
    [[nodiscard]] char* At() const { return m_at; }
    void MoveTo(char* at) { m_at = at; }

    /// Room for so many bytes, which the caller writes; null when they don't fit.
    char* Claim(std::size_t count)
    {
        if (Left() < count)
            return nullptr;
        char* const room = m_at;
        m_at += count;
        return room;
    }
    void Put(std::string_view bytes)
    {
        const std::size_t count = std::min(bytes.size(), Left());
        if (count != 0)
            std::memcpy(m_at, bytes.data(), count);
        m_at += count;
    }
    /// The next bytes of `source` as they are.
    void Pass(std::size_t count, ByteSource& source)
    {
        if (source.Left() < count + kSlack || Left() < count + kSlack) {
            Put(source.Take(count));
            return;
        }
        CopyFrom<kSlack>(source.Take(count).data(), count);
    }
    /// Repeats what stands `distance` bytes back; the repetition may run into itself. False: nothing stands there.
    bool Repeat(std::size_t distance, std::size_t count)
    {
        if (distance == 0 || distance > Written())
            return false;
        count = std::min(count, Left());
        if (count >= kLong)
            RepeatLong(distance, count);
        else if (Left() < count + kSlack)
            CopyFrom<1>(m_at - distance, count);
        else if (distance >= kSlack)
            CopyFrom<kSlack>(m_at - distance, count);
        else if (distance >= kWord)
            CopyFrom<kWord>(m_at - distance, count);
        else
            RepeatNear(distance, count);
        return true;
    }

    /// Clears what stands behind the last byte by the way of writing.
    void Finish()
    {
        if (const std::size_t count = std::min(Left(), kSlack); count != 0)
            std::memset(m_at, 0, count);
    }

private:
    static constexpr std::size_t kWord = 8, kLong = 256;

    /// What is there is copied behind itself, twice as much each time. Most of them are one byte (zeros) over and over.
    [[gnu::noinline]] void RepeatLong(std::size_t distance, std::size_t count)
    {
        if (distance == 1) {
            std::memset(m_at, static_cast<unsigned char>(m_at[-1]), count);
            m_at += count;
            return;
        }
        const char* const from = m_at - distance;
        for (std::size_t copied = 0; count > 0; count -= copied, m_at += copied) {
            copied = std::min(count, static_cast<std::size_t>(m_at - from));
            std::memcpy(m_at, from, copied);
        }
    }
    /// In steps of that many bytes: what is written too far is overwritten, or cleared by Finish.
    template <std::size_t Step> void CopyFrom(const char* from, std::size_t count)
    {
        for (std::size_t done = 0; done < count; done += Step)
            std::memcpy(m_at + done, from + done, Step);
        m_at += count;
    }
    /// The least multiple of the distance that is a word goes byte by byte: from there on words repeat.
    void RepeatNear(std::size_t distance, std::size_t count)
    {
        const std::size_t period = (kWord + distance - 1) / distance * distance;
        const std::size_t single = std::min(count, period);
        CopyFrom<1>(m_at - distance, single);
        if (count > single)
            CopyFrom<kWord>(m_at - period, count - single);
    }

    char* m_begin;
    char* m_at;
    char* m_end;
};

/// Repeats what stands `distance` bytes in front of `to`, the first sixteen bytes at once: the caller has proven that
/// both are there, and room for fifteen bytes more.
inline void RepeatShort(char* to, std::size_t distance, std::size_t length)
{
    constexpr std::size_t kWord = 8;
    const char* const from = to - distance;
    if (distance < kWord) {
        for (std::size_t i = 0; i < length; ++i)
            to[i] = from[i];
        return;
    }
    std::memcpy(to, from, kWord);
    std::memcpy(to + kWord, from + kWord, kWord);
    for (std::size_t done = 2 * kWord; done < length; done += kWord)
        std::memcpy(to + done, from + done, kWord);
}

} // namespace sm::drawing::dwg
