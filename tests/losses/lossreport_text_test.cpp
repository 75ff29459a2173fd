// One register for each thing that the text files do not hold.
#include "tests/losses/lossroundtrip.h"
#include "tests/losses/oneentry.h"

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr FileFormat ToCsv = FileFormat::Csv;
constexpr FileFormat ToIp286 = FileFormat::Ip286;
constexpr FileFormat ToMobile = FileFormat::MobileExport;
constexpr FileFormat ToStatement = FileFormat::ChargeStatement;

const TargetOptions Plain;
const TargetOptions Quoted = {.Quoted = true};

/// Everything that an entry can have.
RegisterEntry Full() {
    RegisterEntry entry = Entry(u"Müller, Jörg", u"i0301234*#", u"Büro");
    entry.Ton = 0x8C;        // 12, switched on
    entry.MsnFilter = 0x92;  // MSN 3, counter, VIP
    entry.GebEinh = 120;
    entry.AB = 3;
    return entry;
}

std::vector<std::string> Lines(const RegisterState& state, FileFormat target,
                               const TargetOptions& options = {}) {
    return LossLines(LossReport(state, target, options));
}

/// The kinds are those of the report; the loaded register is not the written one.
void ExpectTorn(const RegisterState& state, const TargetOptions& options,
                const std::vector<ExpectedLoss>& expected) {
    const std::vector<Loss> report = LossReport(state, ToCsv, options);
    ASSERT_EQ(report.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(report[i].Kind, expected[i].Kind);
        EXPECT_EQ(Utf8(LossLine(report[i])), expected[i].Line);
    }
    const RegisterState loaded = WrittenAndLoaded(state, ToCsv, options);
    EXPECT_THAT(Differences(EntryAt(state, 1), EntryAt(loaded, 1)), IsEmpty());
    EXPECT_NE(Differences(EntryAt(state, 2), EntryAt(loaded, 2)), std::set<std::string>());
}

TEST(LossReportCsv, AFullEntryLosesNothing) {
    RegisterEntry least = Entry(u" \"Bert", u"ia", u"\"x" + Text(22, u' ') + u"\"()");
    least.Tel = u"i(0)30-1234*#Apw";
    least.GebEinh = -2147483647 - 1;
    least.AB = -32768;
    for (const TargetOptions& options : {Plain, Quoted}) {
        ExpectLosses(RegisterOf({Full(), Entry(u"", u"")}), ToCsv, options, {});
    }
    ExpectLosses(One(least), ToCsv, Plain, {});
    RegisterEntry most = Entry(u"Bert;   ", u"2", u"  ; ÿ" + Text(119, u';') + u"()");
    most.Ton = 0x80 + 79;
    most.MsnFilter = 0xD5;  // MSN 6, counter, CD
    most.GebEinh = 2147483647;
    most.AB = 7;
    ExpectLosses(One(most), ToCsv, Quoted, {});
}

TEST(LossReportCsv, NamesNumbersAndInfoTextsThatAreTooLong) {
    for (const TargetOptions& options : {Plain, Quoted}) {
        ExpectLosses(
            One(Entry(u"1234567890123456789012", u"1234567890123456789012", Text(127, u'x'))),
            ToCsv, options,
            {{LossKind::InfoCut,
              "#2 1234567890123456789012: Infotext wird auf 126 Zeichen gekürzt"},
             {LossKind::NameCut, "#2 1234567890123456789012: Name wird auf 21 Zeichen gekürzt: "
                                 "12345678901234567890."},
             {LossKind::NumberCut, "#2 1234567890123456789012: Nummer wird auf 21 Zeichen gekürzt: "
                                   "123456789012345678901"}});
        ExpectLosses(OneWithInfo(Text(125, u'x') + u"()"), ToCsv, options,
                     {{LossKind::InfoCut, "#2 Bert: Infotext wird auf 126 Zeichen gekürzt"},
                      {LossKind::Mark, "#2 Bert: Exportmarkierung fällt weg"}});
    }
}

