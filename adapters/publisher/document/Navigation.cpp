#include "document/MarkWriter.h"

#include <algorithm>
#include <fmt/format.h>

namespace sm::publisher {

namespace {

using Object = QPDFObjectHandle;

std::string EntryName(const SheetPage& sheet)
{
    return sheet.title.empty() ? fmt::format("Page {}", sheet.number) : sheet.title;
}

Object OutlineItem(QPDF& pdf, const SheetPage& sheet, const Object& outline)
{
    auto item = Object::newDictionary();
    item.replaceKey("/Title", Object::newUnicodeString(EntryName(sheet)));
    item.replaceKey("/Parent", outline);
    item.replaceKey("/Dest", Object::newArray({sheet.page, Object::newName("/Fit")}));
    return pdf.makeIndirectObject(item);
}

void WriteOutline(QPDF& pdf, const std::vector<SheetPage>& pages)
{
    auto outline = pdf.makeIndirectObject(Object::newDictionary());
    std::vector<Object> items;
    for (const SheetPage& sheet : pages) {
        items.push_back(OutlineItem(pdf, sheet, outline));
        if (items.size() > 1) {
            items[items.size() - 2].replaceKey("/Next", items.back());
            items.back().replaceKey("/Prev", items[items.size() - 2]);
        }
    }
    outline.replaceKey("/Type", Object::newName("/Outlines"));
    outline.replaceKey("/First", items.front());
    outline.replaceKey("/Last", items.back());
    outline.replaceKey("/Count", Object::newInteger(static_cast<long long>(items.size())));
    pdf.getRoot().replaceKey("/Outlines", outline);
}

void WritePageLabels(QPDF& pdf, const std::vector<SheetPage>& pages)
{
    std::vector<Object> labels;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        auto label = Object::newDictionary();
        label.replaceKey("/P", Object::newUnicodeString(EntryName(pages[i])));
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
        WriteOutline(pdf, pages);
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
