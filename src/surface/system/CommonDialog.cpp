#include "surface/system/CommonDialog.h"

#include "base/RuntimeError.h"

#include <algorithm>
#include <QApplication>
#include <QColorDialog>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

namespace pintalux {

namespace {

/// "Text|*.a;*.b|Text|*.c" as the toolkit writes filters. The patterns go behind each text in brackets, which
/// the dialog hides.
struct Filters {
    explicit Filters(const std::string& filter) {
        const QStringList parts = QString::fromStdString(filter).split('|');
        for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
            texts << parts[i];
            whole << parts[i] + " (" + parts[i + 1].split(';', Qt::SkipEmptyParts).join(' ') + ')';
        }
    }
    QStringList texts;
    QStringList whole;
};

QString FolderToShow(const QString& proposed) {
    static QString lastFolder;
    const QFileInfo file(proposed);
    if (!proposed.isEmpty() && file.isAbsolute() && file.absoluteDir().exists())
        lastFolder = file.absolutePath();
    if (lastFolder.isEmpty() || !QFileInfo(lastFolder).isDir())
        lastFolder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    if (!QFileInfo(lastFolder).isDir())
        lastFolder = QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
    return lastFolder;
}

/// Shows the dialog; gives the path, empty after a cancel. `filterIndex` goes in and comes out.
QString AskForFile(QFileDialog& dialog, const CommonDialog& settings, const std::string& proposed,
                   int& filterIndex) {
    const QString proposedPath = QFile::decodeName(QByteArray::fromStdString(proposed));
    const Filters filters(settings.Filter);
    dialog.setWindowTitle(QString::fromStdString(settings.DialogTitle));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setDirectory(FolderToShow(proposedPath));
    if (!filters.whole.isEmpty()) {
        dialog.setNameFilters(filters.whole);
        dialog.selectNameFilter(
            filters.whole[std::clamp<qsizetype>(filterIndex - 1, 0, filters.whole.size() - 1)]);
    }
    if (!proposedPath.isEmpty()) dialog.selectFile(QFileInfo(proposedPath).fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    // The dialog may give the filter back with its hidden patterns or without.
    const QString selected = dialog.selectedNameFilter();
    const auto chosen = std::max(filters.whole.indexOf(selected), filters.texts.indexOf(selected));
    if (chosen >= 0) filterIndex = static_cast<int>(chosen) + 1;
    return dialog.selectedFiles().constFirst();
}

} // namespace

void CommonDialog::TakeChoice(const std::string& path) {
    fileName_ = path;
    if (!path.empty()) proposed_ = path;
    if (path.empty() && CancelError) throw RuntimeError(kDialogCancelled);
}

void CommonDialog::ShowOpen() {
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    TakeChoice(QFile::encodeName(AskForFile(dialog, *this, proposed_, FilterIndex)).toStdString());
}

void CommonDialog::ShowSave() {
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    TakeChoice(QFile::encodeName(AskForFile(dialog, *this, proposed_, FilterIndex)).toStdString());
}

void CommonDialog::ShowColor() {
    const Pixel now = PixelOf(Color);
    QColorDialog dialog(QApplication::activeWindow());
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    if (!DialogTitle.empty()) dialog.setWindowTitle(QString::fromStdString(DialogTitle));
    dialog.setCurrentColor(QColor(static_cast<int>(now & 0xFF), static_cast<int>(now >> 8 & 0xFF),
                                  static_cast<int>(now >> 16 & 0xFF)));
    if (dialog.exec() != QDialog::Accepted) {
        if (CancelError) throw RuntimeError(kDialogCancelled);
        return;
    }
    const QColor chosen = dialog.selectedColor();
    Color = RGB(chosen.red(), chosen.green(), chosen.blue());
}

} // namespace pintalux
