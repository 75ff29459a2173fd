#include "qt/filedialog.h"

#include "qt/textconversion.h"

#include <QFileInfo>
#include <QFileSystemModel>
#include <QIdentityProxyModel>
#include <QLocale>
#include <QMessageBox>

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

/// The toolkit's dialog with an overwrite question of ours, which is asked for the name with its
/// ending; the toolkit itself appends one to typed names alone, not to those of clicked rows.
class PlainFileDialog : public QFileDialog {
  public:
    PlainFileDialog(std::string ending, QWidget* parent)
        : QFileDialog(parent), ending_(std::move(ending)) {
        setOption(QFileDialog::DontConfirmOverwrite);
        setDefaultSuffix(QString::fromStdString(ending_).mid(1));
    }

    void accept() override {
        if (acceptMode() == AcceptOpen || MayReplace()) {
            QFileDialog::accept();
        }
    }

  private:
    bool MayReplace() {
        const QStringList files = selectedFiles();
        const QFileInfo chosen(files.isEmpty() ? QString() : files.constFirst());
        const QFileInfo file(FromFilePath(WithEnding(ToFilePath(chosen.filePath()), ending_)));
        if (chosen.isDir() || !file.exists() || file.isDir()) {
            return true;
        }
        return ConfirmsReplacing(file.fileName(), windowTitle(), this);
    }

    std::string ending_;
};

/// Shows sizes and dates as the program's language has them; the toolkit's own model takes them
/// from the system's.
class GermanDetails : public QIdentityProxyModel {
  public:
    using QIdentityProxyModel::QIdentityProxyModel;

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
        return QIdentityProxyModel::data(index, role);
    }
};

}  // namespace

std::optional<FilePath> RunFileDialog(const FileDialog& dialog, QFileDialog::AcceptMode mode,
                                      QWidget* parent) {
    PlainFileDialog fileDialog(dialog.ending, parent);
    fileDialog.setAcceptMode(mode);
    fileDialog.setFileMode(QFileDialog::AnyFile);
    fileDialog.setNameFilters(NameFilters(dialog.filter));
    fileDialog.setProxyModel(new GermanDetails(&fileDialog));
    if (fileDialog.exec() != QDialog::Accepted || fileDialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return ToFilePath(fileDialog.selectedFiles().constFirst());
}

bool AskToReplaceFile(const FilePath& file, QWidget* parent) {
    const QFileInfo there(FromFilePath(file));
    return ConfirmsReplacing(there.fileName(), QFileDialog::tr("Save As"), parent);
}

}  // namespace norvik
