// SPDX-License-Identifier: GPL-3.0-or-later
// List boxes, and list views with columns.
#include "forms/ControlView.h"

#include "screen/QtText.h"

#include <QHeaderView>
#include <QListWidget>
#include <QStyledItemDelegate>
#include <QTreeWidget>

#include <algorithm>

namespace sm::qt {
namespace {

class ListBoxView final : public ControlView {
public:
    explicit ListBoxView(const ControlSite& site) : m_list(new QListWidget(site.parent))
    {
        Use(m_list, site.control);
        QObject::connect(
            m_list, &QListWidget::currentRowChanged, m_list,
            [&reporter = site.reporter, position = site.position](int row) { reporter.Selected(position, row); });
    }

private:
    void Apply(const FormControl& control, const FormControl& last) override
    {
        if (control.items != last.items) {
            m_list->clear();
            for (const std::string& item : control.items)
                m_list->addItem(ToQt(item));
        }
        if (m_list->currentRow() != control.selection)
            m_list->setCurrentRow(control.selection);
    }
    QListWidget* m_list;
};

/// Rows with some air between them, so that they are easy to hit.
class AiryRows final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, option.fontMetrics.height() / 3);
    }
};

class RowsView final : public ControlView {
public:
    explicit RowsView(const ControlSite& site)
        : m_list(new QTreeWidget(site.parent)), m_reporter(site.reporter), m_position(site.position),
          m_columns(site.control.columns)
    {
        Use(m_list, site.control);
        m_list->setRootIsDecorated(false);
        m_list->setUniformRowHeights(true);
        m_list->setItemDelegate(new AiryRows(m_list));
        m_list->setAllColumnsShowFocus(true);
        m_list->setSelectionMode(QAbstractItemView::SingleSelection);
        m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
        m_list->setTabKeyNavigation(false);
        m_list->header()->setStretchLastSection(true);
        QStringList headers;
        for (const ListColumn& column : m_columns)
            headers << ToQt(column.header);
        m_list->setHeaderLabels(headers);
        QObject::connect(m_list, &QTreeWidget::itemSelectionChanged, m_list,
                         [this] { m_reporter.Selected(m_position, Chosen()); });
        QObject::connect(m_list, &QTreeWidget::itemDoubleClicked, m_list, [this](QTreeWidgetItem* item) {
            const int row = m_list->indexOfTopLevelItem(item);
            m_reporter.Tell(m_position, [&](IForm& form) { form.UserDoubleClicked(m_position, row); });
        });
    }

private:
    [[nodiscard]] std::int32_t Chosen() const
    {
        const auto chosen = m_list->selectedItems();
        return chosen.isEmpty() ? kNothingSelected : m_list->indexOfTopLevelItem(chosen.front());
    }
    void Apply(const FormControl& control, const FormControl& last) override
    {
        if (control.rows != last.rows)
            Fill(control.rows);
        if (Chosen() == control.selection)
            return;
        m_list->clearSelection();
        if (QTreeWidgetItem* const item = m_list->topLevelItem(control.selection))
            m_list->setCurrentItem(item);
        else
            m_list->setCurrentItem(nullptr);
    }
    void Fill(const std::vector<ListRow>& rows)
    {
        while (m_list->topLevelItemCount() > static_cast<int>(rows.size()))
            delete m_list->takeTopLevelItem(m_list->topLevelItemCount() - 1);
        while (m_list->topLevelItemCount() < static_cast<int>(rows.size()))
            m_list->addTopLevelItem(new QTreeWidgetItem);
        for (std::size_t i = 0; i < rows.size(); ++i)
            FillRow(*m_list->topLevelItem(static_cast<int>(i)), rows[i]);
    }
    static void FillRow(QTreeWidgetItem& item, const ListRow& row)
    {
        const auto put = [&](int column, const std::string& text) {
            item.setText(column, ToQt(text));
            item.setToolTip(column, ToQt(text));
        };
        put(0, row.text);
        for (std::size_t i = 0; i < row.subItems.size(); ++i)
            put(static_cast<int>(i) + 1, row.subItems[i]);
    }
    /// At a new size of the font; in between they stay as the user has dragged them.
    void Placed(const FormUnits& units) override
    {
        if (units == m_units)
            return;
        m_units = units;
        for (int i = 0; i < static_cast<int>(m_columns.size()); ++i) {
            const int wanted = units.Across(m_columns[static_cast<std::size_t>(i)].width);
            m_list->setColumnWidth(i, std::max(wanted, m_list->header()->sectionSizeHint(i)));
        }
    }

    QTreeWidget* m_list;
    Reporter& m_reporter;
    std::size_t m_position;
    std::vector<ListColumn> m_columns;
    FormUnits m_units;
};

} // namespace

std::unique_ptr<ControlView> MakeListView(const ControlSite& site)
{
    if (site.control.kind == ControlKind::ListBox)
        return std::make_unique<ListBoxView>(site);
    return site.control.kind == ControlKind::ListView ? std::make_unique<RowsView>(site) : nullptr;
}

} // namespace sm::qt
