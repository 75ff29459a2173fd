// Whatever a file is that a reader is given: the right run-time error or the right register, and
// never a hang. What it needs of the system (pipes, devices, another user) is POSIX's.
#include "base/runtimeerror.h"
#include "formats/csv/csvformat.h"
#include "formats/csv/csvmenu.h"
#include "formats/phonebook175/phonebookfile.h"
#include "formats/phonebook175/phonebookfilemenu.h"
#include "formats/registerfile/registerfile.h"
#include "formats/registerfile/registerfilemenu.h"
#include "ringtones/tonenames.h"
#include "tests/support/builders.h"
#include "tests/support/processlimits.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using Lines = std::vector<std::string>;

constexpr std::size_t Large = 60'000'000;
/// Large enough for any buffer, small enough for a line that a test's transcript holds whole.
constexpr std::size_t Medium = 4'000'000;
/// As many lines as a test walks through in a moment.
constexpr std::size_t ManyLines = 150'000;

#ifndef _WIN32
// Files that cannot be read

/// Puts something that is no readable file under a path.
struct Unreadable {
    const char* What;
    void (*Make)(const FilePath& path);
    int Number;
    TextView NumberAndDescription;
};

void MakeSparse(const FilePath& path) {
    { std::ofstream created(path); }
    fs::resize_file(path, std::uintmax_t{2} * 1024 * 1024 * 1024);
}

void MakeJustTooLarge(const FilePath& path) {
    { std::ofstream created(path); }
    fs::resize_file(path, MaximumFileSize + 1);
}

void MakeZeroDevice(const FilePath& path) {
    fs::create_symlink("/dev/zero", path);
}

void MakeNullDevice(const FilePath& path) {
    fs::create_symlink("/dev/null", path);
}

void MakeFolder(const FilePath& path) {
    fs::create_directory(path);
}

void MakePipe(const FilePath& path) {
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
}

void MakeLinkToNothing(const FilePath& path) {
    fs::create_symlink("nirgends", path);
}

void MakeLinkToItself(const FilePath& path) {
    fs::create_symlink(path.filename(), path);
}

void MakeForbidden(const FilePath& path) {
    { std::ofstream created(path); }
    fs::permissions(path, fs::perms::none);
}

constexpr TextView OutOfMemory = u"7Nicht genügend Speicher";
constexpr TextView PathAccess = u"75Fehler beim Zugriff auf Pfad/Datei";

const std::vector<Unreadable> Kinds = {
    {"a sparse file of 2 GB", MakeSparse, 7, OutOfMemory},
    {"a file of 64 MiB and a byte", MakeJustTooLarge, 7, OutOfMemory},
    {"a device without an end", MakeZeroDevice, 75, PathAccess},
    {"a device without a byte", MakeNullDevice, 75, PathAccess},
    {"a folder", MakeFolder, 75, PathAccess},
    {"a pipe without a writer", MakePipe, 75, PathAccess},
    {"a link to nothing", MakeLinkToNothing, 53, u"53Datei nicht gefunden"},
    {"a link to itself", MakeLinkToItself, 64, u"64Dateiname falsch"},
    {"a file without permission", MakeForbidden, 70, u"70Zugriff verweigert"}};

std::string Undefined(TextView menuItem, TextView numberAndDescription) {
    return OkBox(
        Text(u"Undef'd Error: ").append(menuItem).append(u":").append(numberAndDescription));
}

/// Loads each kind of file with `load`, which gets a path with `ending`, and hands what the desktop
/// was asked to `check`. No kind may change the register.
template <typename Load, typename Check>
void ForEachKind(const std::string& ending, Load load, Check check) {
    for (const Unreadable& kind : Kinds) {
        SCOPED_TRACE(kind.What);
        const TestFolder folder;
        const FilePath path = folder / ("datei" + ending);
        kind.Make(path);
        RegisterState state = RegisterOf({Entry(u"old1"), Entry(u"old2")});
        const Contents before = ContentsOf(state);
        ScriptedDesktop desktop;
        desktop.AnswerFile(path);
        {
            const AsAnyUser anyUser;
            load(state, desktop);
        }
        const Lines questions = desktop.Questions();
        ASSERT_EQ(questions.size(), 2U);
        check(kind, questions[1]);
        EXPECT_TRUE(ContentsOf(state) == before);
        EXPECT_EQ(state.AnzGes, 2);
        EXPECT_TRUE(state.File.Path.empty());
        EXPECT_FALSE(state.WarnLineAccessZero);
    }
}

