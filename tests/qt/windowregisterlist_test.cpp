#include "tests/qt/windowregisterlist.h"

#include <QCheckBox>

#include <algorithm>

namespace norvik::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Box {
    int number;
    const char* caption;
    std::vector<std::string> lines;
};

void PrintTo(const Box& box, std::ostream* out) {
    *out << box.caption;
}

class EachFilterBox : public WindowRegisterList, public testing::WithParamInterface<Box> {};

INSTANTIATE_TEST_SUITE_P(
    Boxes, EachFilterBox,
    testing::Values(Box{0, "AB-Ansage", {"AB-Ansage 3:  Anna (1)"}},
                    Box{1, "Tonruf", {"Ton Ton 2:  Bernd (2)"}},
                    Box{2, "MSN", {"MSN 1:  Carla (3)", "MSN 6:  Dora (4)"}},
                    Box{3, "Gebührenzähler", {"GZ 1,44:  Anna (1)"}},
                    Box{4, "Anruffilter", {"Anruffilter:  Dora (4)"}},
                    Box{5, "VIP-Filter", {"VIP-Filter:  Emil (5)"}},
                    Box{6, "CD-Filter", {"CD- Filter:  Fritz (6)"}},
                    Box{7, "Für Datenreduktion markiert", {"Markiert :  Gina (7)"}}));

TEST_P(EachFilterBox, HasItsCaptionAndListsTheEntriesThatHaveItsProperty) {
    OpenList();
    const QString name = QString("chkFi(%1)").arg(GetParam().number);
    EXPECT_EQ(Find<QCheckBox>(name)->window(), ListWindow());
    EXPECT_EQ(TextOf(name), GetParam().caption);
    EXPECT_EQ(Find<QCheckBox>(name)->accessibleName().toStdString(), GetParam().caption);
    EXPECT_FALSE(IsChecked(name));
    Tick({GetParam().number});
    EXPECT_EQ(Lines(), GetParam().lines);
    EXPECT_EQ(TextOf("AnzTreffer"), std::to_string(GetParam().lines.size()));
}

TEST_P(EachFilterBox, FilteringShowsItsEntriesAloneInTheMainWindow) {
    OpenList();
    Tick({GetParam().number});
    Click("btnExit");
    EXPECT_TRUE(IsChecked("chkListFilter"));
    EXPECT_EQ(Rows().size(), GetParam().lines.size());
    for (const std::string& line : GetParam().lines) {
        const std::string entry = line.substr(line.find(":  ") + 3);
        EXPECT_THAT(Rows(), testing::Contains(testing::HasSubstr(": " + entry)));
    }
}

TEST_F(WindowRegisterList, TheWindowHasItsNameAndTitleAndLeavesTheMainWindowUsable) {
    OpenList();
    EXPECT_EQ(ListWindow()->windowTitle().toStdString(),
              "Telefonregister-Liste filtern - Maske setzen");
    EXPECT_TRUE(ListWindow()->isWindow());
    EXPECT_FALSE(ListWindow()->isModal());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowRegisterList, TheOtherControlsAreFoundByTheirNames) {
    OpenList();
    EXPECT_EQ(TextOf("btnExit"), "Filter setzen");
    EXPECT_EQ(TextOf("btnCancel"), "Abbrechen");
    EXPECT_EQ(TextOf("chkSortiert"), "Sortiert");
    EXPECT_TRUE(IsChecked("chkSortiert"));
    EXPECT_FALSE(Find<QCheckBox>("chkSortiert")->isEnabled());
    EXPECT_EQ(TextOf("AnzTreffer"), "-");
    EXPECT_THAT(Lines(), IsEmpty());
    std::vector<std::string> labels;
    for (const QLabel* label : ListWindow()->findChildren<QLabel*>()) {
        labels.push_back(WithoutMnemonic(label->text()).toStdString());
    }
    EXPECT_THAT(labels, testing::IsSupersetOf({"Liste der gefundenen Treffer", "Treffer: "}));
    for (const char* name : {"ListResult", "AnzTreffer", "chkSortiert", "btnExit", "btnCancel"}) {
        EXPECT_FALSE(Find<QWidget>(name)->accessibleName().isEmpty()) << name;
        EXPECT_TRUE(Find<QWidget>(name)->isVisible()) << name;
    }
}

TEST_F(WindowRegisterList, TheTabKeyGoesThroughTheControlsAsTheyStand) {
    OpenList();
    EXPECT_THAT(TabOrder(*ListWindow()),
                ElementsAre("chkFi(0)", "chkFi(1)", "chkFi(2)", "chkFi(3)", "chkFi(4)", "chkFi(5)",
                            "chkFi(6)", "chkFi(7)", "ListResult", "btnExit", "btnCancel"));
}

