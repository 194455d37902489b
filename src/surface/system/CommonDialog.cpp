#include "surface/system/CommonDialog.h"

#include "base/RuntimeError.h"
#include "surface/system/App.h"
#include "surface/system/FileThumbnails_native.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Settings.h"
#include "surface/window/DialogOwner_native.h"

#include <algorithm>
#include <QColorDialog>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>
#include <QStandardPaths>
#include <QTreeView>

namespace pintalux {

namespace {

constexpr const char* kFolderKey = "DialogFolder";
constexpr const char* kSizeKey = "DialogSize";

QString FromPath(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(path));
}

std::string ToPath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

/// "Text|*.a;*.b|Text|*.c" as the toolkit writes filters. The patterns go behind each text in brackets, which
/// the dialog hides.
struct Filters {
    explicit Filters(const std::string& filter) {
        const QStringList parts = QString::fromStdString(filter).split('|');
        for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
            texts << parts[i];
            patterns << parts[i + 1].split(';', Qt::SkipEmptyParts);
            whole << parts[i] + " (" + patterns.back().join(' ') + ')';
        }
    }
    /// Where the dialog's filter stands, which it may give with its hidden patterns or without; -1 if
    /// nowhere.
    qsizetype IndexOf(const QString& selected) const {
        return std::max(whole.indexOf(selected), texts.indexOf(selected));
    }
    QStringList texts;
    QStringList whole;
    QList<QStringList> patterns;
};

/// The path with the first ending of the patterns, in place of any other; as it stands if it has one of them,
/// or the patterns ask for none. A point that begins a name hides the file and is no extension.
QString WithEnding(const QString& path, const QStringList& patterns) {
    QStringList endings;
    for (const QString& pattern : patterns)
        if (pattern.lastIndexOf('*') == 0 && pattern.startsWith("*.")) endings << pattern.mid(1);
    const auto stands = [&](const QString& ending) { return path.endsWith(ending); };
    if (endings.isEmpty() || std::any_of(endings.begin(), endings.end(), stands)) return path;
    const qsizetype name = path.lastIndexOf('/') + 1;
    const qsizetype point = path.lastIndexOf('.');
    return path.left(point > name ? point : path.size()) + endings.front();
}

/// Gives the name the ending of its filter, and asks before it writes over the file of that name.
class SaveDialog final : public QFileDialog {
  public:
    explicit SaveDialog(const std::string& filter) : filters_(filter) {
        setAcceptMode(AcceptSave);
        setFileMode(AnyFile);
        setOption(DontConfirmOverwrite);
    }
    void accept() override {
        const QString typed = selectedFiles().value(0);
        // The base goes into a folder whose name was typed.
        if (!typed.isEmpty() && !QFileInfo(typed).isDir()) {
            path = WithEnding(typed, filters_.patterns.value(filters_.IndexOf(selectedNameFilter())));
            if (QFileInfo::exists(path) && !MayReplace()) return;
        }
        QFileDialog::accept();
    }
    QString path; ///< As it will be written.

  private:
    bool MayReplace() {
        const QString question = tr("%1 already exists.\nDo you want to replace it?");
        return MsgBox(question.arg(QFileInfo(path).fileName()).toStdString(), BoxButtons::YesNo,
                      BoxIcon::Exclamation, windowTitle().toStdString(), BoxDefault::Last) == BoxAnswer::Yes;
    }
    Filters filters_;
};

/// The folder of the proposed name, else the one of the last choice, else that of the user's pictures.
QString FolderToShow(const std::string& proposed, const std::string& last) {
    const QFileInfo file(FromPath(proposed));
    const bool named = !proposed.empty() && file.isAbsolute();
    for (const QString& folder : {named ? file.absolutePath() : QString(), FromPath(last),
                                  QStandardPaths::writableLocation(QStandardPaths::PicturesLocation)})
        if (!folder.isEmpty() && QFileInfo(folder).isDir()) return folder;
    return QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
}

/// The size that the last file dialog was given, which outlives the program; a roomy one at first.
QSize SizeToShow() {
    const QStringList sides =
        QString::fromStdString(GetSetting(App.Title(), "Settings", kSizeKey)).split('x');
    const QSize kept(sides.value(0).toInt(), sides.value(1).toInt());
    return kept.isEmpty() ? QSize(760, 520) : kept;
}