TEST(AnyFile, ThatIsNoReadableRegisterFileIsReported) {
    ForEachKind(".t9t", mnuDateiLoadNV, [](const Unreadable& kind, const std::string& box) {
        const bool accessFailed = kind.Number == 53 || kind.Number == 64;
        EXPECT_EQ(box, accessFailed
                           ? OkBox(u"Dateizugriff fehlgeschlagen!", u"Zugriffsfehler", "Critical")
                           : Undefined(u"mnuDateiLoadNV", kind.NumberAndDescription));
    });
}

TEST(AnyFile, ThatIsNoReadablePhonebookFileIsReported) {
    ForEachKind(".pbo", mnuDateiLoad175, [](const Unreadable& kind, const std::string& box) {
        EXPECT_EQ(box, Undefined(u"mnuDateiLoad175", kind.NumberAndDescription));
    });
}

TEST(AnyFile, ThatIsNoReadableCsvFileIsReported) {
    for (const bool avoidDoubles : {true, false}) {
        ForEachKind(
            ".csv",
            [&](RegisterState& state, Desktop& desktop) {
                mnuDateiLoadCSV(state, Settings(), {avoidDoubles}, desktop);
            },
            [](const Unreadable& kind, const std::string& box) {
                EXPECT_EQ(box, Undefined(u"mnuDateiLoadCSV", kind.NumberAndDescription));
            });
    }
}

TEST(AnyFile, ThatIsNoReadableSettingsFileRaisesItsError) {
    for (const Unreadable& kind : Kinds) {
        const TestFolder folder;
        kind.Make(folder / "norvik.ini");
        const AsAnyUser anyUser;
        SettingsTable table;
        try {
            ReadSettingsFile(folder.Path(), table);
            ADD_FAILURE() << kind.What;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(static_cast<int>(error.Number()), kind.Number) << kind.What;
        }
    }
}

TEST(AnyFile, ThatIsNoReadableToneFileGivesTheFixedNames) {
    for (const Unreadable& kind : Kinds) {
        const TestFolder folder;
        kind.Make(folder / "rt.lng");
        const AsAnyUser anyUser;
        EXPECT_EQ(ReadToneNames(folder.Path()), DefaultToneNames()) << kind.What;
    }
}

#endif

// Large files of nothing but one byte

FilePath LargeFileOf(const TestFolder& folder, const FilePath& name, Byte byte, std::size_t size) {
    return folder.Write(name, Bytes(size, byte));
}

TEST(ALargeFile, WithoutALineEndIsNoRegisterFile) {
    const TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
    LoadRegisterFile(state, LargeFileOf(folder, "a.t9t", 'x', Large), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(OkBox(u"Abweichender Header", u"norvik 195 laden", "Exclamation"),
                            "pointer Hourglass", OkBox(u"mnuLade193195: 6Überlauf", u""), "file",
                            "entry", "list"));
    EXPECT_EQ(state.ReadTrace, u"787878787878787878787878787878");
}

TEST(ALargeFile, OfZerosIsARegisterFileWithoutEntries) {
    const TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
    LoadRegisterFile(state, LargeFileOf(folder, "a.t9t", 0, Medium), desktop);
    EXPECT_THAT(desktop.Transcript,
                ElementsAre(OkBox(u"Abweichender Header", u"norvik 195 laden", "Exclamation"),
                            "pointer Hourglass", "pointer Normal", "list", "file"));
    EXPECT_EQ(state.AnzGes, 0);
}

