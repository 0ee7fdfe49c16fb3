// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/MarkWriter.h"

#include <algorithm>
#include <fmt/format.h>
#include <set>

namespace sm::publisher {

namespace {

using Object = QPDFObjectHandle;

std::string EntryName(const SheetPage& sheet)
{
    return sheet.title.empty() ? fmt::format("Page {}", sheet.number) : sheet.title;
}

Object OutlineItem(QPDF& pdf, const std::string& name, const SheetPage& sheet)
{
    auto item = Object::newDictionary();
    item.replaceKey("/Title", Object::newUnicodeString(name));
    item.replaceKey("/Dest", Object::newArray({sheet.page, Object::newName("/Fit")}));
    return pdf.makeIndirectObject(item);
}

/// Hangs items below an outline or an item of it.
void Hang(std::vector<Object>& items, Object parent)
{
    for (std::size_t i = 0; i < items.size(); ++i) {
        items[i].replaceKey("/Parent", parent);
        if (i > 0) {
            items[i - 1].replaceKey("/Next", items[i]);
            items[i].replaceKey("/Prev", items[i - 1]);
        }
    }
    parent.replaceKey("/First", items.front());
    parent.replaceKey("/Last", items.back());
    parent.replaceKey("/Count", Object::newInteger(static_cast<long long>(items.size())));
}

/// One entry a page; pages in a row that have one heading stand below an entry of their own.
void WriteOutline(QPDF& pdf, const std::vector<SheetPage>& pages, const NavigationWanted& wanted)
{
    auto outline = pdf.makeIndirectObject(Object::newDictionary());
    outline.replaceKey("/Type", Object::newName("/Outlines"));
    std::vector<Object> top, below;
    std::string heading;
    long long entries = 0;
    const auto close = [&] {
        if (!below.empty()) {
            Hang(below, top.back());
        }
        below.clear();
    };
    for (const SheetPage& sheet : pages) {
        const std::string own = wanted.heading ? wanted.heading(sheet.number) : std::string();
        if (own != heading || own.empty()) {
            close();
            heading = own;
            top.push_back(OutlineItem(pdf, own.empty() ? EntryName(sheet) : own, sheet));
            ++entries;
        }
        if (!own.empty()) {
            below.push_back(OutlineItem(pdf, EntryName(sheet), sheet));
            ++entries;
        }
    }
    close();
    Hang(top, outline);
    outline.replaceKey("/Count", Object::newInteger(entries)); // all of them are open
    pdf.getRoot().replaceKey("/Outlines", outline);
}

/// No two pages have the same label: a reader's "go to page" finds each.
void WritePageLabels(QPDF& pdf, const std::vector<SheetPage>& pages)
{
    std::vector<Object> labels;
    std::set<std::string> taken;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        std::string name = EntryName(pages[i]);
        for (int number = 2; !taken.insert(name).second; ++number) {
            name = fmt::format("{} ({})", EntryName(pages[i]), number);
        }
        auto label = Object::newDictionary();
        label.replaceKey("/P", Object::newUnicodeString(name));
        labels.push_back(Object::newInteger(static_cast<long long>(i)));
        labels.push_back(label);
    }
    auto tree = Object::newDictionary();
    tree.replaceKey("/Nums", Object::newArray(labels));
    pdf.getRoot().replaceKey("/PageLabels", tree);
}

} // namespace

void WriteNavigation(QPDF& pdf, const std::vector<SheetPage>& pages, const NavigationWanted& wanted, bool hasTitle)
{
    const bool named = std::ranges::any_of(pages, [](const SheetPage& sheet) { return !sheet.title.empty(); });
    if (wanted.outline && !pages.empty()) {
        WriteOutline(pdf, pages, wanted);
    }
    if (wanted.pageLabels && named) {
        WritePageLabels(pdf, pages);
    }
    if (wanted.showTitle && hasTitle) {
        auto preferences = Object::newDictionary();
        preferences.replaceKey("/DisplayDocTitle", Object::newBool(true));
        pdf.getRoot().replaceKey("/ViewerPreferences", preferences);
    }
}

} // namespace sm::publisher
