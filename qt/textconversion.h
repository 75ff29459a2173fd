// The system's texts and the toolkit's.
#pragma once

#include "base/paths.h"
#include "base/text.h"

#include <QString>

namespace norvik {

QString ToQString(TextView text);
/// The same with the toolkit's line ends, LF.
QString ToLines(TextView text);
/// The UTF-16 of a toolkit text as it is; whether it is in the repertoire is the caller's matter.
Text ToText(const QString& text);

FilePath ToFilePath(const QString& path);
QString FromFilePath(const FilePath& path);

}  // namespace norvik
