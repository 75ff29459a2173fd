// What the text files do not hold.
#include "formats/charges/chargestatement.h"
#include "formats/common/globalize.h"
#include "formats/common/transliterate.h"
#include "formats/csv/csvsplit.h"
#include "formats/csv/infoflow.h"
#include "formats/vcard/vcardwriter.h"
#include "losses/lossreport_entry.h"

namespace norvik {

namespace {

void CleanTel(Text& number, GlobalizeMode mode, EntryLosses& losses) {
    if (Changes(number, CleanNumber(number, mode))) {
        losses.Add(LossKind::NumberCleaned, u"Nummer wird bereinigt: " + number);
    }
}

void NoteLineBreak(TextView text, const FieldWords& field, EntryLosses& losses) {
    if (Contains(text, u"\r") || Contains(text, u"\n")) {
        losses.Add(LossKind::LineBreak,
                   Sentence({u"Zeilenende ", field.In, u" zerreißt die Zeile"}));
    }
}

void NoteQuote(TextView text, const FieldWords& field, EntryLosses& losses) {
    if (Contains(text, u"\"")) {
        losses.Add(LossKind::Quote,
                   Sentence({u"Anführungszeichen ", field.In, u" beendet den Wert"}));
    }
}

using CsvTexts = std::array<Text, csvformat::Columns>;

Text InColumn(std::size_t column) {
    if (column == csvformat::Name || column == csvformat::Tel) {
        return Text(column == csvformat::Name ? NameWords.In : NumberWords.In);
    }
    const std::size_t line = column - csvformat::Info1 + 1;
    return u"in Infozeile " + Decimal(static_cast<long long>(line));
}

/// Looks for what a value of the form cannot hold. In the other form each is a character as any.
void NoteTearsCsv(const CsvTexts& values, bool quoted, EntryLosses& losses) {
    const TextView divider(quoted ? &csvformat::Quote : &csvformat::Separator, 1);
    for (std::size_t column = csvformat::Name; column <= csvformat::Info6; ++column) {
        const Text& value = values.at(column);
        if (Contains(value, divider)) {
            losses.AddTear(
                quoted ? LossKind::Quote : LossKind::Separator,
                Sentence({quoted ? u"Anführungszeichen " : u"Semikolon ", InColumn(column),
                          u": die Spalten dahinter verschieben sich"}));
        }
        if (Contains(value, u"\r")) {
            losses.AddTear(LossKind::LineBreak,
                           Sentence({u"Zeilenende ", InColumn(column), u" zerreißt die Zeile"}));
        }
    }
}

/// The field that the reader makes of a value without quotes around it.
TextView PlainField(TextView value) {
    return SplitPlain(value).Values.front();
}

void ThroughPlain(Text& text, const FieldWords& field, EntryLosses& losses) {
    TrimEnd(text, field, losses);
    if (Changes(text, Text(PlainField(text)))) {
        losses.Add(LossKind::Quote,
                   Sentence({u"Anführungszeichen an beiden Enden ", field.Of, u" fallen weg"}));
    }
}

void ThroughPlainInfo(Text& info, const CsvTexts& values, EntryLosses& losses) {
    std::array<TextView, InfoLines> lines;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        lines.at(line) = PlainField(values.at(csvformat::Info1 + line));
    }
    if (Changes(info, AssembleInfo(lines))) {
        losses.Add(LossKind::Quote,
                   u"Anführungszeichen an beiden Enden einer Infozeile fallen weg");
    }
}

void NoteSeparator(TextView text, TextView separator, const FieldWords& field,
                   EntryLosses& losses) {
    if (!separator.empty() && Contains(text, separator)) {
        losses.Add(LossKind::Separator, Sentence({u"Trennzeichen \"", separator, u"\" ", field.In,
                                                  u" trennt die Werte"}));
    }
}

void NoteAmount(std::int32_t charges, std::optional<double> unitPrice, EntryLosses& losses) {
    if (charges == 0 || !unitPrice || FormatAmount(charges * *unitPrice) != FormatAmount(0)) {
        return;
    }
    losses.Add(LossKind::Amount,
               Sentence({u"Gebührenstand ", Decimal(charges), u" gibt den Betrag ", FormatAmount(0),
                         u", der Preis der Einheit ist ", *unitPrice == 0 ? u"0" : u"zu klein"}));
}

}  // namespace

