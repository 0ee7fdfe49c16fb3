// SPDX-License-Identifier: GPL-3.0-or-later
// Picture files from outside: PNG, JPEG, TIFF, BMP, read row by row.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace sm::render {

/// Why a picture can't be shown; `what()` completes "the picture …": "is damaged: CRC error".
class PictureError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct PictureHead {
    std::int32_t width = 0, height = 0; ///< at least 1
    bool gray = false;                  ///< rows hold a byte a pixel, else three (red, green, blue)
    bool oneBit = false;                ///< black and white alone: gray, each byte 0 or 255
    bool hasAlpha = false;              ///< was composed on white
    bool passes = false;                ///< a JPEG file that output devices take as it is
};

/// Takes a picture's rows, from the top.
class RowTaker {
public:
    virtual ~RowTaker() = default;
    virtual void Row(const unsigned char* pixels) = 0;
};

class PictureFile {
public:
    /// Throws PictureError for what is none of the four, and for more pixels than any drawing shows.
    static std::unique_ptr<PictureFile> Open(std::string bytes);
    virtual ~PictureFile() = default;
    [[nodiscard]] const PictureHead& Head() const { return m_head; }
    /// Gives each row once. Throws PictureError when the file is damaged.
    virtual void ReadRows(RowTaker& taker) = 0;
    /// The file itself; nothing can be read from it afterwards.
    std::string TakeBytes() { return std::move(m_bytes); }

protected:
    explicit PictureFile(std::string bytes) : m_bytes(std::move(bytes)) {}
    /// Sets the size in the head; throws PictureError when it is out of bounds.
    void SetSize(std::uint64_t width, std::uint64_t height);
    /// Throws PictureError when a picture that must be held whole is too large for it.
    void CheckHeld(std::uint64_t bytesPerPixel) const;

    PictureHead m_head;
    std::string m_bytes;
};

// The formats, each over bytes that begin as its files do. All throw PictureError.
std::unique_ptr<PictureFile> OpenPng(std::string bytes);
std::unique_ptr<PictureFile> OpenJpeg(std::string bytes);
std::unique_ptr<PictureFile> OpenTiff(std::string bytes);
std::unique_ptr<PictureFile> OpenBmp(std::string bytes);

/// A colour value with its opacity, over white.
inline unsigned char OverWhite(unsigned value, unsigned alpha)
{
    return static_cast<unsigned char>(255U - (255U - value) * alpha / 255U);
}

} // namespace sm::render
