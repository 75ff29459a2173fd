#include "qt/droppedfiles.h"

#include "qt/textconversion.h"

#include <QMimeData>
#include <QSysInfo>
#include <QUrl>

#include <utility>

namespace norvik {

namespace {

/// The program from which a file comes may name the computer on which it lies.
bool IsThisMachine(const QString& host) {
    return host.compare(QStringLiteral("localhost"), Qt::CaseInsensitive) == 0 ||
           host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
}

/// Empty where the URL is that of no file that can be opened here.
FilePath PathOf(QUrl url) {
    const QByteArray bytes =
        QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    if (!url.isLocalFile() || bytes.contains('\0')) {
        return {};
    }
    if (IsThisMachine(url.host())) {
        url.setHost(QString());
    }
    // A name that is no text stays as it is.
    FilePath path =
        bytes.isValidUtf8() ? ToFilePath(url.toLocalFile()) : FilePath(bytes.toStdString());
    const bool isElsewhere = !url.host().isEmpty() && !path.has_root_name();
    return isElsewhere ? FilePath() : path;
}

}  // namespace

std::vector<FilePath> FilesOf(const QMimeData& data) {
    std::vector<FilePath> files;
    for (const QUrl& url : data.urls()) {
        if (FilePath path = PathOf(url); !path.empty()) {
            files.push_back(std::move(path));
        }
    }
    return files;
}

}  // namespace norvik
