// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/HelpWindow.h"

#include "screen/QtText.h"
#include "screen/WindowSize.h"

#include <QAction>
#include <QCloseEvent>
#include <QFile>
#include <QKeyEvent>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QTextBrowser>
#include <QToolBar>
#include <QVBoxLayout>

namespace sm::qt {
namespace {

constexpr const char* kHelpSize = "Help";

/// The page for a text window, which knows neither sections nor style sheets of browsers.
QString PlainPage(const QByteArray& html)
{
    QString page = QString::fromUtf8(html);
    page.remove(QRegularExpression("<style>.*</style>", QRegularExpression::DotMatchesEverythingOption));
    page.replace(QRegularExpression("<section id=\"([^\"]*)\">"), "<a name=\"\\1\"></a>");
    page.remove("</section>");
    page.replace("<table>", "<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\" width=\"100%\">");
    page.replace("<kbd>", "<code>").replace("</kbd>", "</code>");
    return page;
}

class HelpWindow final : public QWidget {
public:
    HelpWindow(const HelpSite& site, const QByteArray& html, QWidget* owner);
    ~HelpWindow() override { RememberSize(*this, kHelpSize, m_site.memory); }
    HelpWindow(const HelpWindow&) = delete;
    HelpWindow& operator=(const HelpWindow&) = delete;

    void ShowContext(std::int32_t context)
    {
        GoTo(context != 0 ? QString("c%1").arg(context) : QString());
        if (isMinimized() || !isVisible())
            showNormal();
        raise();
        activateWindow();
        m_text->setFocus();
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        event->key() == Qt::Key_Escape ? static_cast<void>(close()) : QWidget::keyPressEvent(event);
    }

    void closeEvent(QCloseEvent* event) override
    {
        event->accept();
        if (parentWidget() != nullptr)
            parentWidget()->activateWindow(); // not every window system gives the keyboard back
    }

private:
    QToolBar* MakeTools();
    void GoTo(const QString& anchor);
    void Follow(const QUrl& link);
    void Step(int by);
    void ShowStep();

    HelpSite m_site;
    QTextBrowser* m_text;
    QAction* m_back = nullptr;
    QAction* m_forward = nullptr;
    QStringList m_seen; ///< anchors, in the order of reading
    int m_at = -1;      ///< of the one shown
};

HelpWindow::HelpWindow(const HelpSite& site, const QByteArray& html, QWidget* owner)
    : QWidget(owner, Qt::Window), m_site(site), m_text(new QTextBrowser)
{
    setObjectName("HelpWindow");
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle("Sheetmaker PDF – Help");
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeTools());
    m_text->setObjectName("help");
    m_text->setAccessibleName("Help");
    m_text->setOpenLinks(false);
    m_text->setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    m_text->document()->setDocumentMargin(16);
    m_text->setHtml(PlainPage(html));
    connect(m_text, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { Follow(link); });
    column->addWidget(m_text, 1);
    const QSize wanted(86 * fontMetrics().averageCharWidth(), 36 * fontMetrics().height());
    resize(screen() != nullptr ? wanted.boundedTo(screen()->availableGeometry().size() * 9 / 10) : wanted);
    RecallSize(*this, kHelpSize, site.memory);
}

QToolBar* HelpWindow::MakeTools()
{
    auto* const tools = new QToolBar;
    tools->setAccessibleName("Help pages");
    tools->setToolButtonStyle(Qt::ToolButtonTextOnly);
    const auto add = [&](const char* name, const QKeySequence& keys, auto&& run) {
        QAction* const action = tools->addAction(name);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, run);
        return action;
    };
    m_back = add("&Back", Qt::ALT | Qt::Key_Left, [this] { Step(-1); });
    m_forward = add("&Forward", Qt::ALT | Qt::Key_Right, [this] { Step(1); });
    add("&Contents", Qt::ALT | Qt::Key_Home, [this] { GoTo({}); });
    return tools;
}

void HelpWindow::GoTo(const QString& anchor)
{
    m_seen.resize(m_at + 1);
    m_seen << anchor;
    ++m_at;
    ShowStep();
}

void HelpWindow::Step(int by)
{
    m_at += by;
    ShowStep();
}

void HelpWindow::ShowStep()
{
    m_back->setEnabled(m_at > 0);
    m_forward->setEnabled(m_at + 1 < m_seen.size());
    const QString& anchor = m_seen[m_at];
    anchor.isEmpty() ? m_text->moveCursor(QTextCursor::Start) : m_text->scrollToAnchor(anchor);
}

void HelpWindow::Follow(const QUrl& link)
{
    if (link.scheme().isEmpty() && link.hasFragment())
        GoTo(link.fragment());
    else if (m_site.open)
        m_site.open(link.toEncoded().toStdString());
}

} // namespace

bool ShowHelpWindow(const HelpSite& site, std::int32_t context, QWidget* owner)
{
    static QPointer<HelpWindow> shown; // one at a time
    QFile page(ToQt(site.page));
    if (!page.open(QIODevice::ReadOnly))
        return false;
    if (shown == nullptr || shown->parentWidget() != owner) {
        delete shown.data();
        shown = new HelpWindow(site, page.readAll(), owner);
    }
    shown->ShowContext(context);
    return true;
}

} // namespace sm::qt
