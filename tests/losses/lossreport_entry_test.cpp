// The sentences of the values, where a value of each kind changes, and the parts of the report.
#include "losses/lossreport_entry.h"

#include "tests/losses/lossroundtrip.h"

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The lines of what `find` notes about entry 7, "Eva".
template <typename Find>
std::vector<std::string> Noted(Find find) {
    std::vector<Loss> report;
    const Text name = u"Eva";
    EntryLosses losses(report, 7, name);
    find(losses);
    return LossLines(report);
}

TEST(LossTable, HasARowForEachFormatThatCanBeWritten) {
    std::vector<FileFormat> rows;
    for (const LossRow& row : LossTable) {
        rows.push_back(row.Target);
    }
    EXPECT_EQ(rows, TargetFormats());
}

TEST(EntryLosses, NoteTheEntryAndWhetherItIsTorn) {
    std::vector<Loss> report;
    const Text name = u"Eva";
    EntryLosses losses(report, 7, name);
    losses.Add(LossKind::Msn, u"MSN");
    EXPECT_FALSE(losses.IsTorn());
    losses.AddTear(LossKind::Quote, u"Riss");
    EXPECT_TRUE(losses.IsTorn());
    EXPECT_EQ(report, (std::vector<Loss>{{7, u"Eva", LossKind::Msn, u"MSN"},
                                         {7, u"Eva", LossKind::Quote, u"Riss"}}));
}

TEST(CutInfo, LeavesSixLinesWithoutBlanksAtTheEnd) {
    Text info = Text(120, u'x') + Text(10, u' ') + u"y";
    EXPECT_THAT(Noted([&](EntryLosses& losses) { CutInfo(info, losses); }),
                ElementsAre("#7 Eva: Infotext wird auf 126 Zeichen gekürzt"));
    EXPECT_EQ(info, Text(120, u'x'));
    EXPECT_THAT(Noted([&](EntryLosses& losses) { CutInfo(info, losses); }), IsEmpty());
}

TEST(DropInfo, TellsTheTextFromTheMark) {
    const auto dropped = [](TextView info) {
        RegisterEntry entry = Entry(u"Eva", u"", info);
        const auto lines = Noted([&](EntryLosses& losses) { DropInfo(entry, losses); });
        EXPECT_EQ(entry.Info, u"");
        return lines;
    };
    EXPECT_THAT(dropped(u""), IsEmpty());
    EXPECT_THAT(dropped(u"()"), IsEmpty());  // the mark is compared later on
    EXPECT_THAT(dropped(u"()  ()"), IsEmpty());
    EXPECT_THAT(dropped(u"  "), ElementsAre("#7 Eva: Leerzeichen im Infotext fallen weg"));
    EXPECT_THAT(dropped(u"()x"), ElementsAre("#7 Eva: Infotext fällt weg: ()x"));
    EXPECT_THAT(dropped(u" a b                 \r                      c"),
                ElementsAre("#7 Eva: Infotext fällt weg: a b / ? / c"));
}

TEST(NoteDeviceBytes, NamesEachPairOnce) {
    EXPECT_THAT(Noted([](EntryLosses& losses) {
                    NoteDeviceBytes(u"áSá\u0081", u"ßSßü", NameWords, losses);
                }),
                ElementsAre("#7 Eva: im Gerät dasselbe Zeichen im Namen: á wird zu ß, ? wird zu "
                            "ü"));
}

TEST(CompareValues, NamesTonesAsTheWindowDoes) {
    const std::vector<std::pair<int, std::string>> tones = {
        {EnTon, "individueller Klingelton \"3Klang 1\""},
        {19, "Klingelton \"Klingel 10\""},
        {20, "Klingelton \"Eigen 1\""},
        {79, "Klingelton \"Eigen 60\""},
        {80, "Klingelton 80"},
    };
    for (const auto& tone : tones) {
        RegisterEntry before = Entry(u"Eva");
        before.Ton = static_cast<std::int16_t>(tone.first);
        EXPECT_THAT(
            Noted([&](EntryLosses& losses) { CompareValues(before, Entry(u"Eva"), losses); }),
            ElementsAre("#7 Eva: " + tone.second + " fällt weg"));
    }
}

TEST(CompareValues, SaysOfEachValueWhatItBecomes) {
    RegisterEntry before = Entry(u"Eva", u"1", u"()");
    before.Ton = 85;
    before.MsnFilter = 0x74;  // MSN 5, counter, filter 1, bit 5
    before.GebEinh = 12;
    before.AB = 3;
    RegisterEntry after = Entry(u"Eva", u"1", u"x");
    EXPECT_THAT(Noted([&](EntryLosses& losses) { CompareValues(before, after, losses); }),
                ElementsAre("#7 Eva: Exportmarkierung fällt weg", "#7 Eva: Klingelton 85 fällt weg",
                            "#7 Eva: Ansage 3 fällt weg", "#7 Eva: MSN 5 fällt weg",
                            "#7 Eva: Anruffilter Anr. fällt weg",
                            "#7 Eva: Gebührenzähler (eingeschaltet) fällt weg",
                            "#7 Eva: unbenutzte Kennbits ändern sich",
                            "#7 Eva: Gebührenstand 12 fällt weg"));
    after = before;
    after.Name = u"texts are compared on their way";
    after.Tel = u"2";
    EXPECT_THAT(Noted([&](EntryLosses& losses) { CompareValues(before, after, losses); }),
                IsEmpty());
    after.Ton = 5;
    after.AB = 4;
    after.GebEinh = -1;
    EXPECT_THAT(Noted([&](EntryLosses& losses) { CompareValues(before, after, losses); }),
                ElementsAre("#7 Eva: Klingelton 85 wird zu 5", "#7 Eva: Ansage 3 wird zu 4",
                            "#7 Eva: Gebührenstand 12 wird zu -1"));
}

}  // namespace
}  // namespace norvik::test
