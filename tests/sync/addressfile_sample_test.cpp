// The sample address file with the settings that read it, on the sample register.
#include "formats/registerfile/registerfile.h"
#include "register/settings.h"
#include "sync/loadsyncdatabase.h"
#include "sync/searchsyncaddress.h"
#include "tests/support/places.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace norvik::test {
namespace {

using testing::Contains;
using testing::HasSubstr;

const FilePath Samples = SourceFolder() / "samples";

/// The settings of the sample, with the whole path of the address file.
Settings SampleSettings() {
    Settings settings;
    ReadSettings(ReadFile(Samples / "norvik.ini"), settings.Table);
    settings.Table.SetValue(Setting::SyncDatabase, TextFromPath(Samples / "adressen.csv"));
    ApplySettings(settings);
    return settings;
}

/// Every number of the sample register that the sample address file knows: searched for, each
/// address taken.
struct Found {
    int Questions = 0;
    int WithoutAddress = 0;
};

Found SearchAll(RegisterState& state, const SyncState& sync, const Settings& settings) {
    Found found;
    for (state.AnzNr = 1; state.AnzNr <= state.AnzGes; ++state.AnzNr) {
        class Answering : public ScriptedDesktop {
          public:
            explicit Answering(Found& count) : count_(count) {}
            Button Ask(const MessageBox& box) override {
                count_.Questions += box.title == u"Adresse gefunden?" ? 1 : 0;
                count_.WithoutAddress += box.title == u"Keine Adresse" ? 1 : 0;
                return box.buttons.front();
            }

          private:
            Found& count_;
        } desktop(found);
        SearchSyncAddress(state, sync, settings, desktop);
    }
    return found;
}

TEST(AddressFileSample, LoadsWithItsSettings) {
    ScriptedDesktop desktop;
    SyncState sync;
    const Settings settings = SampleSettings();
    LoadSyncDatabase(settings.Table, sync, desktop);
    EXPECT_TRUE(sync.SyncLoaded);
    EXPECT_THAT(desktop.Statuses(), Contains(HasSubstr("150 Adress-Einträge importiert")));
    EXPECT_EQ(sync.Tables.SyncNameTable[6][SyncTables::Surname], u"Brandt");
    EXPECT_EQ(sync.Tables.SyncAddressTable[6][SyncTables::City], u"Nebelhafen");
    EXPECT_EQ(sync.Tables.SyncPhoneTable[6][SyncTables::Private], u"+49 40 66969-102");
    EXPECT_EQ(sync.Tables.SyncPhoneTable[77][SyncTables::Other], u"+49 171 3920011");
}

TEST(AddressFileSample, KnowsNumbersOfTheSampleRegister) {
    ScriptedDesktop desktop;
    SyncState sync;
    const Settings settings = SampleSettings();
    LoadSyncDatabase(settings.Table, sync, desktop);
    RegisterState state;
    LoadRegisterFile(state, Samples / "telefonbuch.t9t", desktop);
    state.WarnLineAccessZero = false;
    const Found found = SearchAll(state, sync, settings);
    EXPECT_EQ(found.Questions, 23);
    EXPECT_EQ(found.WithoutAddress, 1);
}

TEST(AddressFileSample, ComesFromItsGenerator) {
    if (std::system("python3 --version > /dev/null 2>&1") != 0) {
        GTEST_SKIP() << "needs python3";
    }
    const TestFolder folder;
    const std::string command = "python3 -B '" + (Samples / "make_samples.py").string() + "' '" +
                                folder.Path().string() + "' > /dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(ReadFile(folder / "adressen.csv"), ReadFile(Samples / "adressen.csv"));
    EXPECT_EQ(ReadFile(folder / "norvik.ini"), ReadFile(Samples / "norvik.ini"));
}

/// The settings are written as the program writes them.
TEST(AddressFileSample, SettingsAreTheProgramsOwnText) {
    SettingsTable table;
    ReadSettings(ReadFile(Samples / "norvik.ini"), table);
    EXPECT_EQ(BytesFromText(SettingsText(table)), ReadFile(Samples / "norvik.ini"));
}

}  // namespace
}  // namespace norvik::test
