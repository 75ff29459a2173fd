#include "tests/qt/windowfixture.h"

#include <QCheckBox>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollArea>

#include <QRegularExpression>

#include <algorithm>
#include <clocale>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WindowLook : public WindowTest {
  protected:
    /// The widgets that the keyboard can reach.
    std::vector<QWidget*> Inputs() const {
        std::vector<QWidget*> inputs;
        for (QWidget* widget : Window->findChildren<QWidget*>()) {
            const bool reachable = (widget->focusPolicy() & Qt::TabFocus) != 0 ||
                                   qobject_cast<QLineEdit*>(widget) != nullptr ||
                                   qobject_cast<QRadioButton*>(widget) != nullptr;
            if (reachable && widget->isVisibleTo(Window.get())) {
                inputs.push_back(widget);
            }
        }
        return inputs;
    }

    void Resize(QSize size) {
        Window->resize(size);
        QCoreApplication::processEvents();  // lays out the parts that scroll
        ASSERT_EQ(Window->size(), size);
    }

    /// The part of a widget that can be seen, and the width of what it scrolls in.
    struct View {
        QRect seen;
        int room;
    };
    View ViewOf(const QWidget& widget) const {
        View view{widget.rect(), Window->width()};
        QPoint origin;
        for (const QWidget* part = &widget; part != Window.get(); part = part->parentWidget()) {
            origin += part->pos();
            view.seen &= part->parentWidget()->rect().translated(-origin);
            view.room = std::min(view.room, part->parentWidget()->width());
        }
        return view;
    }

    /// Whether the whole widget can be seen, or of one that is too wide for that a part.
    bool IsVisible(const QWidget& widget) const {
        const View view = ViewOf(widget);
        return view.seen == widget.rect() || (widget.width() > view.room && !view.seen.isEmpty() &&
                                              view.seen.height() == widget.height());
    }

    /// Whether the user sees where he types: the cursor of a text field, else the widget.
    bool ShowsTheFocus() const {
        const QWidget& focused = *Window->focusWidget();
        return focused.inherits("QLineEdit")
                   ? ViewOf(focused).seen.contains(
                         focused.inputMethodQuery(Qt::ImCursorRectangle).toRect().center())
                   : IsVisible(focused);
    }
};

struct Named {
    const char* name;
    const char* className;
    /// The caption without its mnemonic; null where the caption is a value.
    const char* caption;
};

TEST_F(WindowLook, EachWidgetIsFoundByItsNameWithItsKindCaptionAndAccessibleName) {
    Open();
    const std::vector<Named> expected = {Named{"Anzeigefeld(0)", "QLineEdit", nullptr},
                                         Named{"Anzeigefeld(1)", "QLineEdit", nullptr},
                                         Named{"Anzeigefeld(2)", "QLineEdit", nullptr},
                                         Named{"Anzeigefeld(3)", "QLineEdit", nullptr},
                                         Named{"Anzeigefeld(4)", "QLineEdit", nullptr},
                                         Named{"Anzeigefeld(5)", "QLineEdit", nullptr},
                                         Named{"Anzeigefeld(6)", "QLineEdit", nullptr},
                                         Named{"Anzeigefeld(7)", "QLineEdit", nullptr},
                                         Named{"Anzeigefeld(8)", "QLineEdit", nullptr},
                                         Named{"Anzeigefeld(9)", "QLineEdit", nullptr},
                                         Named{"Anzeigefeld(10)", "QLineEdit", nullptr},
                                         Named{"Anzeigefeld(11)", "QLineEdit", nullptr},
                                         Named{"Anzeigefeld(12)", "QLineEdit", nullptr},
                                         Named{"Anzeigefeld(13)", "QLineEdit", nullptr},
                                         Named{"DDTon", "QComboBox", nullptr},
                                         Named{"chkTon", "QCheckBox", "Indiv. Tonruf"},
                                         Named{"DDAB", "QComboBox", nullptr},
                                         Named{"DDMSN", "QComboBox", nullptr},
                                         Named{"chkCharge", "QCheckBox", "Gebührenzähler"},
                                         Named{"OptFilter(0)", "QRadioButton", "aus"},
                                         Named{"OptFilter(1)", "QRadioButton", "Anruf"},
                                         Named{"OptFilter(2)", "QRadioButton", "VIP"},
                                         Named{"OptFilter(3)", "QRadioButton", "CD"},
                                         Named{"AnzGeb", "QLabel", nullptr},
                                         Named{"chkExport", "QCheckBox", "Exportieren"},
                                         Named{"AnzNr", "QLabel", nullptr},
                                         Named{"AnzGes", "QLabel", nullptr},
                                         Named{"AnzMarkiert", "QLabel", nullptr},
                                         Named{"Index", "QLabel", nullptr},
                                         Named{"Satzwahl", "QScrollBar", nullptr},
                                         Named{"TelRegListe", "QListView", nullptr},
                                         Named{"chkListFilter", "QCheckBox", "Filter aktiv"},
                                         Named{"Status", "QLabel", nullptr},
                                         Named{"AnzQuelle", "QLabel", nullptr},
                                         Named{"AnzQuellZeit", "QLabel", nullptr},
                                         Named{"Bild1", "QWidget", nullptr},
                                         Named{"btnSaveChange", "QPushButton", "Übernehmen"},
                                         Named{"btnNew", "QPushButton", "Neu"},
                                         Named{"btnErase", "QPushButton", "Löschen"},
                                         Named{"btnEraseCharge", "QPushButton", "Zähler löschen"},
                                         Named{"btnSearch", "QPushButton", "suchen..."},
                                         Named{"btnSearchMore", "QPushButton", "mehr..."}};
    for (const Named& named : expected) {
        SCOPED_TRACE(named.name);
        const auto widgets = Window->findChildren<QWidget*>(named.name);
        ASSERT_EQ(widgets.size(), 1);
        const QWidget* widget = widgets.first();
        EXPECT_TRUE(widget->inherits(named.className));
        EXPECT_FALSE(widget->accessibleName().isEmpty());
        EXPECT_TRUE(widget->isVisible());
        EXPECT_EQ(widget->isEnabled(), std::string(named.name) != "btnSearchMore");
        if (named.caption != nullptr) {
            EXPECT_EQ(TextOf(named.name), named.caption);
        }
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
        }
        if (const auto* list = qobject_cast<const QComboBox*>(widget)) {
            EXPECT_FALSE(list->isEditable());
        }
    }
}

