// SPDX-License-Identifier: GPL-3.0-or-later
// The registry: keys and typed values under two roots.
//
// No operation throws; each reports failure by its result. Key paths use "\" and, like value names, ignore letter case.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace sm {

enum class RegistryRoot { CurrentUser, LocalMachine };

/// The value types that occur; the numbers are those of the platform.
enum class RegistryType : std::uint32_t { None = 0, String = 1, ExpandString = 2, Binary = 3, DWord = 4 };

/// An open key. 0 is no key.
using RegistryKey = std::uint64_t;

struct RegistryValueInfo {
    RegistryType type = RegistryType::None;
    std::uint32_t size = 0; ///< bytes
};

class IRegistry {
public:
    virtual ~IRegistry() = default;
    /// Opens an existing key; nothing when there is none.
    virtual std::optional<RegistryKey> OpenKey(RegistryRoot root, const std::string& path) = 0;
    /// Opens the key, made with all its parents when it isn't there.
    virtual std::optional<RegistryKey> CreateKey(RegistryRoot root, const std::string& path) = 0;
    virtual std::optional<RegistryValueInfo> QueryInfo(RegistryKey key, const std::string& name) = 0;
    /// Fills up to `buffer.size()` bytes; the rest of the buffer stays as it was. False when it doesn't fit or fails.
    /// The bytes are text in the encoding of `Encode`; a terminating NUL may be there or not.
    virtual bool QueryValue(RegistryKey key, const std::string& name, std::string& buffer) = 0;
    /// Writes `byteCount` bytes of `data`.
    virtual bool SetValue(RegistryKey key, const std::string& name, RegistryType type, const std::string& data,
                          std::uint32_t byteCount) = 0;
    virtual bool CloseKey(RegistryKey key) = 0;

    /// UTF-8 text as the bytes that values of type String hold (the ANSI code page on Windows), and back. A text that
    /// the encoding can't hold may get bytes of the registry's own making, which it stores and gives back as the text.
    virtual std::string Encode(const std::string& utf8) = 0;
    virtual std::string Decode(const std::string& bytes) = 0;
};

} // namespace sm