TEST(LossReportCsv, NumbersThatTheReaderCleans) {
    for (const TargetOptions& options : {Plain, Quoted}) {
        ExpectLosses(One(Entry(u"Bert", u"0049 (30) 123/7")), ToCsv, options,
                     {{LossKind::NumberCleaned, "#2 Bert: Nummer wird bereinigt: 0049(30)1237"}});
        ExpectLosses(One(Entry(u"Bert", u"+49")), ToCsv, options,
                     {{LossKind::NumberCleaned, "#2 Bert: Nummer wird bereinigt: 49"}});
        ExpectLosses(One(Entry(u"Bert", u"1i2")), ToCsv, options,
                     {{LossKind::NumberCleaned, "#2 Bert: Nummer wird bereinigt: 12"}});
    }
}

TEST(LossReportCsv, BlanksAtTheEnds) {
    const RegisterState state = One(Entry(u" Bert ", u"2 ", u" Info "));
    ExpectLosses(state, ToCsv, Plain,
                 {{LossKind::Blanks, "#2  Bert : Leerzeichen am Ende des Infotexts fallen weg"},
                  {LossKind::Blanks, "#2  Bert : Leerzeichen am Ende des Namens fallen weg"},
                  {LossKind::Blanks, "#2  Bert : Leerzeichen am Ende der Nummer fallen weg"}});
    ExpectLosses(state, ToCsv, Quoted,
                 {{LossKind::Blanks, "#2  Bert : Leerzeichen am Ende des Infotexts fallen weg"},
                  {LossKind::NumberCleaned, "#2  Bert : Nummer wird bereinigt: 2"}});
}

TEST(LossReportCsv, ASemicolonWithoutQuotes) {
    ExpectTorn(One(Entry(u"Bert;B", u"2")), Plain,
               {{LossKind::Separator,
                 "#2 Bert;B: Semikolon im Namen: die Spalten dahinter verschieben sich"}});
    ExpectTorn(One(Entry(u"Bert", u"2;")), Plain,
               {{LossKind::Separator,
                 "#2 Bert: Semikolon in der Nummer: die Spalten dahinter verschieben sich"}});
    RegisterEntry entry = Entry(u"Bert", u"2", Text(105, u' ') + u"x;");
    entry.Name = u"A name that is longer than others";  // nothing is said of it
    ExpectTorn(One(entry), Plain,
               {{LossKind::Separator, "#2 A name that is longer than others: Semikolon in "
                                      "Infozeile 6: die Spalten dahinter verschieben sich"}});
}

TEST(LossReportCsv, AQuoteInQuotes) {
    ExpectTorn(One(Entry(u"\"", u"2", u"a" + Text(21, u' ') + u"\"b\"")), Quoted,
               {{LossKind::Quote,
                 "#2 \": Anführungszeichen im Namen: die Spalten dahinter verschieben sich"},
                {LossKind::Quote, "#2 \": Anführungszeichen in Infozeile 2: die Spalten dahinter "
                                  "verschieben sich"}});
    ExpectTorn(One(Entry(u"Bert", u"\"2")), Quoted,
               {{LossKind::Quote,
                 "#2 Bert: Anführungszeichen in der Nummer: die Spalten dahinter verschieben "
                 "sich"}});
}

TEST(LossReportCsv, QuotesAtBothEndsWithoutQuotes) {
    ExpectLosses(One(Entry(u"\"Bert\" ", u"2", u"\"x\"" + Text(18, u' ') + u"y\"")), ToCsv, Plain,
                 {{LossKind::Blanks, "#2 \"Bert\" : Leerzeichen am Ende des Namens fallen weg"},
                  {LossKind::Quote, "#2 \"Bert\" : Anführungszeichen an beiden Enden des Namens "
                                    "fallen weg"},
                  {LossKind::Quote, "#2 \"Bert\" : Anführungszeichen an beiden Enden einer "
                                    "Infozeile fallen weg"}});
    ExpectLosses(One(Entry(u"\"", u"\"\"")), ToCsv, Plain,
                 {{LossKind::Quote, "#2 \": Anführungszeichen an beiden Enden des Namens fallen "
                                    "weg"},
                  {LossKind::Quote, "#2 \": Anführungszeichen an beiden Enden der Nummer fallen "
                                    "weg"}});
}

