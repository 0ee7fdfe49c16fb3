// SPDX-License-Identifier: GPL-3.0-or-later
// A window that files can be dragged out of, as a file manager has it; for the tests.
//
//     drag_source X,Y FILE...     stands at X,Y of the screen until it is ended
#include <QApplication>
#include <QDrag>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

namespace {

class Files final : public QLabel {
public:
    explicit Files(QList<QUrl> urls) : QLabel("Files"), m_urls(std::move(urls))
    {
        setWindowTitle("Files");
        setAlignment(Qt::AlignCenter);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override { event->accept(); }
    void mouseMoveEvent(QMouseEvent*) override
    {
        auto* const drag = new QDrag(this);
        auto* const dragged = new QMimeData;
        dragged->setUrls(m_urls);
        drag->setMimeData(dragged);
        drag->exec(Qt::CopyAction);
    }

private:
    QList<QUrl> m_urls;
};

} // namespace

int main(int count, char** words)
{
    QApplication application(count, words);
    const QStringList given = QApplication::arguments();
    if (given.size() < 3)
        return 2;
    QList<QUrl> urls;
    for (const QString& path : given.mid(2))
        urls << QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    Files files(urls);
    files.setGeometry(given[1].section(',', 0, 0).toInt(), given[1].section(',', 1, 1).toInt(), 120, 60);
    files.show();
    return QApplication::exec();
}
