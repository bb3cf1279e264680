#include "ui/help_window.h"

#include "editing/commands.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace nebkaro {

QString HelpWindow::pageFile(const std::filesystem::path& home) {
    const QString inHome = QString::fromStdString((home / "Help" / "index.html").string());
    const QString installed = QCoreApplication::applicationDirPath() +
                              QStringLiteral("/../share/nebkaro/Help/index.html");
    for (const QString& f : {inHome, installed})
        if (QFileInfo(f).isFile()) return QDir::cleanPath(f);
    return {};
}

HelpWindow::HelpWindow(const std::filesystem::path& home, const CommandRegistry& commands,
                       QWidget* parent)
    : QWidget(parent, Qt::Window) {
    setObjectName(QStringLiteral("Help"));
    setWindowTitle(QStringLiteral("Nebkaro Help"));
    setAttribute(Qt::WA_DeleteOnClose);
    browser_ = new QTextBrowser(this);
    browser_->setObjectName(QStringLiteral("txtHelp"));
    // Links to other pages open in the desktop's browser; the page's own anchors stay here.
    browser_->setOpenExternalLinks(true);
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(browser_);

    const QString file = pageFile(home);
    QByteArray page;
    if (QFile f(file); !file.isEmpty() && f.open(QIODevice::ReadOnly)) page = f.readAll();
    if (page.isEmpty())
        page = "<html><body><h1>Nebkaro</h1><h2>Commands</h2><!-- commands --><!-- /commands -->"
               "<h2>Transliteration</h2><!-- letters --><!-- /letters --></body></html>";
    if (!file.isEmpty()) browser_->setSearchPaths({QFileInfo(file).absolutePath()});
    browser_->setHtml(QString::fromStdString(helpPage(commands, page.toStdString())));
    resize(720, 640);
}

} // namespace nebkaro
