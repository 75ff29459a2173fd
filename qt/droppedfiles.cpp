#include "qt/droppedfiles.h"

#include "qt/textconversion.h"

#include <QMimeData>
#include <QUrl>

namespace norvik {

std::vector<FilePath> FilesOf(const QMimeData& data) {
    std::vector<FilePath> files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) {
            files.push_back(ToFilePath(url.toLocalFile()));
        }
    }
    return files;
}

}  // namespace norvik
