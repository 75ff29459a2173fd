#include "qt/systemshell.h"
#include "qt/textconversion.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace norvik {

int OpenWithItsProgram(const FilePath& document) {
    // The numbers of the shell that the status line has always shown.
    constexpr int NotFound = 2;
    constexpr int NoProgram = 31;
    constexpr int HandedOver = 33;
    const QString path = FromFilePath(document);
    if (!QFileInfo::exists(path)) {
        return NotFound;
    }
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path)) ? HandedOver : NoProgram;
}

bool PrintsWithoutPrinter() {
    return true;
}

void OpenAsText(const FilePath& document) {
    const QString path = FromFilePath(document);
    const QString notepad = QStandardPaths::findExecutable(QStringLiteral("notepad.exe"));
    if (notepad.isEmpty()) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    } else {
        QProcess::startDetached(notepad, {path});
    }
}

}  // namespace norvik
