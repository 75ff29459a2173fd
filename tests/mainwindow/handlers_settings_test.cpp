// Storing what the settings dialog holds, seen from the main window.
#include "mainwindow/handlers.h"

#include "base/runtimeerror.h"
#include "mainwindow/operations.h"
#include "tests/support/handlerfixture.h"
#include "tests/support/processlimits.h"
#include "tests/support/testfolder.h"

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

RegisterEntry WithUnits(TextView name, std::int32_t units) {
    RegisterEntry entry = Entry(name, u"030");
    entry.MsnFilter = 0x1F;
    entry.GebEinh = units;
    return entry;
}

/// Anna, who is shown, has used 100 units at 0.12 each.
class StoringSettings : public HandlerFixture {
  protected:
    StoringSettings() {
        program.Folder = folder.Path();
        program.Set.UnitPrice = 0.12;
        Given(RegisterOf({WithUnits(u"Anna", 100), WithUnits(u"Bernd", 7)}));
    }

    static SettingsFields WithPrice(TextView price) {
        SettingsFields fields;
        fields.SetValue[UnitValue] = price;
        return fields;
    }

    void Store(TextView price) { StoreSettings(program, WithPrice(price), desktop); }

    /// The number of the error that storing raises, 0 for none.
    int ErrorOfStoring(const SettingsFields& fields) {
        try {
            StoreSettings(program, fields, desktop);
        } catch (const RuntimeError& error) {
            return static_cast<int>(error.Number());
        }
        return 0;
    }

    [[nodiscard]] const Text& Amount() const { return program.Fields.AnzGeb; }

    TestFolder folder;
};

TEST_F(StoringSettings, WritesTheFileInTheProgramsFolderAndConfirms) {
    Store(u"0,15");
    EXPECT_EQ(ReadFile(folder / "norvik.ini"),
              Raw("';NORVIK.EXE Konfigurationsdatei' 0D 0A ';NORVIK.EXE configuration file' 0D 0A"
                  "';changing this file is allowed, but' 0D 0A ';it will be regenerated' 0D 0A"
                  "';if settings are changed by the program' 0D 0A"
                  "0D 0A '[common]' 0D 0A 'Language=deutsch' 0D 0A 'Unit=0,15' 0D 0A"
                  "0D 0A '[location]' 0D 0A 'CountryCode=0' 0D 0A 'RegionCode=0' 0D 0A"
                  "0D 0A '[export flags]' 0D 0A"
                  "0D 0A '[sync settings]' 0D 0A 'LoadSyncOnStart=no' 0D 0A"
                  "0D 0A '[end]' 0D 0A"));
    EXPECT_EQ(desktop.Transcript, Lines{"status \"Einstellungen gespeichert\""});
}

// The shown amount

TEST_F(StoringSettings, TheShownAmountFollowsANewPrice) {
    ASSERT_EQ(Amount(), u"12,00");
    Store(u"0,15");
    EXPECT_EQ(Amount(), u"15,00");
    EXPECT_EQ(program.Set.UnitPrice, 0.15);
}

TEST_F(StoringSettings, TheAmountIsThatOfTheShownEntry) {
    Given(RegisterOf({WithUnits(u"Anna", 100), WithUnits(u"Bernd", 7)}), 2);
    Store(u"1");
    EXPECT_EQ(Amount(), u"7,00");
}

TEST_F(StoringSettings, TheAmountStaysWithTheSamePrice) {
    Store(u"0.12");
    EXPECT_EQ(Amount(), u"12,00");
}

TEST_F(StoringSettings, APriceThatIsNoNumberGivesNoAmountAndALaterOneGivesItAgain) {
    Store(u"abc");
    EXPECT_EQ(Amount(), u"0,00");
    Store(u"0,12");
    EXPECT_EQ(Amount(), u"12,00");
}

TEST_F(StoringSettings, AnAmountThatTheUserClearedStaysCleared) {
    btnEraseCharge_Click(program);

    Store(u"0,15");

    EXPECT_EQ(Amount(), u"0,00");
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
    btnSaveChange_Click(program, desktop);
    EXPECT_EQ(program.State.Register(1).GebEinh, 0);
}

TEST_F(StoringSettings, AnAmountThatTheUserClearedAtNoPriceStaysCleared) {
    program.Set.UnitPrice = 0;
    ShowEntry(program);
    btnEraseCharge_Click(program);

    Store(u"0,15");

    EXPECT_EQ(Amount(), u"0,00");
    btnSaveChange_Click(program, desktop);
    EXPECT_EQ(program.State.Register(1).GebEinh, 0);
}

TEST_F(StoringSettings, AClearedAmountThatWasLeftWithoutStoringFollowsThePriceAgain) {
    btnEraseCharge_Click(program);
    Satzwahl_Change(program, 2, desktop);
    Satzwahl_Change(program, 1, desktop);
    Store(u"0,15");
    EXPECT_EQ(Amount(), u"15,00");
}

TEST_F(StoringSettings, WithoutALoadedRegisterTheAmountIsZero) {
    program.State = RegisterState();
    ShowEntry(program);
    Store(u"0,15");
    EXPECT_EQ(Amount(), u"0,00");
}

