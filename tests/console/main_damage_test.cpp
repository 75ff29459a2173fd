// Sources that are not read whole (exit status 4), and what is made of them on request.
#include "tests/console/converterprogram.h"

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string NotWithout =
    Own + "\"b.csv\" nicht geschrieben: --trotzdem schreibt, was gelesen ist\n";
const std::string NothingToWrite = Own + "\"b.csv\" nicht geschrieben: kein Eintrag ist gelesen\n";

/// "norvik-konverter: "a.t9t" ist beschädigt: …".
std::string Damaged(const std::string& source, const std::string& what) {
    return Own + "\"" + source + "\" ist beschädigt: " + what + "\n";
}

/// The lines of a CSV file behind its header, up to the number.
std::string Entries(const Bytes& csv) {
    std::string entries;
    const std::string text = StringOf(csv);
    for (std::size_t at = text.find("\r\n") + 2; at < text.size(); at = text.find("\r\n", at) + 2) {
        entries += text.substr(at, text.find(';', text.find(';', at) + 1) - at) + "|";
    }
    return entries;
}

/// Three entries of a phonebook file; the line that begins the second one is `line`.
std::string Phonebook(const std::string& line) {
    const std::string rest = "I=\r\nI=\r\nI=\r\nI=\r\nI=\r\nI=\r\n";
    return "norvik 175 phonebook\r\nN=Anna\r\nP=1\r\n" + rest + line + "\r\nP=2\r\n" + rest +
           "N=Zita\r\nP=3\r\n" + rest;
}

struct DamagedSource {
    std::string Name;
    Bytes File;
    std::string Errors;   ///< without the target's line
    std::string Entries;  ///< that are left
};

class DamageOfASource : public ConverterProgram {
  protected:
    void Expect(const DamagedSource& source) {
        folder.Write(source.Name, source.File);
        for (const std::string option : {"--pruefen", "--verluste"}) {
            const Outcome outcome = Run({option, source.Name});
            EXPECT_EQ(outcome.Status, 4) << source.Name;
            EXPECT_EQ(outcome.Errors, source.Errors);
            EXPECT_THAT(outcome.Output, IsEmpty());
        }
        folder.Write("b.csv", "alt");
        const Outcome refused = Run({"--ueberschreiben", source.Name, "b.csv"});
        EXPECT_EQ(refused.Status, 4);
        EXPECT_EQ(refused.Errors,
                  source.Errors + (source.Entries.empty() ? NothingToWrite : NotWithout));
        EXPECT_EQ(StringOf(ReadFile(folder / "b.csv")), "alt");

        const Outcome taken = Run({"--ueberschreiben", "--trotzdem", source.Name, "b.csv"});
        EXPECT_EQ(taken.Status, source.Entries.empty() ? 4 : 1);
        EXPECT_EQ(taken.Errors, source.Errors + (source.Entries.empty() ? NothingToWrite : ""));
        if (!source.Entries.empty()) {
            EXPECT_EQ(Entries(ReadFile(folder / "b.csv")), source.Entries);
        }
    }
};

TEST_F(DamageOfASource, AtTheEndOfARegisterFile) {
    const Bytes whole = Example195();
    Expect({"a.t9t", Bytes(whole.begin(), whole.end() - 1),
            Damaged("a.t9t", "endet vorzeitig; 3 Einträge sind gelesen"),
            "Anna;01711|B\xF6;0301|Zita;**12|"});
    Expect({"a.t9t", Bytes(whole.begin(), whole.end() - 2),
            Damaged("a.t9t", "endet mitten in Eintrag 3; 2 Einträge sind gelesen"),
            "Anna;01711|B\xF6;0301|Zita;**12|"});
    Expect(
        {"a.t9t", FileHeader(), Damaged("a.t9t", "endet vorzeitig; 0 Einträge sind gelesen"), ""});
    Expect({"a.t9t",
            {},
            "a.t9t: Abweichender Header\n" +
                Damaged("a.t9t", "endet vorzeitig; 0 Einträge sind gelesen"),
            ""});
}

TEST_F(DamageOfASource, InTheMidstOfARegisterFile) {
    const Bytes anna = Raw("0200 0201 06 04 'Anna' 06 01 '1' 06 00 0200 020F 0200 0200");
    const Bytes wrongTag = Raw("0200 0201 06 04 'Bert' 07 01 '2'");
    Expect({"a.t9t", OpenFileOf({anna, wrongTag}),
            Damaged("a.t9t", "unlesbar ist Eintrag 2; 1 Eintrag ist gelesen"), "Anna;1|"});
    Expect({"a.t9t", BrokenRegisterFile(),
            Damaged("a.t9t", "unlesbar ist Eintrag 1; 0 Einträge sind gelesen"), ""});
    Expect({"a.t9t", OpenFileOf({anna, Raw("03 FF FF")}),
            "a.t9t: mnuLade193195: 6Überlauf\n" +
                Damaged("a.t9t", "Überlauf in Eintrag 2; 1 Eintrag ist gelesen"),
            "Anna;1|"});
}