TEST_F(WindowRegisterList, NoTwoControlsHaveTheSameMnemonic) {
    OpenList();
    std::string mnemonics;
    const auto add = [&mnemonics](const QString& caption) {
        const qsizetype mark = caption.indexOf(u'&');
        if (mark >= 0) {
            mnemonics.push_back(caption.at(mark + 1).toLower().toLatin1());
        }
    };
    for (const auto* button : ListWindow()->findChildren<QAbstractButton*>()) {
        add(button->text());
    }
    for (const auto* label : ListWindow()->findChildren<QLabel*>()) {
        add(label->text());
    }
    std::sort(mnemonics.begin(), mnemonics.end());
    EXPECT_GE(mnemonics.size(), 10U);
    EXPECT_EQ(std::adjacent_find(mnemonics.begin(), mnemonics.end()), mnemonics.end()) << mnemonics;
}

TEST_F(WindowRegisterList, TheWindowCanBeMadeSmallAndNothingOfItIsCut) {
    OpenList();
    ListWindow()->resize(1, 1);
    QCoreApplication::processEvents();
    for (const auto* control : ListWindow()->findChildren<QAbstractButton*>()) {
        EXPECT_GE(control->width(), control->sizeHint().width());
        EXPECT_TRUE(ListWindow()->rect().contains(
            QRect(control->mapTo(ListWindow(), QPoint()), control->size())))
            << control->objectName().toStdString();
    }
    ListWindow()->resize(900, 700);
    EXPECT_GT(ResultList()->width(), 450) << "the list takes the room";
}

TEST_F(WindowRegisterList, AllBoxesTogetherGiveSortedLinesSomeEntriesSeveral) {
    OpenList();
    Tick({0, 1, 2, 3, 4, 5, 6, 7});
    EXPECT_THAT(Lines(),
                ElementsAre("AB-Ansage 3:  Anna (1)", "Anruffilter:  Dora (4)",
                            "CD- Filter:  Fritz (6)", "GZ 1,44:  Anna (1)", "Markiert :  Gina (7)",
                            "MSN 1:  Carla (3)", "MSN 6:  Dora (4)", "Ton Ton 2:  Bernd (2)",
                            "VIP-Filter:  Emil (5)"));
    EXPECT_EQ(TextOf("AnzTreffer"), "9");
}

TEST_F(WindowRegisterList, UntickingABoxTakesItsLinesOut) {
    OpenList();
    Tick({0, 2, 7});
    Click("chkFi(2)");
    EXPECT_THAT(Lines(), ElementsAre("AB-Ansage 3:  Anna (1)", "Markiert :  Gina (7)"));
    EXPECT_EQ(TextOf("AnzTreffer"), "2");
}

TEST_F(WindowRegisterList, UntickingTheLastBoxLeavesTheListAndTheCount) {
    OpenList();
    Tick({2});
    Click("chkFi(2)");
    EXPECT_FALSE(IsChecked("chkFi(2)"));
    EXPECT_THAT(Lines(), ElementsAre("MSN 1:  Carla (3)", "MSN 6:  Dora (4)"));
    EXPECT_EQ(TextOf("AnzTreffer"), "2");
}

TEST_F(WindowRegisterList, ABoxWithoutAHitEmptiesTheList) {
    Load({{.name = "Anna", .tel = "1", .ab = 1}});
    OpenList();
    Tick({0, 5});
    Click("chkFi(0)");
    EXPECT_THAT(Lines(), IsEmpty());
    EXPECT_EQ(TextOf("AnzTreffer"), "0");
}

TEST_F(WindowRegisterList, EntriesWithTheSameReasonAreListedByNameWithoutRegardToCase) {
    Load({{.name = "bernd", .tel = "2", .ab = 1},
          {.name = "", .tel = "5", .ab = 1},
          {.name = "Carla", .tel = "3", .ab = 1},
          {.name = "Anna", .tel = "1", .ab = 1}});
    OpenList();
    Tick({0});
    EXPECT_THAT(Lines(), ElementsAre("AB-Ansage 1:   (5)", "AB-Ansage 1:  Anna (1)",
                                     "AB-Ansage 1:  bernd (2)", "AB-Ansage 1:  Carla (3)"));
}

TEST_F(WindowRegisterList, BoxesAreTickedByTheKeyboard) {
    OpenList();
    EXPECT_EQ(ListWindow()->focusWidget(), Find<QCheckBox>("chkFi(0)"));
    QTest::keyClick(ListWindow()->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(TextOf("AnzTreffer"), "1");
    ListWindow()->activateWindow();
    ASSERT_TRUE(BecomesActive(*ListWindow()));
    QTest::keyClick(ListWindow()->focusWidget(), Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return IsChecked("chkFi(1)"); }));
    EXPECT_EQ(TextOf("AnzTreffer"), "2");
}

TEST_F(WindowRegisterList, NeitherTickingNorFilteringMakesTheRegisterUnsaved) {
    OpenList();
    Tick({0, 1});
    Click("btnExit");
    EXPECT_TRUE(Window->close());
    EXPECT_THAT(Dialogs.Transcript, IsEmpty());
}

TEST_F(WindowRegisterList, FilteringWithoutABoxShowsAllEntriesAgain) {
    OpenList();
    Tick({7});
    Click("btnExit");
    ASSERT_THAT(Rows(), ElementsAre("#7: Gina (7) ()"));
    OpenList();
    Click("btnExit");
    EXPECT_FALSE(IsChecked("chkListFilter"));
    EXPECT_EQ(Rows().size(), 8U);
    EXPECT_EQ(ListWindow(), nullptr);
}

