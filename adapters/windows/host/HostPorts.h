// SPDX-License-Identifier: GPL-3.0-or-later
// The classes over the CAD host's automation objects. Each makes those that it hands out.
#pragma once

#include "ports/HostError.h"
#include "ports/IAcadApplication.h"
#include "windows/host/HostObject.h"

namespace sm::windows {

class AutomationHyperlink final : public IAcadHyperlink, public HostObject {
public:
    using HostObject::HostObject;
    std::string URL() override { return Text("URL"); }
    std::string URLDescription() override { return Text("URLDescription"); }
};

class AutomationHyperlinks final : public IAcadHyperlinks, public HostObject {
public:
    using HostObject::HostObject;
    std::int32_t Count() override { return Integer("Count"); }
    std::shared_ptr<IAcadHyperlink> Item(std::int32_t index) override
    {
        return Object<AutomationHyperlink>("Item", FromInteger(index));
    }
};

class AutomationAttribute final : public IAcadAttribute, public HostObject {
public:
    using HostObject::HostObject;
    std::string TagString() override { return Text("TagString"); }
    std::string TextString() override { return Text("TextString"); }
};

class AutomationReference final : public IAcadBlockReference, public HostObject {
public:
    using HostObject::HostObject;
    bool HasAttributes() override { return Boolean("HasAttributes"); }
    std::vector<std::shared_ptr<IAcadAttribute>> GetAttributes() override { return Attributes("GetAttributes"); }
    std::vector<std::shared_ptr<IAcadAttribute>> GetConstantAttributes() override
    {
        return Attributes("GetConstantAttributes");
    }
    std::string Name() override { return Text("Name"); }
    AcadPoint InsertionPoint() override { return Point("InsertionPoint"); }

private:
    std::vector<std::shared_ptr<IAcadAttribute>> Attributes(std::string_view member);
};

class AutomationEntity final : public IAcadEntity, public HostObject {
public:
    using HostObject::HostObject;
    std::string ObjectName() override { return Text("ObjectName"); }
    std::shared_ptr<IAcadHyperlinks> Hyperlinks() override { return Object<AutomationHyperlinks>("Hyperlinks"); }
    void GetBoundingBox(AcadPoint& lowerLeft, AcadPoint& upperRight) override;
    IAcadBlockReference* AsBlockReference() override;

private:
    std::unique_ptr<AutomationReference> m_reference;
};

class AutomationBlock final : public IAcadBlock, public HostObject {
public:
    using HostObject::HostObject;
    std::string Name() override { return Text("Name"); }
    std::int32_t Count() override { return Integer("Count"); }
    std::shared_ptr<IAcadEntity> Item(std::int32_t index) override
    {
        return Object<AutomationEntity>("Item", FromInteger(index));
    }
};

class AutomationBlocks final : public IAcadBlocks, public HostObject {
public:
    using HostObject::HostObject;
    std::shared_ptr<IAcadBlock> Item(const std::string& name) override
    {
        return Object<AutomationBlock>("Item", FromText(name));
    }
};

class AutomationDictionaries final : public IAcadDictionaries, public HostObject {
public:
    using HostObject::HostObject;
    AcadXData GetXData(const std::string& appName) override;
    void SetXData(const AcadXData& data) override;
};

class AutomationView final : public IAcadView, public HostObject {
public:
    using HostObject::HostObject;
    std::string Name() override { return Text("Name"); }
    AcadPoint Center() override { return Point("Center"); }
    double Width() override { return Number("Width"); }
    double Height() override { return Number("Height"); }
};

class AutomationViews final : public IAcadViews, public HostObject {
public:
    using HostObject::HostObject;
    std::int32_t Count() override { return Integer("Count"); }
    std::shared_ptr<IAcadView> Item(std::int32_t index) override
    {
        return Object<AutomationView>("Item", FromInteger(index));
    }
    std::shared_ptr<IAcadView> Item(const std::string& name) override
    {
        return Object<AutomationView>("Item", FromText(name));
    }
};

class AutomationUtility final : public IAcadUtility, public HostObject {
public:
    using HostObject::HostObject;
    AcadPoint TranslateCoordinates(const AcadPoint& point, std::int32_t from, std::int32_t to,
                                   std::int32_t displacement) override;
    AcadPoint GetPoint(const std::string& prompt) override;
    AcadPoint GetCorner(const AcadPoint& first, const std::string& prompt) override;
};

class AutomationPlot final : public IAcadPlot, public HostObject {
public:
    using HostObject::HostObject;
    void SetQuietErrorMode(bool value) override { m_object.Put("QuietErrorMode", FromBoolean(value)); }
    bool PlotToFile(const std::string& path) override;
};

/// The file and profile preferences lie in objects of their own, fetched with each read.
class AutomationPreferences final : public IAcadPreferences, public HostObject {
public:
    using HostObject::HostObject;
    std::string DriversPath() override { return Part("Files").Text("DriversPath"); }
    std::string PrinterConfigPath() override { return Part("Files").Text("PrinterConfigPath"); }
    void SetPrinterConfigPath(const std::string& path) override
    {
        Part("Files").m_object.Put("PrinterConfigPath", FromText(path));
    }
    std::string ActiveProfile() override { return Part("Profiles").Text("ActiveProfile"); }

private:
    AutomationPreferences Part(std::string_view member)
    {
        const ComRef<IDispatch> part = ToObjectOrNull(m_object.Call(member).Raw());
        if (!part)
            throw HostError("There is no " + std::string(member) + ".");
        return AutomationPreferences(Linked(part));
    }
};

} // namespace sm::windows