void ThroughCsv(RegisterEntry& entry, const TargetOptions& options, EntryLosses& losses) {
    const CsvTexts values = CsvValues(entry);
    NoteTearsCsv(values, options.Quoted, losses);
    if (losses.IsTorn()) {
        return;
    }
    TrimEnd(entry.Info, InfoWords, losses);
    CutInfo(entry.Info, losses);
    if (!options.Quoted) {
        ThroughPlain(entry.Name, NameWords, losses);
        ThroughPlain(entry.Tel, NumberWords, losses);
        ThroughPlainInfo(entry.Info, values, losses);
    }
    Cut(entry.Name, CsvName(entry.Name), NameWords, LossKind::NameCut, losses);
    Cut(entry.Tel, Text(Slice(entry.Tel, 0, FieldWidth)), NumberWords, LossKind::NumberCut, losses);
    CleanTel(entry.Tel, GlobalizeMode::CleanForTelephone, losses);
    entry.Ton &= ToneMask | EnTon;
    entry.MsnFilter &= MsnFilterMask;
    if (MsnOf(entry) > LastMsn) {
        entry.MsnFilter |= MsnOfTelephone;
    }
}

void ThroughIp286(RegisterEntry& entry, const TargetOptions& /*options*/, EntryLosses& losses) {
    NoteQuote(entry.Name, NameWords, losses);
    NoteQuote(entry.Tel, NumberWords, losses);
    NoteLineBreak(entry.Name, NameWords, losses);
    NoteLineBreak(entry.Tel, NumberWords, losses);
    if (Changes(entry.Name, Transliterate(entry.Name))) {
        losses.Add(LossKind::Transliteration, u"Name wird umschrieben: " + entry.Name);
    }
    DropInfo(entry, losses);
    DropValues(entry);
}

void ThroughMobileExport(RegisterEntry& entry, const TargetOptions& targetOptions,
                         EntryLosses& losses) {
    const MobileExportOptions& options = targetOptions.Mobile;
    if (options.DeleteCommaInNames && Changes(entry.Name, WithoutComma(entry.Name))) {
        losses.Add(LossKind::Comma, u"Komma im Namen fällt weg: " + entry.Name);
    }
    CleanTel(entry.Tel, GlobalizeMode::Clean, losses);
    if (options.UseQuotesForData) {
        NoteQuote(entry.Name, NameWords, losses);
    } else {
        NoteSeparator(entry.Name, options.DataSeparator, NameWords, losses);
        NoteSeparator(entry.Tel, options.DataSeparator, NumberWords, losses);
    }
    NoteLineBreak(entry.Name, NameWords, losses);
    DropInfo(entry, losses);
    DropValues(entry);
}

void ThroughChargeStatement(RegisterEntry& entry, const TargetOptions& options,
                            EntryLosses& losses) {
    if (!HasChargeCounter(entry)) {
        losses.AddTear(LossKind::EntryLeftOut, u"kein Gebührenzähler, der Eintrag fehlt im Auszug");
        return;
    }
    NoteDeviceBytes(entry.Name, ChargeStatementName(entry), NameWords, losses);
    NoteLineBreak(entry.Name, NameWords, losses);
    if (!entry.Tel.empty()) {
        losses.Add(LossKind::NumberDropped, u"Nummer fällt weg: " + entry.Tel);
    }
    DropInfo(entry, losses);
    const std::int32_t charges = entry.GebEinh;
    NoteAmount(charges, options.UnitPrice, losses);
    DropValues(entry);
    entry.MsnFilter |= EnGeb;
    entry.GebEinh = charges;
}

void ThroughVCard(RegisterEntry& entry, const TargetOptions& options, EntryLosses& losses) {
    Settings codes;
    codes.InternationalPrefix = options.InternationalPrefix;
    codes.AreaPrefix = options.AreaPrefix;
    const std::optional<RegisterEntry> read = ThroughCard(entry, codes);
    if (!read) {
        losses.AddTear(LossKind::EntryLeftOut,
                       u"keine Nummer, die ein Laden annimmt: der Eintrag kommt nicht zurück");
        return;
    }
    const auto compare = [&losses](Text& text, const Text& after, const FieldWords& field,
                                   LossKind kind) {
        if (Changes(text, after)) {
            losses.Add(kind, Sentence({field.Name, u" kommt zurück als: ", after}));
        }
    };
    compare(entry.Name, read->Name, NameWords, LossKind::TextChanged);
    compare(entry.Tel, read->Tel, NumberWords, LossKind::NumberChanged);
    if (entry.Info.starts_with(ExportMark)) {  // that it goes is told of the mark
        entry.Info.erase(0, ExportMark.size());
    }
    TrimEnd(entry.Info, InfoWords, losses);
    compare(entry.Info, read->Info, InfoWords, LossKind::TextChanged);
    DropValues(entry);
}

}  // namespace norvik
