// The settings dialog, for the tests of its controls, of what it stores and of its sample record.
#pragma once

#include "tests/qt/windowfixture.h"

#include <QListWidget>

#include <filesystem>
#include <functional>

namespace norvik::test {

/// The dialog as the transcript shows it.
inline const std::string OpenedSettings = "dialog NVSET title \"Norvikkonverter - Einstellungen\"";

/// The settings dialog above a register of two entries, the first of them with 100 charge units.
class WindowSettings : public WindowTest {
  protected:
    explicit WindowSettings(const std::string& settings = {}) {
        Folder.Write("norvik.ini",
                     "[common]\r\nUnit=0,12\r\nCountryCode=49\r\nRegionCode=30\r\n" + settings);
        Load({{.name = "Anna", .tel = "030 1234567", .gebEinh = 100},
              {.name = "Zoe", .tel = "0044201234"}});
    }

    DialogAnswers& Drive(const std::function<void()>& act) {
        return Dialogs.Drive([act](QDialog&) { act(); });
    }
    /// Lets `act` work and stores what it did.
    DialogAnswers& Store(const std::function<void()>& act) {
        return Dialogs.DriveToItsEnd([act, this](QDialog&) {
            act();
            Click("btnMakeChanges");
        });
    }
    void ShowDialog() { Trigger("mnuSettingsBasic"); }

    static QString ValueName(int number) { return QString("SetValue(%1)").arg(number); }
    QLineEdit* Value(int number) const { return Find<QLineEdit>(ValueName(number)); }
    std::string TextOfValue(int number) const { return TextOf(ValueName(number)); }
    std::string TextOfOutput(int item) const {
        return TextOf(QString("Testausgabe(%1)").arg(item));
    }
    /// The texts of SetValue(3) to SetValue(12), separated by commas.
    std::string FieldNumbers() const {
        std::string numbers;
        for (int number = 3; number <= 12; ++number) {
            numbers += (number == 3 ? "" : ",") + TextOfValue(number);
        }
        return numbers;
    }

    QListWidget* Sample() const { return Find<QListWidget>("ListSyncFileItems"); }
    std::vector<std::string> SampleLines() const { return RowsOf(*Sample()); }
    QScrollBar* SampleChoice() const { return Find<QScrollBar>("ScrollSyncFile"); }
    void ClickSampleLine(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QListWidgetItem* item = Sample()->item(row);
        ASSERT_NE(item, nullptr);
        Sample()->scrollToItem(item);
        QTest::mouseClick(Sample()->viewport(), Qt::LeftButton, modifiers,
                          Sample()->visualItemRect(item).center());
    }
    /// Clicks the label of an address item, 0 to 9.
    void ClickItem(int item) { Click(QString("itemexpl(%1)").arg(item + 7)); }

    /// Replaces the text of a field by typing.
    static void Replace(QLineEdit* field, const QString& text) {
        field->setFocus();
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        TypeText(field, text);
    }
    void Replace(const QString& field, const QString& text) const {
        Replace(Find<QLineEdit>(field), text);
    }
};

}  // namespace norvik::test
