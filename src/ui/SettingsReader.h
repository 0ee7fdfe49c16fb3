// SPDX-License-Identifier: GPL-3.0-or-later
// What a dialog holds while it is up, for those who look on.
#pragma once

#include <functional>
#include <utility>

namespace sm {

struct DataKeg;

/// Reads what the dialog holds at the moment into a bundle, as OK would keep it; false when it can't be read. The
/// settings dialog fills the whole bundle; the page setup dialog puts its record into the first layout's entry, which
/// there must be, and makes it the page setup in force.
using SettingsReader = std::function<bool(DataKeg&)>;

/// Lets a reader be called as long as this object lives.
class ReaderInForce {
public:
    /// Null: nobody looks on.
    ReaderInForce(SettingsReader* place, SettingsReader read) : m_place(place)
    {
        if (m_place != nullptr)
            *m_place = std::move(read);
    }
    ~ReaderInForce()
    {
        if (m_place != nullptr)
            *m_place = nullptr;
    }
    ReaderInForce(const ReaderInForce&) = delete;
    ReaderInForce& operator=(const ReaderInForce&) = delete;

private:
    SettingsReader* m_place;
};

} // namespace sm
