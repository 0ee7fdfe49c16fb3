// SPDX-License-Identifier: GPL-3.0-or-later
#include "paint/XrefLayers.h"

#include "base/text/Names.h"
#include "drawing/TextDecoder.h"

#include <unordered_map>

namespace sm::render {

namespace {

using Names = std::unordered_map<std::string, std::uint32_t>;

template <class Entries> Names NamesOf(const Entries& entries)
{
    Names names;
    for (std::uint32_t i = 0; i < entries.size(); ++i) {
        names.emplace(base::FoldCase(entries[i].name), i);
    }
    return names;
}

/// Entry `name` of a reference as the host's table has it: "PREFIX|NAME"; what the reference has from its own
/// references bears the same name everywhere.
const std::uint32_t* InHost(const Names& host, const std::string& prefix, const std::string& name)
{
    auto found = host.find(base::FoldCase(prefix + "|" + name));
    if (found == host.end() && name.find('|') != std::string::npos) {
        found = host.find(base::FoldCase(name));
    }
    return found == host.end() ? nullptr : &found->second;
}

/// Line types of the host by the names that they have in the reference.
class LinetypeMap {
public:
    LinetypeMap(const drawing::Drawing& host, const References::Xref& xref)
        : m_host(host), m_prefix(base::FoldCase(xref.prefix + "|")), m_names(NamesOf(xref.file->Linetypes()))
    {
    }
    [[nodiscard]] std::uint32_t ToXref(std::uint32_t linetype) const
    {
        if (linetype <= kContinuous || linetype >= m_host.Linetypes().size()) {
            return linetype <= kContinuous ? linetype : kContinuous;
        }
        std::string name = base::FoldCase(m_host.Linetypes()[linetype].name);
        if (name.starts_with(m_prefix)) {
            name.erase(0, m_prefix.size());
        }
        const auto found = m_names.find(name);
        return found == m_names.end() ? kContinuous : found->second;
    }

private:
    const drawing::Drawing& m_host;
    std::string m_prefix;
    Names m_names;
};

} // namespace

Frame EnterXref(const PaintContext& host, const References::Xref& xref, const Frame& frame, PaintContext& inner)
{
    const Names names = NamesOf(host.drawing.Layers());
    const LinetypeMap linetypes(host.drawing, xref);
    const auto take = [&](std::uint32_t layer) {
        LayerState state = host.layers->Of(layer);
        state.style.linetype = linetypes.ToXref(state.style.linetype);
        state.plotStyles = inner.ownLayers.Of(0).plotStyles; // what the reference's entities name is the reference's
        return state;
    };
    std::vector<LayerState> states;
    inner.xref.hiddenBy = host.xref.hiddenBy;
    if (!inner.xref.hiddenBy && frame.inherited.hiddenBy) {
        inner.xref.hiddenBy = host.xref.InHost(*frame.inherited.hiddenBy);
    }
    inner.xref.handle = host.xref.layers.empty() ? host.insert : host.xref.handle;
    const auto& layers = inner.drawing.Layers();
    for (std::uint32_t i = 0; i < layers.size(); ++i) {
        const std::uint32_t* inHost = i == 0 ? &frame.inherited.layer : InHost(names, xref.prefix, layers[i].name);
        states.push_back(inHost != nullptr ? take(*inHost) : inner.ownLayers.Of(i));
        inner.xref.shownBy.push_back(host.xref.InHost(inHost != nullptr ? *inHost : frame.inherited.layer));
        const bool named = inHost != nullptr && *inHost < host.xref.layers.size();
        inner.xref.layers.push_back(named ? host.xref.layers[*inHost]
                                    : inHost != nullptr && *inHost < host.drawing.Layers().size()
                                        ? host.drawing.Layers()[*inHost].name
                                        : xref.prefix + "|" + layers[i].name);
    }
    if (!states.empty()) {
        inner.ownLayers = LayerStates(std::move(states));
    }
    Frame own = frame;
    own.inherited.layer = 0;
    own.inherited.hiddenBy.reset();
    own.inherited.byBlock.linetype = linetypes.ToXref(frame.inherited.byBlock.linetype);
    return own;
}

} // namespace sm::render
