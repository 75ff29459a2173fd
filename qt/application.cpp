#include "qt/application.h"

#include "qt/textconversion.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QStandardPaths>
#include <QTranslator>

namespace norvik {

void PrepareApplication(QApplication& application) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    auto* translator = new QTranslator(&application);
    if (translator->load(QStringLiteral("qtbase_de"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(translator);
    }
}

FilePath ApplicationFolder() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return ProgramFolder(ToFilePath(QApplication::applicationDirPath()),
                         ToFilePath(data) / "norvik");
}

}  // namespace norvik
