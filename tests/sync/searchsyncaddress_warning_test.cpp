// The address search: the warning of zeros for the outside line.
#include "sync/searchsyncaddress.h"

#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using Lines = std::vector<std::string>;

const std::string Warning =
    "box \"ACHTUNG! Diese Funktion liefert nur sinnvolle Ergebnisse,\\r\\nwenn das Register keine "
    "Nullen zur Amtholung enthält\\r\\n(ggf. mit 'Bearbeiten' entfernen)\\r\\n\\r\\n"
    "'Wiederholen': Aktion wird trotzdem durchgeführt\\r\\n'Ignorieren' : Aktion wird "
    "durchgeführt, keine weitere Warnung\" title \"WARNUNG!\" icon Exclamation buttons "
    "Abort+Retry+Ignore default Abort -> ";
const Lines NothingFound = {"status \"Suche nach Adressdaten...\"",
                            "status \"Keine passenden Daten gefunden\""};

class SyncWarning : public testing::Test {
  protected:
    SyncWarning() {
        settings.InternationalPrefix = u"0049";
        settings.AreaPrefix = u"030";
        sync.SyncLoaded = true;
        state.WarnLineAccessZero = true;
    }

    Lines Search() {
        desktop.Transcript.clear();
        SearchSyncAddress(state, sync, settings, desktop);
        return desktop.Transcript;
    }

    static Lines Warned(const std::string& answer, const Lines& further) {
        Lines lines = {Warning + answer};
        lines.insert(lines.end(), further.begin(), further.end());
        return lines;
    }

    RegisterState state = RegisterOf({Entry(u"Anna", u"030 1234567", u"old")});
    SyncState sync;
    Settings settings;
    ScriptedDesktop desktop;
};

TEST_F(SyncWarning, AbortEndsTheSearch) {
    sync.Tables.SyncPhoneTable[1][SyncTables::Private] = u"030 1234567";
    desktop.AnswerBox(Button::Abort);
    EXPECT_EQ(Search(), Lines{Warning + "Abort"});
    EXPECT_TRUE(state.WarnLineAccessZero);
    EXPECT_EQ(state.Register(1).Info, u"old");
}

TEST_F(SyncWarning, AbortComesBeforeEveryOtherMessage) {
    sync.SyncLoaded = false;
    state.Register(1).Tel = u"";
    desktop.AnswerBox(Button::Abort);
    EXPECT_EQ(Search(), Lines{Warning + "Abort"});
}

TEST_F(SyncWarning, RetryGoesOnAndKeepsTheWarning) {
    desktop.AnswerBox(Button::Retry).AnswerBox(Button::Retry);
    EXPECT_EQ(Search(), Warned("Retry", NothingFound));
    EXPECT_TRUE(state.WarnLineAccessZero);
    EXPECT_EQ(Search(), Warned("Retry", NothingFound));
}

TEST_F(SyncWarning, IgnoreGoesOnWithoutAWarningInLaterRunsUntilTheFlagIsSetAgain) {
    desktop.AnswerBox(Button::Ignore);
    EXPECT_EQ(Search(), Warned("Ignore", NothingFound));
    EXPECT_FALSE(state.WarnLineAccessZero);
    EXPECT_EQ(Search(), NothingFound);
    EXPECT_EQ(Search(), NothingFound);

    state.WarnLineAccessZero = true;
    desktop.AnswerBox(Button::Retry);
    EXPECT_EQ(Search(), Warned("Retry", NothingFound));
}

TEST_F(SyncWarning, IsNotShownWithoutTheFlag) {
    state.WarnLineAccessZero = false;
    EXPECT_EQ(Search(), NothingFound);
    EXPECT_FALSE(state.WarnLineAccessZero);
}

TEST_F(SyncWarning, IgnoreIsRememberedEvenWhenTheNumberIsRefused) {
    sync.SyncLoaded = false;
    state.Register(1).Tel = u"i";
    desktop.AnswerBox(Button::Ignore);
    EXPECT_EQ(
        Search(),
        Warned("Ignore", {OkBox(u"Keine Adreßdaten geladen!"),
                          OkBox(u"Telefonnummer enthält keine synchronisationsrelevanten Daten!",
                                u"SyncAdresse", "Critical")}));
    EXPECT_FALSE(state.WarnLineAccessZero);
}

}  // namespace
}  // namespace norvik::test
