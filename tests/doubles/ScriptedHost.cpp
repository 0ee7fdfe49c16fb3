// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/ScriptedHost.h"

#include <algorithm>

namespace sm {

std::shared_ptr<LayoutFacts> DocumentFacts::AddLayout(const LayoutFacts& facts)
{
    Layouts.push_back(std::make_shared<LayoutFacts>(facts));
    return Layouts.back();
}

std::shared_ptr<LayoutFacts> DocumentFacts::FindLayout(const std::string& name) const
{
    const auto found =
        std::find_if(Layouts.begin(), Layouts.end(), [&](const auto& layout) { return layout->Name == name; });
    return found == Layouts.end() ? nullptr : *found;
}

namespace {

class ScriptedPreferences final : public IAcadPreferences {
public:
    explicit ScriptedPreferences(ScriptedHost& host) : m_host(host) {}

    std::string DriversPath() override
    {
        Call("DriversPath");
        return m_host.tape.Answer(m_host.facts.DriversPath);
    }
    std::string PrinterConfigPath() override
    {
        Call("PrinterConfigPath");
        return m_host.tape.Answer(m_host.facts.PrinterConfigPath);
    }
    void SetPrinterConfigPath(const std::string& path) override
    {
        Call("SetPrinterConfigPath", path);
        const auto& refused = m_host.facts.RefusedPlotterFolders;
        if (std::find(refused.begin(), refused.end(), path) != refused.end())
            throw HostError("Invalid plotter folder");
        m_host.facts.PrinterConfigPath = path;
    }
    std::string ActiveProfile() override
    {
        Call("ActiveProfile");
        return m_host.tape.Answer(m_host.facts.ActiveProfile);
    }

private:
    void Call(const std::string& operation, const std::string& arguments = {})
    {
        m_host.tape.Call("Preferences", "", operation, arguments);
    }
    ScriptedHost& m_host;
};

class ScriptedDocuments final : public IAcadDocuments {
public:
    explicit ScriptedDocuments(ScriptedHost& host) : m_host(host) {}

    std::int32_t Count() override
    {
        m_host.tape.Call("Documents", "", "Count");
        return static_cast<std::int32_t>(m_host.facts.Documents.size());
    }
    std::shared_ptr<IAcadDocument> Item(std::int32_t index) override
    {
        m_host.tape.Call("Documents", "", "Item", std::to_string(index));
        if (index < 0 || index >= static_cast<std::int32_t>(m_host.facts.Documents.size()))
            throw HostError("Invalid index");
        return m_host.tape.Answer(m_host.OwnDocument(m_host.facts.Documents[static_cast<std::size_t>(index)]));
    }
    std::shared_ptr<IAcadDocument> Open(const std::string& fileName) override
    {
        m_host.tape.Call("Documents", "", "Open", fileName);
        const auto found = m_host.facts.Files.find(fileName);
        if (found == m_host.facts.Files.end())
            throw HostError("File not found");
        m_host.facts.Documents.push_back(found->second);
        return m_host.tape.Answer(m_host.OwnDocument(found->second));
    }

private:
    ScriptedHost& m_host;
};

class ScriptedApplication final : public IAcadApplication {
public:
    explicit ScriptedApplication(ScriptedHost& host) : m_host(host) {}

    std::shared_ptr<IAcadDocument> ActiveDocument() override
    {
        m_host.tape.Call("Application", "", "ActiveDocument");
        return m_host.tape.Answer(m_host.OwnDocument(m_host.facts.ActiveDocument));
    }
    std::shared_ptr<IAcadDocuments> Documents() override
    {
        m_host.tape.Call("Application", "", "Documents");
        return m_host.tape.Answer(std::shared_ptr<IAcadDocuments>(std::make_shared<ScriptedDocuments>(m_host)));
    }
    std::shared_ptr<IAcadPreferences> Preferences() override
    {
        m_host.tape.Call("Application", "", "Preferences");
        return m_host.tape.Answer(std::shared_ptr<IAcadPreferences>(std::make_shared<ScriptedPreferences>(m_host)));
    }

private:
    ScriptedHost& m_host;
};

} // namespace

std::shared_ptr<DocumentFacts> ScriptedHost::AddDocument(const DocumentFacts& document)
{
    facts.Documents.push_back(std::make_shared<DocumentFacts>(document));
    if (facts.ActiveDocument == nullptr)
        facts.ActiveDocument = facts.Documents.back();
    return facts.Documents.back();
}

std::shared_ptr<IAcadApplication> ScriptedHost::OwnApplication()
{
    return std::make_shared<ScriptedApplication>(*this);
}

} // namespace sm
