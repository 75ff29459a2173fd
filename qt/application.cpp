#include "qt/application.h"

#include "base/platform.h"
#include "mainwindow/keeping.h"
#include "qt/focusframe.h"
#include "qt/icons.h"
#include "qt/textconversion.h"
#include "qt/userfolders.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <string_view>

namespace norvik {

namespace {

FilePath ExecutableFolder() {
    return ToFilePath(QApplication::applicationDirPath());
}

}  // namespace

void PrepareApplication(QApplication& application) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setDesktopFileName(QStringLiteral("norvik-telefonregister"));
    QApplication::setWindowIcon(ProgramIcon());
    FrameFocus(application);
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    auto* translator = new QTranslator(&application);
    // Where the toolkit is a part of the program, so are its texts.
    const QString name = QStringLiteral("qtbase_de");
    if (translator->load(name, QStringLiteral(":/translations")) ||
        translator->load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(translator);
    }
}

FilePath TakeFile(int& argc, char** argv) {
    constexpr std::string_view Option = "--datei";
    if (argc < 2 || argv[1] != Option) {
        return {};
    }
    const bool withPath = argc > 2;
    FilePath file = withPath ? platform::PathOfUtf8(argv[2]) : FilePath();
    const int taken = withPath ? 2 : 1;
    std::copy(argv + 1 + taken, argv + argc + 1, argv + 1);  // with the null that ends them
    argc -= taken;
    return file;
}

QString CommandLine(int argc, const char* const* argv) {
    QStringList words;
    for (int i = 1; i < argc; ++i) {
        words.append(QString::fromLocal8Bit(argv[i]));
    }
    return words.join(u' ');
}

FilePath ApplicationFolder() {
    return ProgramFolder(ExecutableFolder(), UserDataFolder() / "norvik");
}

FilePath ApplicationVersionFolder() {
    return VersionFolder(ApplicationFolder(), ExecutableFolder(), UserStateFolder());
}

FilePath ApplicationSettingsFile() {
    return UserConfigFolder() / "norvik" / "fenster.ini";
}

FilePath InstalledDocumentFolder(const FilePath& executableFolder) {
    // The path from the programs to the data of an installation, so that it can stand anywhere.
    const FilePath installed = (executableFolder / NORVIK_DOCUMENT_FOLDER).lexically_normal();
    std::error_code ignored;
    return std::filesystem::is_directory(installed, ignored) ? installed : executableFolder;
}

FilePath ApplicationDocumentFolder() {
    return InstalledDocumentFolder(ExecutableFolder());
}

}  // namespace norvik
