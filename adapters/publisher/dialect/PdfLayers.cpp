// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/PdfLayers.h"

#include "base/text/Keywords.h"
#include "pdf/PdfNumbers.h"

#include <algorithm>
#include <map>

namespace sm::publisher {

namespace {

using State = DialectLayer::State;

/// Carries a group's state until the document is put together.
constexpr const char* kState = "/SheetmakerState";

QPDFObjectHandle MakeGroup(QPDF& pdf, const DialectLayer& layer)
{
    auto group = QPDFObjectHandle::parse("<</Type/OCG>>");
    group.replaceKey("/Name", QPDFObjectHandle::newUnicodeString(layer.name));
    group.replaceKey(kState, QPDFObjectHandle::newInteger(static_cast<int>(layer.state)));
    return pdf.makeIndirectObject(group);
}

/// Every group of the document once.
class Groups {
public:
    QPDFObjectHandle Canonical(QPDFObjectHandle group)
    {
        const std::string name = group.getKey("/Name").getUTF8Value();
        const auto state = static_cast<State>(group.getKey(kState).getIntValueAsInt());
        return m_groups.try_emplace({name, state}, group).first->second;
    }

    [[nodiscard]] bool Empty() const { return m_groups.empty(); }

    /// The catalogue's entry. A group that isn't plotted stays off in print whatever a reader switches on.
    QPDFObjectHandle Properties(Archive archive)
    {
        auto all = QPDFObjectHandle::newArray();
        auto off = QPDFObjectHandle::newArray();
        auto unplotted = QPDFObjectHandle::newArray();
        for (auto& [key, group] : m_groups) {
            group.removeKey(kState);
            all.appendItem(group);
            if (key.second != State::On) {
                off.appendItem(group);
            }
            if (key.second == State::NotPlotted) {
                group.replaceKey("/Usage", QPDFObjectHandle::parse("<</Print<</PrintState/OFF>>>>"));
                unplotted.appendItem(group);
            }
        }
        auto states = QPDFObjectHandle::parse("<</Name(Layers)/BaseState/ON>>");
        states.replaceKey("/Order", all);
        states.replaceKey("/OFF", off);
        if (unplotted.getArrayNItems() > 0 && archive == Archive::None) { // ISO 19005-2, 6.9
            auto event = QPDFObjectHandle::parse("<</Event/Print/Category[/Print]>>");
            event.replaceKey("/OCGs", unplotted);
            states.replaceKey("/AS", QPDFObjectHandle::newArray({event}));
        }
        auto properties = QPDFObjectHandle::newDictionary();
        properties.replaceKey("/OCGs", all.shallowCopy());
        properties.replaceKey("/D", states);
        return properties;
    }

private:
    /// Letter case aside first, so that lists read as people sort names.
    struct ByName {
        bool operator()(const std::pair<std::string, State>& left, const std::pair<std::string, State>& right) const
        {
            const std::string a = base::LowerAscii(left.first), b = base::LowerAscii(right.first);
            return a != b ? a < b : left < right;
        }
    };
    std::map<std::pair<std::string, State>, QPDFObjectHandle, ByName> m_groups;
};

bool IsGroup(QPDFObjectHandle object)
{
    return object.isDictionary() && object.getKey(kState).isInteger() && object.getKey("/Name").isString();
}

} // namespace

void AddNamedResources(QPDF& pdf, QPDFObjectHandle resources, const std::map<std::uint32_t, DialectLayer>& layers,
                       const std::set<std::uint32_t>& opacities)
{
    if (!layers.empty()) {
        auto properties = QPDFObjectHandle::newDictionary();
        for (const auto& [number, layer] : layers) {
            properties.replaceKey("/L" + std::to_string(number), MakeGroup(pdf, layer));
        }
        resources.replaceKey("/Properties", properties);
    }
    if (!opacities.empty()) {
        auto states = QPDFObjectHandle::newDictionary();
        for (const std::uint32_t opacity : opacities) {
            auto state = QPDFObjectHandle::parse("<</Type/ExtGState>>");
            const auto part = QPDFObjectHandle::newReal(NumberText(opacity / 255.0));
            state.replaceKey("/ca", part);
            state.replaceKey("/CA", part);
            states.replaceKey("/A" + std::to_string(opacity), state);
        }
        resources.replaceKey("/ExtGState", states);
    }
}

void WriteLayers(QPDF& pdf, Archive archive)
{
    Groups groups;
    for (QPDFObjectHandle page : pdf.getAllPages()) {
        QPDFObjectHandle resources = page.getKey("/Resources");
        QPDFObjectHandle properties =
            resources.isDictionary() ? resources.getKey("/Properties") : QPDFObjectHandle::newNull();
        if (!properties.isDictionary()) {
            continue;
        }
        for (const std::string& name : properties.getKeys()) {
            if (QPDFObjectHandle group = properties.getKey(name); IsGroup(group)) {
                properties.replaceKey(name, groups.Canonical(group));
            }
        }
    }
    if (!groups.Empty()) {
        pdf.getRoot().replaceKey("/OCProperties", groups.Properties(archive));
    }
}

} // namespace sm::publisher
