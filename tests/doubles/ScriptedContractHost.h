// SPDX-License-Identifier: GPL-3.0-or-later
// The scripted host as the contract of the automation ports wants it.
#pragma once

#include "doubles/ScriptedHost.h"

namespace sm {

class ScriptedContractHost {
public:
    ScriptedContractHost()
    {
        m_host.facts.Devices = {"None", "office"};
        m_host.facts.MediaOf["office"] = {"A3"};
        m_host.facts.Sheets["A3"] = {420, 297};
        m_host.facts.RefusedPlotterFolders = {MissingFolder()};
        DocumentFacts facts;
        facts.Views = {{"Plan", {50, 40, 0}, 100, 80}};
        facts.Blocks = {{"DOOR", {EntityFacts{}}}};
        const auto document = m_host.AddDocument(facts);
        LayoutFacts model;
        model.Name = "Model";
        model.TabOrder = 0;
        model.ModelType = true;
        document->AddLayout(model);
        document->ActiveLayout = document->AddLayout(Sheet("Sheet 1", 1));
        document->AddLayout(Sheet("Sheet 2", 2));
        m_host.facts.Files[OtherFile()] = std::make_shared<DocumentFacts>();
        m_host.facts.Files[OtherFile()]->FullName = OtherFile();
    }
    std::shared_ptr<IAcadApplication> Application() { return m_host.Application(); }
    static std::string OtherFile() { return "C:\\Jobs\\Other.dwg"; }
    static std::string MissingFile() { return "C:\\Jobs\\Missing.dwg"; }
    static std::string MissingFolder() { return "C:\\Missing"; }
    static std::string Folder() { return "C:\\Plotters"; }
    static std::string OtherDevice() { return "None"; }

private:
    static LayoutFacts Sheet(const std::string& name, std::int32_t tabOrder)
    {
        LayoutFacts sheet;
        sheet.Name = name;
        sheet.TabOrder = tabOrder;
        sheet.ConfigName = "office";
        sheet.CanonicalMediaName = "A3";
        EntityFacts line;
        line.UpperRight = {100, 50, 0};
        EntityFacts door;
        door.ObjectName = "AcDbBlockReference";
        door.Reference = BlockReferenceFacts{"DOOR", {7, 8, 0}, {{"NUMBER", "D-17"}}, {}};
        sheet.Block.Entities = {line, door};
        return sheet;
    }
    ScriptedHost m_host;
};

} // namespace sm
