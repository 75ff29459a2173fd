#include "qt/textconversion.h"

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

}  // namespace norvik
