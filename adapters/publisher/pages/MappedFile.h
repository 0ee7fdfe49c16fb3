// A file's bytes without a copy of them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sm::publisher {

class MappedFile {
public:
    /// Empty when the file can't be read.
    explicit MappedFile(const std::string& path);
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    [[nodiscard]] std::string_view Bytes() const;
    /// Gives back the memory of a part that was read; reading it again fetches it again.
    void Forget(std::string_view part) const;

private:
    void* m_bytes;
    std::size_t m_size = 0;
};

} // namespace sm::publisher
