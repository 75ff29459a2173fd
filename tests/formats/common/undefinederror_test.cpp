#include "formats/common/undefinederror.h"

#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

TEST(ReportUndefinedError, ShowsMenuItemNumberAndDescriptionOneDirectlyAfterTheOther) {
    ScriptedDesktop desktop;
    ReportUndefinedError(u"mnuDateiLoad175", RuntimeError(ErrorNumber::ReadPastEnd), desktop);
    ReportUndefinedError(u"mnuDateiLoadCSV", RuntimeError(ErrorNumber::Overflow), desktop);
    EXPECT_THAT(
        desktop.Transcript,
        ElementsAre("box \"Undef'd Error: mnuDateiLoad175:62Einlesen hinter Dateiende\" title "
                    "\"NORVIK\" icon None buttons Ok default Ok -> Ok",
                    "box \"Undef'd Error: mnuDateiLoadCSV:6Überlauf\" title \"NORVIK\" icon None "
                    "buttons Ok default Ok -> Ok"));
}

}  // namespace
}  // namespace norvik::test
