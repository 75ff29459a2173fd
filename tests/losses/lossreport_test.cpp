#include "losses/lossreport.h"

#include "formats/ip286/ip286.h"
#include "tests/losses/lossroundtrip.h"

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr FileFormat Ip286 = FileFormat::Ip286;

const std::vector<FileFormat> AllTargets = TargetFormats();

/// A register of so many entries "Name 1", "Name 2", ….
RegisterState Large(int count) {
    RegisterState state = RegisterOf({});
    SetCount(state, count);
    for (int place = 1; place <= count; ++place) {
        state.Register(place).Name = u"Name " + Decimal(place);
        state.Register(place).Tel = Decimal(place);
    }
    return state;
}

TEST(LossReport, OneRegisterWithoutALossForEveryTarget) {
    RegisterEntry anna = Entry(u"Anna", u"0301");
    RegisterEntry bert = Entry(u"Bert");
    for (RegisterEntry* entry : {&anna, &bert}) {
        for (const FileFormat target : AllTargets) {
            const bool statement = target == FileFormat::ChargeStatement;
            entry->MsnFilter = MsnOfTelephone | (statement ? EnGeb : 0);
            entry->Tel = statement ? u"" : target == FileFormat::VCard ? u"0301" : entry->Tel;
            EXPECT_THAT(LossReport(RegisterOf({*entry}), target), IsEmpty());
        }
    }
}

TEST(LossReport, ARegisterWithoutEntries) {
    for (const FileFormat target : AllTargets) {
        EXPECT_THAT(LossReport(RegisterOf({}), target), IsEmpty());
    }
}

TEST(LossReport, GoesByTheOrderAndNamesThePositions) {
    RegisterState state = RegisterOf({Entry(u"C ", u"3"), Entry(u"A ", u"1"), Entry(u"B", u"2"),
                                      Entry(u"behind the count ", u"4")});
    SetCount(state, 3);
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 3;
    state.RegisterOrder(3) = 1;
    const Text what = u"Leerzeichen am Ende des Namens fallen weg";
    EXPECT_EQ(LossReport(state, FileFormat::Register195),
              (std::vector<Loss>{{1, u"A ", LossKind::Blanks, what},
                                 {3, u"C ", LossKind::Blanks, what}}));
    ExpectTrue(LossReport(state, FileFormat::Register195), state,
               WrittenAndLoaded(state, FileFormat::Register195));
}

TEST(LossReport, ChangesNothing) {
    RegisterState state = RegisterOf({Entry(u"ä ", u" 1", u" x ")});
    const Contents before = ContentsOf(state);
    for (const FileFormat target : AllTargets) {
        LossReport(state, target);
    }
    EXPECT_TRUE(ContentsOf(state) == before);
}

TEST(LossReportIp286, MoreThan300Entries) {
    EXPECT_THAT(LossReport(Large(300), Ip286), IsEmpty());
    const std::vector<Loss> report = LossReport(Large(302), Ip286);
    EXPECT_THAT(Kinds(report), ElementsAre(LossKind::TooManyEntries, LossKind::TooManyEntries));
    EXPECT_THAT(LossLines(report),
                ElementsAre("#301 Name 301: Eintrag 301 der Datei; das IP 286 speichert höchstens "
                            "300",
                            "#302 Name 302: Eintrag 302 der Datei; das IP 286 speichert höchstens "
                            "300"));
}

TEST(LossReportIp286, ExcludedEntriesAreNotCounted) {
    RegisterState state = Large(302);
    state.Register(7).Tel = u"**7";
    state.Register(8).Tel = u"*8";
    const TargetOptions options = {.Exclusions = u"**||#"};
    EXPECT_THAT(LossLines(LossReport(state, Ip286, options)),
                ElementsAre("#302 Name 302: Eintrag 301 der Datei; das IP 286 speichert höchstens "
                            "300"));
    state.Register(9).Tel = u"9#";
    EXPECT_THAT(LossReport(state, Ip286, options), IsEmpty());
}

TEST(LossReportIp286, ABlankName) {
    const std::vector<Loss> report =
        LossReport(RegisterOf({Entry(u"", u"1"), Entry(u"A", u"2"), Entry(u"  ", u"3")}), Ip286);
    EXPECT_THAT(Kinds(report), ElementsAre(LossKind::BlankName, LossKind::BlankName));
    EXPECT_THAT(LossLines(report), ElementsAre("#1 : Name ist leer", "#3   : Name ist leer"));
}

TEST(LossReportIp286, ADoubledNameAsItStandsInTheFile) {
    const RegisterState state =
        RegisterOf({Entry(u"Mueller", u"1"), Entry(u"A", u"2"), Entry(u"Müller ", u"3"),
                    Entry(u"Mueller", u"4"), Entry(u"mueller", u"5")});
    const std::vector<Loss> report = LossReport(state, Ip286);
    EXPECT_THAT(Kinds(report), ElementsAre(LossKind::DoubledName, LossKind::Transliteration,
                                           LossKind::DoubledName));
    EXPECT_THAT(LossLines(report), ElementsAre("#3 Müller : gleicher Name wie #1",
                                               "#3 Müller : Name wird umschrieben: Mueller ",
                                               "#4 Mueller: gleicher Name wie #1"));
    EXPECT_THAT(LossReport(state, Ip286, {.Exclusions = u"3|4"}), IsEmpty());
}

TEST(LossReport, OnlyMarkedEntriesAreLookedAtWhereOnlyTheyAreWritten) {
    for (const FileFormat target : AllTargets) {
        RegisterState state = RegisterOf({Entry(u"A\r\"", u"ä"), Entry(u"A\r\"", u"ä", u"()")});
        const std::vector<Loss> all = LossReport(state, target);
        const std::vector<Loss> marked = LossReport(state, target, {.OnlyMarked = true});
        if (target == FileFormat::Register193 || target == FileFormat::MobileExport) {
            EXPECT_TRUE(std::all_of(marked.begin(), marked.end(),
                                    [](const Loss& loss) { return loss.Position == 2; }));
            EXPECT_LE(marked.size(), all.size());
        } else {
            EXPECT_EQ(LossLines(marked), LossLines(all));
        }
    }
}

TEST(LossLine, IsOneLine) {
    EXPECT_EQ(LossLine({12, u"Müller", LossKind::Announcement, u"Ansage 3 fällt weg"}),
              u"#12 Müller: Ansage 3 fällt weg");
    EXPECT_EQ(LossLine({2000, u"a\r\n\u0081\u007F€ÿ", LossKind::InfoText, u"x\ty"}),
              u"#2000 a????€ÿ: x?y");
}

}  // namespace
}  // namespace norvik::test
