// One register for each thing that the telephones' files do not hold.
#include "base/runtimeerror.h"
#include "tests/losses/lossroundtrip.h"
#include "tests/losses/oneentry.h"

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr FileFormat To195 = FileFormat::Register195;
constexpr FileFormat To193 = FileFormat::Register193;
constexpr FileFormat To175 = FileFormat::Phonebook175;

/// Info line 1 to 6 texts of 21 characters.
Text Lines(std::initializer_list<TextView> lines) {
    Text info;
    for (const TextView line : lines) {
        info += PadOrCut(line, InfoLineWidth);
    }
    return Text(RightTrim(info));
}

/// Everything that an entry can have.
RegisterEntry Full() {
    RegisterEntry entry = Entry(u"Müller, Jörg", u"i0301234*#", Lines({u"Büro", u"", u"Ende"}));
    entry.Ton = 0x8C;        // 12, switched on
    entry.MsnFilter = 0x92;  // MSN 3, counter, VIP
    entry.GebEinh = 120;
    entry.AB = 3;
    return entry;
}

TEST(LossReport195, AFullEntryLosesNothing) {
    RegisterEntry most = Full();
    most.Name = Text(255, u'ü');
    most.Tel = Text(255, u'1');
    most.Info = u"()" + Text(253, u'é');
    most.Ton = 0x7FFF & ~0x30;
    most.MsnFilter = 0x7FFF;
    most.GebEinh = 65535;
    most.AB = 7;
    ExpectLosses(RegisterOf({Full(), most, Entry(u"")}), To195, {}, {});
}

TEST(LossReport195, CharactersThatShareADeviceByte) {
    ExpectLosses(One(Entry(u"Šárka Šárková", u"2á")), To195, {},
                 {{LossKind::DeviceByte,
                   "#2 Šárka Šárková: im Gerät dasselbe Zeichen im Namen: Š wird zu è, á wird zu "
                   "ß"}});
    ExpectLosses(OneWithInfo(u"„ja“ ƒ"), To195, {},
                 {{LossKind::DeviceByte,
                   "#2 Bert: im Gerät dasselbe Zeichen im Infotext: „ wird zu ä, “ wird zu ô, ƒ "
                   "wird zu â"}});
}

TEST(LossReport195, EveryCharacterOfTheRepertoire) {
    RegisterState state = RegisterOf({});
    SetCount(state, 256);
    for (int byte = 0; byte <= 0xFF; ++byte) {
        RegisterEntry& entry = state.Register(byte + 1);
        entry.Name = u"x" + Text(1, CharacterOf(static_cast<Byte>(byte))) + u"x";
    }
    const std::vector<Loss> report = LossReport(state, To195);
    EXPECT_EQ(report.size(), 14U);
    ExpectTrue(report, state, WrittenAndLoaded(state, To195));
}

TEST(LossReport195, BlanksAtTheEnds) {
    ExpectLosses(One(Entry(u" Bert ", u"2  ", u" Info ")), To195, {},
                 {{LossKind::Blanks, "#2  Bert : Leerzeichen am Ende des Namens fallen weg"},
                  {LossKind::Blanks, "#2  Bert : Leerzeichen am Ende der Nummer fallen weg"},
                  {LossKind::Blanks, "#2  Bert : Leerzeichen am Ende des Infotexts fallen weg"}});
}

TEST(LossReport195, CountersOf65536AndMoreCannotBeWritten) {
    const TestFolder folder;
    for (const FileFormat target : {To195, To193}) {
        const RegisterState state = OneWith(&RegisterEntry::GebEinh, 65536);
        const std::vector<Loss> report = LossReport(state, target);
        EXPECT_THAT(Kinds(report), ElementsAre(LossKind::ChargesTooHigh));
        EXPECT_THAT(LossLines(report), ElementsAre("#2 Bert: Gebührenstand 65536 ist höher als "
                                                   "65535: die Datei kann nicht geschrieben "
                                                   "werden"));
        EXPECT_THROW(WriteTarget(state, target, {}, folder / "a"), RuntimeError);
        ExpectLosses(OneWith(&RegisterEntry::GebEinh, 65535), target, {}, {});
    }
}

