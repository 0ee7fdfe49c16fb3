// SPDX-License-Identifier: GPL-3.0-or-later
// A drawing, the collection of drawings and the application, over the CAD host's automation objects.
#pragma once

#include "windows/host/AutomationLayout.h"

namespace sm::windows {

class AutomationDocument final : public IAcadDocument, public HostObject {
public:
    using HostObject::HostObject;
    std::shared_ptr<IAcadApplication> Application() override;
    std::string Name() override { return Text("Name"); }
    std::string FullName() override { return Text("FullName"); }
    bool Active() override { return Boolean("Active"); }
    std::int32_t HWND() override;
    std::int32_t WindowState() override { return Integer("WindowState"); }
    void SetWindowState(std::int32_t state) override { m_object.Put("WindowState", FromInteger(state)); }

    std::shared_ptr<IAcadLayouts> Layouts() override { return Object<AutomationLayouts>("Layouts"); }
    std::shared_ptr<IAcadLayout> ActiveLayout() override { return Object<AutomationLayout>("ActiveLayout"); }
    void SetActiveLayout(const std::shared_ptr<IAcadLayout>& layout) override;
    void SetActiveSpace(std::int32_t space) override { m_object.Put("ActiveSpace", FromInteger(space)); }

    std::shared_ptr<IAcadBlocks> Blocks() override { return Object<AutomationBlocks>("Blocks"); }
    std::shared_ptr<IAcadDictionaries> Dictionaries() override
    {
        return Object<AutomationDictionaries>("Dictionaries");
    }
    std::shared_ptr<IAcadViews> Views() override { return Object<AutomationViews>("Views"); }
    std::shared_ptr<IAcadUtility> Utility() override { return Object<AutomationUtility>("Utility"); }
    std::shared_ptr<IAcadPlot> Plot() override { return Object<AutomationPlot>("Plot"); }

    AcadVariant GetVariable(const std::string& name) override;
    std::array<double, 4> Limits() override;
    void Close(bool saveChanges) override { m_object.Call("Close", FromBoolean(saveChanges)); }
    void AuditInfo(bool fixErrors) override { m_object.Call("AuditInfo", FromBoolean(fixErrors)); }
};

class AutomationDocuments final : public IAcadDocuments, public HostObject {
public:
    using HostObject::HostObject;
    std::int32_t Count() override { return Integer("Count"); }
    std::shared_ptr<IAcadDocument> Item(std::int32_t index) override
    {
        return Object<AutomationDocument>("Item", FromInteger(index));
    }
    std::shared_ptr<IAcadDocument> Open(const std::string& fileName) override
    {
        return Object<AutomationDocument>("Open", FromText(fileName));
    }
};

class AutomationApplication final : public IAcadApplication, public HostObject {
public:
    using HostObject::HostObject;
    std::shared_ptr<IAcadDocument> ActiveDocument() override { return Object<AutomationDocument>("ActiveDocument"); }
    std::shared_ptr<IAcadDocuments> Documents() override { return Object<AutomationDocuments>("Documents"); }
    std::shared_ptr<IAcadPreferences> Preferences() override { return Object<AutomationPreferences>("Preferences"); }
};

} // namespace sm::windows
