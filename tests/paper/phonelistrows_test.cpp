#include "paper/phonelist.h"

#include "tests/support/builders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik {

std::ostream& operator<<(std::ostream& out, const PhoneListRow& row) {
    for (const char16_t character : row.Name + u" (" + row.Tel + u")") {
        out << static_cast<char>(character);
    }
    return out << " under " << static_cast<char>(row.Initial) << ", " << row.Info.size()
               << " lines";
}

}  // namespace norvik

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<PhoneListRow> Rows(const RegisterState& state,
                               ListedEntries which = ListedEntries::All) {
    const auto rows = PhoneListRows(state, which);
    EXPECT_EQ(CountPhoneListRows(state, which), static_cast<int>(rows.size()));
    return rows;
}

Text NamesOf(const std::vector<PhoneListRow>& rows) {
    Text names;
    for (const PhoneListRow& row : rows) {
        names.append(names.empty() ? u"" : u" ").append(row.Name);
    }
    return names;
}

/// The letters under which names of one character stand, in a register that is not sorted.
Text InitialsOf(TextView letters) {
    RegisterState state = RegisterOfNames({u"z", u"a"});
    for (const char16_t letter : letters) {
        EntryAt(state, AppendEntry(state)).Name = Text(1, letter);
    }
    Text initials;
    for (const PhoneListRow& row : Rows(state)) {
        initials.push_back(row.Initial);
    }
    return initials.substr(2);
}

TEST(PhoneListRows, HoldNameNumberAndInfoLines) {
    const RegisterState state = RegisterOf({Entry(u"Anna", u"030 1",
                                                  u"Erste Zeile          Zweite  Zeile        "
                                                  u"                     Vierte"),
                                            Entry(u"Bert", u"2")});
    EXPECT_THAT(Rows(state),
                ElementsAre(PhoneListRow{.Initial = u'A',
                                         .Name = u"Anna",
                                         .Tel = u"030 1",
                                         .Info = {u"Erste Zeile", u"Zweite Zeile", u"Vierte"}},
                            PhoneListRow{.Initial = u'B', .Name = u"Bert", .Tel = u"2"}));
}

TEST(PhoneListRows, AreTidiedForReading) {
    const RegisterState state =
        RegisterOf({Entry(u" \tMüller,\r\n  Jörg\u00A0€ ", u"\u0001 0 \u0081 1\u007F",
                          Text(1, u'\0') + u"\n\t \u009D")});
    EXPECT_THAT(Rows(state), ElementsAre(PhoneListRow{
                                 .Initial = u'M', .Name = u"Müller, Jörg €", .Tel = u"0 1"}));
}

TEST(PhoneListRows, TheMarkInFrontIsNotPrinted) {
    const RegisterState state = RegisterOf({Entry(u"Anna", u"1", u"()Info ()")});
    EXPECT_THAT(Rows(state),
                ElementsAre(PhoneListRow{
                    .Initial = u'A', .Name = u"Anna", .Tel = u"1", .Info = {u"Info ()"}}));
}

TEST(PhoneListRows, EntriesWithoutAnyTextAreLeftOut) {
    RegisterState state = RegisterOf(
        {Entry(u"", u" "), Entry(u"", u"1"), Entry(u"", u"", u"()"), Entry(u"", u"", u"Info")});
    EXPECT_THAT(Rows(state),
                ElementsAre(PhoneListRow{.Tel = u"1"}, PhoneListRow{.Info = {u"Info"}}));
    SetCount(state, 0);
    EXPECT_THAT(Rows(state), IsEmpty());
    EXPECT_THAT(Rows(RegisterState()), IsEmpty());
}

TEST(PhoneListRows, AreThoseThatAreWanted) {
    RegisterState state = RegisterOf({Entry(u"Anna", u"1"), Entry(u"Bert", u"2", u"()"),
                                      Entry(u"Carl", u"3"), Entry(u"", u"4")});
    state.Register(3).Listed = true;
    state.Register(4).Listed = true;
    EXPECT_EQ(NamesOf(Rows(state)), u"Anna Bert Carl ");
    EXPECT_EQ(NamesOf(Rows(state, ListedEntries::Marked)), u"Bert");
    // As in the main window's list, which has no rows without a name.
    EXPECT_EQ(NamesOf(Rows(state, ListedEntries::Filtered)), u"Carl");
}

TEST(PhoneListRows, StandInTheOrderOfTheRegister) {
    RegisterState state = RegisterOfNames({u"Anna", u"Bert", u"Carl"});
    state.RegisterOrder(1) = 3;
    state.RegisterOrder(3) = 1;
    EXPECT_EQ(NamesOf(Rows(state)), u"Carl Bert Anna");
    EXPECT_EQ(NamesOf(Rows(RegisterOfNames({u"Zoe", u"Ärzte", u"Anna"}))), u"Zoe Ärzte Anna");
}

TEST(PhoneListRows, UmlautsStandUnderTheirLettersWhereTheRegisterIsSorted) {
    const auto rows = Rows(RegisterOfNames(
        {u"*31", u"112", u"anna", u"Azur", u"Otto", u"Zoe", u"{", u"Ärzte", u"Élan", u"öl"}));
    EXPECT_EQ(NamesOf(rows), u"*31 112 { anna Azur Ärzte Élan Otto öl Zoe");
    Text initials;
    for (const PhoneListRow& row : rows) {
        initials.push_back(row.Initial);
    }
    EXPECT_EQ(initials, u"###AAAEOOZ");
}

TEST(PhoneListRows, EveryLetterHasAnInitial) {
    EXPECT_EQ(InitialsOf(u"AzZÀÁÂÃÄÅÆàáâãäåæ"), u"AZZAAAAAAAAAAAAAA");
    EXPECT_EQ(InitialsOf(u"ÇçÐðÈÉÊËèéêë"), u"CCDDEEEEEEEE");
    EXPECT_EQ(InitialsOf(u"ÌÍÎÏìíîïÑñÒÓÔÕÖØŒòóôõöøœ"), u"IIIIIIIINNOOOOOOOOOOOOOO");
    EXPECT_EQ(InitialsOf(u"ŠšßÞþÙÚÛÜùúûüÝŸýÿŽž"), u"SSSTTUUUUUUUUYYYYZZ");
    EXPECT_EQ(InitialsOf(u"0*#(@[`{ƒª²×÷€–"), u"###############");
}

}  // namespace
}  // namespace norvik::test
