#include "tests/qt/windowsettings.h"

#include <QGroupBox>
#include <QSignalSpy>
#include <QValidator>

#include <algorithm>

namespace norvik::test {

namespace {

using testing::ElementsAre;

struct Named {
    std::string name;
    const char* className;
    const char* caption = nullptr;  ///< of a button or check box, without its mnemonic
};

std::vector<Named> Controls() {
    std::vector<Named> controls = {{"DDSprache", "QComboBox"},
                                   {"InpLoadfile", "QLineEdit"},
                                   {"btnChangeLoadfile", "QPushButton", "Ändern"},
                                   {"InpSyncFile", "QLineEdit"},
                                   {"btnChangeSyncfile", "QPushButton", "Ändern"},
                                   {"chkLoadSyncOnStart", "QCheckBox", "Beim Start laden"},
                                   {"ScrollSyncFile", "QScrollBar"},
                                   {"ListSyncFileItems", "QListWidget"},
                                   {"itemexpl(7)", "QPushButton", "Name"},
                                   {"itemexpl(8)", "QPushButton", "Vorname"},
                                   {"itemexpl(9)", "QPushButton", "Firma"},
                                   {"itemexpl(10)", "QPushButton", "Strasse, Hausnr."},
                                   {"itemexpl(11)", "QPushButton", "PLZ"},
                                   {"itemexpl(12)", "QPushButton", "Stadt"},
                                   {"itemexpl(13)", "QPushButton", "Tel. geschäftl."},
                                   {"itemexpl(14)", "QPushButton", "Tel. privat"},
                                   {"itemexpl(15)", "QPushButton", "Fax"},
                                   {"itemexpl(16)", "QPushButton", "Andere (Handy)"},
                                   {"btnMakeChanges", "QPushButton", "Übernehmen"},
                                   {"btnCancel", "QPushButton", "Verwerfen"}};
    for (int number = 0; number <= 12; ++number) {
        controls.push_back({"SetValue(" + std::to_string(number) + ")", "QLineEdit"});
    }
    for (int item = 0; item <= 9; ++item) {
        controls.push_back({"Testausgabe(" + std::to_string(item) + ")", "QLabel"});
    }
    return controls;
}

TEST_F(WindowSettings, EveryControlHasItsNameKindCaptionAndAccessibleName) {
    Dialogs.Drive([this](QDialog& dialog) {
        for (const Named& control : Controls()) {
            const auto found = dialog.findChildren<QWidget*>(QString::fromStdString(control.name));
            ASSERT_EQ(found.size(), 1) << control.name;
            EXPECT_TRUE(found.first()->inherits(control.className)) << control.name;
            EXPECT_FALSE(found.first()->accessibleName().isEmpty()) << control.name;
            EXPECT_FALSE(found.first()->accessibleName().contains(u'&')) << control.name;
            EXPECT_TRUE(found.first()->isVisible()) << control.name;
            EXPECT_TRUE(found.first()->isEnabled()) << control.name;
            if (control.caption != nullptr) {
                EXPECT_EQ(TextOf(QString::fromStdString(control.name)), control.caption);
            }
        }
    });
    ShowDialog();
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenedSettings));
}

TEST_F(WindowSettings, NoTwoInputsHaveTheSameAccessibleName) {
    Dialogs.Drive([](QDialog& dialog) {
        std::vector<std::string> names;
        for (const Named& control : Controls()) {
            const auto* widget = dialog.findChild<QWidget*>(QString::fromStdString(control.name));
            ASSERT_NE(widget, nullptr);
            names.push_back(widget->accessibleName().toStdString());
        }
        std::sort(names.begin(), names.end());
        const auto twice = std::adjacent_find(names.begin(), names.end());
        EXPECT_EQ(twice, names.end()) << (twice == names.end() ? "" : *twice);
    });
    ShowDialog();
}

TEST_F(WindowSettings, TheLabelsAndTheGroupsHaveTheirTexts) {
    Dialogs.Drive([](QDialog& dialog) {
        std::vector<std::string> labels;
        for (const auto* label : dialog.findChildren<QLabel*>()) {
            labels.push_back(WithoutMnemonic(label->text()).toStdString());
        }
        EXPECT_THAT(labels, testing::IsSupersetOf(
                                {"Sprache", "Datei beim Start laden:", "Ländercode", "Vorwahl",
                                 "Gebührenfaktor", "Syncronisations-Quelle", "1. Element wählen",
                                 "2. Feldbezeichnung anklicken, um zu übernehmen"}));
        std::vector<std::string> groups;
        for (const auto* group : dialog.findChildren<QGroupBox*>()) {
            groups.push_back(WithoutMnemonic(group->title()).toStdString());
        }
        EXPECT_THAT(groups, testing::IsSupersetOf({"Lokalisierung", "Synchronisation"}));
    });
    ShowDialog();
}