/// Where no setting can be written the size is lost, and nobody is troubled with it.
void KeepSize(const QSize& shown, const QSize& left) {
    if (left == shown) return;
    const QString text = QString("%1x%2").arg(left.width()).arg(left.height());
    ResumeNext([&] { SaveSetting(App.Title(), "Settings", kSizeKey, text.toStdString()); });
}

/// Pictures instead of file symbols, and columns that show all they hold; the name has what is left.
void ShowPictures(QFileDialog& dialog) {
    constexpr int kThumbnailSide = 48;
    static FileThumbnails thumbnails(kThumbnailSide);
    dialog.setIconProvider(&thumbnails);
    for (QAbstractItemView* view : dialog.findChildren<QAbstractItemView*>()) {
        if (view->objectName() == "treeView" || view->objectName() == "listView")
            view->setIconSize({kThumbnailSide, kThumbnailSide});
    }
    auto* columns = dialog.findChild<QTreeView*>("treeView");
    if (columns == nullptr) return;
    columns->header()->setStretchLastSection(false);
    columns->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    columns->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    constexpr int kKind = 2; // the name's ending and the thumbnail tell it
    columns->setColumnHidden(kKind, true);
}

/// Shows the dialog; whether a choice was made. `filterIndex` goes in and comes out.
bool AskForFile(QFileDialog& dialog, const CommonDialog& settings, const std::string& proposed,
                const std::string& lastFolder, int& filterIndex) {
    const Filters filters(settings.Filter);
    dialog.setWindowTitle(QString::fromStdString(settings.DialogTitle));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setDirectory(FolderToShow(proposed, lastFolder));
    if (!filters.whole.isEmpty()) {
        dialog.setNameFilters(filters.whole);
        dialog.selectNameFilter(
            filters.whole[std::clamp<qsizetype>(filterIndex - 1, 0, filters.whole.size() - 1)]);
    }
    const QFileInfo file(FromPath(proposed));
    // The name of a document that was never saved is nothing to open.
    if (dialog.acceptMode() == QFileDialog::AcceptSave || file.exists()) dialog.selectFile(file.fileName());
    ShowPictures(dialog);
    dialog.resize(SizeToShow().boundedTo(QGuiApplication::primaryScreen()->availableSize()));
    PlaceOverOwner(dialog);
    const QSize shown = dialog.size();
    const bool accepted = dialog.exec() == QDialog::Accepted;
    KeepSize(shown, dialog.size());
    if (!accepted || dialog.selectedFiles().isEmpty()) return false;
    const qsizetype chosen = filters.IndexOf(dialog.selectedNameFilter());
    if (chosen >= 0) filterIndex = static_cast<int>(chosen) + 1;
    return true;
}

} // namespace

std::string CommonDialog::LastFolder() const {
    return folder_.empty() ? GetSetting(App.Title(), "Settings", kFolderKey) : folder_;
}

void CommonDialog::TakeChoice(const std::string& path) {
    fileName_ = path;
    if (path.empty() && CancelError) throw RuntimeError(kDialogCancelled);
    if (path.empty()) return;
    proposed_ = path;
    folder_ = ToPath(QFileInfo(FromPath(path)).absolutePath());
    // Where no setting can be written the folder lasts as long as the program.
    ResumeNext([this] { SaveSetting(App.Title(), "Settings", kFolderKey, folder_); });
}

void CommonDialog::ShowOpen() {
    QFileDialog dialog;
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    const bool chosen = AskForFile(dialog, *this, proposed_, LastFolder(), FilterIndex);
    TakeChoice(chosen ? ToPath(dialog.selectedFiles().constFirst()) : std::string());
}

void CommonDialog::ShowSave() {
    SaveDialog dialog(Filter);
    const bool chosen = AskForFile(dialog, *this, proposed_, LastFolder(), FilterIndex);
    TakeChoice(chosen ? ToPath(dialog.path) : std::string());
}

void CommonDialog::ShowColor() {
    const Pixel now = PixelOf(Color);
    QColorDialog dialog;
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setCurrentColor(QColor(static_cast<int>(now & 0xFF), static_cast<int>(now >> 8 & 0xFF),
                                  static_cast<int>(now >> 16 & 0xFF)));
    PlaceOverOwner(dialog);
    if (dialog.exec() != QDialog::Accepted) {
        if (CancelError) throw RuntimeError(kDialogCancelled);
        return;
    }
    const QColor chosen = dialog.selectedColor();
    Color = RGB(chosen.red(), chosen.green(), chosen.blue());
}

} // namespace pintalux
