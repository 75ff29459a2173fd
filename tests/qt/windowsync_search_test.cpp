// The search for the shown entry's address.
#include "tests/qt/windowsync.h"

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Two entries, and a database in which the first one's number stands three times: as a business
/// number with an address, as a fax without one, and as the private and the other number of a
/// third record.
class WindowSyncSearch : public WindowSync {
  protected:
    WindowSyncSearch() {
        WriteSettings();
        WriteAddresses("\"M\xFCller\",\"Hans\",\"\",\"Am sehr langen Weg zum Ziel 30\",\"12345\","
                       "\"Berlin\",\"030/123-4567\",\"\",\"\",\"\"\r\n"
                       "\"Fax & Co\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"1234567\",\"\"\r\n"
                       "\"Otto\",\"<b>Eva</b>\",\"\",\"Gasse 2\",\"1\",\"Ulm\",\"\",\"+49 30 "
                       "1234567\",\"\",\"0049301234567\"\r\n");
        Load({{.name = "Anna", .tel = "1234567", .info = "alt"},
              {.name = "Leer", .tel = ""},
              {.name = "Zoe", .tel = "0891"}});
        Trigger("mnuDateiLoadSync");
    }

    /// The warning, which is due after each load, answered with "Ignorieren".
    void IgnoreWarning() {
        Selector()->setValue(3);
        Dialogs.Click(QMessageBox::Ignore);
        Trigger("mnuSyncAdd");
        EXPECT_EQ(Status(), "Keine passenden Daten gefunden");
        Selector()->setValue(1);
        Dialogs.Transcript.clear();
    }
    std::vector<std::string> InfoLines() const {
        std::vector<std::string> lines;
        for (int field = 8; field <= 13; ++field) {
            lines.push_back(TextOfField(field));
        }
        return lines;
    }

    const std::string header = "Suche nach 9301234567, gefunden:\n";
    const std::string first =
        Hit(header + "Hans Müller\nAm sehr langen Weg zu\n12345 Berlin         \n"
                     "B030/123-4567\n");
    const std::string withoutAddress =
        OkBox(QString::fromStdString(header + " Fax & Co\n" + Line("") + "\n" + Line("") +
                                     "\nF1234567\nDieser Datensatz enthält keine Adresse!"),
              "Keine Adresse", "Information");
    const std::string third =
        header + "<b>Eva</b> Otto\nGasse 2              \n" + "1 Ulm                \n";
    const std::string thirdPrivate = Hit(third + "P+49 30 1234567\n");
    const std::string thirdOther = Hit(third + "A0049301234567\n");
};

TEST_F(WindowSyncSearch, TheWarningHasItsThreeButtonsAndAbbrechenEndsTheSearch) {
    const std::string before = Status();
    Dialogs.Click(QMessageBox::Abort).Press(Qt::Key_Escape).Close().Press(Qt::Key_Return);
    for (int i = 0; i < 4; ++i) {
        Trigger("mnuSyncAdd");
        EXPECT_EQ(Status(), before);
    }
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Warning, Warning, Warning, Warning));
}

TEST_F(WindowSyncSearch, WiederholenSearchesAndTheWarningComesAgain) {
    Selector()->setValue(3);
    Dialogs.Click(QMessageBox::Retry).Click(QMessageBox::Retry);
    Trigger("mnuSyncAdd");
    EXPECT_EQ(Status(), "Keine passenden Daten gefunden");
    Trigger("mnuSyncAdd");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Warning, Warning));
}

TEST_F(WindowSyncSearch, IgnorierenSearchesAndTheWarningComesAgainOnlyAfterALoad) {
    Selector()->setValue(3);
    Dialogs.Click(QMessageBox::Ignore);
    Trigger("mnuSyncAdd");
    Trigger("mnuSyncAdd");
    Trigger("mnuDateiLoadSync");
    Trigger("mnuSyncAdd");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Warning));
    EXPECT_EQ(Status(), "Keine passenden Daten gefunden");
    Load({{.name = "Zoe", .tel = "0891"}});
    Dialogs.Click(QMessageBox::Abort);
    Trigger("mnuSyncAdd");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Warning));
}

