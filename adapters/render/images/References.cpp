// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/References.h"

#include "base/files/FileFacts.h"
#include "base/files/Paths.h"
#include "drawing/Drawing.h"
#include "drawing/Finding.h"
#include "images/ReferenceParts.h"
#include "render/Picture.h"
#include "render/RenderReport.h"

#include <algorithm>
#include <atomic>
#include <filesystem>

namespace sm::render {

namespace {

constexpr std::size_t kMostKept = std::size_t{128} << 20; ///< bytes of pictures kept for further places and sheets

std::string FolderOf(const std::string& path)
{
    return base::ToText(base::ToPath(path).parent_path());
}

} // namespace

std::uint64_t References::Parts::IdOf(const Key& key)
{
    static std::atomic<std::uint64_t> last{0};
    const auto [at, isNew] = ids.emplace(key, 0);
    if (isNew) {
        at->second = ++last;
    }
    return at->second;
}

std::shared_ptr<const Picture> References::Parts::Known(const Key& key) const
{
    const auto known = pictures.find(key);
    return known == pictures.end() ? nullptr : known->second;
}

std::shared_ptr<const Picture> References::Parts::Keep(const Key& key, Picture picture)
{
    picture.id = IdOf(key);
    if (pictureBytes + picture.bytes.size() > kMostKept) {
        pictures.clear();
        pictureBytes = 0;
    }
    pictureBytes += picture.bytes.size();
    return pictures[key] = std::make_shared<const Picture>(std::move(picture));
}

References::References(const drawing::Drawing& drawing, ReferenceOptions options)
    : References(drawing, std::make_shared<Shared>(Shared{std::move(options)}), nullptr, drawing.Path())
{
}

References::References(const drawing::Drawing& drawing, std::shared_ptr<Shared> shared, const References* host,
                       std::string path)
    : m_parts(std::make_unique<Parts>(drawing, std::move(shared)))
{
    std::error_code error;
    const std::filesystem::path canonical = std::filesystem::weakly_canonical(base::ToPath(path), error);
    m_parts->host = host;
    m_parts->path = error ? path : base::ToText(canonical);
    m_parts->places = {FolderOf(path), m_parts->shared->options.supportFolders};
}

References::~References() = default;

void References::Report(std::int32_t code, const std::string& text, bool contentLost)
{
    auto& findings = m_parts->findings;
    const auto known = std::find_if(findings.begin(), findings.end(), [&](const auto& f) { return f.text == text; });
    if (known == findings.end()) {
        findings.push_back({code, text, 1, 0, contentLost});
    }
}

std::string References::Find(const std::string& name) const
{
    std::string found = drawing::FindReferenced(name, m_parts->places);
    for (const References* host = m_parts->host; found.empty() && host != nullptr; host = host->m_parts->host) {
        found = drawing::FindReferenced(name, {host->m_parts->places.folder, {}});
    }
    return found;
}

const drawing::ImageDefinition* References::Definition(drawing::Handle handle) const
{
    const auto& all = m_parts->drawing.ImageDefinitions();
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& one) { return one.handle == handle; });
    return handle == 0 || found == all.end() ? nullptr : &*found;
}

std::vector<drawing::Finding> References::Findings() const
{
    std::vector<drawing::Finding> all = m_parts->findings;
    for (const auto& [block, xref] : m_parts->xrefs) {
        for (const drawing::Finding& finding :
             xref == nullptr ? std::vector<drawing::Finding>() : xref->references->Findings()) {
            const bool known =
                std::any_of(all.begin(), all.end(), [&](const auto& one) { return one.text == finding.text; });
            if (!known) {
                all.push_back(finding);
            }
        }
    }
    return all;
}

std::vector<References::XrefReport> References::Xrefs() const
{
    std::vector<XrefReport> all;
    for (const auto& [block, xref] : m_parts->xrefs) {
        if (xref == nullptr) {
            continue;
        }
        all.push_back({xref->prefix, xref->file.get(), xref->report.get()});
        for (XrefReport inner : xref->references->Xrefs()) {
            inner.prefix = xref->prefix + "|" + inner.prefix;
            all.push_back(std::move(inner));
        }
    }
    return all;
}

std::string References::UseOf(const std::string& path) const
{
    const auto isNamed = [&](const std::string& name) { return !name.empty() && base::IsSameFile(Find(name), path); };
    for (const drawing::ImageDefinition& definition : m_parts->drawing.ImageDefinitions()) {
        if (isNamed(definition.path)) {
            const bool picture = definition.kind == drawing::ImageDefinition::Kind::Image;
            return (picture ? "the picture \"" : "the underlay \"") + definition.path + "\"";
        }
    }
    for (const drawing::Block& block : m_parts->drawing.Blocks()) {
        if (isNamed(block.xrefPath)) {
            return "the external reference \"" + block.xrefPath + "\"";
        }
    }
    for (const auto& [block, xref] : m_parts->xrefs) {
        const std::string use = xref == nullptr ? std::string() : xref->references->UseOf(path);
        if (!use.empty()) {
            return use;
        }
    }
    return {};
}

} // namespace sm::render
