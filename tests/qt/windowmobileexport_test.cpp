#include "tests/qt/windowmobileexport.h"
#include "tests/support/processlimits.h"

#include <QSignalSpy>
#include <QValidator>

namespace norvik::test {

namespace {

using testing::ElementsAre;

namespace fs = std::filesystem;

struct Named {
    const char* name;
    const char* className;
    const char* caption;  ///< without its mnemonic; of a field, the text of its label
};

TEST_F(WindowMobileExport, EveryControlHasItsNameKindCaptionAndAccessibleName) {
    const std::vector<Named> controls = {
        {"chkHE(0)", "QCheckBox", "Vorwahl ergänzen"},
        {"chkHE(1)", "QCheckBox", "Nummern internationalisieren"},
        {"chkHE(2)", "QCheckBox", "00 durch + ersetzen"},
        {"chkHE(3)", "QCheckBox", "Nur markierte Einträge"},
        {"chkHE(4)", "QCheckBox", "Komma in Namen entfernen"},
        {"chkHE(5)", "QCheckBox", "Laufende Nummer schreiben"},
        {"chkHE(6)", "QCheckBox", "Daten in Anführungszeichen"},
        {"AnzVorwahl", "QLabel", "Vorwahl:"},
        {"AnzLand", "QLabel", "Land:"},
        {"InpSeparator", "QLineEdit", "Trennzeichen:"},
        {"btnExport", "QPushButton", "Exportieren..."},
        {"btnSaveSettings", "QPushButton", "Einstellungen speichern"},
        {"btnCancel", "QPushButton", "Abbrechen"}};
    Dialogs.Drive([&](QDialog& dialog) {
        std::vector<std::string> labels;
        for (const QLabel* label : dialog.findChildren<QLabel*>()) {
            labels.push_back(WithoutMnemonic(label->text()).toStdString());
        }
        for (const Named& control : controls) {
            const auto found = dialog.findChildren<QWidget*>(control.name);
            ASSERT_EQ(found.size(), 1) << control.name;
            EXPECT_TRUE(found.first()->inherits(control.className)) << control.name;
            EXPECT_FALSE(found.first()->accessibleName().isEmpty()) << control.name;
            EXPECT_FALSE(found.first()->accessibleName().contains(u'&')) << control.name;
            EXPECT_TRUE(found.first()->isVisible()) << control.name;
            EXPECT_TRUE(found.first()->isEnabled()) << control.name;
            if (qobject_cast<QAbstractButton*>(found.first()) != nullptr) {
                EXPECT_EQ(TextOf(control.name), control.caption);
            } else {
                EXPECT_THAT(labels, testing::Contains(control.caption));
            }
        }
    });
    ShowDialog();
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Opened));
}

TEST_F(WindowMobileExport, TheDialogIsModalAndStandsAboveTheMainWindow) {
    Dialogs.Drive([this](QDialog& dialog) {
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(dialog.parentWidget(), Window.get());
        EXPECT_FALSE(Window->close());
    });
    ShowDialog();
    EXPECT_TRUE(Window->isVisible());
}

TEST_F(WindowMobileExport, NoTwoControlsHaveTheSameMnemonic) {
    Dialogs.Drive([](QDialog& dialog) {
        std::string mnemonics;
        const auto add = [&mnemonics](const QString& caption) {
            const qsizetype mark = caption.indexOf(u'&');
            if (mark >= 0) {
                mnemonics.push_back(caption.at(mark + 1).toLower().toLatin1());
            }
        };
        for (const auto* button : dialog.findChildren<QAbstractButton*>()) {
            add(button->text());
        }
        for (const auto* label : dialog.findChildren<QLabel*>()) {
            add(label->text());
        }
        std::sort(mnemonics.begin(), mnemonics.end());
        EXPECT_GE(mnemonics.size(), 10U);
        EXPECT_EQ(std::adjacent_find(mnemonics.begin(), mnemonics.end()), mnemonics.end())
            << mnemonics;
    });
    ShowDialog();
}

