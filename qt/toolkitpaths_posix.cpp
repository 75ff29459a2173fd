#include "qt/textconversion.h"

#include <QFile>

namespace norvik {

FilePath ToFilePath(const QString& path) {
    return {QFile::encodeName(path).toStdString()};
}

QString FromFilePath(const FilePath& path) {
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

}  // namespace norvik