TEST(LossReport195, TextsOfMoreThan255CharactersCannotBeWritten) {
    const TestFolder folder;
    const Text text(256, u'1');
    for (const RegisterEntry& entry : {Entry(text), Entry(u"", text), Entry(u"", u"", text)}) {
        const std::vector<Loss> report = LossReport(One(entry), To195);
        EXPECT_THAT(Kinds(report), ElementsAre(LossKind::TextTooLong));
        EXPECT_THROW(WriteTarget(One(entry), To195, {}, folder / "a"), RuntimeError);
    }
    EXPECT_THAT(LossLines(LossReport(One(Entry(u"B", u"", text)), To195)),
                ElementsAre("#2 B: Infotext ist länger als 255 Zeichen: die Datei kann nicht "
                            "geschrieben werden"));
    // What falls away before it is written does not count.
    ExpectLosses(One(Entry(u"Bert", u"", Text(255, u'x') + u"  ")), To195, {},
                 {{LossKind::Blanks, "#2 Bert: Leerzeichen am Ende des Infotexts fallen weg"}});
    EXPECT_THAT(Kinds(LossReport(One(Entry(text, u"", text)), To193)),
                ElementsAre(LossKind::NameCut, LossKind::InfoText));
    EXPECT_THAT(Kinds(LossReport(One(Entry(u"", text)), To193)),
                ElementsAre(LossKind::TextTooLong));
}

TEST(LossReport195, NegativeValuesBecomeTheirLowByte) {
    ExpectLosses(OneWith(&RegisterEntry::GebEinh, -5), To195, {},
                 {{LossKind::Charges, "#2 Bert: Gebührenstand -5 wird zu 251"}});
    ExpectLosses(OneWith(&RegisterEntry::Ton, -128), To195, {},
                 {{LossKind::RingTone, "#2 Bert: Klingeltonwert -128 wird zu 128"}});
    ExpectLosses(OneWith(&RegisterEntry::MsnFilter, -1), To195, {},
                 {{LossKind::UnusedBits, "#2 Bert: unbenutzte Kennbits ändern sich"}});
}

TEST(LossReport195, WhatTheCheckRepairsAfterTheLoad) {
    ExpectLosses(OneWith(&RegisterEntry::AB, 8), To195, {},
                 {{LossKind::Announcement, "#2 Bert: Ansage 8 fällt weg"}});
    ExpectLosses(OneWith(&RegisterEntry::AB, -1), To195, {},
                 {{LossKind::Announcement, "#2 Bert: Ansage -1 fällt weg"}});
    ExpectLosses(OneWith(&RegisterEntry::Ton, 0x80 + 85), To195, {},
                 {{LossKind::RingTone, "#2 Bert: individueller Klingelton 85 fällt weg"}});
    RegisterEntry nameless = Entry(u"", u"2");  // is not checked
    nameless.AB = 8;
    nameless.Ton = 85;
    ExpectLosses(One(nameless), To195, {}, {});
}

TEST(LossReport193, AnEntryOfA193LosesNothing) {
    RegisterEntry entry = Entry(u"Müller, Jörg Walther", u"i0301234*#");
    entry.MsnFilter = 0xDF;  // as set in the telephone, counter, CD
    entry.GebEinh = 65535;
    ExpectLosses(RegisterOf({entry, Entry(u"")}), To193, {}, {});
}

TEST(LossReport193, NameCutTo20) {
    ExpectLosses(One(Entry(u"12345678901234567890á", u"2")), To193, {},
                 {{LossKind::NameCut, "#2 12345678901234567890á: Name wird auf 20 Zeichen gekürzt: "
                                      "12345678901234567890"}});
    // The cut leaves a blank at the end, which stays.
    ExpectLosses(One(Entry(u"1234567890123456789 x", u"2")), To193, {},
                 {{LossKind::NameCut, "#2 1234567890123456789 x: Name wird auf 20 Zeichen gekürzt: "
                                      "1234567890123456789 "}});
}

