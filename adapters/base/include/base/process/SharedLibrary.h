// SPDX-License-Identifier: GPL-3.0-or-later
// A library that few runs need: it is loaded when somebody asks for it, not with the program.
#pragma once

#include <string>

namespace sm::base {

/// Loaded once and kept until the process ends, so that its functions stay where they are.
class SharedLibrary {
public:
    /// `name` is the file name that the loader looks for, with the version of its interface ("libtiff.so.6"). Throws
    /// std::runtime_error, with the loader's reason, when it can't be loaded.
    explicit SharedLibrary(std::string name);

    /// Sets `function` to the library's function `symbol`. Throws std::runtime_error when there is none.
    template <class Function> void Find(Function*& function, const char* symbol) const
    {
        function = reinterpret_cast<Function*>(Address(symbol));
    }

private:
    [[nodiscard]] void* Address(const char* symbol) const;

    std::string m_name;
    void* m_handle = nullptr;
};

} // namespace sm::base