TEST(LossReportCsv, ALineEndTearsTheEntry) {
    for (const TargetOptions& options : {Plain, Quoted}) {
        ExpectTorn(One(Entry(u"Be\rt", u"2")), options,
                   {{LossKind::LineBreak, "#2 Be?t: Zeilenende im Namen zerreißt die Zeile"}});
        ExpectTorn(
            OneWithInfo(Text(21, u'x') + u"\r"), options,
            {{LossKind::LineBreak, "#2 Bert: Zeilenende in Infozeile 2 zerreißt die Zeile"}});
        ExpectLosses(One(Entry(u"\nBe\nt", u"2", u"\n")), ToCsv, options, {});
    }
}

TEST(LossReportCsv, ValuesOutsideTheirRange) {
    for (const TargetOptions& options : {Plain, Quoted}) {
        ExpectLosses(OneWith(&RegisterEntry::MsnFilter, 6), ToCsv, options,
                     {{LossKind::Msn, "#2 Bert: MSN 7 fällt weg"}});
        ExpectLosses(OneWith(&RegisterEntry::MsnFilter, 0x2F), ToCsv, options,
                     {{LossKind::UnusedBits, "#2 Bert: unbenutzte Kennbits ändern sich"}});
        ExpectLosses(OneWith(&RegisterEntry::Ton, 0x105), ToCsv, options,
                     {{LossKind::RingTone, "#2 Bert: Klingeltonwert 261 wird zu 5"}});
        ExpectLosses(OneWith(&RegisterEntry::Ton, 80), ToCsv, options,
                     {{LossKind::RingTone, "#2 Bert: Klingelton 80 fällt weg"}});
        ExpectLosses(OneWith(&RegisterEntry::AB, 9), ToCsv, options,
                     {{LossKind::Announcement, "#2 Bert: Ansage 9 fällt weg"}});
        ExpectLosses(OneWith(&RegisterEntry::GebEinh, 70000), ToCsv, options, {});
    }
}

const std::vector<std::string> LostValues = {
    "#1 Müller, Jörg: Infotext fällt weg: ()Büro",
    "#1 Müller, Jörg: Exportmarkierung fällt weg",
    "#1 Müller, Jörg: individueller Klingelton \"Klingel 3\" fällt weg",
    "#1 Müller, Jörg: Ansage 3 fällt weg",
    "#1 Müller, Jörg: MSN 3 fällt weg",
    "#1 Müller, Jörg: Anruffilter VIP fällt weg",
    "#1 Müller, Jörg: Gebührenzähler (eingeschaltet) fällt weg",
    "#1 Müller, Jörg: Gebührenstand 120 fällt weg",
};

/// The losses that every file of names and numbers shares stand at the end.
void ExpectLostValues(const std::string& first, FileFormat target, const TargetOptions& options) {
    RegisterEntry entry = Full();
    entry.Info = u"()Büro";
    std::vector<std::string> expected = {first};
    expected.insert(expected.end(), LostValues.begin(), LostValues.end());
    EXPECT_EQ(Lines(RegisterOf({entry}), target, options), expected);
}

TEST(LossReportIp286, NameAndNumberLoseNothing) {
    EXPECT_THAT(
        Lines(RegisterOf({Entry(u"André, 1; €", u"+49 (30) 1/2 **\t"), Entry(u"B")}), ToIp286),
        IsEmpty());
}

TEST(LossReportIp286, EverythingElse) {
    ExpectLostValues("#1 Müller, Jörg: Name wird umschrieben: Mueller, Joerg", ToIp286, {});
}

TEST(LossReportIp286, ACharacterThatTransliterationChanges) {
    const std::vector<Loss> report =
        LossReport(RegisterOf({Entry(u"Straße", u"ü"), Entry(u"Mueller")}), ToIp286);
    EXPECT_THAT(Kinds(report), ElementsAre(LossKind::Transliteration));
    EXPECT_THAT(LossLines(report), ElementsAre("#1 Straße: Name wird umschrieben: Strasze"));
}

TEST(LossReportIp286, QuotesAndLineEnds) {
    const std::vector<Loss> report = LossReport(RegisterOf({Entry(u"A\"\n", u"\"1\r")}), ToIp286);
    EXPECT_THAT(Kinds(report), ElementsAre(LossKind::Quote, LossKind::Quote, LossKind::LineBreak,
                                           LossKind::LineBreak));
    EXPECT_THAT(LossLines(report),
                ElementsAre("#1 A\"?: Anführungszeichen im Namen beendet den Wert",
                            "#1 A\"?: Anführungszeichen in der Nummer beendet den Wert",
                            "#1 A\"?: Zeilenende im Namen zerreißt die Zeile",
                            "#1 A\"?: Zeilenende in der Nummer zerreißt die Zeile"));
}

