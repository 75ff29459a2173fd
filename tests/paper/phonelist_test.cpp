#include "paper/phonelist.h"

#include "paper/fonts.h"
#include "tests/support/builders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const FileTime Printed = FileTimeOf(1'790'000'000, 0).value();

Text Day() {
    return FormatDateTime(Printed).substr(0, 10);
}

using Texts = std::vector<Text>;

Texts TextsOf(const PaperPage& page) {
    Texts texts;
    for (const PaperText& text : page.Texts) {
        texts.push_back(text.Content);
    }
    return texts;
}

RegisterState TwoInitials() {
    RegisterState state = RegisterOf({Entry(u"Anna", u"1", u"Info"), Entry(u"Bert", u"22")});
    state.File.Path = "/home/anna/buch.t9t";
    return state;
}

/// 2000 entries of several lines, sorted or not.
RegisterState FullRegister(const std::function<Text(int)>& name, TextView tel, TextView info) {
    RegisterState state;
    for (int place = 1; place <= RegisterPlaces; ++place) {
        state.Register(place) = Entry(name(place), tel, info);
    }
    SetCount(state, RegisterPlaces);
    return state;
}

/// Every text stands on its page, and none but what is torn for want of room overlaps the next.
void ExpectInside(const PaperDocument& document) {
    for (const PaperPage& page : document.Pages) {
        for (const PaperText& text : page.Texts) {
            EXPECT_GE(text.X, 0);
            EXPECT_GE(text.Y - text.Size, 0);
            EXPECT_LE(text.Y, document.Size.Height);
            EXPECT_LE(text.X + TextWidth(text.Content, text.Bold, text.Size), document.Size.Width);
        }
    }
}

TEST(PhoneList, HasHeadLettersEntriesAndFoot) {
    const PaperDocument document = LayOutPhoneList(TwoInitials(), {}, Printed);
    EXPECT_EQ(document.Title, u"Telefonliste");
    EXPECT_EQ(document.Size, PaperA4);
    ASSERT_THAT(document.Pages, SizeIs(1));
    EXPECT_THAT(TextsOf(document.Pages[0]),
                ElementsAre(u"A", u"Anna", u"1", u"Info", u"B", u"Bert", u"22", u"Telefonliste",
                            u"2 Einträge", u"A – B", u"buch.t9t", u"Seite 1 von 1", Day()));
}

TEST(PhoneList, NumbersEndAtTheRightOfTheirColumn) {
    const PaperPage page = LayOutPhoneList(TwoInitials(), {.Columns = 3}, Printed).Pages[0];
    const auto right = [&page](std::size_t number) {
        const PaperText& text = page.Texts.at(number);
        return text.X + TextWidth(text.Content, text.Bold, text.Size);
    };
    EXPECT_NEAR(right(2), right(6), 0.001);
    EXPECT_EQ(page.Texts[1].Y, page.Texts[2].Y);  // name and number on one line
    EXPECT_GT(page.Texts[3].Y, page.Texts[2].Y);
    EXPECT_GT(page.Texts[3].X, page.Texts[1].X);
}

TEST(PhoneList, InOneColumnNameNumberAndInfoStandSideBySide) {
    const PaperPage page = LayOutPhoneList(TwoInitials(), {.Columns = 1}, Printed).Pages[0];
    EXPECT_EQ(page.Texts[1].Y, page.Texts[2].Y);
    EXPECT_EQ(page.Texts[1].Y, page.Texts[3].Y);
    EXPECT_EQ(page.Texts[2].X, page.Texts[6].X);
}

TEST(PhoneList, AnEmptyRegisterGivesAPageThatSaysSo) {
    for (const ListedEntries which : {ListedEntries::All, ListedEntries::Marked}) {
        const PaperDocument document =
            LayOutPhoneList(RegisterState(), {.Entries = which}, Printed);
        ASSERT_THAT(document.Pages, SizeIs(1));
        EXPECT_THAT(
            TextsOf(document.Pages[0]),
            ElementsAre(u"Keine Einträge", u"Telefonliste",
                        which == ListedEntries::All ? u"0 Einträge" : u"0 markierte Einträge", u"",
                        u"Seite 1 von 1", Day()));
    }
}

TEST(PhoneList, SaysWhichEntriesItHolds) {
    RegisterState state = TwoInitials();
    const auto count = [&state](ListedEntries which) {
        const PaperPage page = LayOutPhoneList(state, {.Entries = which}, Printed).Pages[0];
        const auto title =
            std::find_if(page.Texts.begin(), page.Texts.end(),
                         [](const PaperText& text) { return text.Content == u"Telefonliste"; });
        return (title + 1)->Content;
    };
    SetExportMark(state, 1, true);
    state.Register(2).Listed = true;
    EXPECT_EQ(count(ListedEntries::Marked), u"1 markierter Eintrag");
    EXPECT_EQ(count(ListedEntries::Filtered), u"1 gefilterter Eintrag");
    SetExportMark(state, 2, true);
    state.Register(1).Listed = true;
    EXPECT_EQ(count(ListedEntries::Marked), u"2 markierte Einträge");
    EXPECT_EQ(count(ListedEntries::Filtered), u"2 gefilterte Einträge");
    SetCount(state, 1);
    EXPECT_EQ(count(ListedEntries::All), u"1 Eintrag");
}

