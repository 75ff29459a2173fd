// The dialog of the mobile export, for the tests of its controls and of its files.
#pragma once

#include "tests/qt/windowfixture.h"

#include <algorithm>
#include <filesystem>
#include <functional>

namespace norvik::test {

/// The dialog as the transcript shows it.
inline const std::string Opened = "dialog NVHE title \"Handyexport\"";

/// The mobile export of three entries, stored in another order than they are shown; entry 2 is
/// shown.
class WindowMobileExport : public WindowTest {
  protected:
    explicit WindowMobileExport(const std::string& flags = {}) {
        Folder.Write("norvik.ini",
                     "[common]\r\nUnit=0,12\r\nCountryCode=49\r\nRegionCode=30\r\n" + flags);
        Load({{.name = "Meier, Hans", .tel = "1234567", .info = "()"},
              {.name = ",Meier", .tel = "0891234"},
              {.name = "Anna", .tel = "0044201234", .info = "x()"}});
        Selector()->setValue(2);
        Retype(0, "getippt");
    }

    DialogAnswers& Drive(const std::function<void()>& act) {
        return Dialogs.Drive([act](QDialog&) { act(); });
    }
    void ShowDialog() { Trigger("mnuDateiHandyexp"); }

    QLineEdit* Separator() const { return Find<QLineEdit>("InpSeparator"); }
    void SetSeparator(const QString& text) const {
        Separator()->selectAll();
        QTest::keyClick(Separator(), Qt::Key_Delete);
        TypeText(Separator(), text);
    }

    /// The boxes that are ticked, by their numbers.
    std::string Ticked() const {
        std::string ticked;
        for (int box = 0; box < 7; ++box) {
            if (IsChecked(QString("chkHE(%1)").arg(box))) {
                ticked += std::to_string(box);
            }
        }
        return ticked;
    }

    /// Ticks boxes and exports into "handy.pbb", all entries but those that a box asks for.
    void Export(const std::vector<const char*>& boxes, const QString& separator = ";") {
        Drive([=, this] {
            for (const char* box : boxes) {
                Click(box);
            }
            SetSeparator(separator);
            Click("btnExport");
        });
        Dialogs.ChooseFile(PathIn("handy")).Click(QMessageBox::Ok);
        const bool asks =
            std::find(boxes.begin(), boxes.end(), std::string_view("chkHE(3)")) == boxes.end();
        for (int entry = 0; asks && entry < 3; ++entry) {
            Dialogs.Click(QMessageBox::Yes);
        }
        ShowDialog();
    }
};

}  // namespace norvik::test