TEST_F(WindowRegisterList, TheFilteredListIsStillForChoosing) {
    OpenList();
    Tick({2, 7});
    Click("btnExit");
    ASSERT_THAT(Rows(), ElementsAre("#3: Carla (3)", "#4: Dora (4)", "#7: Gina (7) ()"));
    ClickRow(2);
    EXPECT_EQ(TextOf("AnzNr"), "7");
    EXPECT_EQ(TextOfField(0), "Gina");
    Click("chkListFilter");
    EXPECT_EQ(Rows().size(), 8U);
    EXPECT_EQ(SelectedRow(), "#7: Gina (7) ()");
}

TEST_F(WindowRegisterList, CancelEscapeAndTheCloseBoxCloseTheWindowAndLeaveTheFilterAsItIs) {
    const std::vector<std::function<void()>> closings = {
        [this] { Click("btnCancel"); }, [this] { QTest::keyClick(ListWindow(), Qt::Key_Escape); },
        [this] { QTest::keyClick(ResultList(), Qt::Key_Escape); },
        [this] { ListWindow()->close(); }};
    for (const auto& closing : closings) {
        OpenList();
        Tick({7});
        closing();
        EXPECT_EQ(ListWindow(), nullptr);
        EXPECT_FALSE(IsChecked("chkListFilter"));
        EXPECT_EQ(Rows().size(), 8U);
    }
    Click("chkListFilter");
    EXPECT_THAT(Rows(), ElementsAre("#7: Gina (7) ()")) << "the marks stay";
    for (const auto& closing : closings) {
        OpenList();
        closing();
        EXPECT_TRUE(IsChecked("chkListFilter"));
        EXPECT_THAT(Rows(), ElementsAre("#7: Gina (7) ()"));
    }
}

TEST_F(WindowRegisterList, ReturnSetsTheFilterFromEveryInput) {
    for (const char* name : {"chkFi(0)", "ListResult", "btnExit"}) {
        OpenList();
        Tick({7});
        QTest::keyClick(Find<QWidget>(name), Qt::Key_Return);
        EXPECT_EQ(ListWindow(), nullptr) << name;
        EXPECT_TRUE(IsChecked("chkListFilter")) << name;
        Click("chkListFilter");
    }
}

TEST_F(WindowRegisterList, AWindowOpenedAgainStartsFresh) {
    for (const char* button : {"btnCancel", "btnExit"}) {
        OpenList();
        Tick({0, 5});
        Click(button);
        OpenList();
        EXPECT_EQ(Ticked(), "");
        EXPECT_THAT(Lines(), IsEmpty());
        EXPECT_EQ(TextOf("AnzTreffer"), "-");
        Click("btnCancel");
    }
}

TEST_F(WindowRegisterList, OpeningItTwiceBringsTheOneWindowToTheFront) {
    OpenList();
    const QDialog* first = ListWindow();
    Tick({0});
    Activate();
    Find<QAction>("mnuListView")->trigger();
    EXPECT_EQ(ListWindow(), first);
    EXPECT_TRUE(BecomesActive(*ListWindow()));
    EXPECT_EQ(Ticked(), "0");
    EXPECT_THAT(Lines(), ElementsAre("AB-Ansage 3:  Anna (1)"));
}

TEST_F(WindowRegisterList, OpeningItTwiceShowsAWindowThatWasMinimised) {
    OpenList();
    ListWindow()->showMinimized();
    OpenList();
    EXPECT_FALSE(ListWindow()->isMinimized());
    EXPECT_TRUE(ListWindow()->isVisible());
}

TEST_F(WindowRegisterList, OpeningItTwiceKeepsTheSizeThatTheUserGaveIt) {
    OpenList();
    ListWindow()->showMaximized();
    OpenList();
    EXPECT_TRUE(ListWindow()->isMaximized());
}

TEST_F(WindowRegisterList, ClosingTheMainWindowClosesItToo) {
    OpenList();
    EXPECT_TRUE(Window->close());
    EXPECT_EQ(ListWindow(), nullptr);
}

TEST_F(WindowRegisterList, EndingByTheMenuClosesItToo) {
    OpenList();
    Trigger("mnuDateiBeenden");
    EXPECT_FALSE(Window->isVisible());
    EXPECT_EQ(ListWindow(), nullptr);
}

TEST_F(WindowRegisterList, ItStaysOpenWhenTheUserDoesNotEndTheProgram) {
    OpenList();
    Tick({0});
    Click("btnSaveChange");
    Dialogs.Cancel();
    EXPECT_FALSE(Window->close());
    ASSERT_NE(ListWindow(), nullptr);
    EXPECT_EQ(Ticked(), "0");
    EXPECT_THAT(Lines(), ElementsAre("AB-Ansage 3:  Anna (1)"));
}

}  // namespace

}  // namespace norvik::test