TEST(LossReport193, InfoTextDropped) {
    ExpectLosses(OneWithInfo(Lines({u"Büro", u"", u" Ende"})), To193, {},
                 {{LossKind::InfoText, "#2 Bert: Infotext fällt weg: Büro / Ende"}});
    ExpectLosses(OneWithInfo(u"   "), To193, {},
                 {{LossKind::Blanks, "#2 Bert: Leerzeichen im Infotext fallen weg"}});
}

TEST(LossReport193, ExportMark) {
    ExpectLosses(OneWithInfo(u"()"), To193, {},
                 {{LossKind::Mark, "#2 Bert: Exportmarkierung fällt weg"}});
    ExpectLosses(OneWithInfo(u"()Büro"), To193, {},
                 {{LossKind::InfoText, "#2 Bert: Infotext fällt weg: ()Büro"},
                  {LossKind::Mark, "#2 Bert: Exportmarkierung fällt weg"}});
}

TEST(LossReport193, RingToneAnnouncementAndMsn) {
    ExpectLosses(OneWith(&RegisterEntry::Ton, 12), To193, {},
                 {{LossKind::RingTone, "#2 Bert: Klingelton \"Klingel 3\" fällt weg"}});
    ExpectLosses(
        OneWith(&RegisterEntry::Ton, 128), To193, {},
        {{LossKind::RingTone, "#2 Bert: individueller Klingelton \"3Klang 1\" fällt weg"}});
    ExpectLosses(OneWith(&RegisterEntry::AB, 3), To193, {},
                 {{LossKind::Announcement, "#2 Bert: Ansage 3 fällt weg"}});
    ExpectLosses(OneWith(&RegisterEntry::MsnFilter, 2), To193, {},
                 {{LossKind::Msn, "#2 Bert: MSN 3 fällt weg"}});
}

TEST(LossReport193, CharactersThatShareADeviceByteInThePartThatStays) {
    ExpectLosses(One(Entry(u"1234567890123456789šš", u"2")), To193, {},
                 {{LossKind::NameCut, "#2 1234567890123456789šš: Name wird auf 20 Zeichen gekürzt: "
                                      "1234567890123456789š"},
                  {LossKind::DeviceByte, "#2 1234567890123456789šš: im Gerät dasselbe Zeichen im "
                                         "Namen: š wird zu Ü"}});
}

TEST(LossReport193, OnlyMarkedEntriesAreLookedAt) {
    const RegisterState state =
        RegisterOf({Full(), Entry(u"Bert", u"2", u"()"), Full(), Entry(u"Eva", u"4", u"x()")});
    EXPECT_THAT(LossLines(LossReport(state, To193, {.OnlyMarked = true})),
                ElementsAre("#2 Bert: Exportmarkierung fällt weg",
                            "#4 Eva: Infotext fällt weg: x()",
                            "#4 Eva: Exportmarkierung fällt weg"));
    EXPECT_EQ(WrittenAndLoaded(state, To193, {.OnlyMarked = true}).AnzGes, 2);
}

TEST(LossReport175, NameNumberAndInfoTextLoseNothing) {
    const Text info = u"()" + Text(30, u' ') + Text(94, u'á');
    ExpectLosses(RegisterOf({Entry(u"“Müller; Jörg „    \"", u" 0301234 (56) 78 + ", info),
                             Entry(u""), Entry(u"LF\n", u"\n2", u"\n3\n4")}),
                 To175, {}, {});
}

