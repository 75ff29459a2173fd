// LoadPhonebookFile on files as they should be, and on files of another kind.
#include "formats/phonebook175/phonebookfile.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

const std::string Identification = "norvik 175 phonebook\r\n";
const std::string NoInfo = "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\n";

const std::string Anna = "N=Anna\r\nP=1\r\n" + NoInfo;

/// A register as another file left it.
RegisterState Loaded() {
    RegisterState state = RegisterOf({Entry(u"old1", u"1", u"()"), Entry(u"old2"), Entry(u"old3")});
    state.RegisterOrder(1) = 3;
    state.RegisterOrder(3) = 1;
    state.LoadedModel = u"195";
    state.File.Type = u"195";
    state.File.Path = "/old.t9t";
    state.LoadReport = LongReport(u"old\r\n");
    state.Register(1).Listed = true;
    return state;
}

/// The register that a sound file gives.
RegisterState Read(const std::string& file) {
    const TestFolder folder;
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    EXPECT_TRUE(LoadPhonebookFile(state, folder.Write("a.pbo", file), desktop));
    EXPECT_THAT(desktop.Transcript,
                ElementsAre("pointer Hourglass", "pointer Normal", "file", "list"));
    return state;
}

RegisterEntry Entry175(int place, TextView name, TextView tel, TextView info) {
    RegisterEntry entry = Entry(name, tel, info);
    entry.RecIndex = static_cast<std::int16_t>(place);
    return entry;
}

TEST(LoadPhonebookFile, TakesNameNumberAndSixInfoLines) {
    const RegisterState state = Read(Identification +
                                     "N=M\xFCller\r\nP=030 12\r\n"
                                     "I=eins\r\nI= zwei\r\nI=\r\nI=vier\r\n"
                                     "I=einundzwanzig Zeichen\r\nI=sechs  \r\n"
                                     "N=Anna\r\nP=\r\n" +
                                     NoInfo);
    EXPECT_EQ(state.AnzGes, 2);
    EXPECT_EQ(state.Register(1), Entry175(1, u"Müller", u"030 12",
                                          u"eins                 "
                                          u" zwei                "
                                          u"                     "
                                          u"vier                 "
                                          u"einundzwanzig Zeichen"
                                          u"sechs"));
    EXPECT_EQ(state.Register(2), Entry175(2, u"Anna", u"", u""));
    EXPECT_THAT(Order(state, 4), ElementsAre(1, 2, 3, 4));
}

TEST(LoadPhonebookFile, A175EntryHasMsnFilter15AndNoToneNoChargeAndNoAnnouncement) {
    const RegisterState state = Read(Identification + "N=a\r\nP=1\r\n" + NoInfo);
    EXPECT_EQ(state.Register(1).MsnFilter, 15);
    EXPECT_EQ(state.Register(1).Ton, 0);
    EXPECT_EQ(state.Register(1).GebEinh, 0);
    EXPECT_EQ(state.Register(1).AB, 0);
    EXPECT_EQ(state.Register(1).RecIndex, 1);
    EXPECT_EQ(state.Register(1).RecNumber, 0);
    EXPECT_FALSE(state.Register(1).Listed);
}

TEST(LoadPhonebookFile, ReplacesTheWholeRegister) {
    const RegisterState state = Read(Identification + "N=a\r\nP=1\r\n" + NoInfo);
    for (int place = 2; place <= RegisterPlaces; ++place) {
        RegisterEntry empty;
        empty.RecIndex = static_cast<std::int16_t>(place - 1);
        ASSERT_EQ(state.Register(place), empty) << place;
        ASSERT_EQ(state.RegisterOrder(place), place);
    }
    EXPECT_EQ(state.AnzMarkiert, 0);
    EXPECT_EQ(state.Satzwahl.Maximum, 1);
    EXPECT_EQ(state.LoadReport, u"");
}

