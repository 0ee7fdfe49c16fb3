#include "drawing/TextDecoder.h"
#include "paint/Painter.h"
#include "paint/PainterBuffers.h"

#include <unordered_map>

namespace sm::render {

namespace {

using Names = std::unordered_map<std::string, std::uint32_t>;

template <class Entries> Names NamesOf(const Entries& entries)
{
    Names names;
    for (std::uint32_t i = 0; i < entries.size(); ++i) {
        names.emplace(drawing::FoldName(entries[i].name), i);
    }
    return names;
}

/// Entry `name` of a guest as the host's table has it: "PREFIX|NAME"; what the guest has from its own guests bears the
/// same name everywhere.
const std::uint32_t* InHost(const Names& host, const std::string& prefix, const std::string& name)
{
    auto found = host.find(drawing::FoldName(prefix + "|" + name));
    if (found == host.end() && name.find('|') != std::string::npos) {
        found = host.find(drawing::FoldName(name));
    }
    return found == host.end() ? nullptr : &found->second;
}

/// Line types of the host by the names that they have in the guest.
class LinetypeMap {
public:
    LinetypeMap(const drawing::Drawing& host, const References::Guest& guest)
        : m_host(host), m_prefix(drawing::FoldName(guest.prefix + "|")), m_names(NamesOf(guest.file->Linetypes()))
    {
    }
    [[nodiscard]] std::uint32_t ToGuest(std::uint32_t linetype) const
    {
        if (linetype <= kContinuous || linetype >= m_host.Linetypes().size()) {
            return linetype <= kContinuous ? linetype : kContinuous;
        }
        std::string name = drawing::FoldName(m_host.Linetypes()[linetype].name);
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

// The guest's layers as the host shows them: its own state of "PREFIX|LAYER" counts; layer "0" is the insert's.
void Painter::BeGuest(const Painter& host, const References::Guest& guest, std::uint64_t insert, const Frame& frame)
{
    const Names names = NamesOf(host.m_drawing.Layers());
    const LinetypeMap linetypes(host.m_drawing, guest);
    const auto take = [&](std::uint32_t layer) {
        LayerState state = host.m_layers->Of(layer);
        state.style.linetype = linetypes.ToGuest(state.style.linetype);
        state.plotStyles = m_ownLayers.Of(0).plotStyles; // what the guest's entities name is the guest's
        return state;
    };
    std::vector<LayerState> states;
    m_guest.hiddenBy = host.m_guest.hiddenBy;
    if (!m_guest.hiddenBy && frame.inherited.hiddenBy) {
        m_guest.hiddenBy = host.m_guest.InHost(*frame.inherited.hiddenBy);
    }
    m_guest.handle = host.m_guest.layers.empty() ? insert : host.m_guest.handle;
    const auto& layers = m_drawing.Layers();
    for (std::uint32_t i = 0; i < layers.size(); ++i) {
        const std::uint32_t* inHost = i == 0 ? &frame.inherited.layer : InHost(names, guest.prefix, layers[i].name);
        states.push_back(inHost != nullptr ? take(*inHost) : m_ownLayers.Of(i));
        m_guest.shownBy.push_back(host.m_guest.InHost(inHost != nullptr ? *inHost : frame.inherited.layer));
        const bool named = inHost != nullptr && *inHost < host.m_guest.layers.size();
        m_guest.layers.push_back(named ? host.m_guest.layers[*inHost]
                                 : inHost != nullptr && *inHost < host.m_drawing.Layers().size()
                                     ? host.m_drawing.Layers()[*inHost].name
                                     : guest.prefix + "|" + layers[i].name);
    }
    if (!states.empty()) {
        m_ownLayers = LayerStates(std::move(states));
    }
}

Outcome Painter::PaintGuest(References::Guest& guest, std::uint64_t insert, const Frame& frame)
{
    const std::uint64_t count = guest.file->EntityCount() + 1;
    if (guest.space >= guest.file->Blocks().size() || (m_ink.Bounded() && m_ink.Clip().Empty())) {
        return Outcome::OffPage;
    }
    if (m_budget <= count) {
        m_budget = 0;
        Remark("blocks unfold to too many entities, the rest left out");
        return Outcome::NotDrawn;
    }
    m_budget -= count;
    PaintOptions options = m_options;
    options.references = guest.references.get();
    options.paperSpace = false;
    Painter painter(*guest.file, m_ink.Canvas(), m_text, m_report != nullptr ? guest.report.get() : nullptr,
                    m_ink.Bounded() ? m_ink.Clip() : Box2{}, options, m_hideLayers);
    painter.BeGuest(*this, guest, insert, frame);
    Frame inner = frame;
    inner.inherited.layer = 0;
    inner.inherited.hiddenBy.reset();
    inner.inherited.byBlock.linetype = LinetypeMap(m_drawing, guest).ToGuest(frame.inherited.byBlock.linetype);
    painter.PaintSpace(guest.space, inner);
    return painter.m_best;
}

} // namespace sm::render
