#include "tests/qt/windowfixture.h"

#include <QPrinterInfo>

namespace norvik::test {
namespace {

using WindowPaperWithoutPrinter = WindowTest;

TEST_F(WindowPaperWithoutPrinter, SaysSoAndTheDialogStays) {
    if (!QPrinterInfo::availablePrinterNames().isEmpty()) {
        GTEST_SKIP() << "there is one";
    }
    Load({{.name = "Anna", .tel = "1"}});
    Dialogs.DriveToItsEnd([this](QDialog& dialog) {
        Click("btnPrint");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(TextOf("Status"), "Nicht gedruckt: es ist kein Drucker eingerichtet");
        dialog.reject();
    });
    Trigger("mnuDateiPrint");
}

}  // namespace
}  // namespace norvik::test
