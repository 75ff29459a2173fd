#include "qt/textconversion.h"

#include <QFile>

namespace norvik {

QString ToQString(TextView text) {
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}

QString ToLines(TextView text) {
    return ToQString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

Text ToText(const QString& text) {
    return text.toStdU16String();
}

FilePath ToFilePath(const QString& path) {
    return {QFile::encodeName(path).toStdString()};
}

QString FromFilePath(const FilePath& path) {
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

}  // namespace norvik