TEST_F(WindowSyncSearch, YesPutsEachAddressInFrontOfTheInfoAndShowsItAtOnce) {
    IgnoreWarning();
    Dialogs.Click(QMessageBox::Yes).Click(QMessageBox::Ok);
    Dialogs
        .Look([this](QDialog&) {
            EXPECT_THAT(InfoLines(), ElementsAre("Am sehr langen Weg zu", Line("12345 Berlin"),
                                                 Line("alt"), Line(""), Line(""), Line("")));
            EXPECT_EQ(Status(), "Suche nach Adressdaten...");
        })
        .Click(QMessageBox::No)
        .Click(QMessageBox::Yes);
    Trigger("mnuSyncAdd");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(first, withoutAddress, thirdPrivate, thirdOther));
    EXPECT_THAT(InfoLines(), ElementsAre(Line("Gasse 2"), Line("1 Ulm"), "Am sehr langen Weg zu",
                                         Line("12345 Berlin"), Line("alt"), Line("")));
    EXPECT_EQ(Status(), "OK");
    EXPECT_EQ(TextOfField(0), "Anna");
    EXPECT_EQ(TextOfField(1), "1234567");
}

TEST_F(WindowSyncSearch, ATakenAddressStaysInTheEntryAndIsSaved) {
    IgnoreWarning();
    Dialogs.Click(QMessageBox::Yes).Click(QMessageBox::Ok).Click(QMessageBox::Cancel);
    Trigger("mnuSyncAdd");
    EXPECT_EQ(Status(), "OK") << "an address was taken before the search was cancelled";
    Selector()->setValue(2);
    Selector()->setValue(1);
    EXPECT_EQ(TextOfField(8), "Am sehr langen Weg zu");
    EXPECT_EQ(TextOfField(9), Line("12345 Berlin"));
    EXPECT_EQ(TextOfField(10), Line("alt"));
    EXPECT_THAT(Rows()[0], testing::StartsWith("#1: Anna (1234567) Am sehr langen Weg zu"));
}

TEST_F(WindowSyncSearch, CancellingTheFirstQuestionFindsNothing) {
    IgnoreWarning();
    Dialogs.Click(QMessageBox::Cancel).Press(Qt::Key_Escape).Close();
    for (int i = 0; i < 3; ++i) {
        Trigger("mnuSyncAdd");
        EXPECT_EQ(Status(), "Keine passenden Daten gefunden");
    }
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(first, first, first));
    EXPECT_EQ(TextOfField(8), Line("alt"));
}

TEST_F(WindowSyncSearch, NoToEveryQuestionFindsNothing) {
    IgnoreWarning();
    Dialogs.Click(QMessageBox::No).Click(QMessageBox::Ok);
    Dialogs.Click(QMessageBox::No).Click(QMessageBox::No);
    Trigger("mnuSyncAdd");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(first, withoutAddress, thirdPrivate, thirdOther));
    EXPECT_EQ(Status(), "Keine passenden Daten gefunden");
    EXPECT_EQ(TextOfField(8), Line("alt"));
}

TEST_F(WindowSyncSearch, AnEmptyNumberIsRefused) {
    IgnoreWarning();
    Selector()->setValue(2);
    const std::string before = Status();
    Dialogs.Click(QMessageBox::Ok);
    Trigger("mnuSyncAdd");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(NoKey));
    EXPECT_EQ(Status(), before);
}

TEST_F(WindowSyncSearch, WhatTheUserTypedGivesWayToTheEntryWhenAnAddressIsTaken) {
    IgnoreWarning();
    Retype(0, "getippt");
    Dialogs.Click(QMessageBox::Cancel);
    Trigger("mnuSyncAdd");
    EXPECT_EQ(TextOfField(0), "getippt");
    Dialogs.Click(QMessageBox::Yes).Click(QMessageBox::Ok).Click(QMessageBox::Cancel);
    Trigger("mnuSyncAdd");
    EXPECT_EQ(TextOfField(0), "Anna");
}

TEST_F(WindowSyncSearch, ATypedNumberThatIsNotStoredIsNotLookedFor) {
    IgnoreWarning();
    Selector()->setValue(3);
    Retype(1, "1234567");
    Trigger("mnuSyncAdd");
    EXPECT_EQ(Status(), "Keine passenden Daten gefunden");
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
    Click("btnSaveChange");
    Dialogs.Click(QMessageBox::Cancel);
    Trigger("mnuSyncAdd");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(first));
}

