// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes that only ever grow at their end: what tags are laid down in. A string would clear what is about to be written.
#pragma once

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>

namespace sm::drawing::dwg {

class TagBytes {
public:
    TagBytes() = default;
    TagBytes(TagBytes&& other) noexcept { Swap(other); }
    TagBytes& operator=(TagBytes&& other) noexcept
    {
        TagBytes(std::move(other)).Swap(*this);
        return *this;
    }
    TagBytes(const TagBytes&) = delete;
    TagBytes& operator=(const TagBytes&) = delete;
    ~TagBytes() { std::free(m_begin); }

    [[nodiscard]] std::size_t size() const { return m_size; }
    operator std::string_view() const { return {m_begin, m_size}; }

    /// Where so many bytes go; the caller writes them.
    char* Grow(std::size_t count)
    {
        if (m_room - m_size < count)
            Reserve(m_size + count + m_size / 2 + kLeast);
        char* const at = m_begin + m_size;
        m_size += count;
        return at;
    }
    void Append(std::string_view bytes)
    {
        if (!bytes.empty())
            std::memcpy(Grow(bytes.size()), bytes.data(), bytes.size());
    }
    /// Ends after so many bytes, which aren't more than there are.
    void CutTo(std::size_t size) { m_size = size; }
    void Reserve(std::size_t room)
    {
        if (room <= m_room)
            return;
        char* const bytes = static_cast<char*>(std::realloc(m_begin, room));
        if (bytes == nullptr)
            throw std::bad_alloc();
        m_begin = bytes;
        m_room = room;
    }

private:
    static constexpr std::size_t kLeast = 256;

    void Swap(TagBytes& other) noexcept
    {
        std::swap(m_begin, other.m_begin);
        std::swap(m_size, other.m_size);
        std::swap(m_room, other.m_room);
    }

    char* m_begin = nullptr;
    std::size_t m_size = 0, m_room = 0;
};

} // namespace sm::drawing::dwg