// Everything else

TEST_F(StoringSettings, WhatTheUserTypedAndChoseStays) {
    Field(0) = u"being typed";
    program.Fields.DDAB = 3;
    Choice_Change(program);

    Store(u"0,15");

    EXPECT_EQ(Field(0), u"being typed");
    EXPECT_EQ(program.Fields.DDAB, 3);
    EXPECT_EQ(program.Fields.btnSaveChange, EditState::Pending);
}

TEST_F(StoringSettings, TheRegisterStaysAsItIs) {
    const Contents before = ContentsOf(program.State);
    Store(u"0,15");
    EXPECT_TRUE(ContentsOf(program.State) == before);
    EXPECT_TRUE(program.State.RegisterSaved);
    EXPECT_EQ(program.State.AnzNr, 1);

    program.State.RegisterSaved = false;
    Store(u"0,16");
    EXPECT_FALSE(program.State.RegisterSaved);
}

TEST_F(StoringSettings, TheNumberConversionUsesTheNewCodesAtOnce) {
    SettingsFields fields;
    fields.SetValue[CountryCodeValue] = u"49 ";
    fields.SetValue[RegionCodeValue] = u"030";
    StoreSettings(program, fields, desktop);
    desktop.AnswerText(u"12345");

    Bild1_Click(program, desktop);

    EXPECT_EQ(desktop.Transcript.back(),
              OkBox(u"12345: 00493012345", u"Internationalisierung", "Information"));
}

TEST_F(StoringSettings, TheNextLoadOfTheAddressesTakesTheNewDatabase) {
    SettingsFields fields;
    fields.InpSyncFile = TextFromPath(folder.Write("adressen.csv", "\"Anna\",\"Adler\"\r\n"));
    fields.SetValue.at(FirstItemValue) = u"2";
    StoreSettings(program, fields, desktop);
    EXPECT_FALSE(program.Sync.SyncLoaded);

    mnuDateiLoadSync(program, desktop);

    EXPECT_EQ(program.Sync.Tables.SyncNameTable.at(1).at(SyncTables::Surname), u"Adler");
}

// A write that fails

TEST_F(StoringSettings, AWriteThatFailsIsRaisedWithoutAConfirmation) {
    const FilePath path = folder.Write("norvik.ini", "alt");
    SettingsFields fields = WithPrice(u"0,15");
    fields.InpLoadfile = u"→";
    const Contents before = ContentsOf(program.State);

    EXPECT_EQ(ErrorOfStoring(fields), 5);

    EXPECT_EQ(desktop.Transcript, Lines());
    EXPECT_EQ(ReadFile(path), Raw("'alt'"));
    EXPECT_TRUE(ContentsOf(program.State) == before);
    EXPECT_TRUE(program.State.RegisterSaved);
}

TEST_F(StoringSettings, AWriteThatFailsIsReportedAsAnUnhandledError) {
    fs::create_directory(folder / "norvik.ini");
    RunOperation([this] { Store(u"0,15"); }, desktop);
    EXPECT_EQ(desktop.Transcript,
              (Lines{"pointer Normal",
                     OkBox(u"Laufzeitfehler '75':\r\n\r\nFehler beim Zugriff auf Pfad/Datei",
                           u"NORVIK", "Critical")}));
}

TEST_F(StoringSettings, AfterAWriteThatFailedTheShownAmountIsThatOfThePriceInUse) {
    fs::create_directory(folder / "norvik.ini");
    EXPECT_EQ(ErrorOfStoring(WithPrice(u"0,15")), 75);
    EXPECT_EQ(Amount(), FormatAmount(100 * program.Set.UnitPrice));
}

TEST_F(StoringSettings, AfterAWriteThatFailedAClearedAmountIsStillCleared) {
    btnEraseCharge_Click(program);
    fs::create_directory(folder / "norvik.ini");
    EXPECT_EQ(ErrorOfStoring(WithPrice(u"0,15")), 75);
    EXPECT_EQ(Amount(), u"0,00");
}

TEST_F(StoringSettings, TheAmountFollowsThePriceWhenTheSecondAttemptSucceeds) {
    fs::create_directory(folder / "norvik.ini");
    EXPECT_EQ(ErrorOfStoring(WithPrice(u"0,15")), 75);
    fs::remove(folder / "norvik.ini");

    EXPECT_EQ(ErrorOfStoring(WithPrice(u"0,15")), 0);

    EXPECT_EQ(Amount(), u"15,00");
    EXPECT_EQ(desktop.Transcript, Lines{"status \"Einstellungen gespeichert\""});
}

#ifndef _WIN32
TEST_F(StoringSettings, AReadOnlyFolderRaises70) {
    fs::permissions(folder.Path(), fs::perms(0555));
    {
        const AsAnyUser anyUser;
        EXPECT_EQ(ErrorOfStoring(WithPrice(u"0,15")), 70);
    }
    fs::permissions(folder.Path(), fs::perms(0755));
    EXPECT_EQ(desktop.Transcript, Lines());
    EXPECT_TRUE(fs::is_empty(folder.Path()));
}
#endif

}  // namespace
}  // namespace norvik::test