TEST_F(WindowLook, TheWindowHasItsName) {
    Open();
    EXPECT_EQ(Window->objectName(), "MW");
}

TEST_F(WindowLook, TheMenusHaveTheirItemsAndNoOthers) {
    Open();
    std::vector<std::string> found;
    for (const QAction* menu : Window->menuBar()->actions()) {
        found.push_back(menu->menu()->objectName().toStdString() + ": " +
                        WithoutMnemonic(menu->text()).toStdString());
        EXPECT_EQ(menu->isEnabled(), menu->menu()->objectName() != "mnuSync");
        for (const QAction* item : menu->menu()->actions()) {
            if (!item->isSeparator()) {
                const QString name =
                    item->menu() == nullptr ? item->objectName() : item->menu()->objectName();
                // There is nothing to undo yet, and there are no last files.
                EXPECT_EQ(item->isEnabled(), name != "mnuBearbeitenUndo" &&
                                                 name != "mnuBearbeitenRedo" &&
                                                 name != "mnuDateiRecent");
                EXPECT_EQ(item->isCheckable(), item->objectName() == "mnuExtraDoubles");
                EXPECT_FALSE(item->isChecked());
                found.push_back(name.toStdString() + ": " +
                                WithoutMnemonic(item->text()).toStdString());
            }
        }
    }
    EXPECT_THAT(
        found,
        ElementsAre(
            "mnuDatei: Datei", "mnuDateiLoadNV: norvik 195/193 laden...",
            "mnuDateiLoad175: norvik 175 laden...", "mnuDateiLoadCSV: CSV laden...",
            "mnuDateiLoadVCard: vCard laden...", "mnuDateiAdd: Datei dazuladen...",
            "mnuDateiSaveNV: norvik 195 speichern", "MNUDateiSave193: norvik 193 speichern",
            "mnuDateiSave175: norvik 175 speichern", "mnuDateiSaveCSV: Als CSV speichern",
            "mnuDateiSaveVCard: Als vCard speichern...",
            "mnuDateiSaveIP286: CSV für IP 286 exportieren...", "mnuDateiHandyexp: Handyexport...",
            "mnuDateiConvCallListCSV: Anrufliste in CSV konvertieren...",
            "mnuDateiLoadSync: SyncDatei laden", "mnuDateiRecent: Zuletzt geöffnet",
            "mnuDateiVersions: Frühere Stände...", "mnuDateiPrint: Drucken...",
            "mnuDateiSavePdf: Als PDF speichern...", "mnuDateiBeenden: Beenden",
            "mnuBearbeiten: Bearbeiten", "mnuBearbeitenNullHinzu: Null zur Amtholung hinzufügen...",
            "mnuBearbeitenNullEntf: Null zur Amtholung entfernen...",
            "mnuBearbeitenKillMSN: Abgehende MSN löschen...",
            "mnuNameRingtones: Klingeltonnamen erneuern...", "mnuBearbeitenUndo: Rückgängig",
            "mnuBearbeitenRedo: Wiederholen", "mnuList: Liste", "mnuListView: Registerliste...",
            "mnuListDoubles: Doppelte Rufnummern...", "mnuGeb: Gebühren",
            "mnuGebAuszug: Gebührenauszug...", "mnuGebDelete: Zähler löschen...",
            "mnuSync: Synchronisation", "mnuSyncAdd: Adresse suchen...", "mnuExtra: Extras",
            "mnuExtraDoubles: Beim CSV-Einlesen Doubletten vermeiden",
            "mnuSettingsBasic: Einstellungen...", "mnuHilfe: Hilfe", "mnuHelpManual: Handbuch",
            "mnuHilfeReadme: README", "mnuHilfeWhatsNew: Was ist neu?",
            "mnuHilfeAbout: Über das Programm"));
}

