#include "formats/common/addentries.h"

#include "tests/support/builders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

Settings Berlin() {
    Settings settings;
    settings.AreaPrefix = u"030";
    settings.InternationalPrefix = u"0049";
    return settings;
}

class AddEntriesTest : public testing::Test {
  protected:
    void Add(const RegisterState& source) { added = AddEntries(state, source, Berlin()); }

    RegisterState state = RegisterOf({Entry(u"Anna", u"030 1234"), Entry(u"Bert", u"i12")});
    AddedEntries added;
};

TEST_F(AddEntriesTest, AppendsWholeEntriesInTheirOrder) {
    RegisterEntry zoe = Entry(u"Zoe", u"0301", u"Info");
    zoe.Ton = 133;
    zoe.MsnFilter = 82;
    zoe.GebEinh = 7;
    zoe.AB = 3;
    zoe.RecIndex = 99;
    zoe.RecNumber = 98;
    zoe.Listed = true;
    RegisterState source = RegisterOf({zoe, Entry(u"Carl", u"0302")});
    source.RegisterOrder(1) = 2;
    source.RegisterOrder(2) = 1;
    Add(source);
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bert", u"Carl", u"Zoe"));
    zoe.RecIndex = 3;  // of its new place
    zoe.RecNumber = 0;
    zoe.Listed = false;
    EXPECT_EQ(EntryAt(state, 4), zoe);
    EXPECT_EQ(state.Satzwahl.Maximum, 4);
    EXPECT_EQ(added.Added, 2);
    EXPECT_EQ(added.AlreadyThere, 0);
    EXPECT_EQ(added.FirstIndex, 3);
    EXPECT_EQ(added.Findings, u"");
    EXPECT_EQ(ReportOf(added).text, u"Es wurden 2 Einträge dazugeladen");
}

TEST_F(AddEntriesTest, NoneWhoseNameAndDialledNumberAreThere) {
    Add(RegisterOf({Entry(u"Anna", u"1234"), Entry(u"Anna", u"004930(1234)", u"anderes"),
                    Entry(u"Bert", u"i12"), Entry(u"Carl", u"5"), Entry(u"Carl", u"0305")}));
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bert", u"Carl"));
    EXPECT_EQ(added.Added, 1);
    EXPECT_EQ(added.AlreadyThere, 4);
    EXPECT_EQ(added.Findings, u"");
    EXPECT_EQ(ReportOf(added).text, u"Es wurde 1 Eintrag dazugeladen, 4 waren schon da");
    Add(RegisterOf({Entry(u"Carl", u"5")}));
    EXPECT_EQ(ReportOf(added).text, u"Es wurden 0 Einträge dazugeladen, 1 war schon da");
}

TEST_F(AddEntriesTest, TheSameNameWithAnotherNumberIsAnother) {
    Add(RegisterOf({Entry(u"Anna", u"12345"), Entry(u"anna", u"77"), Entry(u"Bert", u"12")}));
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bert", u"Anna", u"anna", u"Bert"));
    EXPECT_EQ(added.Findings, u"");
}

TEST_F(AddEntriesTest, TheSameNumberWithAnotherNameIsAddedAndNamed) {
    Add(RegisterOf({Entry(u"Otto", u"1234"), Entry(u"Paul", u"030-1234"), Entry(u"Quex", u"8")}));
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bert", u"Otto", u"Paul", u"Quex"));
    EXPECT_EQ(added.Findings, u"Gleiche Rufnummer: Otto (1234) wie Anna\r\n"
                              u"Gleiche Rufnummer: Paul (030-1234) wie Anna\r\n");
    const MessageBox box = ReportOf(added);
    EXPECT_EQ(box.text, u"Es wurden 3 Einträge dazugeladen\r\n\r\n"
                        u"Gleiche Rufnummer: Otto (1234) wie Anna\r\n"
                        u"Gleiche Rufnummer: Paul (030-1234) wie Anna\r\n");
    EXPECT_EQ(box.title, u"Dazuladen");
    EXPECT_EQ(box.icon, Icon::Information);
}

TEST_F(AddEntriesTest, WithoutANumberTheNameDecides) {
    Add(RegisterOf({Entry(u"Notiz"), Entry(u"Notiz", u"-"), Entry(u"Zettel"), Entry(u"", u"", u"x"),
                    Entry(u"", u"", u"y"), Entry(u"")}));
    EXPECT_THAT(Names(state), ElementsAre(u"Anna", u"Bert", u"Notiz", u"Zettel", u"", u""));
    EXPECT_EQ(added.Added, 4);
    EXPECT_EQ(added.AlreadyThere, 1);
    EXPECT_EQ(added.Findings, u"");
}

TEST_F(AddEntriesTest, AnEmptyEntryGivesWayToTheFirst) {
    for (const int count : {0, 1}) {
        state = RegisterOf({Entry(u"")});
        SetCount(state, count);
        Add(RegisterOf({Entry(u"")}));
        EXPECT_EQ(state.AnzGes, count);
        EXPECT_EQ(added.Added, 0);
        Add(RegisterOf({Entry(u"", u"", u"x"), Entry(u"Anna", u"1")}));
        EXPECT_THAT(Names(state), ElementsAre(u"", u"Anna"));
        EXPECT_EQ(added.Added, 2);
        EXPECT_EQ(added.FirstIndex, 1);
    }
}

TEST_F(AddEntriesTest, AFreedPlaceIsUsedAgain) {
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    SetCount(state, 1);  // Bert alone, whose place is 2
    Add(RegisterOf({Entry(u"Carl", u"1"), Entry(u"Dora", u"2")}));
    EXPECT_THAT(Names(state), ElementsAre(u"Bert", u"Carl", u"Dora"));
    EXPECT_THAT(Order(state, 3), ElementsAre(2, 1, 3));
}

TEST_F(AddEntriesTest, WhatFindsNoPlaceIsNamed) {
    RegisterState many;
    SetCount(many, RegisterPlaces);
    for (int place = 1; place <= RegisterPlaces; ++place) {
        many.Register(place) = Entry(Decimal(place), Decimal(place));
    }
    Add(many);
    EXPECT_EQ(state.AnzGes, RegisterPlaces);
    EXPECT_EQ(EntryAt(state, RegisterPlaces).Name, u"1998");
    EXPECT_EQ(added.Added, RegisterPlaces - 2);
    EXPECT_EQ(added.Findings, u"Gleiche Rufnummer: 1234 (1234) wie Anna\r\n"
                              u"Kein Platz mehr: 1999 (1999)\r\nKein Platz mehr: 2000 (2000)\r\n");
    const Contents before = ContentsOf(state);
    Add(many);
    EXPECT_EQ(added.Added, 0);
    EXPECT_EQ(added.AlreadyThere, RegisterPlaces - 2);
    EXPECT_EQ(ContentsOf(state), before);
}

}  // namespace
}  // namespace norvik::test
