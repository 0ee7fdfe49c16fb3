// SPDX-License-Identifier: GPL-3.0-or-later
// The part that "attach" and "sign" share: a drawing's list of records is listed, added to, changed and shortened.
#pragma once

#include "commandline/ListItem.h"
#include "records/RecordEditor.h"

#include <functional>
#include <ostream>

namespace sm::app {

/// What one kind of list is called, and how it is read and written.
template <class Entry> struct RecordList {
    const char* item;                      ///< the help's word for what names an entry: "FILE"
    const char* one;                       ///< "attachment"
    const char* many;                      ///< "attachments"
    const char *added, *changed, *removed; ///< before the entry's description, in the line that tells what was done
    bool (*read)(CallContext&, IAcadDocument&, std::vector<Entry>&);
    bool (*write)(CallContext&, IAcadDocument&, const std::vector<Entry>&);
    std::string (*described)(const Entry&);
    std::vector<std::string> (*names)(const Entry&); ///< by which a command may mean it
};

/// Throws Refusal for options that would change nothing: they are told, not passed over. `item` names an entry.
void RefuseIdleOptions(RecordAction action, bool anyOption, const std::string& item);

template <class Entry> class RecordListEditor {
public:
    using List = RecordList<Entry>;

    /// Opens the drawing and reads its list. What was done goes to `out`. Throws like RecordEditor.
    RecordListEditor(const List& list, const std::string& drawing, const Install& install, std::ostream& out,
                     std::ostream& err)
        : m_list(list), m_drawing(drawing), m_out(out), m_console(err, false), m_editor(drawing, install, m_console)
    {
        m_list.read(m_editor.Context(), m_editor.Document(), m_entries);
    }

    [[nodiscard]] const std::vector<Entry>& Entries() const { return m_entries; }
    /// As RecordEditor's.
    std::string LayoutName(const std::optional<std::string>& wanted) { return m_editor.LayoutName(wanted); }

    void PrintAll()
    {
        for (std::size_t i = 0; i < m_entries.size(); ++i)
            m_out << i + 1 << "  " << m_list.described(m_entries[i]) << "\n";
        if (m_entries.empty())
            m_out << m_drawing << " has no " << m_list.many << "\n";
    }

    void Add(const Entry& entry)
    {
        m_entries.push_back(entry);
        Save(m_list.added + m_list.described(entry));
    }

    /// `wanted` are names of the entry, the first also its number; `edit` changes it.
    void Change(const std::vector<std::string>& wanted, const std::function<void(Entry&)>& edit)
    {
        Entry& entry = m_entries[Position(wanted)];
        edit(entry);
        Save(m_list.changed + m_list.described(entry));
    }

    void Remove(const std::vector<std::string>& wanted)
    {
        const auto entry = m_entries.begin() + static_cast<std::ptrdiff_t>(Position(wanted));
        const std::string removed = m_list.described(*entry);
        m_entries.erase(entry);
        Save(m_list.removed + removed);
    }

private:
    std::size_t Position(const std::vector<std::string>& wanted)
    {
        RequireItem(wanted.front(), m_list.item);
        std::vector<std::vector<std::string>> names;
        for (const Entry& entry : m_entries)
            names.push_back(m_list.names(entry));
        return FindItem(wanted, names, m_drawing, m_list.one);
    }

    void Save(const std::string& done)
    {
        m_list.write(m_editor.Context(), m_editor.Document(), m_entries);
        std::vector<Entry> kept;
        m_list.read(m_editor.Context(), m_editor.Document(), kept);
        m_editor.RequireKept(kept == m_entries);
        m_editor.Save();
        m_out << m_drawing << ": " << done << "\n";
    }

    const List& m_list;
    std::string m_drawing;
    std::ostream& m_out;
    terminal::Console m_console;
    RecordEditor m_editor;
    std::vector<Entry> m_entries;
};

} // namespace sm::app
