// SPDX-License-Identifier: GPL-3.0-or-later
// Text boxes and drop-down lists.
#include "forms/ControlView.h"

#include "screen/QtText.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace sm::qt {
namespace {

/// The field's background: the desktop's own where the form asks for that of a field.
void ColorField(QWidget& field, const ControlColor& color)
{
    QPalette palette = QApplication::palette(&field);
    if (color.role != ColorRole::Window)
        palette.setColor(QPalette::Base, ColorOf(color, QApplication::palette()));
    field.setPalette(palette);
}

/// A box for numbers, which are written with "." in every locale: the locale's own sign becomes one as it is typed.
class NumberEdit final : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

private:
    void keyPressEvent(QKeyEvent* event) override
    {
        const QString sign = QLocale().decimalPoint();
        if (event->text() != sign || sign == QLatin1String("."))
            return QLineEdit::keyPressEvent(event);
        QKeyEvent point(event->type(), Qt::Key_Period, event->modifiers(), QStringLiteral("."));
        QLineEdit::keyPressEvent(&point);
    }
};

class TextView final : public ControlView {
public:
    explicit TextView(const ControlSite& site)
        : m_edit(site.isNumeric ? new NumberEdit(site.parent) : new QLineEdit(site.parent)), m_reporter(site.reporter),
          m_position(site.position)
    {
        Use(m_edit, site.control);
        QObject::connect(m_edit, &QLineEdit::textEdited, m_edit, [this] {
            m_reporter.Tell(m_position, [&](IForm& form) {
                const QString text = m_edit->text();
                form.UserTyped(m_position, FromQt(text), BytesBefore(text, m_edit->cursorPosition()));
            });
        });
        QObject::connect(m_edit, &QLineEdit::cursorPositionChanged, m_edit, [this] { TellCaret(); });
    }

private:
    /// While text is typed the caret is told with it: it moves before the form knows the text that it moves in.
    void TellCaret()
    {
        if (FromQt(m_edit->text()) != m_text)
            return;
        m_reporter.Tell(m_position, [&](IForm& form) {
            form.UserMovedCaret(m_position, BytesBefore(m_edit->text(), m_edit->cursorPosition()));
        });
    }
    void Apply(const FormControl& control, const FormControl&) override
    {
        m_text = control.text;
        const QString text = ToQt(control.text);
        if (m_edit->text() != text)
            m_edit->setText(text);
        const int caret = PlaceBehind(control.text, control.caret);
        if (m_edit->cursorPosition() != caret)
            m_edit->setCursorPosition(caret);
    }
    void ApplyColors(const FormControl& control) override { ColorField(*m_edit, control.backColor); }
    [[nodiscard]] QSize Needed() const override { return {0, m_edit->sizeHint().height()}; }

    QLineEdit* m_edit;
    Reporter& m_reporter;
    std::size_t m_position;
    std::string m_text; ///< what the form holds
};

/// The wheel scrolls past a drop-down list that hasn't got the keyboard.
class DropDownList final : public QComboBox {
public:
    using QComboBox::QComboBox;

private:
    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

class ComboView final : public ControlView {
public:
    explicit ComboView(const ControlSite& site) : m_combo(new DropDownList(site.parent))
    {
        Use(m_combo, site.control);
        m_combo->view()->setAccessibleName(QStringLiteral("Entries"));
        QObject::connect(
            m_combo, &QComboBox::activated, m_combo,
            [&reporter = site.reporter, position = site.position](int entry) { reporter.Selected(position, entry); });
    }

private:
    void Apply(const FormControl& control, const FormControl& last) override
    {
        if (control.items != last.items) {
            m_combo->clear();
            for (const std::string& item : control.items)
                m_combo->addItem(ToQt(item));
            WidenList();
        }
        if (m_combo->currentIndex() != control.selection)
            m_combo->setCurrentIndex(control.selection);
        m_notice = control.selection == kNothingSelected ? ToQt(control.notice) : QString();
        m_combo->setPlaceholderText(m_notice);
        m_combo->setAccessibleDescription(m_notice);
        TellCutText();
    }
    void Placed(const FormUnits&) override { TellCutText(); }
    void TellCutText() { m_combo->setToolTip(IsCut() ? m_combo->currentText() : m_notice); }
    /// The list may be wider than the box, so that long names can be told apart.
    void WidenList()
    {
        QAbstractItemView* const list = m_combo->view();
        const int widest = list->sizeHintForColumn(0) + list->verticalScrollBar()->sizeHint().width() + 8;
        list->setMinimumWidth(std::min(widest, 800));
    }
    [[nodiscard]] bool IsCut() const
    {
        return m_combo->fontMetrics().horizontalAdvance(m_combo->currentText()) > m_combo->width() - m_combo->height();
    }
    void ApplyColors(const FormControl& control) override { ColorField(*m_combo, control.backColor); }
    [[nodiscard]] QSize Needed() const override { return {0, m_combo->sizeHint().height()}; }

    QComboBox* m_combo;
    QString m_notice; ///< stands where the entry would
};

} // namespace

std::unique_ptr<ControlView> MakeFieldView(const ControlSite& site)
{
    if (site.control.kind == ControlKind::TextBox)
        return std::make_unique<TextView>(site);
    return site.control.kind == ControlKind::ComboBox ? std::make_unique<ComboView>(site) : nullptr;
}

} // namespace sm::qt