TEST(LossReport175, NamesNumbersAndInfoTextsThatAreTooLong) {
    ExpectLosses(
        One(Entry(u"1234567890123456789012", u"1234567890123456789012", Text(127, u'x'))), To175,
        {},
        {{LossKind::NameCut,
          "#2 1234567890123456789012: Name wird auf 21 Zeichen gekürzt: 123456789012345678901"},
         {LossKind::NumberCut,
          "#2 1234567890123456789012: Nummer wird auf 21 Zeichen gekürzt: 123456789012345678901"},
         {LossKind::InfoCut, "#2 1234567890123456789012: Infotext wird auf 126 Zeichen gekürzt"}});
    ExpectLosses(OneWithInfo(Text(125, u'x') + u"()"), To175, {},
                 {{LossKind::InfoCut, "#2 Bert: Infotext wird auf 126 Zeichen gekürzt"},
                  {LossKind::Mark, "#2 Bert: Exportmarkierung fällt weg"}});
}

TEST(LossReport175, AnEmptyFirstInfoLine) {
    ExpectLosses(OneWithInfo(Lines({u"", u"Büro"})), To175, {},
                 {{LossKind::InfoFirstLine,
                   "#2 Bert: leere erste Infozeile fällt weg, die anderen rücken vor"}});
    ExpectLosses(OneWithInfo(Lines({u"", u"", u"  Büro", u"", u"", Text(21, u'x')})), To175, {},
                 {{LossKind::InfoFirstLine,
                   "#2 Bert: leere erste Infozeile fällt weg, die anderen rücken vor"}});
}

TEST(LossReport175, BlanksAtTheEndsOfTheInfoText) {
    ExpectLosses(OneWithInfo(u"  Büro"), To175, {},
                 {{LossKind::Blanks, "#2 Bert: Leerzeichen am Anfang des Infotexts fallen weg, der "
                                     "Rest rückt vor"}});
    ExpectLosses(OneWithInfo(u"Büro "), To175, {},
                 {{LossKind::Blanks, "#2 Bert: Leerzeichen am Ende des Infotexts fallen weg"}});
    ExpectLosses(OneWithInfo(Text(40, u' ')), To175, {},
                 {{LossKind::Blanks, "#2 Bert: Leerzeichen am Ende des Infotexts fallen weg"}});
}

TEST(LossReport175, EverythingElse) {
    ExpectLosses(
        One(Full()), To175, {},
        {{LossKind::RingTone, "#2 Müller, Jörg: individueller Klingelton \"Klingel 3\" fällt weg"},
         {LossKind::Announcement, "#2 Müller, Jörg: Ansage 3 fällt weg"},
         {LossKind::Msn, "#2 Müller, Jörg: MSN 3 fällt weg"},
         {LossKind::CallFilter, "#2 Müller, Jörg: Anruffilter VIP fällt weg"},
         {LossKind::ChargeCounter, "#2 Müller, Jörg: Gebührenzähler (eingeschaltet) fällt weg"},
         {LossKind::Charges, "#2 Müller, Jörg: Gebührenstand 120 fällt weg"}});
    ExpectLosses(OneWith(&RegisterEntry::MsnFilter, 0x20 | MsnOfTelephone), To175, {},
                 {{LossKind::UnusedBits, "#2 Bert: unbenutzte Kennbits ändern sich"}});
}

TEST(LossReport175, ALineEndMakesTheRestUnreadable) {
    for (RegisterEntry entry : {Entry(u"a\rb"), Entry(u"a", u"\r"), Entry(u"a", u"", u"x\r\ny")}) {
        entry.Ton = 5;  // nothing is said of it
        RegisterState state = RegisterOf({Entry(u"Anna"), entry, Entry(u"Carl")});
        EXPECT_THAT(Kinds(LossReport(state, To175)), ElementsAre(LossKind::LineBreak));
        EXPECT_EQ(WrittenAndLoaded(state, To175).AnzGes, 1);
    }
    EXPECT_THAT(LossLines(LossReport(One(Entry(u"a\rb")), To175)),
                ElementsAre("#2 a?b: Zeilenende im Namen: ab hier ist die Datei nicht lesbar"));
    // Only what is written counts.
    EXPECT_THAT(Kinds(LossReport(OneWithInfo(Text(126, u'x') + u"\r"), To175)),
                ElementsAre(LossKind::InfoCut));
}

}  // namespace
}  // namespace norvik::test
