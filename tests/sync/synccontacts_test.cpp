// A vCard file as the address database: its contacts in the tables, and what its load tells.
#include "sync/synccontacts.h"

#include "sync/loadsyncdatabase.h"
#include "tests/support/builders.h"
#include "tests/support/processlimits.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace norvik::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using Lines = std::vector<std::string>;
using Names = std::array<TextView, SyncTables::NameColumns>;
using Addresses = std::array<TextView, SyncTables::AddressColumns>;
using Phones = std::array<TextView, SyncTables::PhoneColumns>;

const std::string Loading = "status \"Lade Adress-Synchronisationsdaten...\"";
const std::string NotLoaded = "status \"Adress-Synchronisationsdaten nicht geladen\"";
const std::string NotFound =
    "box \"SyncDatei nicht gefunden, bitte prüfen!\" title \"Laden\" icon Critical buttons Ok "
    "default Ok -> Ok";

Lines Imported(const std::string& text) {
    return {Loading, "status \"" + text + "\""};
}

/// Time stands still, so that no load takes long.
std::chrono::steady_clock::time_point Standing() {
    return {};
}

std::string Card(const std::string& lines) {
    return "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "\r\nEND:VCARD\r\n";
}

/// Does not name a single field.
class LoadContacts : public testing::Test {
  protected:
    Lines Load(const FilePath& file) {
        settings.SetValue(Setting::SyncDatabase, TextFromPath(file));
        desktop.Transcript.clear();
        LoadSyncDatabase(settings, sync, desktop, Standing);
        return desktop.Transcript;
    }
    Lines LoadCards(const std::string& cards) { return Load(folder.Write("a.vcf", cards)); }

    /// Reads a stream that fails behind these bytes.
    std::size_t ReadUntilFailure(const std::string& bytes) {
        InputStream input(
            [&bytes, first = true](std::span<Byte> block) mutable {
                if (!std::exchange(first, false)) {
                    throw RuntimeError(ErrorNumber::DeviceError);
                }
                std::copy(bytes.begin(), bytes.end(), block.begin());
                return bytes.size();
            },
            std::nullopt);
        return ReadSyncContacts(input, sync.Tables, desktop, Standing);
    }

    [[nodiscard]] const Names& NamesOf(std::size_t record) const {
        return sync.Tables.SyncNameTable.at(record);
    }
    [[nodiscard]] const Addresses& AddressOf(std::size_t record) const {
        return sync.Tables.SyncAddressTable.at(record);
    }
    [[nodiscard]] const Phones& PhonesOf(std::size_t record) const {
        return sync.Tables.SyncPhoneTable.at(record);
    }

    TestFolder folder;
    SettingsTable settings;
    SyncState sync;
    ScriptedDesktop desktop;
};

const std::string Anna = Card(
    "N:Adler;Anna;;;\r\nORG:Adler & Co\r\nADR;TYPE=home:;;Am Markt 1;Berlin;;10115;Deutschland\r\n"
    "TEL;TYPE=work:+49 30 1\r\nTEL;TYPE=home:030 2\r\nTEL;TYPE=work,fax:030 3\r\n"
    "TEL;TYPE=cell:0171 4");
const std::string Bernd = Card("N:B\xC3\xA4r;Bernd;;;\r\nTEL:040 5");

TEST_F(LoadContacts, AContactIsARecordWithoutAnyFieldNumber) {
    EXPECT_EQ(LoadCards(Anna + Bernd), Imported("2 Adress-Einträge importiert"));
    EXPECT_EQ(NamesOf(1), (Names{u"Adler", u"Anna", u"Adler & Co"}));
    EXPECT_EQ(AddressOf(1), (Addresses{u"Am Markt 1", u"10115", u"Berlin"}));
    EXPECT_EQ(PhonesOf(1), (Phones{u"+49 30 1", u"030 2", u"030 3", u"0171 4"}));
    EXPECT_EQ(NamesOf(2), (Names{u"Bär", u"Bernd", u""}));
    EXPECT_EQ(AddressOf(2), Addresses());
    EXPECT_EQ(PhonesOf(2), (Phones{u"", u"", u"", u"040 5"}));
    EXPECT_EQ(NamesOf(0), Names());
    EXPECT_EQ(NamesOf(3), Names());
    EXPECT_TRUE(sync.SyncLoaded);
}