TEST_F(WindowSettings, TheLabelsLeadToTheirFields) {
    Dialogs.Drive([](QDialog& dialog) {
        std::vector<std::string> pairs;
        for (const auto* label : dialog.findChildren<QLabel*>()) {
            if (label->buddy() != nullptr) {
                pairs.push_back(WithoutMnemonic(label->text()).toStdString() + " > " +
                                label->buddy()->objectName().toStdString());
            }
        }
        EXPECT_THAT(pairs,
                    testing::IsSupersetOf(
                        {"Sprache > DDSprache", "Datei beim Start laden: > InpLoadfile",
                         "Ländercode > SetValue(0)", "Vorwahl > SetValue(1)",
                         "Gebührenfaktor > SetValue(2)", "Syncronisations-Quelle > InpSyncFile",
                         "1. Element wählen > ListSyncFileItems"}));
    });
    ShowDialog();
}

TEST_F(WindowSettings, TheDialogIsModalAndStandsAboveTheMainWindow) {
    Dialogs.Drive([this](QDialog& dialog) {
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(dialog.parentWidget(), Window.get());
        EXPECT_FALSE(Window->close());
    });
    ShowDialog();
    EXPECT_TRUE(Window->isVisible());
}

TEST_F(WindowSettings, NoTwoControlsHaveTheSameMnemonic) {
    Dialogs.Drive([](QDialog& dialog) {
        std::vector<QChar> mnemonics;
        const auto add = [&mnemonics](const QString& caption) {
            const qsizetype mark = caption.indexOf(u'&');
            if (mark >= 0) {
                mnemonics.push_back(caption.at(mark + 1).toLower());
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
        const auto twice = std::adjacent_find(mnemonics.begin(), mnemonics.end());
        EXPECT_EQ(twice, mnemonics.end())
            << (twice == mnemonics.end() ? "" : QString(*twice).toStdString());
    });
    ShowDialog();
}

TEST_F(WindowSettings, TheTabKeyGoesThroughTheControlsAsTheyStand) {
    Drive([this] {
        Find<QWidget>("DDSprache")->setFocus();
        std::vector<std::string> expected = {
            "DDSprache",          "InpLoadfile",    "btnChangeLoadfile", "SetValue(0)",
            "SetValue(1)",        "SetValue(2)",    "InpSyncFile",       "btnChangeSyncfile",
            "chkLoadSyncOnStart", "ScrollSyncFile", "ListSyncFileItems"};
        for (int item = 0; item < 10; ++item) {
            expected.push_back("itemexpl(" + std::to_string(item + 7) + ")");
            expected.push_back("SetValue(" + std::to_string(item + 3) + ")");
        }
        expected.emplace_back("btnMakeChanges");
        expected.emplace_back("btnCancel");
        EXPECT_EQ(TabOrder(*Find<QDialog>("NVSET")), expected);
    });
    ShowDialog();
}

TEST_F(WindowSettings, TheDialogFitsASmallScreenAndNothingOfItIsCut) {
    Dialogs.Drive([](QDialog& dialog) {
        dialog.resize(1, 1);
        QCoreApplication::processEvents();
        EXPECT_LE(dialog.width(), 1000);
        EXPECT_LE(dialog.height(), 700);
        for (const Named& control : Controls()) {
            const auto* widget = dialog.findChild<QWidget*>(QString::fromStdString(control.name));
            EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << control.name;
            EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << control.name;
            EXPECT_TRUE(
                dialog.rect().contains(QRect(widget->mapTo(&dialog, QPoint()), widget->size())))
                << control.name;
        }
        dialog.resize(1000, 900);
        EXPECT_EQ(dialog.size(), QSize(1000, 900));
    });
    ShowDialog();
}

/// A key that goes through the thirteen boxes, and whether backwards.
struct CycleKey {
    Qt::Key key;
    bool up;
};

class WindowSettingsKey : public WindowSettings, public testing::WithParamInterface<CycleKey> {};

INSTANTIATE_TEST_SUITE_P(
    Keys, WindowSettingsKey,
    testing::Values(CycleKey{Qt::Key_Return, false}, CycleKey{Qt::Key_Enter, false},
                    CycleKey{Qt::Key_Down, false}, CycleKey{Qt::Key_Up, true}),
    [](const auto& parameter) {
        return QVariant::fromValue(parameter.param.key).toString().toStdString();
    });

TEST_P(WindowSettingsKey, GoesRoundTheThirteenBoxesAndPressesNoButton) {
    const std::string before = FileText("norvik.ini");
    Dialogs.Drive([this](QDialog& dialog) {
        Value(0)->setFocus();
        std::vector<std::string> visited;
        for (int i = 0; i < 14; ++i) {
            visited.push_back(dialog.focusWidget()->objectName().toStdString());
            QTest::keyClick(dialog.focusWidget(), GetParam().key);
        }
        std::vector<std::string> expected;
        for (int i = 0; i < 14; ++i) {
            const int box = (GetParam().up ? 13 * 2 - i : i) % 13;
            expected.push_back("SetValue(" + std::to_string(box) + ")");
        }
        EXPECT_EQ(visited, expected);
    });
    ShowDialog();
    EXPECT_EQ(FileText("norvik.ini"), before);
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenedSettings));
}