TEST_F(WindowMobileExport, TheTabKeyGoesThroughTheControlsAsTheyStand) {
    Dialogs.Drive([](QDialog& dialog) {
        EXPECT_THAT(TabOrder(dialog),
                    ElementsAre("chkHE(0)", "chkHE(1)", "chkHE(2)", "chkHE(3)", "chkHE(4)",
                                "chkHE(5)", "chkHE(6)", "InpSeparator", "btnExport",
                                "btnSaveSettings", "btnCancel"));
    });
    ShowDialog();
}

TEST_F(WindowMobileExport, TheDialogCanBeResizedButNothingOfItIsCut) {
    Dialogs.Drive([](QDialog& dialog) {
        dialog.resize(1, 1);
        QCoreApplication::processEvents();
        for (const auto* control : dialog.findChildren<QAbstractButton*>()) {
            EXPECT_GE(control->width(), control->sizeHint().width())
                << control->objectName().toStdString();
            EXPECT_TRUE(
                dialog.rect().contains(QRect(control->mapTo(&dialog, QPoint()), control->size())));
        }
        dialog.resize(900, 700);
        EXPECT_EQ(dialog.size(), QSize(900, 700));
    });
    ShowDialog();
}

TEST_F(WindowMobileExport, ShowsThePrefixesAndWithoutStoredOptionsNoBoxAndASemicolon) {
    Drive([this] {
        EXPECT_EQ(TextOf("AnzVorwahl"), "030");
        EXPECT_EQ(TextOf("AnzLand"), "0049");
        EXPECT_EQ(Ticked(), "");
        EXPECT_EQ(TextOf("InpSeparator"), ";");
    });
    ShowDialog();
}

TEST_F(WindowMobileExport, WithoutASettingsFileThePrefixesAreZerosAlone) {
    fs::remove(Folder / "norvik.ini");
    Dialogs.Click(QMessageBox::Ok);
    Open();
    Drive([this] {
        EXPECT_EQ(TextOf("AnzVorwahl"), "0");
        EXPECT_EQ(TextOf("AnzLand"), "00");
    });
    ShowDialog();
}

TEST_F(WindowMobileExport, Box1TicksBox0WhichCanBeUntickedAgain) {
    Drive([this] {
        Click("chkHE(1)");
        EXPECT_EQ(Ticked(), "01");
        Click("chkHE(0)");
        EXPECT_EQ(Ticked(), "1");
        Click("chkHE(1)");
        EXPECT_EQ(Ticked(), "");
        Click("chkHE(0)");
        Click("chkHE(1)");
        EXPECT_EQ(Ticked(), "01");
        Click("chkHE(1)");
        EXPECT_EQ(Ticked(), "0") << "unticking box 1 leaves box 0";
    });
    ShowDialog();
}

TEST_F(WindowMobileExport, BoxesAndSeparatorWorkByTheKeyboard) {
    Drive([this] {
        QTest::keyClick(Find<QWidget>("chkHE(1)"), Qt::Key_Space);
        EXPECT_EQ(Ticked(), "01");
        QTest::keyClick(Find<QWidget>("chkHE(6)"), Qt::Key_Space);
        EXPECT_EQ(Ticked(), "016");
        QTest::keyClick(Find<QWidget>("chkHE(6)"), Qt::Key_T, Qt::AltModifier);
        EXPECT_TRUE(Separator()->hasFocus());
    });
    ShowDialog();
}

TEST_F(WindowMobileExport, TheSeparatorRefusesCharactersOutsideWindows1252WithABeep) {
    Drive([this] {
        ASSERT_NE(Separator()->validator(), nullptr);
        const QSignalSpy beeps(Separator()->validator(), SIGNAL(beeped()));
        Separator()->end(false);
        TypeText(Separator(), QString::fromUtf8("€Ω"));
        EXPECT_EQ(TextOf("InpSeparator"), ";€");
        EXPECT_EQ(beeps.count(), 1);
        Paste(Separator(), QString::fromUtf8("a→b"));
        EXPECT_EQ(TextOf("InpSeparator"), ";€");
        EXPECT_EQ(beeps.count(), 2);
    });
    ShowDialog();
}

TEST_F(WindowMobileExport, ARefusedFirstCharacterLeavesTheSeparator) {
    Drive([this] {
        Separator()->end(false);
        TypeText(Separator(), QString::fromUtf8("→"));
        EXPECT_EQ(TextOf("InpSeparator"), ";");
        Paste(Separator(), QString::fromUtf8("a→b"));
        EXPECT_EQ(TextOf("InpSeparator"), ";");
    });
    ShowDialog();
}