TEST_F(LoadContacts, TheFieldNumbersOfATextFileDoNotMatter) {
    for (std::size_t item = 0; item < SyncItems; ++item) {
        settings.SetValue(
            static_cast<Setting>(static_cast<int>(Setting::SyncName) + static_cast<int>(item)),
            item % 2 == 0 ? u"2" : u"x");
    }
    LoadCards(Anna);
    EXPECT_EQ(NamesOf(1), (Names{u"Adler", u"Anna", u"Adler & Co"}));
    EXPECT_EQ(PhonesOf(1), (Phones{u"+49 30 1", u"030 2", u"030 3", u"0171 4"}));
}

TEST_F(LoadContacts, TheEndingDecidesInAnyCase) {
    folder.Write("Adressen/Kontakte.VCF", Bernd);
    EXPECT_EQ(Load(folder / "adressen" / "kontakte.vcf"), Imported("1 Adress-Einträge importiert"));
    EXPECT_EQ(Load(folder / "Adressen" / "KONTAKTE.Vcf"), Imported("1 Adress-Einträge importiert"));
    EXPECT_EQ(NamesOf(1)[SyncTables::Surname], u"Bär");
    EXPECT_EQ(Load(folder.Write("a.vcf.csv", "\"Meier\"\r\n\"Kunz\"\r\n")),
              Imported("2 Adress-Einträge importiert"));
    EXPECT_TRUE(NamesVCard(u"C:\\Daten\\a.VcF"));
    EXPECT_TRUE(NamesVCard(u".vcf"));
    for (const TextView path : {u"", u"vcf", u"a.vcf ", u"a.vcard", u"a.vcf/b.csv"}) {
        EXPECT_FALSE(NamesVCard(path)) << Utf8(path);
    }
}

TEST_F(LoadContacts, ARelativePathCountsFromTheFolderOfTheSettings) {
    folder.Write("Daten/A.vcf", Bernd);
    folder.Write("norvik.ini", "SyncDatabase=daten/a.vcf\r\n");
    ReadSettingsFile(folder.Path(), settings);
    LoadSyncDatabase(settings, sync, desktop);
    EXPECT_EQ(desktop.Transcript, Imported("1 Adress-Einträge importiert"));
}

// Numbers

TEST_F(LoadContacts, FurtherNumbersOfAKindStandInRecordsOfTheSameContact) {
    EXPECT_EQ(LoadCards(Card("N:Adler;Anna\r\nADR:;;Am Markt 1;Berlin;;10115;\r\n"
                             "TEL;TYPE=cell:0171 1\r\nTEL;TYPE=home:030 1\r\nTEL:0172 2\r\n"
                             "TEL;TYPE=home:030 2\r\nTEL;TYPE=pager:0173 3") +
                        Bernd),
              Imported("2 Adress-Einträge importiert"));
    EXPECT_EQ(PhonesOf(1), (Phones{u"", u"030 1", u"", u"0171 1"}));
    EXPECT_EQ(PhonesOf(2), (Phones{u"", u"030 2", u"", u"0172 2"}));
    EXPECT_EQ(PhonesOf(3), (Phones{u"", u"", u"", u"0173 3"}));
    for (const std::size_t record : {1U, 2U, 3U}) {
        EXPECT_EQ(NamesOf(record), (Names{u"Adler", u"Anna", u""})) << record;
        EXPECT_EQ(AddressOf(record), (Addresses{u"Am Markt 1", u"10115", u"Berlin"})) << record;
    }
    EXPECT_EQ(NamesOf(4), (Names{u"Bär", u"Bernd", u""}));
}

TEST_F(LoadContacts, ANumberThatACardHasTwiceStandsOnceInItsColumn) {
    LoadCards(Card("N:Adler\r\nTEL;TYPE=home:030 1\r\nTEL;TYPE=home:(030) 1\r\n"
                   "TEL;TYPE=work:030 1\r\nTEL;TYPE=home:tel:030-1"));
    EXPECT_EQ(PhonesOf(1), (Phones{u"030 1", u"030 1", u"", u""}));
    EXPECT_EQ(NamesOf(2), Names());
}

TEST_F(LoadContacts, ANumberWithoutADigitTakesNoPlace) {
    LoadCards(Card("N:Adler\r\nTEL;TYPE=home:unbekannt\r\nTEL;TYPE=home:030 1"));
    EXPECT_EQ(PhonesOf(1), (Phones{u"", u"030 1", u"", u""}));
}

