#include "qt/filedialog.h"

#include "qt/panelarea.h"
#include "qt/textconversion.h"
#include "versions/versionstore.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QLocale>
#include <QMessageBox>
#include <QSortFilterProxyModel>
#include <QTreeView>

#include <algorithm>
#include <utility>

namespace norvik {

namespace {

/// "CSV-Datei|*.csv|Alle Dateien|*.*" in the toolkit's notation.
QStringList NameFilters(TextView filter) {
    const QStringList parts = ToQString(filter).split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        // "*.*" means every file, also one without a "." in its name.
        const QString pattern =
            parts[i + 1] == QStringLiteral("*.*") ? QStringLiteral("*") : parts[i + 1];
        filters << parts[i] + QStringLiteral(" (") + pattern + u')';
    }
    return filters;
}

/// Lets the toolkit show the platform's own dialog while it exists; elsewhere all boxes are the
/// toolkit's.
class WithPlatformsDialog {
  public:
    WithPlatformsDialog() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs, !Exists()); }
    WithPlatformsDialog(const WithPlatformsDialog&) = delete;
    WithPlatformsDialog& operator=(const WithPlatformsDialog&) = delete;
    WithPlatformsDialog(WithPlatformsDialog&&) = delete;
    WithPlatformsDialog& operator=(WithPlatformsDialog&&) = delete;
    ~WithPlatformsDialog() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

  private:
    static bool Exists() {
        // Without a screen a theme of the environment must not bring one.
        return QApplication::platformName() != QStringLiteral("offscreen");
    }
};

/// The toolkit's overwrite question in plain text: a file's name is no markup.
bool ConfirmsReplacing(const QString& name, const QString& title, QWidget* parent) {
    QMessageBox question(
        QMessageBox::Warning, title,
        QFileDialog::tr("%1 already exists.\nDo you want to replace it?").arg(name),
        QMessageBox::Yes | QMessageBox::No, parent);
    question.setTextFormat(Qt::PlainText);
    question.setDefaultButton(QMessageBox::No);
    return question.exec() == QMessageBox::Yes;
}

/// A dialog with an overwrite question of ours, which is asked for the name with its ending; the
/// toolkit itself appends one to typed names alone, not to those of clicked rows. It does not go
/// where earlier versions lie, also not by a name that is typed.
class PlainFileDialog : public QFileDialog {
  public:
    PlainFileDialog(std::string ending, FilePath hidden, QWidget* parent)
        : QFileDialog(parent), ending_(std::move(ending)), hidden_(std::move(hidden)) {
        setOption(QFileDialog::DontConfirmOverwrite);
        setDefaultSuffix(QString::fromStdString(ending_).mid(1));
    }

    void accept() override {
        if (!IsPlatformsOwn()) {  // that one is closed already
            if (const QString folder = TypedFolder(); !folder.isEmpty() && !IsHidden()) {
                Open(folder);
                return;
            }
            if (!MayTake()) {
                return;
            }
        }
        QFileDialog::accept();
    }

    /// Shows the dialog until it is cancelled or gives a name that may be taken.
    bool Run() {
        while (Exec()) {
            if (!IsPlatformsOwn() || MayTake()) {
                return true;
            }
        }
        return false;
    }

    /// The names of the places are shown whole, unless they are very long.
    void ShowPlaceNames() {
        constexpr int LongestName = 30;
        if (auto* places = findChild<QListView*>(QStringLiteral("sidebar"))) {
            const int longest = fontMetrics().averageCharWidth() * LongestName;
            places->setMinimumWidth(std::min(places->sizeHintForColumn(0), longest) +
                                    2 * places->frameWidth());
        }
    }

    /// The columns are wide enough for their headings and what stands below them; the names get
    /// the rest.
    void ShowDetails() {
        auto* details = findChild<QTreeView*>(QStringLiteral("treeView"));
        if (details == nullptr) {
            return;
        }
        QHeaderView& header = *details->header();
        const QStringList widest = {QString(), QStringLiteral("1023,99 KiB"),
                                    QStringLiteral("Verzeichnis"),
                                    QStringLiteral("22.11.26 22:22")};
        const int margin = 2 * header.fontMetrics().averageCharWidth();
        for (int column = 1; column < std::min(header.count(), static_cast<int>(widest.size()));
             ++column) {
            header.resizeSection(
                column,
                std::max(header.sectionSizeHint(column),
                         details->fontMetrics().horizontalAdvance(widest[column]) + margin));
        }
        header.setStretchLastSection(false);
        header.setSectionResizeMode(0, QHeaderView::Stretch);
    }