TEST(ALargeFile, OfLineEndsIsNoRegisterFile) {
    const TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
    LoadRegisterFile(state, LargeFileOf(folder, "a.t9t", '\r', Medium), desktop);
    EXPECT_THAT(desktop.Questions(), testing::Contains(OkBox(u"mnuLade193195: 6Überlauf", u"")));
    EXPECT_EQ(state.AnzGes, 1);
}

TEST(ALargeFile, WithoutALineEndIsNoPhonebookFileAndTheEndsOfItsLineAreShown) {
    const TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
    EXPECT_FALSE(LoadPhonebookFile(state, LargeFileOf(folder, "a.pbo", 'x', Medium), desktop));
    const LongReport text(u"Dies ist keine Norvik-175-Registerdatei!\r\n(" + Text(Medium, u'x') +
                          u")");
    ASSERT_EQ(desktop.Transcript.size(), 1U);
    EXPECT_TRUE(desktop.Transcript[0] == OkBox(text.Shown(), u"Fehlermeldung", "Critical"));
}

TEST(ALargeFile, OfLineEndsIsNoPhonebookFileAndItsFirstLineIsEmpty) {
    for (const Byte end : {Byte{'\r'}, Byte{'\n'}}) {
        const TestFolder folder;
        RegisterState state;
        ScriptedDesktop desktop;
        EXPECT_FALSE(LoadPhonebookFile(state, LargeFileOf(folder, "a.pbo", end, Medium), desktop));
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(OkBox(u"Dies ist keine Norvik-175-Registerdatei!\r\n()",
                                      u"Fehlermeldung", "Critical")));
    }
}

Bytes Behind(const std::string& head, std::size_t size, Byte byte) {
    Bytes bytes(head.begin(), head.end());
    bytes.resize(head.size() + size, byte);
    return bytes;
}

TEST(ALargeLine, OfAPhonebookFileIsCutToItsField) {
    const Bytes info = Raw("0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A");
    const Bytes name = Join(
        {Behind("norvik 175 phonebook\r\nN=", Medium, 'x'), Raw("0D 0A 'P=1'"), info, Raw("'I='")});
    const Bytes number =
        Join({Behind("norvik 175 phonebook\r\nN=a\r\nP=", Medium, '1'), info, Raw("'I='")});
    const Bytes line = Join(
        {Raw("'norvik 175 phonebook' 0D 0A 'N=a' 0D 0A 'P=1'"), info, Behind("I=", Medium, 'i')});
    const std::vector<std::pair<Bytes, RegisterEntry>> cases = {
        {name, Entry(Text(21, u'x'), u"1")},
        {number, Entry(u"a", Text(21, u'1'))},
        {line, Entry(u"a", u"1", Text(105, u' ') + Text(21, u'i'))}};
    for (const auto& example : cases) {
        const TestFolder folder;
        RegisterState state;
        ScriptedDesktop desktop;
        EXPECT_TRUE(LoadPhonebookFile(state, folder.Write("a.pbo", example.first), desktop));
        RegisterEntry expected = example.second;
        expected.RecIndex = 1;
        EXPECT_EQ(state.AnzGes, 1);
        EXPECT_EQ(state.Register(1), expected);
    }
}

/// The register of a CSV file of these bytes.
RegisterState LoadedCSV(const Bytes& bytes) {
    const TestFolder folder;
    RegisterState state;
    ScriptedDesktop desktop;
    LoadCSV(state, folder.Write("a.csv", bytes), Settings(), desktop);
    EXPECT_THAT(desktop.Transcript, ElementsAre("file"));
    return state;
}

TEST(ALargeFile, WithoutALineEndIsACsvHeaderAlone) {
    EXPECT_EQ(LoadedCSV(Bytes(Medium, 'x')).AnzGes, 0);
    EXPECT_EQ(LoadedCSV(Bytes(Medium, '"')).AnzGes, 0);
    EXPECT_EQ(LoadedCSV(Bytes(Medium, ';')).AnzGes, 0);
}