TEST_F(WindowSyncSearch, TheSelectedRowStaysWhenAnAddressIsTaken) {
    IgnoreWarning();
    Dialogs.Click(QMessageBox::Yes).Click(QMessageBox::Ok).Click(QMessageBox::Cancel);
    Trigger("mnuSyncAdd");
    EXPECT_THAT(SelectedRow(), testing::StartsWith("#1: Anna (1234567) Am sehr langen Weg zu"));
    EXPECT_EQ(TextOf("AnzNr"), "1");
    EXPECT_EQ(TextOf("AnzGes"), "3");
}

TEST_F(WindowSyncSearch, LoadingTheAddressesAgainReplacesThem) {
    WriteAddresses("\"Neu\",\"\",\"\",\"Platz 1\",\"\",\"\",\"1234567\"\r\n");
    Trigger("mnuDateiLoadSync");
    EXPECT_EQ(Status(), "1 Adress-Einträge importiert");
    IgnoreWarning();
    Dialogs.Click(QMessageBox::No);
    Trigger("mnuSyncAdd");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Hit(header + " Neu\n" + Line("Platz 1") + "\n" +
                                                    Line("") + "\nB1234567\n")));
}

TEST_F(WindowSync, WithNothingLoadedASearchSaysSoAndFindsNothing) {
    WriteSettings();
    Load({{.name = "Anna", .tel = "123"}});
    Dialogs.Click(QMessageBox::Ignore).Click(QMessageBox::Ok);
    Trigger("mnuSyncAdd");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Warning, NoAddresses));
    EXPECT_EQ(Status(), "Keine passenden Daten gefunden");
}

TEST_F(WindowSync, AQuestionLongerThanTheScreenScrollsAndKeepsItsButtons) {
    WriteSettings();
    WriteAddresses('"' + std::string(50000, 'M') + "\",\"\",\"\",\"Weg 1\",\"\",\"\",\"123\"\r\n");
    Load({{.name = "Anna", .tel = "123"}});
    Trigger("mnuDateiLoadSync");
    Dialogs.Click(QMessageBox::Ignore).Click(QMessageBox::Yes);
    Trigger("mnuSyncAdd");
    ASSERT_EQ(Dialogs.Transcript.size(), 2U);
    EXPECT_THAT(Dialogs.Transcript[1], testing::StartsWith("text \"Suche nach "));
    EXPECT_THAT(Dialogs.Transcript[1],
                HasSubstr("\" title \"Adresse gefunden?\" buttons Abbrechen+Ja+Nein default Ja"));
    EXPECT_EQ(TextOfField(8), Line("Weg 1"));
    EXPECT_EQ(Status(), "OK");
}

TEST_F(WindowSync, ClosingAScrollingQuestionCancelsTheSearch) {
    WriteSettings();
    WriteAddresses('"' + std::string(50000, 'M') +
                   "\",\"\",\"\",\"Weg 1\",\"\",\"\",\"123\",\"123\"\r\n");
    Load({{.name = "Anna", .tel = "123"}});
    Trigger("mnuDateiLoadSync");
    Dialogs.Click(QMessageBox::Ignore).Press(Qt::Key_Escape);
    Trigger("mnuSyncAdd");
    EXPECT_EQ(Status(), "Keine passenden Daten gefunden");
}

TEST_F(WindowSync, ARegisterWithoutEntriesHasNoNumberToLookFor) {
    WriteSettings("LoadSyncOnStart=yes\r\n");
    WriteAddresses("\"Otto\",\"\",\"\",\"Weg 1\",\"\",\"\",\"123\"\r\n");
    Folder.Write("leer.t9t", RegisterFile({}));
    Open("/l" + PathIn("leer.t9t"));
    Dialogs.Click(QMessageBox::Retry).Click(QMessageBox::Ok);
    Trigger("mnuSyncAdd");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Warning, NoKey));
    EXPECT_EQ(Status(), "OK");
}

}  // namespace

}  // namespace norvik::test