TEST(LoadPhonebookFile, RemembersModelPathAndDateOfTheFile) {
    const TestFolder folder;
    const FilePath path = folder.Write("a.pbo", Identification + "N=a\r\nP=1\r\n" + NoInfo);
    const FileTime time{std::chrono::seconds{1'000'000'000}};
    std::filesystem::last_write_time(path, std::chrono::file_clock::from_sys(time));
    RegisterState state = Loaded();
    ScriptedDesktop desktop;
    desktop.OnRebuildList = [&] {
        EXPECT_EQ(state.AnzGes, 1);
        EXPECT_EQ(state.LoadedModel, u"175");
    };
    EXPECT_TRUE(LoadPhonebookFile(state, path, desktop));
    EXPECT_EQ(state.LoadedModel, u"175");
    EXPECT_EQ(state.File.Type, u"175");
    EXPECT_EQ(state.File.Path, path);
    EXPECT_EQ(state.File.Modified, std::optional<FileTime>(time));
}

TEST(LoadPhonebookFile, LeavesRegisterSavedAndTheWarningFlagAsTheyAre) {
    for (const bool value : {true, false}) {
        const TestFolder folder;
        RegisterState state = Loaded();
        state.RegisterSaved = value;
        state.WarnLineAccessZero = value;
        ScriptedDesktop desktop;
        LoadPhonebookFile(state, folder.Write("a.pbo", Identification), desktop);
        EXPECT_EQ(state.RegisterSaved, value);
        EXPECT_EQ(state.WarnLineAccessZero, value);
    }
}

TEST(LoadPhonebookFile, AFileWithOnlyTheIdentificationLineGivesAnEmptyRegister) {
    for (const std::string& file : {Identification, std::string("norvik 175 phonebook")}) {
        const RegisterState state = Read(file);
        EXPECT_EQ(state.AnzGes, 0);
        EXPECT_EQ(state.Satzwahl.Maximum, 1);
        EXPECT_EQ(state.LoadedModel, u"175");
        EXPECT_EQ(state.Register(1), RegisterEntry());
    }
}

TEST(LoadPhonebookFile, AWrongFirstLineIsRefusedAndNothingElseChanges) {
    const std::vector<std::pair<std::string, TextView>> cases = {
        {"norvik 195 phonebook\r\n" + Anna, u"norvik 195 phonebook"},
        {" Norvik 175 phonebook \r\n" + Anna, u" Norvik 175 phonebook "},
        {"norvik  175 phonebook", u"norvik  175 phonebook"},
        {"\tnorvik 175 phonebook\r\n", u"\tnorvik 175 phonebook"},
        {"\r\n" + Identification + Anna, u""},
        {"   \r\n", u"   "},
        {"f\xFCr\r\n", u"für"}};
    for (const auto& example : cases) {
        const TestFolder folder;
        RegisterState state = Loaded();
        const Contents before = ContentsOf(state);
        ScriptedDesktop desktop;
        EXPECT_FALSE(LoadPhonebookFile(state, folder.Write("a.pbo", example.first), desktop));
        EXPECT_THAT(desktop.Transcript,
                    ElementsAre(OkBox(Text(u"Dies ist keine Norvik-175-Registerdatei!\r\n(")
                                          .append(example.second)
                                          .append(u")"),
                                      u"Fehlermeldung", "Critical")));
        EXPECT_TRUE(ContentsOf(state) == before);
        EXPECT_EQ(state.AnzGes, 3);
        EXPECT_EQ(state.AnzNr, 1);
        EXPECT_EQ(state.LoadedModel, u"195");
        EXPECT_EQ(state.File.Path, FilePath("/old.t9t"));
    }
}

TEST(LoadPhonebookFile, BlanksAroundTheIdentificationLineAreAccepted) {
    const RegisterState state = Read("   norvik 175 phonebook  \r\nN=a\r\nP=1\r\n" + NoInfo);
    EXPECT_THAT(Names(state), ElementsAre(u"a"));
}

TEST(LoadPhonebookFile, NameAndNumberAreCutTo21Characters) {
    const RegisterState state =
        Read(Identification +
             "N=abcdefghijklmnopqrstuvwxyzABCD\r\n"
             "P=012345678901234567890123456789\r\n" +
             NoInfo + "N=abcdefghijklmnopqrstu\r\nP=012345678901234567890\r\n" + NoInfo);
    for (const int place : {1, 2}) {
        EXPECT_EQ(state.Register(place),
                  Entry175(place, u"abcdefghijklmnopqrstu", u"012345678901234567890", u""));
    }
}

TEST(LoadPhonebookFile, ANameOf30CharactersWrittenBackHas21) {
    RegisterState state =
        Read(Identification + "N=abcdefghijklmnopqrstuvwxyzABCD\r\nP=1\r\n" + NoInfo);
    const TestFolder folder;
    ScriptedDesktop desktop;
    WritePhonebookFile(state, folder / "b.pbo", desktop);
    EXPECT_EQ(ReadFile(folder / "b.pbo"),
              Raw("'norvik 175 phonebook' 0D 0A 'N=abcdefghijklmnopqrstu' 0D 0A 'P=1' 0D 0A"
                  "'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A 'I=' 0D 0A"));
}

TEST(LoadPhonebookFile, AnInfoLineOf25CharactersLosesItsLast4) {
    const RegisterState state = Read(Identification + "N=a\r\nP=1\r\n"
                                                      "I=1234567890123456789012345\r\nI=zwei\r\n"
                                                      "I=\r\nI=\r\nI=\r\n"
                                                      "I=1234567890123456789012345\r\n");
    EXPECT_EQ(state.Register(1).Info, u"123456789012345678901" + PadOrCut(u"zwei", 21) +
                                          Text(63, u' ') + u"123456789012345678901");
    EXPECT_EQ(state.Register(1).Info.size(), 126U);
}

TEST(LoadPhonebookFile, BlanksAtTheEndOfInfoGoAndThoseInFrontStay) {
    const RegisterState state = Read(Identification + "N= a \r\nP= 1 \r\nI=   \r\nI= x \r\n"
                                                      "I=\r\nI=\r\nI=\r\nI=      \r\n");
    EXPECT_EQ(state.Register(1), Entry175(1, u" a ", u" 1 ", Text(21, u' ') + u" x"));
}

TEST(LoadPhonebookFile, TheValueIsEverythingFromTheThirdCharacterOn) {
    const RegisterState state =
        Read(Identification + "N=N=P=I=\r\nP==\r\nI=I=x\r\nI= =\r\nI=\r\nI=\r\nI=\r\nI=\r\n");
    EXPECT_EQ(state.Register(1), Entry175(1, u"N=P=I=", u"=", PadOrCut(u"I=x", 21) + u" ="));
}

TEST(LoadPhonebookFile, CharactersAreThoseOfWindows1252) {
    const RegisterState state =
        Read(Identification + "N=\x84\x94\x81 \xE4\x80\r\nP=\xFC\r\n"
                              "I=\xDF\xFF\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\n");
    EXPECT_EQ(state.Register(1), Entry175(1, u"„”\u0081 ä€", u"ü", u"ßÿ"));
}

TEST(LoadPhonebookFile, TheLastLineNeedsNoLineEnd) {
    const RegisterState state =
        Read(Identification + "N=a\r\nP=1\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=Ende");
    EXPECT_EQ(state.Register(1), Entry175(1, u"a", u"1", Text(105, u' ') + u"Ende"));
}

TEST(LoadPhonebookFile, LinesMayEndInCrAloneOrAllInLf) {
    for (const std::string end : {"\r", "\n"}) {
        std::string file = Identification + "N=a\r\nP=1\r\n" + NoInfo;
        for (std::size_t at = file.find("\r\n"); at != std::string::npos;
             at = file.find("\r\n", at + 1)) {
            file.replace(at, 2, end);
        }
        EXPECT_EQ(Read(file).Register(1), Entry175(1, u"a", u"1", u""));
    }
}

TEST(LoadPhonebookFile, ABareLfAmongOtherLineEndsBelongsToItsLine) {
    const RegisterState state = Read(Identification + "N=a\nb\r\nP=1\r\n" + NoInfo);
    EXPECT_EQ(state.Register(1).Name, u"a\nb");
}

TEST(LoadPhonebookFile, ReadingStopsSilentlyAfterEntry2000) {
    std::string file = Identification;
    for (int i = 1; i <= 2000; ++i) {
        file += "N=n" + std::to_string(i) + "\r\nP=1\r\n" + NoInfo;
    }
    for (const std::string& behind :
         {std::string(), "N=n2001\r\nP=1\r\n" + NoInfo, std::string("N=cut"), std::string("X")}) {
        const RegisterState state = Read(file + behind);
        EXPECT_EQ(state.AnzGes, 2000);
        EXPECT_EQ(state.Register(1), Entry175(1, u"n1", u"1", u""));
        EXPECT_EQ(state.Register(2000), Entry175(2000, u"n2000", u"1", u""));
    }
}

TEST(LoadPhonebookFile, FindsNothingToCorrectInA175Register) {
    EXPECT_EQ(Read(Identification + "N=a\r\nP=1\r\n" + NoInfo).LoadReport, u"");
}

}  // namespace
}  // namespace norvik::test
