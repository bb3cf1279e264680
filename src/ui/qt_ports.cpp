#include "ui/qt_ports.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFontMetrics>
#include <QGridLayout>
#include <QImage>
#include <QInputDialog>
#include <QMessageBox>
#include <QRegularExpression>

#include <iostream>

namespace nebkaro {

namespace {

// Shared by every QtDialogs, like the message boxes they stand for.
QtDialogs::Mode& currentMode() {
    static QtDialogs::Mode mode = QtDialogs::Mode::Interactive;
    return mode;
}

QString programTitle(const std::string& title) {
    return title.empty() ? QStringLiteral("Nebkaro") : QString::fromStdString(title);
}

// Message texts were written with CR LF line ends.
QString messageText(const std::string& text) {
    return QString::fromStdString(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

QWidget* dialogParent() {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return QApplication::activeWindow();
}

Answer firstButton(Buttons b) {
    return b == Buttons::YesNo || b == Buttons::YesNoCancel ? Answer::Yes : Answer::OK;
}

Answer refusal(Buttons b) {
    switch (b) {
    case Buttons::OK:
        return Answer::OK;
    case Buttons::YesNo:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

QString patternsOf(const QString& vbPatterns) {
    QStringList out;
    for (QString p : vbPatterns.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        p = p.trimmed();
        out << (p == QLatin1String("*.*") ? QStringLiteral("*") : p);
    }
    return out.join(QLatin1Char(' '));
}

// The extension a file gets when the user types a name without one: the filter's first
// pattern, unless it matches every file.
QString suffixOf(const QString& nameFilter) {
    static const QRegularExpression first(QStringLiteral("\\(\\*\\.([A-Za-z0-9]+)"));
    const auto m = first.match(nameFilter);
    return m.hasMatch() ? m.captured(1) : QString();
}

} // namespace

void widenForTitle(QMessageBox& box) {
    // The title bar's font is the desktop's, usually bold; its buttons and the window icon
    // take about 160 pixels beside the title.
    QFont font = box.font();
    font.setBold(true);
    const int wanted = QFontMetrics(font).horizontalAdvance(box.windowTitle()) + 160;
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(wanted, 0, QSizePolicy::Minimum, QSizePolicy::Fixed),
                      grid->rowCount(), 0, 1, grid->columnCount());
}

QStringList qtNameFilters(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString name = parts[i].trimmed();
        const int bracket = name.indexOf(QLatin1Char('('));
        if (bracket >= 0) name = name.left(bracket).trimmed();
        out << name + QStringLiteral(" (") + patternsOf(parts[i + 1]) + QLatin1Char(')');
    }
    return out;
}

Answer QtDialogs::message(const std::string& text, const std::string& title, Buttons buttons,
                          Icon icon) {
    if (currentMode() == Mode::Unattended) {
        std::cerr << "nebkaro: " << programTitle(title).toStdString() << ": "
                  << messageText(text).toStdString() << "\n";
        return firstButton(buttons);
    }

    QMessageBox box(dialogParent());
    box.setWindowTitle(programTitle(title));
    box.setText(messageText(text));
    switch (icon) {
    case Icon::Critical:
        box.setIcon(QMessageBox::Critical);
        break;
    case Icon::Question:
        box.setIcon(QMessageBox::Question);
        break;
    case Icon::Exclamation:
        box.setIcon(QMessageBox::Warning);
        break;
    case Icon::Information:
        box.setIcon(QMessageBox::Information);
        break;
    case Icon::None:
        box.setIcon(QMessageBox::NoIcon);
        break;
    }
    switch (buttons) {
    case Buttons::OK:
        box.setStandardButtons(QMessageBox::Ok);
        break;
    case Buttons::OKCancel:
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        break;
    case Buttons::YesNo:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        break;
    case Buttons::YesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    }
    // The first button is the default, as it always was.
    box.setDefaultButton(buttons == Buttons::YesNo || buttons == Buttons::YesNoCancel
                             ? QMessageBox::Yes
                             : QMessageBox::Ok);
    widenForTitle(box);
    switch (box.exec()) {
    case QMessageBox::Ok:
        return Answer::OK;
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return refusal(buttons);
    }
}

std::optional<std::string> QtDialogs::input(const std::string& prompt, const std::string& title,
                                            const std::string& defaultText) {
    if (currentMode() == Mode::Unattended) return std::nullopt;
    bool ok = false;
    const QString text =
        QInputDialog::getText(dialogParent(), programTitle(title), messageText(prompt),
                              QLineEdit::Normal, QString::fromStdString(defaultText), &ok);
    if (!ok) return std::nullopt;
    return text.toStdString();
}

namespace {
std::optional<std::filesystem::path> runFileDialog(QFileDialog::AcceptMode mode,
                                                   const std::string& filter,
                                                   const std::filesystem::path& proposed) {
    QFileDialog dialog(dialogParent());
    dialog.setAcceptMode(mode);
    dialog.setWindowTitle(mode == QFileDialog::AcceptOpen ? QStringLiteral("Open")
                                                          : QStringLiteral("Save As"));
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                       : QFileDialog::AnyFile);
    const QStringList filters = qtNameFilters(filter);
    dialog.setNameFilters(filters);
    if (!filters.isEmpty()) {
        dialog.selectNameFilter(filters.first());
        if (mode == QFileDialog::AcceptSave) dialog.setDefaultSuffix(suffixOf(filters.first()));
    }
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog, mode](const QString& f) {
                         if (mode == QFileDialog::AcceptSave) dialog.setDefaultSuffix(suffixOf(f));
                     });
    const QString file = QString::fromStdString(proposed.string());
    std::error_code ec;
    if (std::filesystem::is_directory(proposed, ec)) {
        dialog.setDirectory(file);
    } else {
        dialog.setDirectory(QString::fromStdString(proposed.parent_path().string()));
        dialog.selectFile(QString::fromStdString(proposed.filename().string()));
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return std::filesystem::path(dialog.selectedFiles().first().toStdString());
}
} // namespace

std::optional<std::filesystem::path> QtDialogs::openFile(const std::string& filter,
                                                         const std::filesystem::path& proposed) {
    if (currentMode() == Mode::Unattended) return std::nullopt;
    return runFileDialog(QFileDialog::AcceptOpen, filter, proposed);
}

std::optional<std::filesystem::path> QtDialogs::saveFile(const std::string& filter,
                                                         const std::filesystem::path& proposed) {
    if (currentMode() == Mode::Unattended) return std::nullopt;
    return runFileDialog(QFileDialog::AcceptSave, filter, proposed);
}

void QtDialogs::beep() {
    if (currentMode() == Mode::Interactive) QApplication::beep();
}

void QtDialogs::setMode(Mode mode) {
    currentMode() = mode;
}
QtDialogs::Mode QtDialogs::mode() {
    return currentMode();
}

void QtClipboard::clear() {
    QGuiApplication::clipboard()->clear();
}

void QtClipboard::setText(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

std::string QtClipboard::text() {
    return QGuiApplication::clipboard()->text().toStdString();
}

void QtClipboard::setImagePng(const std::vector<std::uint8_t>& png) {
    const QImage image = QImage::fromData(png.data(), static_cast<int>(png.size()), "PNG");
    QGuiApplication::clipboard()->setImage(image);
}

void QtEventPump::yield() {
    // Long work yields so that the windows repaint and the progress dialog's Cancel can be
    // pressed. That dialog is modal; without it no input is taken at all, so that no other
    // command can run in the middle of the work (an Open during a sort, say).
    const QWidget* modal = QApplication::activeModalWidget();
    const bool progress = modal && modal->objectName() == QLatin1String("frmCancelDialog");
    QCoreApplication::processEvents(progress ? QEventLoop::AllEvents
                                             : QEventLoop::ExcludeUserInputEvents);
}

} // namespace nebkaro