TEST_F(WindowMobileExport, TheSeparatorTakesATabWhichItsToolTipNames) {
    Drive([this] {
        EXPECT_EQ(Separator()->toolTip(), "");
        Separator()->setFocus();
        Separator()->selectAll();
        QTest::keyClick(Separator(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(TextOf("InpSeparator"), "\t");
        EXPECT_EQ(Separator()->toolTip(), "Tabulator");
        EXPECT_TRUE(Separator()->hasFocus());
        SetSeparator("|");
        EXPECT_EQ(Separator()->toolTip(), "");
        Separator()->selectAll();
        Paste(Separator(), "\t");
        EXPECT_EQ(TextOf("InpSeparator"), "\t");
        Click("btnSaveSettings");
    });
    ShowDialog();
    EXPECT_THAT(FileText("norvik.ini"), testing::HasSubstr("\r\nDataSeparator=\t\r\n"));
    Drive([this] {
        EXPECT_EQ(TextOf("InpSeparator"), "\t");
        EXPECT_EQ(Separator()->toolTip(), "Tabulator");
    });
    ShowDialog();
}

TEST_F(WindowMobileExport, TickingABoxLeavesTheTypedSeparatorAndItsCursor) {
    Drive([this] {
        SetSeparator("ab");
        Separator()->setCursorPosition(1);
        Click("chkHE(1)");
        TypeText(Separator(), "x");
        EXPECT_EQ(TextOf("InpSeparator"), "axb");
    });
    ShowDialog();
}

TEST_F(WindowMobileExport, SavingWritesTheSettingsFileAndTheDialogStaysOpen) {
    Drive([this] {
        for (const char* box : {"chkHE(1)", "chkHE(3)", "chkHE(6)"}) {
            Click(box);
        }
        SetSeparator(" | ");
        Click("btnSaveSettings");
        EXPECT_EQ(TextOf("Status"), "Einstellungen gespeichert");
    });
    ShowDialog();
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Opened));
    EXPECT_EQ(FileText("norvik.ini"), ";NORVIK.EXE Konfigurationsdatei\r\n"
                                      ";NORVIK.EXE configuration file\r\n"
                                      ";changing this file is allowed, but\r\n"
                                      ";it will be regenerated\r\n"
                                      ";if settings are changed by the program\r\n"
                                      "\r\n[common]\r\nUnit=0,12\r\n"
                                      "\r\n[location]\r\nCountryCode=49\r\nRegionCode=30\r\n"
                                      "\r\n[export flags]\r\n"
                                      "GlobalizeNumber=yes\r\n"
                                      "Change00to+=no\r\n"
                                      "UseReductionFlags=yes\r\n"
                                      "DeleteCommaInNames=no\r\n"
                                      "WriteMemNumber=no\r\n"
                                      "UseQuotesForData=yes\r\n"
                                      "DataSeparator= | \r\n"
                                      "\r\n[sync settings]\r\n"
                                      "\r\n[end]\r\n");
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_TRUE(Window->close());
}

TEST_F(WindowMobileExport, ASavedOptionIsThereAgainAndOneThatWasNotSavedIsNot) {
    Drive([this] {
        Click("chkHE(0)");
        Click("chkHE(2)");
        Click("chkHE(4)");
        SetSeparator("#");
        Click("btnSaveSettings");
        Click("chkHE(5)");
        SetSeparator("!");
    });
    ShowDialog();
    Drive([this] {
        EXPECT_EQ(Ticked(), "24") << "box 0 is not stored";
        EXPECT_EQ(TextOf("InpSeparator"), "#");
    });
    ShowDialog();
    Open();
    Drive([this] {
        EXPECT_EQ(Ticked(), "24");
        EXPECT_EQ(TextOf("InpSeparator"), "#");
    });
    ShowDialog();
}

