#include "qt/application.h"

#include "base/platform.h"
#include "mainwindow/keeping.h"
#include "qt/focusframe.h"
#include "qt/highcontrast.h"
#include "qt/icons.h"
#include "qt/textconversion.h"
#include "qt/userfolders.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

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
    FollowHighContrast(application);
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

FilePath TakeFile(std::vector<std::string>& arguments) {
    constexpr std::string_view Option = "--datei";
    if (arguments.empty() || arguments.front() != Option) {
        return {};
    }
    const bool withPath = arguments.size() > 1;
    FilePath file = withPath ? platform::PathOfUtf8(arguments[1]) : FilePath();
    arguments.erase(arguments.begin(), arguments.begin() + (withPath ? 2 : 1));
    return file;
}

QString CommandLine(const std::vector<std::string>& arguments) {
    QStringList words;
    for (const std::string& argument : arguments) {
        words.append(QString::fromStdString(argument));
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