TEST_F(WindowSettings, TheDialogShowsBothLanguagesAndGermanIsChosen) {
    Drive([this] {
        const auto* languages = Find<QComboBox>("DDSprache");
        ASSERT_EQ(languages->count(), 2);
        EXPECT_EQ(languages->itemText(0), "Deutsch");
        EXPECT_EQ(languages->itemText(1), "English");
        EXPECT_FALSE(languages->isEditable());
        EXPECT_EQ(TextOf("DDSprache"), "Deutsch");
    });
    ShowDialog();
}

TEST_F(WindowSettings, ChoosingEnglishShowsTheRefusalAndLeavesDeutschSelected) {
    Drive([this] {
        auto* languages = Find<QComboBox>("DDSprache");
        languages->setFocus();
        Replace("InpLoadfile", "getippt");
        QTest::keyClick(languages, Qt::Key_Down);
        EXPECT_EQ(TextOf("DDSprache"), "Deutsch");
        QTest::keyClick(languages, Qt::Key_End);
        EXPECT_EQ(TextOf("DDSprache"), "Deutsch");
        EXPECT_EQ(TextOf("InpLoadfile"), "getippt");
    });
    Dialogs.Click(QMessageBox::Ok).Press(Qt::Key_Escape);
    ShowDialog();
    const std::string refusal =
        OkBox("Andere Sprachen als Deutsch werden noch nicht unterstützt!", "NORVIK", "None");
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenedSettings, refusal, refusal));
}

TEST_F(WindowSettings, ChangingTheLoadFileAppendsTheEndingToANameWithoutOne) {
    Drive([this] {
        Click("btnChangeLoadfile");
        EXPECT_EQ(TextOf("InpLoadfile"), PathIn("Mein Ordner/Büro.t9t").toStdString());
        Click("btnChangeLoadfile");
        EXPECT_EQ(TextOf("InpLoadfile"), PathIn("Mein Ordner/Büro.csv").toStdString());
        Click("btnChangeLoadfile");
        EXPECT_EQ(TextOf("InpLoadfile"), PathIn("Mein Ordner/Büro.csv").toStdString());
        EXPECT_EQ(TextOf("InpSyncFile"), "");
    });
    std::filesystem::create_directory(Folder / "Mein Ordner");
    Dialogs.ChooseFile(PathIn("Mein Ordner/Büro"));
    Dialogs.ChooseFile(PathIn("Mein Ordner/Büro.csv"));
    Dialogs.Cancel();
    ShowDialog();
    const std::string question = "open \"NV-195-Datei (*.t9t)|Alle Dateien (*)\" name \"\"";
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(OpenedSettings, question, question, question));
}

TEST_F(WindowSettings, ADotInTheFolderIsNoEndingOfTheLoadFile) {
    std::filesystem::create_directory(Folder / "alt.daten");
    Drive([this] {
        Click("btnChangeLoadfile");
        EXPECT_EQ(TextOf("InpLoadfile"), PathIn("alt.daten/register.t9t").toStdString());
    });
    Dialogs.ChooseFile(PathIn("alt.daten/register"));
    ShowDialog();
}

TEST_F(WindowSettings, EveryFieldRefusesCharactersOutsideWindows1252WithABeep) {
    Drive([this] {
        for (const QString& name : {QString("InpLoadfile"), QString("InpSyncFile"), ValueName(0),
                                    ValueName(2), ValueName(12)}) {
            auto* field = Find<QLineEdit>(name);
            ASSERT_NE(field->validator(), nullptr) << name.toStdString();
            const QSignalSpy beeps(field->validator(), SIGNAL(beeped()));
            Replace(field, QString::fromUtf8("€Ωä"));
            EXPECT_EQ(TextOf(name), "€ä") << name.toStdString();
            EXPECT_EQ(beeps.count(), 1) << name.toStdString();
            Paste(field, QString::fromUtf8("a→b"));
            EXPECT_EQ(TextOf(name), "€ä") << name.toStdString();
            EXPECT_EQ(beeps.count(), 2) << name.toStdString();
        }
    });
    ShowDialog();
}

TEST_F(WindowSettings, AChosenNameOutsideWindows1252IsShownWithQuestionMarks) {
    Drive([this] {
        Click("btnChangeLoadfile");
        EXPECT_EQ(TextOf("InpLoadfile"), PathIn("B?ro.t9t").toStdString());
    });
    Dialogs.ChooseFile(PathIn("BΩro.t9t"));
    ShowDialog();
}

TEST_F(WindowSettings, WhatTheUserTypedInTheMainWindowStays) {
    Retype(0, "getippt");
    Click("chkTon");
    Store([this] { Replace(ValueName(2), "0,3"); });
    Drive([this] { Click("chkLoadSyncOnStart"); });
    ShowDialog();
    ShowDialog();
    EXPECT_EQ(TextOfField(0), "getippt");
    EXPECT_EQ(ButtonColour(), Pending);
}

}  // namespace

}  // namespace norvik::test
