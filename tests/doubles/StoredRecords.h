// SPDX-License-Identifier: GPL-3.0-or-later
// SettingsStand with one open drawing, whose records a test stores and looks at as plain values.
#pragma once

#include "doubles/SettingsStand.h"

namespace sm {

using Texts = std::vector<std::string>;

class StoredRecords : public SettingsStand {
protected:
    std::shared_ptr<DocumentFacts> facts = host.AddDocument(DocumentFacts());
    std::shared_ptr<IAcadDocument> document = host.Document(facts);

    /// Stores the record `name` ("Stamp") with these values from position 1 on.
    void Store(const std::string& name, const Texts& values)
    {
        AcadXData data{{1001}, {"TWSI_" + name}};
        data.codes.resize(values.size() + 1, 1000);
        data.values.insert(data.values.end(), values.begin(), values.end());
        facts->XData["TWSI_" + name] = data;
    }
    /// All values of the stored record, position 0 included; what isn't text shows as "(no text)". Expects the codes
    /// to be 1001 and then 1000 throughout.
    Texts Stored(const std::string& name)
    {
        const AcadXData& data = facts->XData["TWSI_" + name];
        std::vector<std::int16_t> codes(data.values.size(), 1000);
        if (!codes.empty())
            codes[0] = 1001;
        EXPECT_EQ(data.codes, codes);
        Texts texts;
        for (const AcadVariant& value : data.values)
            texts.push_back(std::holds_alternative<std::string>(value) ? std::get<std::string>(value) : "(no text)");
        return texts;
    }
};

} // namespace sm