TEST_F(WindowLook, EachMenuItemIsFoundInTheWindowByItsNameAlone) {
    Open();
    for (const char* name : {"mnuDateiLoadNV",
                             "mnuDateiLoad175",
                             "mnuDateiLoadCSV",
                             "mnuDateiLoadVCard",
                             "mnuDateiAdd",
                             "mnuDateiSaveNV",
                             "MNUDateiSave193",
                             "mnuDateiSave175",
                             "mnuDateiSaveCSV",
                             "mnuDateiSaveVCard",
                             "mnuDateiSaveIP286",
                             "mnuDateiHandyexp",
                             "mnuDateiConvCallListCSV",
                             "mnuDateiVersions",
                             "mnuDateiBeenden",
                             "mnuBearbeitenNullHinzu",
                             "mnuBearbeitenNullEntf",
                             "mnuBearbeitenKillMSN",
                             "mnuNameRingtones",
                             "mnuBearbeitenUndo",
                             "mnuBearbeitenRedo",
                             "mnuListView",
                             "mnuListDoubles",
                             "mnuGebAuszug",
                             "mnuGebDelete",
                             "mnuExtraDoubles",
                             "mnuDateiLoadSync",
                             "mnuSyncAdd",
                             "mnuSettingsBasic",
                             "mnuHelpManual",
                             "mnuHilfeReadme",
                             "mnuHilfeWhatsNew",
                             "mnuHilfeAbout"}) {
        EXPECT_EQ(Window->findChildren<QAction*>(name).size(), 1) << name;
    }
    for (const char* name :
         {"mnuDatei", "mnuBearbeiten", "mnuList", "mnuGeb", "mnuSync", "mnuExtra", "mnuHilfe"}) {
        EXPECT_NE(Window->findChild<QMenu*>(name), nullptr) << name;
    }
}

TEST_F(WindowLook, NoTwoMenusAndNoTwoItemsOfAMenuHaveTheSameMnemonic) {
    Open();
    std::vector<std::pair<std::string, QList<QAction*>>> levels = {
        {"the menu bar", Window->menuBar()->actions()}};
    for (const QAction* menu : Window->menuBar()->actions()) {
        levels.emplace_back(menu->text().toStdString(), menu->menu()->actions());
    }
    for (const auto& level : levels) {
        std::vector<QChar> mnemonics;
        for (const QAction* action : level.second) {
            const qsizetype mark = action->text().indexOf(u'&');
            if (mark >= 0) {
                mnemonics.push_back(action->text().at(mark + 1).toLower());
            }
        }
        EXPECT_FALSE(mnemonics.empty()) << level.first;
        std::sort(mnemonics.begin(), mnemonics.end());
        EXPECT_EQ(std::adjacent_find(mnemonics.begin(), mnemonics.end()), mnemonics.end())
            << level.first;
    }
}

TEST_F(WindowLook, EveryInputHasAnAccessibleName) {
    Open();
    EXPECT_GE(Inputs().size(), 33U);
    for (const QWidget* input : Inputs()) {
        EXPECT_FALSE(input->accessibleName().isEmpty())
            << input->metaObject()->className() << " " << input->objectName().toStdString();
    }
}

TEST_F(WindowLook, TheFieldsShowAll21Characters) {
    Open();
    for (const int field : {0, 1, 8, 13}) {
        Enter(field);
        TypeText(Field(field), QString(21, field < 8 ? u'0' : u'W'));
        const int text = Field(field)->fontMetrics().horizontalAdvance(Field(field)->text());
        EXPECT_GT(Field(field)->width(), text) << field;
    }
}

class EachWindowSize : public WindowLook, public testing::WithParamInterface<QSize> {};

INSTANTIATE_TEST_SUITE_P(Sizes, EachWindowSize,
                         testing::Values(QSize(1024, 768), QSize(800, 600), QSize(640, 400),
                                         QSize(500, 260)),
                         [](const auto& size) {
                             return std::to_string(size.param.width()) + "x" +
                                    std::to_string(size.param.height());
                         });