TEST(ALargeFile, OfLineEndsIsACsvFileWithoutEntries) {
    for (const Byte end : {Byte{'\r'}, Byte{'\n'}}) {
        EXPECT_EQ(LoadedCSV(Bytes(ManyLines, end)).AnzGes, 0);
        EXPECT_EQ(LoadedCSV(Behind("\"Name\"\r", ManyLines, end)).AnzGes, 0);
    }
}

TEST(ALargeLine, OfAPlainCsvFileIsCutToItsFields) {
    const RegisterState name = LoadedCSV(Join({Behind("Name;Tel\r", Medium, 'x'), Raw("';1'")}));
    EXPECT_EQ(name.AnzGes, 1);
    EXPECT_EQ(name.Register(1), Entry(Text(20, u'x') + u".", u"1"));
    const RegisterState number = LoadedCSV(Behind("Name;Tel\ra;", Medium, '1'));
    EXPECT_EQ(number.Register(1), Entry(u"a", Text(21, u'1')));
    const RegisterState info = LoadedCSV(Behind("Name;Tel\ra;1;", Medium, 'i'));
    EXPECT_EQ(info.Register(1), Entry(u"a", u"1", Text(123, u'i') + u"..."));
    const RegisterState fields = LoadedCSV(Behind("Name;Tel\ra", Medium, ';'));
    EXPECT_EQ(fields.Register(1).Name, u"a");
}

TEST(ALargeLine, OfAQuotedCsvFileIsCutToItsFields) {
    const RegisterState name =
        LoadedCSV(Join({Behind("\"Name\"\r\"", Medium, 'x'), Raw("'\";\"1\"'")}));
    EXPECT_EQ(name.AnzGes, 1);
    EXPECT_EQ(name.Register(1), Entry(Text(20, u'x') + u".", u"1"));
    const RegisterState fields = LoadedCSV(Behind("\"Name\"\r\"a\"", Medium, '"'));
    EXPECT_EQ(fields.AnzGes, 1);
    EXPECT_EQ(fields.Register(1), Entry(u"a"));
    const RegisterState open = LoadedCSV(Behind("\"Name\"\r\"", Medium, 'x'));
    EXPECT_EQ(open.AnzGes, 0);
}

TEST(ALargeFile, WithoutALineEndIsOneValueOfTheSettings) {
    const TestFolder folder;
    folder.Write("norvik.ini", Behind("LoadFile=", Medium, 'X'));
    SettingsTable table;
    ReadSettingsFile(folder.Path(), table);
    EXPECT_EQ(table.Value(Setting::LoadFile), Text(Medium, u'x'));
}

TEST(ALargeFile, OfOneByteHasNoSettings) {
    const std::vector<std::pair<Byte, std::size_t>> cases = {
        {'x', Medium}, {'=', Medium}, {'\r', ManyLines}, {'\n', ManyLines}};
    for (const auto& example : cases) {
        const TestFolder folder;
        LargeFileOf(folder, "norvik.ini", example.first, example.second);
        SettingsTable table;
        ReadSettingsFile(folder.Path(), table);
        for (int row = 1; row <= SettingsRows; ++row) {
            EXPECT_EQ(table.At(row).Value, u"") << row;
        }
    }
}

TEST(ALargeFile, WithoutALineEndIsOneToneName) {
    const TestFolder folder;
    LargeFileOf(folder, "rt.lng", 'x', Medium);
    std::vector<Text> names = DefaultToneNames();
    names[1] = Text(Medium, u'x');
    EXPECT_EQ(ReadToneNames(folder.Path()), names);
}

TEST(ALargeFile, OfLineEndsGivesEmptyToneNames) {
    const TestFolder folder;
    LargeFileOf(folder, "rt.lng", '\r', Large);
    std::vector<Text> names(DefaultToneNames().size());
    names[0] = u"kein";
    EXPECT_EQ(ReadToneNames(folder.Path()), names);
}

TEST(ALargeFile, OfCommentsGivesTheFixedToneNames) {
    const TestFolder folder;
    LargeFileOf(folder, "rt.lng", ';', Medium);
    EXPECT_EQ(ReadToneNames(folder.Path()), DefaultToneNames());
}

}  // namespace
}  // namespace norvik::test