TEST_F(LoadContacts, TheLabelOfItsGroupTellsTheKindOfANumber) {
    LoadCards(Card("N:Adler\r\nitem1.TEL:030 1\r\nitem1.X-ABLabel:_$!<Work>!$_"));
    EXPECT_EQ(PhonesOf(1), (Phones{u"030 1", u"", u"", u""}));
}

// Names and addresses

TEST_F(LoadContacts, AContactWithoutThePartsOfANameIsShownByAnotherName) {
    LoadCards(Card("FN:Anna Adler\r\nTEL:1") + Card("N:;;;;\r\nORG:Adler & Co\r\nTEL:2") +
              Card("N:;Anna;;;\r\nFN:Anna Adler\r\nTEL:3") + Card("TEL:4"));
    EXPECT_EQ(NamesOf(1), (Names{u"Anna Adler", u"", u""}));
    EXPECT_EQ(NamesOf(2), (Names{u"Adler & Co", u"", u"Adler & Co"}));
    EXPECT_EQ(NamesOf(3), (Names{u"", u"Anna", u""}));
    EXPECT_EQ(NamesOf(4), (Names{u"4", u"", u""}));
}

TEST_F(LoadContacts, ThePreferredAddressCounts) {
    LoadCards(Card("N:A\r\nADR:;;Weg 1;Bonn;;53111;\r\nADR;TYPE=pref:;;Weg 2;Ulm;;89073;"));
    EXPECT_EQ(AddressOf(1), (Addresses{u"Weg 2", u"89073", u"Ulm"}));
}

TEST_F(LoadContacts, APostBoxStandsInPlaceOfAMissingStreetAndAnAdditionBehindOne) {
    LoadCards(Card("N:A\r\nADR:Postfach 7;;;Bonn;;53111;") +
              Card("N:B\r\nADR:Postfach 7;Haus 3;Weg 1;Bonn;;53111;"));
    EXPECT_EQ(AddressOf(1), (Addresses{u"Postfach 7", u"53111", u"Bonn"}));
    EXPECT_EQ(AddressOf(2), (Addresses{u"Weg 1, Haus 3", u"53111", u"Bonn"}));
}

TEST_F(LoadContacts, AnAddressAsItIsWrittenOnALetterIsTakenApart) {
    LoadCards(Card("N:A\r\nLABEL:Anna Adler\\nWeg 1\\n53111 Bonn\\nDeutschland") +
              Card("N:B\r\nLABEL:Weg 1\\n53111 Bonn") + Card("N:C\r\nLABEL:Hof\\n\\nWeg 1\\nBonn") +
              Card("N:D\r\nLABEL:Weg 1") + Card("N:E\r\nLABEL:1234\\n5678"));
    EXPECT_EQ(AddressOf(1), (Addresses{u"Weg 1", u"53111", u"Bonn"}));
    EXPECT_EQ(AddressOf(2), (Addresses{u"Weg 1", u"53111", u"Bonn"}));
    EXPECT_EQ(AddressOf(3), (Addresses{u"Weg 1", u"", u"Bonn"}));
    EXPECT_EQ(AddressOf(4), (Addresses{u"Weg 1", u"", u""}));
    EXPECT_EQ(AddressOf(5), (Addresses{u"1234", u"", u"5678"}));
}

TEST_F(LoadContacts, AnAddressMarksNoEntryForExport) {
    LoadCards(Card("N:A()\r\nADR:;;Weg () 1;Bonn();;();"));
    EXPECT_EQ(AddressOf(1), (Addresses{u"Weg ( ) 1", u"( )", u"Bonn( )"}));
}

TEST_F(LoadContacts, TheStatusTellsOfReplacedCharacters) {
    EXPECT_EQ(LoadCards(Bernd + Card("N:Wa\xC5\x82\xC4\x99sa;Lech") +
                        Card("N:A\r\nADR:;;;\xC5\x81\xC3\xB3"
                             "d\xC5\xBA;;;")),
              Imported("3 Adress-Einträge importiert; Zeichen ersetzt: Walesa, Lech und 1 "
                       "weitere"));
    EXPECT_EQ(NamesOf(2), (Names{u"Walesa", u"Lech", u""}));
    EXPECT_EQ(AddressOf(3), (Addresses{u"", u"", u"Lódz"}));
    EXPECT_EQ(LoadCards(Bernd + Card("N:A\r\nNOTE:\xC5\x82")),
              Imported("2 Adress-Einträge importiert"))
        << "a note is not taken";
}