TEST(LossReportMobileExport, NameAndNumberLoseNothing) {
    const RegisterState state =
        RegisterOf({Entry(u"Müller, Jörg \"J\"", u"+49301234pw"), Entry(u",", u"030")});
    EXPECT_THAT(Lines(state, ToMobile), IsEmpty());
    TargetOptions options;
    options.Mobile.DataSeparator = u";";
    options.Mobile.GlobalizeNumber = true;
    EXPECT_THAT(Lines(state, ToMobile, options), IsEmpty());
}

TEST(LossReportMobileExport, EverythingElse) {
    ExpectLostValues("#1 Müller, Jörg: Nummer wird bereinigt: 0301234", ToMobile, {});
}

TEST(LossReportMobileExport, TheCommaThatIsCutOut) {
    TargetOptions options;
    options.Mobile.DeleteCommaInNames = true;
    const std::vector<Loss> report =
        LossReport(RegisterOf({Entry(u"Meier, Hans"), Entry(u",Meier")}), ToMobile, options);
    EXPECT_THAT(Kinds(report), ElementsAre(LossKind::Comma));
    EXPECT_THAT(LossLines(report),
                ElementsAre("#1 Meier, Hans: Komma im Namen fällt weg: Meier Hans"));
}

TEST(LossReportMobileExport, SeparatorsQuotesAndLineEnds) {
    const RegisterState state = RegisterOf({Entry(u"A, \"B\"", u"1p2"), Entry(u"C\r", u"3")});
    TargetOptions options;
    options.Mobile.DataSeparator = u", ";
    EXPECT_THAT(Kinds(LossReport(state, ToMobile, options)),
                ElementsAre(LossKind::Separator, LossKind::LineBreak));
    EXPECT_THAT(Lines(state, ToMobile, options),
                ElementsAre("#1 A, \"B\": Trennzeichen \", \" im Namen trennt die Werte",
                            "#2 C?: Zeilenende im Namen zerreißt die Zeile"));
    options.Mobile.DataSeparator = u"p";
    EXPECT_THAT(Lines(state, ToMobile, options),
                ElementsAre("#1 A, \"B\": Trennzeichen \"p\" in der Nummer trennt die Werte",
                            "#2 C?: Zeilenende im Namen zerreißt die Zeile"));
    options.Mobile.UseQuotesForData = true;
    EXPECT_THAT(Lines(state, ToMobile, options),
                ElementsAre("#1 A, \"B\": Anführungszeichen im Namen beendet den Wert",
                            "#2 C?: Zeilenende im Namen zerreißt die Zeile"));
}

TEST(LossReportMobileExport, OnlyMarkedEntriesAreLookedAt) {
    const RegisterState state = RegisterOf({Entry(u"A", u"*1"), Entry(u"B", u"*2", u"()")});
    TargetOptions options;
    options.Mobile.UseReductionFlags = true;
    EXPECT_THAT(Lines(state, ToMobile, options),
                ElementsAre("#2 B: Nummer wird bereinigt: 2", "#2 B: Exportmarkierung fällt weg"));
    EXPECT_EQ(Lines(state, ToMobile, options), Lines(state, ToMobile, {.OnlyMarked = true}));
}

TEST(LossReportChargeStatement, NameAndChargesLoseNothing) {
    RegisterEntry entry = Entry(u"Müller");
    entry.MsnFilter = EnGeb | MsnOfTelephone;
    entry.GebEinh = 100000;
    EXPECT_THAT(Lines(RegisterOf({entry}), ToStatement), IsEmpty());
}

