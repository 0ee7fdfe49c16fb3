// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/process/SharedLibrary.h"

#include <dlfcn.h>
#include <stdexcept>

namespace sm::base {
namespace {

[[noreturn]] void Fail(const std::string& name)
{
    const char* reason = dlerror();
    throw std::runtime_error("the library " + name + " can't be used: " + (reason != nullptr ? reason : "unknown"));
}

} // namespace

SharedLibrary::SharedLibrary(std::string name)
    : m_name(std::move(name)), m_handle(dlopen(m_name.c_str(), RTLD_LAZY | RTLD_LOCAL | RTLD_NODELETE))
{
    if (m_handle == nullptr)
        Fail(m_name);
}

void* SharedLibrary::Address(const char* symbol) const
{
    void* const address = dlsym(m_handle, symbol);
    if (address == nullptr)
        Fail(m_name);
    return address;
}

} // namespace sm::base
