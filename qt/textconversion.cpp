#include "qt/textconversion.h"

#include <QFile>

namespace norvik {

QString ToQString(TextView text) {
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}

Text ToText(const QString& text) {
    return text.toStdU16String();
}

FilePath ToFilePath(const QString& path) {
    return {QFile::encodeName(path).toStdString()};
}

}  // namespace norvik