// Counts and limits

TEST_F(LoadContacts, AContactWithoutANumberCountsButAListOfContactsDoesNot) {
    EXPECT_EQ(LoadCards(Card("N:Adler;Anna") + Card("FN:Verein\r\nKIND:group") + Card("") + Bernd),
              Imported("3 Adress-Einträge importiert"));
    EXPECT_EQ(NamesOf(1), (Names{u"Adler", u"Anna", u""}));
    EXPECT_EQ(NamesOf(2), Names());
    EXPECT_EQ(NamesOf(3), (Names{u"Bär", u"Bernd", u""}));
}

TEST_F(LoadContacts, Of1200ContactsThe1000FirstAreRead) {
    std::string cards;
    for (int card = 1; card <= 1200; ++card) {
        const std::string number = std::to_string(card);
        cards += Card("N:" + number + "\r\nTEL:1" + number + "\r\nTEL:2" + number);
    }
    EXPECT_EQ(LoadCards(cards), Imported("1000 Adress-Einträge importiert"));
    ASSERT_EQ(sync.Tables.SyncPhoneTable.size(), 2001U);
    EXPECT_EQ(sync.Tables.SyncNameTable.size(), 2001U);
    EXPECT_EQ(sync.Tables.SyncAddressTable.size(), 2001U);
    EXPECT_EQ(NamesOf(2000)[SyncTables::Surname], u"1000");
    EXPECT_EQ(PhonesOf(2000)[SyncTables::Other], u"21000");
}

TEST_F(LoadContacts, NeverMoreRecordsThanTheLimitAreMade) {
    std::string cards;
    for (int card = 0; card < 12; ++card) {
        std::string numbers = "N:" + std::to_string(card);
        for (int number = 0; number < 900; ++number) {
            numbers += "\r\nTEL:" + std::to_string(100000 + card * 1000 + number);
        }
        cards += Card(numbers);
    }
    EXPECT_EQ(LoadCards(cards), Imported("12 Adress-Einträge importiert"));
    EXPECT_EQ(sync.Tables.SyncPhoneTable.size(), MostContactRecords + 1);
    EXPECT_EQ(PhonesOf(MostContactRecords)[SyncTables::Other], u"111099");
    EXPECT_EQ(LoadCards(cards + cards), Imported("12 Adress-Einträge importiert"));
}

TEST_F(LoadContacts, OfATextThe1000FirstCharactersAreKept) {
    LoadCards(Card("N:" + std::string(5000, 'x')));
    EXPECT_EQ(NamesOf(1)[SyncTables::Surname], Text(1000, u'x'));
}

TEST_F(LoadContacts, AFileLargerThanTextFilesMayBeIsRead) {
    const FilePath file = folder.Write("a.vcf", Bernd);
    fs::resize_file(file, MaximumFileSize + 1000);
    EXPECT_EQ(Load(file), Imported("1 Adress-Einträge importiert"));
    EXPECT_EQ(NamesOf(1)[SyncTables::Surname], u"Bär");
}

// One load behind the other

TEST_F(LoadContacts, EachLoadReplacesTheOneBeforeCompletely) {
    const FilePath csv = folder.Write("b.csv", "\"Meier\"\r\n");
    settings.SetValue(Setting::SyncName, u"1");
    LoadCards(Card("N:Adler\r\nTEL:1\r\nTEL:2") + Anna + Bernd);
    EXPECT_EQ(Load(csv), Imported("1 Adress-Einträge importiert"));
    EXPECT_EQ(NamesOf(1), (Names{u"Meier", u"", u""}));
    EXPECT_EQ(NamesOf(2), Names());
    EXPECT_FALSE(sync.Tables.OfContacts);
    EXPECT_EQ(LoadCards(Bernd), Imported("1 Adress-Einträge importiert"));
    EXPECT_EQ(NamesOf(1), (Names{u"Bär", u"Bernd", u""}));
    EXPECT_TRUE(sync.Tables.OfContacts);
}

