#include "qt/textconversion.h"

#include <QDir>

namespace norvik {

// Both sides hold UTF-16, whatever the names are made of; the toolkit divides the steps with "/".

FilePath ToFilePath(const QString& path) {
    return {QDir::toNativeSeparators(path).toStdWString()};
}

QString FromFilePath(const FilePath& path) {
    return QDir::fromNativeSeparators(QString::fromStdWString(path.native()));
}

}  // namespace norvik