TEST_F(WindowMobileExport, CancelEscapeAndTheCloseBoxStoreNothing) {
    const std::string before = FileText("norvik.ini");
    const auto change = [this](QDialog&) {
        Click("chkHE(1)");
        SetSeparator("#");
    };
    Dialogs.Drive(change);
    ShowDialog();
    Dialogs.Look(change).Press(Qt::Key_Escape);
    ShowDialog();
    Dialogs.Look(change).Close();
    ShowDialog();
    Drive([this] {
        EXPECT_EQ(Ticked(), "");
        EXPECT_EQ(TextOf("InpSeparator"), ";");
    });
    ShowDialog();
    EXPECT_EQ(FileText("norvik.ini"), before);
    EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
    EXPECT_EQ(TextOfField(0), "getippt");
}

#ifndef _WIN32
TEST_F(WindowMobileExport, ASettingsFolderThatIsNotWritableIsARuntimeErrorAndTheDialogStays) {
    const std::string before = FileText("norvik.ini");
    fs::permissions(Folder.Path(), fs::perms(0555));
    Drive([this] {
        Click("chkHE(2)");
        {
            const AsAnyUser anyUser;
            Click("btnSaveSettings");
        }
        EXPECT_EQ(Ticked(), "2");
        EXPECT_EQ(TextOf("Status"), "Sortieren beendet");
        fs::permissions(Folder.Path(), fs::perms::owner_all);
        Click("btnSaveSettings");
        EXPECT_EQ(TextOf("Status"), "Einstellungen gespeichert");
    }).Look([&](QDialog&) {
          EXPECT_EQ(FileText("norvik.ini"), before);
      }).Click(QMessageBox::Ok);
    ShowDialog();
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(Opened, RuntimeErrorBox(70, "Zugriff verweigert")));
    EXPECT_THAT(FileText("norvik.ini"), testing::HasSubstr("\r\nChange00to+=yes\r\n"));
}
#endif

/// The same with stored options.
class WindowMobileExportStored : public WindowMobileExport {
  protected:
    WindowMobileExportStored()
        : WindowMobileExport("AddRegionCode=no\r\nGlobalizeNumber=YES\r\nChange00to+=ja\r\n"
                             "UseQuotesForData=yes\r\nDataSeparator=|\r\n") {}
};

TEST_F(WindowMobileExportStored, TheOptionsStoredAsYesAreTicked) {
    Drive([this] {
        EXPECT_EQ(Ticked(), "016") << "box 1 ticks box 0";
        EXPECT_EQ(TextOf("InpSeparator"), "|");
        Click("btnExport");
    });
    Dialogs.ChooseFile(PathIn("handy")).Click(QMessageBox::Ok);
    Dialogs.Click(QMessageBox::Yes).Click(QMessageBox::No).Click(QMessageBox::No);
    ShowDialog();
    EXPECT_EQ(FileText("handy.pbb"), "\"Meier, Hans\"|\"0049301234567\"\r\n");
}

TEST_F(WindowMobileExportStored, SavingLeavesTheAreaCodeOptionAsItWas) {
    Drive([this] {
        SetSeparator("");
        Click("btnSaveSettings");
    });
    ShowDialog();
    const std::string file = FileText("norvik.ini");
    const std::size_t start = file.find("[export flags]");
    ASSERT_NE(start, std::string::npos);
    EXPECT_EQ(file.substr(start), "[export flags]\r\n"
                                  "AddRegionCode=no\r\nGlobalizeNumber=yes\r\nChange00to+=no\r\n"
                                  "UseReductionFlags=no\r\nDeleteCommaInNames=no\r\n"
                                  "WriteMemNumber=no\r\nUseQuotesForData=yes\r\n"
                                  "\r\n[sync settings]\r\n\r\n[end]\r\n");
}

/// The same with a stored tab as the separator.
class WindowMobileExportTab : public WindowMobileExport {
  protected:
    WindowMobileExportTab() : WindowMobileExport("DataSeparator=\t\r\n") {}
};

TEST_F(WindowMobileExportTab, AnEditLeavesALoadedTabInTheSeparator) {
    Drive([this] {
        Separator()->end(false);
        TypeText(Separator(), "x");
        EXPECT_EQ(TextOf("InpSeparator"), "\tx");
        Separator()->home(false);
        TypeText(Separator(), "y");
        EXPECT_EQ(TextOf("InpSeparator"), "y\tx");
    });
    ShowDialog();
}

}  // namespace

}  // namespace norvik::test