  private:
    /// The folder is open then, and not the name of a file in it; nothing is proposed any more.
    void Open(const QString& folder) {
        setDirectory(folder);
        NameField()->clear();
        if (const QCompleter* proposals = NameField()->completer()) {
            proposals->popup()->hide();
        }
    }
    bool Exec() {
        const WithPlatformsDialog allowed;
        return exec() == QDialog::Accepted && !selectedFiles().isEmpty();
    }
    /// Null in the platform's own dialog.
    QLineEdit* NameField() const { return findChild<QLineEdit*>(QStringLiteral("fileNameEdit")); }
    bool IsPlatformsOwn() const { return NameField() == nullptr; }
    /// The toolkit takes a folder's name without its path for that of a file.
    QString TypedFolder() const {
        const QString typed = NameField()->text();
        const QString path = directory().absoluteFilePath(typed);
        return !typed.isEmpty() && QFileInfo(path).isDir() ? path
               : QFileInfo(Chosen()).isDir()               ? Chosen()
                                                           : QString();
    }
    bool MayTake() {
        if (IsHidden()) {
            TellOfVersions();
            return false;
        }
        return acceptMode() == AcceptOpen || MayReplace();
    }
    QString Chosen() const {
        const QStringList files = selectedFiles();
        return files.isEmpty() ? QString() : files.constFirst();
    }
    /// The toolkit may lose a typed name that leads to where it sees nothing.
    bool IsHidden() const {
        const QString typed = IsPlatformsOwn() ? QString() : NameField()->text();
        return IsInFolder(ToFilePath(Chosen()), hidden_) ||
               (!typed.isEmpty() &&
                IsInFolder(ToFilePath(directory().absoluteFilePath(typed)), hidden_));
    }
    void TellOfVersions() {
        QMessageBox notice(QMessageBox::Information, windowTitle(),
                           QStringLiteral("In diesem Ordner hebt das Programm frühere Stände auf. "
                                          "Sie finden sie im Menü Datei unter „Frühere "
                                          "Stände...“."),
                           QMessageBox::Ok, this);
        notice.setTextFormat(Qt::PlainText);
        notice.exec();
    }
    bool MayReplace() {
        const QFileInfo chosen(Chosen());
        const QFileInfo file(FromFilePath(WithEnding(ToFilePath(chosen.filePath()), ending_)));
        if (chosen.isDir() || !file.exists() || file.isDir()) {
            return true;
        }
        return ConfirmsReplacing(file.fileName(), windowTitle(), this);
    }

    std::string ending_;
    FilePath hidden_;
};

/// Shows sizes and dates as the program's language has them; the toolkit's own model takes them
/// from the system's. Leaves the hidden folder out.
class GermanDetails : public QSortFilterProxyModel {
  public:
    GermanDetails(FilePath hidden, QObject* parent)
        : QSortFilterProxyModel(parent), hidden_(std::move(hidden)) {}

    /// The toolkit's model puts folders first and knows numbers from texts.
    void sort(int column, Qt::SortOrder order) override { sourceModel()->sort(column, order); }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        constexpr int SizeColumn = 1;
        constexpr int DateColumn = 3;
        const auto* files = qobject_cast<const QFileSystemModel*>(sourceModel());
        if (role == Qt::DisplayRole && files != nullptr) {
            const QModelIndex source = mapToSource(index);
            if (index.column() == SizeColumn && !files->isDir(source)) {
                return QLocale().formattedDataSize(files->size(source));
            }
            if (index.column() == DateColumn) {
                return QLocale().toString(files->lastModified(source), QLocale::ShortFormat);
            }
        }
        return QSortFilterProxyModel::data(index, role);
    }

  protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        const auto* files = qobject_cast<const QFileSystemModel*>(sourceModel());
        if (files == nullptr || hidden_.empty()) {
            return true;
        }
        const FilePath path = ToFilePath(files->filePath(files->index(row, 0, parent)));
        std::error_code ignored;  // only a name of its own or a link can lead to the folder
        return (path.filename() != hidden_.filename() &&
                !std::filesystem::is_symlink(path, ignored)) ||
               !IsInFolder(path, hidden_);
    }

  private:
    FilePath hidden_;
};

}  // namespace

std::optional<FilePath> RunFileDialog(const FileDialog& dialog, QFileDialog::AcceptMode mode,
                                      const FilePath& folder, const FilePath& hidden,
                                      QWidget* parent) {
    std::optional<WithPlatformsDialog> allowed(std::in_place);
    PlainFileDialog fileDialog(dialog.ending, hidden, parent);
    fileDialog.setAcceptMode(mode);
    // As the toolkit calls its own.
    fileDialog.setWindowTitle(mode == QFileDialog::AcceptOpen ? QFileDialog::tr("Open")
                                                              : QFileDialog::tr("Save As"));
    fileDialog.setFileMode(QFileDialog::AnyFile);
    fileDialog.setNameFilters(NameFilters(dialog.filter));
    fileDialog.setProxyModel(new GermanDetails(hidden, &fileDialog));
    fileDialog.ShowPlaceNames();
    fileDialog.ShowDetails();
    std::error_code error;
    if (std::filesystem::is_directory(folder, error)) {
        fileDialog.setDirectory(FromFilePath(folder));
    }
    Resize(fileDialog, {fileDialog.fontMetrics().averageCharWidth() * 110,
                        fileDialog.fontMetrics().height() * 28});
    allowed.reset();
    if (!fileDialog.Run()) {
        return std::nullopt;
    }
    return ToFilePath(fileDialog.selectedFiles().constFirst());
}

bool AskToReplaceFile(const FilePath& file, QWidget* parent) {
    const QFileInfo there(FromFilePath(file));
    return ConfirmsReplacing(there.fileName(), QFileDialog::tr("Save As"), parent);
}

}  // namespace norvik
