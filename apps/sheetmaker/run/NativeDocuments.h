// SPDX-License-Identifier: GPL-3.0-or-later
// The list of native documents that the front end has open, and the object that owns it.
#pragma once

#include "ports/INativeDoc.h"

#include <map>
#include <memory>

namespace sm::app {

class NativeDocuments final : public INativeDocList {
public:
    /// Takes a document in under the lowest free index, which it is to be initialised with.
    std::int16_t Add(const std::shared_ptr<INativeDoc>& document)
    {
        std::int32_t index = 0;
        while (m_entries.contains(index))
            ++index;
        m_entries.emplace(index, document);
        return static_cast<std::int16_t>(index);
    }
    void ReleaseEntry(std::int32_t index) override { m_entries.erase(index); }
    [[nodiscard]] std::size_t Count() const { return m_entries.size(); }

private:
    std::map<std::int32_t, std::shared_ptr<INativeDoc>> m_entries;
};

class NativeDocOwner final : public INativeDocOwner {
public:
    std::shared_ptr<INativeDocList> Documents() override { return m_documents; }
    [[nodiscard]] NativeDocuments& List() { return *m_documents; }

private:
    std::shared_ptr<NativeDocuments> m_documents = std::make_shared<NativeDocuments>();
};

} // namespace sm::app