TEST(LossReportChargeStatement, ChargesWhoseAmountIsNothing) {
    RegisterEntry entry = Entry(u"Müller");
    entry.MsnFilter = EnGeb | MsnOfTelephone;
    entry.GebEinh = 4;
    const auto lines = [&entry](std::optional<double> price) {
        return Lines(RegisterOf({entry}), ToStatement, {.UnitPrice = price});
    };
    const std::string start =
        "#1 Müller: Gebührenstand 4 gibt den Betrag 0,00, der Preis der Einheit ist ";
    EXPECT_THAT(lines(0), ElementsAre(start + "0"));
    EXPECT_THAT(lines(0.001), ElementsAre(start + "zu klein"));
    EXPECT_THAT(lines(0.00125), IsEmpty());  // is rounded to 0,01
    EXPECT_THAT(lines(std::nullopt), IsEmpty());
    entry.GebEinh = 0;
    EXPECT_THAT(lines(0), IsEmpty());
}

TEST(LossReportChargeStatement, EverythingElse) {
    RegisterEntry entry = Full();
    entry.Info = u"()Büro";
    EXPECT_THAT(Lines(RegisterOf({entry}), ToStatement),
                ElementsAre("#1 Müller, Jörg: Nummer fällt weg: i0301234*#", LostValues[0],
                            LostValues[1], LostValues[2], LostValues[3], LostValues[4],
                            LostValues[5]));
}

TEST(LossReportChargeStatement, AnEntryWithoutACounterIsLeftOut) {
    RegisterEntry entry = Full();
    entry.MsnFilter = 0x82;
    const std::vector<Loss> report = LossReport(RegisterOf({entry}), ToStatement);
    EXPECT_THAT(Kinds(report), ElementsAre(LossKind::EntryLeftOut));
    EXPECT_THAT(LossLines(report), ElementsAre("#1 Müller, Jörg: kein Gebührenzähler, der Eintrag "
                                               "fehlt im Auszug"));
}

TEST(LossReportChargeStatement, CharactersThatShareADeviceByteAndLineEnds) {
    RegisterEntry entry = Entry(u"Sá\r");
    entry.MsnFilter = EnGeb | MsnOfTelephone;
    EXPECT_THAT(Lines(RegisterOf({entry}), ToStatement),
                ElementsAre("#1 Sá?: im Gerät dasselbe Zeichen im Namen: á wird zu ß",
                            "#1 Sá?: Zeilenende im Namen zerreißt die Zeile"));
}

/// Country 49, area 711.
const TargetOptions Codes = {.InternationalPrefix = u"0049", .AreaPrefix = u"0711"};
constexpr FileFormat ToVCard = FileFormat::VCard;

TEST(LossReportVCard, NameNumberAndInfoTextLoseNothing) {
    EXPECT_THAT(Lines(One(Entry(u"Müller, Jörg (m)", u"0171", u"Büro\\;,")), ToVCard, Codes),
                IsEmpty());
    EXPECT_THAT(Lines(One(Entry(u"Tür", u"**61")), ToVCard), IsEmpty());
}

TEST(LossReportVCard, WhatComesBackOtherwise) {
    EXPECT_THAT(Lines(One(Entry(u"A  b", u"0049711 12", u"x  y ")), ToVCard, Codes),
                ElementsAre("#2 A  b: Name kommt zurück als: A b",
                            "#2 A  b: Nummer kommt zurück als: 071112",
                            "#2 A  b: Leerzeichen am Ende des Infotexts fallen weg",
                            "#2 A  b: Infotext kommt zurück als: x y"));
}

TEST(LossReportVCard, AnEntryWithoutANumberDoesNotComeBack) {
    EXPECT_THAT(Lines(One(Entry(u"Bert", u"***")), ToVCard),
                ElementsAre("#2 Bert: keine Nummer, die ein Laden annimmt: der Eintrag kommt nicht "
                            "zurück"));
}

TEST(LossReportVCard, EverythingElse) {
    RegisterEntry entry = Full();
    entry.Info = u"()Büro";
    EXPECT_THAT(Lines(One(entry), ToVCard),
                ElementsAre("#2 Müller, Jörg: Exportmarkierung fällt weg",
                            "#2 Müller, Jörg: individueller Klingelton \"Klingel 3\" fällt weg",
                            "#2 Müller, Jörg: Ansage 3 fällt weg",
                            "#2 Müller, Jörg: MSN 3 fällt weg",
                            "#2 Müller, Jörg: Anruffilter VIP fällt weg",
                            "#2 Müller, Jörg: Gebührenzähler (eingeschaltet) fällt weg",
                            "#2 Müller, Jörg: Gebührenstand 120 fällt weg"));
}

}  // namespace
}  // namespace norvik::test
