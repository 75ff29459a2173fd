// The folders of an installed program, and the file that the desktop hands over to it: the
// functions, the window, and the program as a process.
#include "qt/application.h"
#include "tests/qt/windowfixture.h"
#include "tests/support/places.h"
#include "tests/support/processlimits.h"

#include <QProcess>

#include <filesystem>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

using Words = std::vector<std::string>;

TEST(TakeFile, TakesTheOptionAndThePathOutOfTheArguments) {
    Words arguments = {"--datei", "/tmp/Mein Register, neu.t9t", "/g0,15", "x"};
    EXPECT_EQ(TakeFile(arguments), "/tmp/Mein Register, neu.t9t");
    EXPECT_THAT(arguments, ElementsAre("/g0,15", "x"));
}

TEST(TakeFile, TakesAnyPathByteByByte) {
    for (const char* path : {"--datei", "-platform", "/lx.t9t", "a\xFC\xDF.t9t", "", " ", "\n"}) {
        Words arguments = {"--datei", path};
        EXPECT_EQ(TakeFile(arguments), path);
        EXPECT_THAT(arguments, IsEmpty());
    }
}

TEST(TakeFile, TheOptionAloneIsTakenOutAndGivesNoFile) {
    Words arguments = {"--datei"};
    EXPECT_EQ(TakeFile(arguments), "");
    EXPECT_THAT(arguments, IsEmpty());
}

TEST(TakeFile, LeavesEveryOtherCommandLineAsItIs) {
    const std::vector<Words> commandLines = {{},
                                             {"/lx.t9t", "/g0,15"},
                                             {"/g0,15", "--datei", "x.t9t"},
                                             {"--DATEI", "x.t9t"},
                                             {"--datei=x.t9t"},
                                             {"-datei", "x.t9t"},
                                             {"", "--datei", "x.t9t"}};
    for (const Words& commandLine : commandLines) {
        Words arguments = commandLine;
        EXPECT_EQ(TakeFile(arguments), "");
        EXPECT_EQ(arguments, commandLine);
    }
}

TEST(CommandLine, HoldsEveryArgumentWhateverTheToolkitWouldTake) {
    EXPECT_EQ(
        CommandLine({"-style", "fusion", "-reverse", "/lä x.t9t", "", "/g0,15"}).toStdString(),
        "-style fusion -reverse /lä x.t9t  /g0,15");
    EXPECT_EQ(CommandLine({}), "");
}

TEST(InstalledDocumentFolder, IsTheDataFolderOfAnInstallation) {
    const TestFolder folder;
    const FilePath data = folder / "share/norvik-telefonregister";
    fs::create_directories(data);
    EXPECT_EQ(InstalledDocumentFolder(folder / "bin"), data);
}

TEST(InstalledDocumentFolder, IsTheProgramsOwnWhereNothingIsInstalled) {
    const TestFolder folder;
    EXPECT_EQ(InstalledDocumentFolder(folder / "bin"), folder / "bin");
    folder.Write("share/norvik-telefonregister", "a file, no folder");
    EXPECT_EQ(InstalledDocumentFolder(folder / "bin"), folder / "bin");
}

class WindowHandOver : public WindowTest {};

TEST_F(WindowHandOver, TheFileOfTheDesktopIsShown) {
    const FilePath path = Folder.Write(
        "a /l b/Büro, \"neu\".T9T",
        RegisterFile({{.name = "Zoe", .tel = "1"}, {.name = "anna", .tel = "2", .gebEinh = 100}}));
    Make();
    Window->Start("/g0,15", path);
    EXPECT_EQ(Caption(), "norvik Telefonregister - Datei: " + path.string());
    EXPECT_THAT(Rows(), ElementsAre("#1: anna (2)", "#2: Zoe (1)"));
    EXPECT_EQ(TextOfField(0), "anna");
    EXPECT_EQ(TextOf("AnzGeb"), "15,00");
    EXPECT_EQ(TextOf("Status"), "OK");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowHandOver, AFileThatDoesNotExistIsReportedLikeAStartFile) {
    Dialogs.Click(QMessageBox::Ok);
    Make();
    Window->Start({}, Folder / "fehlt, leider.t9t");
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre(OkBox("mnuLade193195: 53Datei nicht gefunden", " ", "None")));
    EXPECT_EQ(TextOf("AnzGes"), "1");
}

#ifndef _WIN32

/// The program in an installation where only its administrator may write, started by another user.
/// That a file was read is told by the exit status: a register file with a wrong tag ends the
/// program at once with status 1, and without such a file it goes on.
class InstalledProgram : public testing::Test {
  protected:
    InstalledProgram() {
        fs::create_directories(Folder / "usr/bin");
        fs::copy_file(EditorProgramFile(), Executable);
        Folder.Write("usr/share/norvik-telefonregister/nvreadme.htm", "Text");
        fs::create_directory(Home);
        Folder.Write("kaputt.t9t", Join({Raw("06 0D 'TStCollection' 02 64 01"),
                                         Raw("02 00 02 01 06 04 'Anna' 07 01 '2'")}));
        Environment.insert("QT_QPA_PLATFORM", "offscreen");
        Environment.insert("HOME", QString::fromStdString(Home.string()));
        Environment.remove("XDG_DATA_HOME");
    }
    ~InstalledProgram() override { fs::permissions(Executable.parent_path(), fs::perms(0777)); }