TEST(PhoneList, AnEntryWithoutANameStandsUnderTheSignForNone) {
    const RegisterState state = RegisterOf({Entry(u"", u"112"), Entry(u"3 Ähren", u"1")});
    const PaperPage page = LayOutPhoneList(state, {}, Printed).Pages[0];
    EXPECT_THAT(TextsOf(page),
                ElementsAre(u"#", u"(ohne Namen)", u"112", u"3 Ähren", u"1", u"Telefonliste",
                            u"2 Einträge", u"#", u"", u"Seite 1 von 1", Day()));
}

TEST(PhoneList, LongTextsAreBrokenAndNothingOfThemIsLost) {
    const Text longName = Text(250, u'W') + u" Ende";
    const Text longTel(255, u'8');
    RegisterState state = RegisterOf({Entry(longName, longTel, Text(126, u'W'))});
    for (const int columns : {1, 2, 3}) {
        const PaperDocument document =
            LayOutPhoneList(state, {.Columns = columns, .Paper = PaperA5}, Printed);
        ExpectInside(document);
        std::size_t letters = 0;
        std::size_t figures = 0;
        for (const PaperPage& page : document.Pages) {
            for (const Text& text : TextsOf(page)) {
                letters += static_cast<std::size_t>(std::count(text.begin(), text.end(), u'W'));
                figures += static_cast<std::size_t>(std::count(text.begin(), text.end(), u'8'));
            }
        }
        EXPECT_GE(letters, 250U + 126U);
        EXPECT_GE(figures, 255U);
    }
}

TEST(PhoneList, ALetterNeverStandsAloneAtTheEndOfAColumn) {
    const RegisterState state = FullRegister(
        [](int place) { return Text(3, static_cast<char16_t>(u'A' + place / 80)); }, u"1", u"Info");
    const PaperDocument document = LayOutPhoneList(state, {.Columns = 3}, Printed);
    EXPECT_GT(document.Pages.size(), 5U);
    ExpectInside(document);
    for (const PaperPage& page : document.Pages) {
        for (std::size_t i = 0; i < page.Texts.size(); ++i) {
            const PaperText& text = page.Texts[i];
            if (text.Content.size() == 1 && text.Bold && text.X < 400 && text.Size > 9.5) {
                EXPECT_EQ(page.Texts.at(i + 1).Content, Text(3, text.Content[0]));
                EXPECT_EQ(page.Texts.at(i + 1).X, text.X);
            }
        }
    }
}

TEST(PhoneList, PagesAreCountedAndNameTheirLetters) {
    const RegisterState state = FullRegister(
        [](int place) { return Text(3, static_cast<char16_t>(u'A' + place / 80)); }, u"1", u"");
    const PaperDocument document = LayOutPhoneList(state, {}, Printed);
    const std::size_t pages = document.Pages.size();
    Text before = u"A";
    for (std::size_t i = 0; i < pages; ++i) {
        const Texts texts = TextsOf(document.Pages[i]);
        const Text place = u"Seite " + Decimal(static_cast<long long>(i) + 1) + u" von " +
                           Decimal(static_cast<long long>(pages));
        EXPECT_EQ(texts.at(texts.size() - 2), place);
        const Text range = texts.at(texts.size() - 4);
        EXPECT_GE(range.substr(0, 1), before);
        before = range.substr(range.size() - 1);
    }
    EXPECT_EQ(before, u"Z");
}

TEST(PhoneList, OddRegistersOnOddPaperComeToAnEnd) {
    std::minstd_rand random(17);
    const auto text = [&random](int place) {
        Text odd;
        const auto length = static_cast<std::size_t>(place % 256);
        for (std::size_t i = 0; i < length; ++i) {
            odd.push_back(CharacterOf(static_cast<Byte>(random() % 256)));
        }
        return odd;
    };
    RegisterState state = FullRegister(text, u"", u"");
    for (int place = 1; place <= RegisterPlaces; ++place) {
        state.Register(place).Tel = text(place * 7);
        state.Register(place).Info = text(place * 13);
    }
    EXPECT_GT(LayOutPhoneList(state, {.Columns = 3}, Printed).Pages.size(), 100U);
    SetCount(state, 255);
    for (const PaperSize size : {PaperSize{0, 0}, PaperSize{-5, 1e6}, PaperSize{1e6, 1}}) {
        for (const int columns : {-1, 1, 100}) {
            const PaperDocument document =
                LayOutPhoneList(state, {.Columns = columns, .Paper = size}, Printed);
            EXPECT_LT(document.Pages.size(), 3'000U);
            EXPECT_GE(document.Size.Width, size.Width);
        }
    }
    state.File.Path = std::string(255, 'x');
    ExpectInside(LayOutPhoneList(state, {.Columns = 3, .Paper = PaperA5}, Printed));
}

}  // namespace
}  // namespace norvik::test