TEST_F(DamageOfASource, ThatHoldsMoreThanARegister) {
    const std::string full =
        "\" ist nicht ganz gelesen: mehr als 2000 Einträge, die weiteren fehlen\n";
    std::string entries;
    std::string lines = CsvHeader.data();
    for (int i = 0; i < 2000; ++i) {
        entries += "x;|";
        lines += "x" + std::to_string(i) + ";\r\n";
    }
    Expect(
        {"a.t9t", FileOfMany(2001),
         "a.t9t: mnuLade193195: 9Index außerhalb des gültigen Bereichs\n" + Own + "\"a.t9t" + full,
         entries});
    folder.Write("a.csv", lines + "\r\n \r\n");
    EXPECT_EQ(Run({"--pruefen", "a.csv"}).Status, 0);
    folder.Write("a.csv", lines + "\r\nnoch;1\r\n");
    const Outcome csv = Run({"--pruefen", "a.csv"});
    EXPECT_EQ(csv.Status, 4);
    EXPECT_EQ(csv.Errors, Own + "\"a.csv" + full);
}

TEST_F(DamageOfASource, InAPhonebookFile) {
    Expect({"a.pbo", BytesFromText(FromAscii(Phonebook("X=Bert"))),
            "a.pbo: 175-Datei korrupt, Lesen abgebrochen (14-mal)\n" +
                Damaged("a.pbo", "14 fehlerhafte Zeilen; 1 Eintrag ist gelesen"),
            "Anna;1|"});
    std::string whole = Phonebook("N=Bert");
    Expect({"a.pbo", BytesFromText(FromAscii(whole.substr(0, whole.size() - 4))),
            "a.pbo: Undef'd Error: mnuDateiLoad175:62Einlesen hinter Dateiende\n" +
                Damaged("a.pbo", "endet mitten in Eintrag 3; 2 Einträge sind gelesen"),
            "Anna;1|Bert;2|"});
}

TEST_F(DamageOfASource, InACsvFile) {
    Expect({"a.csv",
            BytesFromText(u"Name;Tel;;;;;;;AB\r\nAnna;1\r\nBert;2;;;;;;;99999\r\nZita;3\r\n"),
            "a.csv: Undef'd Error: mnuDateiLoadCSV:6Überlauf\n" +
                Damaged("a.csv", "Überlauf in Eintrag 2; 1 Eintrag ist gelesen"),
            "Anna;1|"});
}

TEST_F(ConverterProgram, WhatIsWrittenDespiteDamageIsChecked) {
    folder.Write("a.csv", "Name;Tel;;;;;;;AB\r\nAnna;1;;;;;;;9\r\nBert;2;;;;;;;99999\r\n");
    const Outcome outcome = Run({"--trotzdem", "a.csv", "b.t9t"});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_THAT(outcome.Errors, HasSubstr("a.csv: #0[Anna] Ansage zu hoch: 9\n"));
    EXPECT_EQ(ReadFile(folder / "b.t9t"),
              FileOf({Raw("0200 0201 06 04 'Anna' 06 01 '1' 06 00 0200 020F 0200 0200")}));
}

TEST_F(ConverterProgram, WhatNoReaderTakesIsReported) {
    folder.Write("a.csv", "Name;Tel\r\nAnna\r\n\r\nBert;2\r\nnur Text\r\n");
    const Outcome lines = Run({"--pruefen", "a.csv"});
    EXPECT_EQ(lines.Status, 1);
    EXPECT_EQ(lines.Errors, "a.csv: 2 Zeilen ohne zweites Feld übergangen\n");
    folder.Write("a.t9t", Join({EmptyRegisterFile(), Raw("0200 0201")}));
    const Outcome bytes = Run({"--pruefen", "a.t9t"});
    EXPECT_EQ(bytes.Status, 1);
    EXPECT_EQ(bytes.Errors, "a.t9t: hinter der Endmarke 4 Bytes übergangen\n");
    folder.Write("a.t9t", Join({EmptyRegisterFile(), Raw("0000")}));
    EXPECT_EQ(Run({"--pruefen", "a.t9t"}).Status, 0);
}

}  // namespace
}  // namespace norvik::test