    /// A settings file whose start file ends the program.
    void WriteEndingSettings(const FilePath& folder) const {
        Folder.Write(folder / "norvik.ini",
                     "LoadFile=" + (Folder / "kaputt.t9t").string() + "\r\n");
    }

    /// Starts the program as another user in the test's folder. Gives its exit status.
    [[nodiscard]] int Run(const QStringList& arguments = {}) const {
        fs::permissions(Executable.parent_path(), fs::perms(UserMayWrite ? 0777 : 0555));
        QProcess process;
        process.setProcessEnvironment(Environment);
        process.setWorkingDirectory(QString::fromStdString(Folder.Path().string()));
        {
            const AsAnyUser user;
            process.start(QString::fromStdString(Executable.string()), arguments);
            EXPECT_TRUE(process.waitForStarted());
        }
        constexpr int LongestRun = 60000;
        if (!process.waitForFinished(LongestRun)) {
            ADD_FAILURE() << "the program did not end";
            process.kill();
            process.waitForFinished();
        }
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return process.exitCode();
    }

    TestFolder Folder;
    FilePath Executable = Folder / "usr/bin/norvik-telefonregister";
    FilePath Home = Folder / "home";
    QProcessEnvironment Environment;
    /// Whether the user may write where the program stands.
    bool UserMayWrite = false;
};

TEST_F(InstalledProgram, ReadsTheSettingsOfTheUsersDataFolder) {
    Folder.Write("usr/bin/norvik.ini", "[common]\r\n");
    WriteEndingSettings("home/.local/share/norvik");
    EXPECT_EQ(Run(), 1);
}

TEST_F(InstalledProgram, ReadsTheSettingsOfXdgDataHome) {
    Folder.Write("usr/bin/norvik.ini", "[common]\r\n");
    Folder.Write("home/.local/share/norvik/norvik.ini", "[common]\r\n");
    WriteEndingSettings("home/Büro Daten/norvik");
    Environment.insert("XDG_DATA_HOME", QString::fromStdString((Home / "Büro Daten").string()));
    EXPECT_EQ(Run(), 1);
}

TEST_F(InstalledProgram, AnXdgDataHomeThatIsNoFullPathDoesNotCount) {
    Folder.Write("usr/bin/norvik.ini", "[common]\r\n");
    Folder.Write("daten/norvik/norvik.ini", "[common]\r\n");
    WriteEndingSettings("home/.local/share/norvik");
    Environment.insert("XDG_DATA_HOME", "daten");
    EXPECT_EQ(Run(), 1);
}

TEST_F(InstalledProgram, ReadsItsOwnSettingsWhereTheUserMayWrite) {
    UserMayWrite = true;
    Folder.Write("home/.local/share/norvik/norvik.ini", "[common]\r\n");
    WriteEndingSettings("usr/bin");
    EXPECT_EQ(Run(), 1);
}

/// The command of the desktop entry for a file, its parts filled in as a file manager does.
QStringList DesktopCommand(const QString& file) {
    QFile entry(SourceFolder() / "packaging/norvik-telefonregister.desktop");
    EXPECT_TRUE(entry.open(QIODevice::ReadOnly));
    QStringList command;
    for (const QString& line : QString::fromUtf8(entry.readAll()).split('\n')) {
        if (line.startsWith("Exec=")) {
            command = line.mid(5).split(' ');
        }
    }
    const auto place = command.indexOf("%f");
    EXPECT_GT(place, 0);
    if (file.isEmpty()) {
        command.removeAt(place);
    } else {
        command[place] = file;
    }
    return command;
}

class DesktopEntry : public InstalledProgram, public testing::WithParamInterface<const char*> {
  protected:
    DesktopEntry() {
        // Were the path taken for anything else, the program would start and stay.
        Folder.Write("home/.local/share/norvik/norvik.ini", "[common]\r\n");
    }
};

INSTANTIATE_TEST_SUITE_P(Files, DesktopEntry,
                         testing::Values("Mein Register, neu.t9t", "Büro Übersicht ß.T9T",
                                         "\"in\" 'Zeichen'.t9t", "a /l b/g0,5.t9t", "-rf.t9t",
                                         "-platform.t9t", "--datei.t9t", "Ω→日本.t9t",
                                         "$HOME `x` %f.t9t", "a\nb.t9t"));

TEST_P(DesktopEntry, OpensTheFileByItsFullPath) {
    fs::create_directories((Folder / GetParam()).parent_path());
    fs::copy_file(Folder / "kaputt.t9t", Folder / GetParam());
    const QStringList command =
        DesktopCommand(QString::fromStdString((Folder / GetParam()).string()));
    ASSERT_EQ(command.first(), "norvik-telefonregister");
    EXPECT_EQ(Run(command.mid(1)), 1);
}

TEST_P(DesktopEntry, OpensTheFileInTheWorkingFolder) {
    fs::create_directories((Folder / GetParam()).parent_path());
    fs::copy_file(Folder / "kaputt.t9t", Folder / GetParam());
    EXPECT_EQ(Run(DesktopCommand(GetParam()).mid(1)), 1);
}

TEST_F(InstalledProgram, TheDesktopsMenuStartsItWithTheStartFileOfTheSettings) {
    WriteEndingSettings("home/.local/share/norvik");
    EXPECT_EQ(Run(DesktopCommand({}).mid(1)), 1);
}

#endif

}  // namespace

}  // namespace norvik::test
