// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing, its collections and its small objects.
#include "doubles/ScriptedHost.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace sm {
namespace {

using DocumentRef = std::shared_ptr<DocumentFacts>;

std::string PointText(const AcadPoint& point)
{
    return TapeText(point.x) + "," + TapeText(point.y) + "," + TapeText(point.z);
}

bool SameName(const std::string& left, const std::string& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

/// What the small objects of a drawing have in common.
class OfDocument {
public:
    OfDocument(ScriptedHost& host, DocumentRef facts, std::string object)
        : m_host(host), m_facts(std::move(facts)), m_object(std::move(object))
    {
    }

protected:
    void Call(const std::string& operation, const std::string& arguments = {})
    {
        m_host.tape.Call(m_object, "", operation, arguments);
    }
    template <class List> static std::size_t Position(std::int32_t index, const List& list)
    {
        if (index < 0 || static_cast<std::size_t>(index) >= list.size())
            throw HostError("Invalid index");
        return static_cast<std::size_t>(index);
    }
    ScriptedHost& m_host;
    DocumentRef m_facts;

private:
    std::string m_object;
};

class ScriptedDictionaries final : public IAcadDictionaries, OfDocument {
public:
    ScriptedDictionaries(ScriptedHost& host, const DocumentRef& facts) : OfDocument(host, facts, "Dictionaries") {}
    AcadXData GetXData(const std::string& appName) override
    {
        Call("GetXData", appName);
        const auto found = m_facts->XData.find(appName);
        return m_host.tape.Answer(found == m_facts->XData.end() ? AcadXData{} : found->second);
    }
    void SetXData(const AcadXData& data) override
    {
        const std::string* appName = data.values.empty() ? nullptr : std::get_if<std::string>(&data.values.front());
        Call("SetXData", appName == nullptr ? "" : *appName);
        if (appName == nullptr || data.codes.size() != data.values.size() || data.codes.front() != 1001)
            throw HostError("Invalid argument");
        AcadXData stored = data;
        for (std::size_t i = 0; i < stored.values.size(); ++i) {
            if (const double* number = std::get_if<double>(&stored.values[i]); number && stored.codes[i] == 1000)
                stored.values[i] = TapeText(*number);
        }
        m_facts->XData[*appName] = stored;
    }
};

class ScriptedNamedView final : public IAcadView {
public:
    ScriptedNamedView(ScriptedHost& host, ViewFacts facts) : m_host(host), m_facts(std::move(facts)) {}
    std::string Name() override { return m_host.tape.Answer(Get("Name", m_facts.Name)); }
    AcadPoint Center() override { return Get("Center", m_facts.Center); }
    double Width() override { return Get("Width", m_facts.Width); }
    double Height() override { return Get("Height", m_facts.Height); }

private:
    template <class Value> Value Get(const std::string& operation, const Value& value)
    {
        m_host.tape.Call("View", m_facts.Name, operation);
        return value;
    }
    ScriptedHost& m_host;
    ViewFacts m_facts;
};

class ScriptedViews final : public IAcadViews, OfDocument {
public:
    ScriptedViews(ScriptedHost& host, const DocumentRef& facts) : OfDocument(host, facts, "Views") {}
    std::int32_t Count() override
    {
        Call("Count");
        return static_cast<std::int32_t>(m_facts->Views.size());
    }
    std::shared_ptr<IAcadView> Item(std::int32_t index) override
    {
        Call("Item", std::to_string(index));
        return View(m_facts->Views[Position(index, m_facts->Views)]);
    }
    std::shared_ptr<IAcadView> Item(const std::string& name) override
    {
        Call("Item", name);
        for (const ViewFacts& view : m_facts->Views) {
            if (SameName(view.Name, name))
                return View(view);
        }
        throw HostError("Key not found");
    }

private:
    std::shared_ptr<IAcadView> View(const ViewFacts& facts)
    {
        return m_host.tape.Answer(std::shared_ptr<IAcadView>(std::make_shared<ScriptedNamedView>(m_host, facts)));
    }
};

class ScriptedUtility final : public IAcadUtility, OfDocument {
public:
    ScriptedUtility(ScriptedHost& host, const DocumentRef& facts) : OfDocument(host, facts, "Utility") {}
    AcadPoint TranslateCoordinates(const AcadPoint& point, std::int32_t from, std::int32_t to,
                                   std::int32_t displacement) override
    {
        Call("TranslateCoordinates", PointText(point) + " " + std::to_string(from) + " " + std::to_string(to) + " " +
                                         std::to_string(displacement));
        if (from == to || displacement != 0)
            return point;
        const double sign = to == 2 ? -1 : 1;
        const AcadPoint& origin = m_facts->DisplayOrigin;
        return {point.x + sign * origin.x, point.y + sign * origin.y, point.z + sign * origin.z};
    }
    AcadPoint GetPoint(const std::string& prompt) override
    {
        Call("GetPoint", prompt);
        return Picked();
    }
    AcadPoint GetCorner(const AcadPoint& first, const std::string& prompt) override
    {
        Call("GetCorner", PointText(first) + " " + prompt);
        return Picked();
    }

private:
    AcadPoint Picked()
    {
        if (m_facts->PointsPicked.empty())
            throw HostError("User cancelled");
        const AcadPoint point = m_facts->PointsPicked.front();
        m_facts->PointsPicked.pop_front();
        return point;
    }
};

class ScriptedPlot final : public IAcadPlot, OfDocument {
public:
    ScriptedPlot(ScriptedHost& host, const DocumentRef& facts) : OfDocument(host, facts, "Plot") {}
    void SetQuietErrorMode(bool value) override { Call("SetQuietErrorMode", TapeText(value)); }
    bool PlotToFile(const std::string& path) override
    {
        Call("PlotToFile", path);
        if (m_facts->PlotResults.empty())
            return m_facts->PlotResult;
        const bool result = m_facts->PlotResults.front();
        m_facts->PlotResults.pop_front();
        return result;
    }
};

class ScriptedLayouts final : public IAcadLayouts, OfDocument {
public:
    ScriptedLayouts(ScriptedHost& host, const DocumentRef& facts) : OfDocument(host, facts, "Layouts") {}
    std::int32_t Count() override
    {
        Call("Count");
        return static_cast<std::int32_t>(m_facts->Layouts.size());
    }
    std::shared_ptr<IAcadLayout> Item(std::int32_t index) override
    {
        Call("Item", std::to_string(index));
        return m_host.tape.Answer(m_host.OwnLayout(m_facts->Layouts[Position(index, m_facts->Layouts)]));
    }
    std::shared_ptr<IAcadLayout> Item(const std::string& name) override
    {
        Call("Item", name);
        for (const auto& layout : m_facts->Layouts) {
            if (SameName(layout->Name, name))
                return m_host.tape.Answer(m_host.OwnLayout(layout));
        }
        throw HostError("Key not found");
    }
};

class ScriptedBlocks final : public IAcadBlocks, OfDocument {
public:
    ScriptedBlocks(ScriptedHost& host, const DocumentRef& facts) : OfDocument(host, facts, "Blocks") {}
    std::shared_ptr<IAcadBlock> Item(const std::string& name) override
    {
        Call("Item", name);
        for (BlockFacts& block : m_facts->Blocks) {
            if (SameName(block.Name, name))
                return m_host.tape.Answer(m_host.OwnBlock(std::shared_ptr<BlockFacts>(m_facts, &block)));
        }
        throw HostError("Key not found");
    }
};

class ScriptedDocument final : public IAcadDocument {
public:
    ScriptedDocument(ScriptedHost& host, DocumentRef facts) : m_host(host), m_facts(std::move(facts)) {}

    std::shared_ptr<IAcadApplication> Application() override
    {
        Call("Application");
        return m_host.tape.Answer(m_host.OwnApplication());
    }
    std::string Name() override { return m_host.tape.Answer(Get("Name", m_facts->Name)); }
    std::string FullName() override { return m_host.tape.Answer(Get("FullName", m_facts->FullName)); }
    bool Active() override { return Get("Active", m_facts->Active); }
    std::int32_t HWND() override { return Get("HWND", m_facts->HWND); }
    std::int32_t WindowState() override { return Get("WindowState", m_facts->WindowState); }
    void SetWindowState(std::int32_t state) override
    {
        Call("SetWindowState", std::to_string(state));
        m_facts->WindowState = state;
    }

    std::shared_ptr<IAcadLayouts> Layouts() override { return Object<ScriptedLayouts>("Layouts"); }
    std::shared_ptr<IAcadLayout> ActiveLayout() override
    {
        Call("ActiveLayout");
        return m_host.tape.Answer(m_host.OwnLayout(m_facts->ActiveLayout));
    }
    void SetActiveLayout(const std::shared_ptr<IAcadLayout>& layout) override
    {
        const auto facts = ScriptedHost::FactsOf(layout);
        Call("SetActiveLayout", facts == nullptr ? "(none)" : facts->Name);
        if (facts == nullptr)
            throw HostError("Invalid argument");
        m_facts->ActiveLayout = facts;
    }
    void SetActiveSpace(std::int32_t space) override
    {
        Call("SetActiveSpace", std::to_string(space));
        if (space == 0 && m_facts->LastActivePaperSheet != nullptr)
            m_facts->ActiveLayout = m_facts->LastActivePaperSheet;
    }

    std::shared_ptr<IAcadBlocks> Blocks() override { return Object<ScriptedBlocks>("Blocks"); }
    std::shared_ptr<IAcadDictionaries> Dictionaries() override { return Object<ScriptedDictionaries>("Dictionaries"); }
    std::shared_ptr<IAcadViews> Views() override { return Object<ScriptedViews>("Views"); }
    std::shared_ptr<IAcadUtility> Utility() override { return Object<ScriptedUtility>("Utility"); }
    std::shared_ptr<IAcadPlot> Plot() override { return Object<ScriptedPlot>("Plot"); }

    AcadVariant GetVariable(const std::string& name) override
    {
        Call("GetVariable", name);
        const auto found = m_facts->Variables.find(name);
        if (found == m_facts->Variables.end())
            throw HostError("Error getting system variable");
        return m_host.tape.Answer(found->second);
    }
    std::array<double, 4> Limits() override { return Get("Limits", m_facts->Limits); }
    void Close(bool saveChanges) override
    {
        Call("Close", TapeText(saveChanges));
        m_facts->Closed = true;
        std::erase(m_host.facts.Documents, m_facts);
    }
    void AuditInfo(bool fixErrors) override { Call("AuditInfo", TapeText(fixErrors)); }

private:
    void Call(const std::string& operation, const std::string& arguments = {})
    {
        m_host.tape.Call("Document", "", operation, arguments);
    }
    template <class Value> Value Get(const std::string& operation, const Value& value)
    {
        Call(operation);
        return value;
    }
    template <class Object_> std::shared_ptr<Object_> Object(const std::string& operation)
    {
        Call(operation);
        return m_host.tape.Answer(std::make_shared<Object_>(m_host, m_facts));
    }
    ScriptedHost& m_host;
    DocumentRef m_facts;
};

} // namespace

std::shared_ptr<IAcadDocument> ScriptedHost::OwnDocument(const std::shared_ptr<DocumentFacts>& document)
{
    return document == nullptr ? nullptr : std::make_shared<ScriptedDocument>(*this, document);
}

} // namespace sm