TEST_P(EachWindowSize, EveryInputCanBeBroughtIntoView) {
    Open();
    Resize(GetParam());
    auto* area = Find<QScrollArea>("");
    for (QWidget* input : Inputs()) {
        if (area->isAncestorOf(input)) {
            const QPoint middle = input->mapTo(area->widget(), input->rect().center());
            area->ensureVisible(middle.x(), middle.y(), input->width() / 2 + 1,
                                input->height() / 2 + 1);
        }
        EXPECT_TRUE(IsVisible(*input)) << input->objectName().toStdString();
    }
}

TEST_P(EachWindowSize, TheFieldThatTheTabKeyEntersIsVisible) {
    Open();
    Resize(GetParam());
    Selector()->setFocus();
    for (int i = 0; i < 29; ++i) {
        QTest::keyClick(Window->focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(ShowsTheFocus()) << Window->focusWidget()->objectName().toStdString();
    }
}

TEST_P(EachWindowSize, TheFieldThatTheReturnKeyEntersIsVisible) {
    Open();
    Resize(GetParam());
    Enter(0);
    for (int i = 0; i < 9; ++i) {
        Press(Qt::Key_Return);
        EXPECT_TRUE(ShowsTheFocus()) << Window->focusWidget()->objectName().toStdString();
    }
}

TEST_F(WindowLook, At1024x768NothingOfTheEntryIsHidden) {
    Open();
    Resize({1024, 768});
    for (const QWidget* input : Inputs()) {
        EXPECT_EQ(ViewOf(*input).seen, input->rect()) << input->objectName().toStdString();
    }
}

TEST_F(WindowLook, LongTextsDoNotWidenTheWindow) {
    Folder.Write("rt.lng", std::string(5000, 'W') + "\r\n");
    Open();
    Folder.Write(std::string(200, 'w') + ".t9t", RegisterFile({{.name = "W", .tel = "1"}}));
    Dialogs.ChooseFile(PathIn((std::string(200, 'w') + ".t9t").c_str()));
    Trigger("mnuDateiLoadNV");
    EXPECT_LE(Window->minimumSizeHint().width(), 800);
}

/// The locale of the process.
class WindowLocale : public WindowTest, public testing::WithParamInterface<const char*> {
  protected:
    ~WindowLocale() override { std::setlocale(LC_ALL, "C"); }
};

INSTANTIATE_TEST_SUITE_P(Locales, WindowLocale,
                         testing::Values("C", "C.UTF-8", "en_US.UTF-8", "de_DE.UTF-8"));

TEST_P(WindowLocale, AmountsHaveADecimalCommaAndDatesAreGerman) {
    std::setlocale(LC_ALL, GetParam());  // where it is not installed it stays "C"
    Load({{.name = "Anna", .tel = "1", .gebEinh = 12345}});
    EXPECT_EQ(TextOf("AnzGeb"), "1481,40");
    EXPECT_TRUE(QRegularExpression(R"(^\d\d\.\d\d\.\d\d\d\d \d\d:\d\d$)")
                    .match(QString::fromStdString(TextOf("AnzQuellZeit")))
                    .hasMatch());
    Click("btnSaveChange");
    EXPECT_EQ(TextOfField(3), "12345");
}

TEST_F(WindowLook, TheButtonsOfTheBoxesAreGerman) {
    Open();
    Click("btnNew");
    Dialogs.Cancel();
    EXPECT_FALSE(Window->close());
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(testing::HasSubstr("buttons OK+Abbrechen")));
    Load({{.name = "Anna", .tel = "1"}});
    Click("chkTon");
    Dialogs.Click(QMessageBox::Yes);
    ClickRow(0);
    EXPECT_THAT(Dialogs.Transcript, ElementsAre(testing::HasSubstr("buttons Ja+Nein")));
}

TEST_F(WindowLook, ATextWithoutAPlaceToBreakItStandsInAPartThatScrolls) {
    const QString path = "/l" + QString(3000, 'x');
    Dialogs.Click(QMessageBox::Ok);
    Open(path);
    EXPECT_THAT(Dialogs.Transcript,
                ElementsAre("text \"" + std::string(1000, 'x') + '\n' + std::string(1000, 'x') +
                            '\n' + std::string(1000, 'x') +
                            "\n kann nicht automatisch geladen werden\" title \"Autoload\" buttons "
                            "OK default OK"));
}

TEST_F(WindowLook, TheTelephoneKeepsItsColoursInAWindowThatIsNotActive) {
    Make();
    auto* picture = Find<QWidget>("Bild1");
    QPalette palette = picture->palette();
    palette.setColor(QPalette::Active, QPalette::Highlight, Qt::blue);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, palette.color(QPalette::Window));
    picture->setPalette(palette);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    ASSERT_FALSE(Window->isActiveWindow());
    const QImage image = picture->grab().toImage();
    EXPECT_EQ(image.pixelColor(image.width() / 5, image.height() * 4 / 5), QColor(Qt::blue));
}

}  // namespace

}  // namespace norvik::test