TEST_F(LoadContacts, TheContactsStayWhenTheFileIsGone) {
    LoadCards(Anna);
    fs::remove(folder / "a.vcf");
    EXPECT_EQ(AddressOf(1), (Addresses{u"Am Markt 1", u"10115", u"Berlin"}));
}

// When it goes wrong

TEST_F(LoadContacts, AMissingFileIsReportedEmptiesTheTablesAndKeepsTheMenu) {
    EXPECT_EQ(Load(folder / "fehlt.vcf"), (Lines{Loading, NotFound, NotLoaded}));
    EXPECT_FALSE(sync.SyncLoaded);
    LoadCards(Anna);
    EXPECT_EQ(Load(folder / "fehlt.vcf"), (Lines{Loading, NotFound, NotLoaded}));
    EXPECT_EQ(NamesOf(1), Names());
    EXPECT_EQ(sync.Tables.SyncPhoneTable.size(), SyncRecords + 1);
    EXPECT_TRUE(sync.SyncLoaded);
}

TEST_F(LoadContacts, AFileThatHoldsNoContactIsALoadOf0) {
    for (const std::string& bytes :
         {std::string(), std::string("\"Meier\",\"030 1\"\r\n"), std::string(5000, '\0'),
          std::string("END:VCARD\r\n"), std::string("\xFF\xFE\x00\xD8", 4)}) {
        EXPECT_EQ(LoadCards(bytes), Imported("0 Adress-Einträge importiert"));
        EXPECT_TRUE(sync.SyncLoaded);
    }
}

TEST_F(LoadContacts, ACardThatIsCutIsTakenAsFarAsItGoes) {
    EXPECT_EQ(LoadCards(Anna + "BEGIN:VCARD\r\nN:B\xE4r;Bernd\r\nTEL;TYPE=home:04"),
              Imported("2 Adress-Einträge importiert"));
    EXPECT_EQ(NamesOf(2), (Names{u"Bär", u"Bernd", u""}));
    EXPECT_EQ(PhonesOf(2), (Phones{u"", u"04", u"", u""}));
}

TEST_F(LoadContacts, WhatWasReadBeforeAFailureStays) {
    EXPECT_EQ(ReadUntilFailure(Bernd), 1U);
    EXPECT_EQ(NamesOf(1), (Names{u"Bär", u"Bernd", u""}));
    EXPECT_THAT(desktop.Transcript, IsEmpty());
}

#ifndef _WIN32
TEST_F(LoadContacts, AFileThatCannotBeReadCountsAsEmptyWithoutAMessage) {
    const FilePath before = folder.Write("before.vcf", Anna);
    fs::create_directory(folder / "folder.vcf");
    fs::create_symlink("/dev/zero", folder / "device.vcf");
    ASSERT_EQ(mkfifo((folder / "pipe.vcf").c_str(), 0600), 0);
    fs::permissions(folder.Write("secret.vcf", Anna), fs::perms::none);
    for (const char* name : {"folder.vcf", "device.vcf", "pipe.vcf", "secret.vcf"}) {
        Load(before);
        const AsAnyUser anyUser;
        EXPECT_EQ(Load(folder / name), Imported("0 Adress-Einträge importiert")) << name;
        EXPECT_EQ(NamesOf(1), Names()) << name;
        EXPECT_TRUE(sync.SyncLoaded);
    }
}
#endif

TEST_F(LoadContacts, ALoadThatTakesItsTimeShowsHowFarItHasCome) {
    std::string cards;
    for (int card = 0; card < 20; ++card) {
        cards +=
            Card("N:" + std::to_string(card) + "\r\nPHOTO;ENCODING=b:" + std::string(50000, 'A'));
    }
    settings.SetValue(Setting::SyncDatabase, TextFromPath(folder.Write("a.vcf", cards)));
    std::chrono::steady_clock::time_point now;
    LoadSyncDatabase(settings, sync, desktop, [&now] { return now += std::chrono::seconds(1); });
    const Lines statuses = desktop.Statuses();
    ASSERT_GT(statuses.size(), 3U);
    EXPECT_EQ(statuses.front(), "Lade Adress-Synchronisationsdaten...");
    EXPECT_THAT(statuses.at(1), testing::StartsWith("vCard-Datei wird gelesen... "));
    EXPECT_EQ(statuses.back(), "20 Adress-Einträge importiert");
}

}  // namespace
}  // namespace norvik::test
