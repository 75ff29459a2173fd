// What the files of the telephones do not hold.
#include "formats/common/devicecharacters.h"
#include "formats/registerfile/registerfilereader.h"
#include "losses/lossreport_entry.h"

#include <limits>

namespace norvik {

namespace {

void ThroughDevice(Text& text, const FieldWords& field, EntryLosses& losses) {
    const Text before = text;
    text = DeviceToAnsi(AnsiToDevice(text));
    NoteDeviceBytes(before, text, field, losses);
}

void LimitString(const Text& text, const FieldWords& field, EntryLosses& losses) {
    if (text.size() > registerfile::LongestString) {
        losses.Add(LossKind::TextTooLong,
                   Sentence({field.Name, u" ist länger als ", Decimal(registerfile::LongestString),
                             u" Zeichen: die Datei kann nicht geschrieben werden"}));
    }
}

template <typename Integer>
void ThroughItem(Integer& value) {
    const Bytes item = EncodeInteger(value);
    ByteReader file(item);
    value = static_cast<Integer>(ReadInteger(file, std::numeric_limits<Integer>::max()));
}

void ThroughItems(RegisterEntry& entry, EntryLosses& losses) {
    ThroughItem(entry.Ton);
    ThroughItem(entry.MsnFilter);
    ThroughItem(entry.AB);
    if (entry.GebEinh > registerfile::LargestInteger) {
        losses.Add(LossKind::ChargesTooHigh, u"Gebührenstand " + Decimal(entry.GebEinh) +
                                                 u" ist höher als " +
                                                 Decimal(registerfile::LargestInteger) +
                                                 u": die Datei kann nicht geschrieben werden");
    } else {
        ThroughItem(entry.GebEinh);
    }
}

void NoteTear175(TextView text, const FieldWords& field, EntryLosses& losses) {
    if (Contains(text, u"\r")) {
        losses.AddTear(LossKind::LineBreak, Sentence({u"Zeilenende ", field.In,
                                                      u": ab hier ist die Datei nicht lesbar"}));
    }
}

/// The info text moves up to its first character.
void TrimStart175(Text& info, EntryLosses& losses) {
    const std::size_t length = info.size();
    info = Text(TrimBlanks(info));
    const std::size_t blanks = length - info.size();
    if (blanks >= InfoLineWidth) {
        losses.Add(LossKind::InfoFirstLine,
                   u"leere erste Infozeile fällt weg, die anderen rücken vor");
    } else if (blanks > 0) {
        losses.Add(LossKind::Blanks,
                   u"Leerzeichen am Anfang des Infotexts fallen weg, der Rest rückt vor");
    }
}

}  // namespace

void ThroughRegister195(RegisterEntry& entry, const TargetOptions& /*options*/,
                        EntryLosses& losses) {
    TrimEnd(entry.Name, NameWords, losses);
    TrimEnd(entry.Tel, NumberWords, losses);
    TrimEnd(entry.Info, InfoWords, losses);
    LimitString(entry.Name, NameWords, losses);
    LimitString(entry.Tel, NumberWords, losses);
    LimitString(entry.Info, InfoWords, losses);
    ThroughDevice(entry.Name, NameWords, losses);
    ThroughDevice(entry.Info, InfoWords, losses);
    ThroughItems(entry, losses);
}

void ThroughRegister193(RegisterEntry& entry, const TargetOptions& /*options*/,
                        EntryLosses& losses) {
    TrimEnd(entry.Name, NameWords, losses);
    Cut(entry.Name, Text(Slice(entry.Name, 0, registerfile::NameWidth193)), NameWords,
        LossKind::NameCut, losses);
    ThroughDevice(entry.Name, NameWords, losses);
    TrimEnd(entry.Tel, NumberWords, losses);
    LimitString(entry.Tel, NumberWords, losses);
    DropInfo(entry, losses);
    entry.Ton = 0;
    entry.AB = 0;
    ThroughItems(entry, losses);
    entry.MsnFilter |= MsnOfTelephone;
}

void ThroughPhonebook175(RegisterEntry& entry, const TargetOptions& /*options*/,
                         EntryLosses& losses) {
    NoteTear175(entry.Name, NameWords, losses);
    NoteTear175(entry.Tel, NumberWords, losses);
    NoteTear175(Slice(TrimBlanks(entry.Info), 0, InfoWidth), InfoWords, losses);
    if (losses.IsTorn()) {
        return;
    }
    Cut(entry.Name, Text(Slice(entry.Name, 0, FieldWidth)), NameWords, LossKind::NameCut, losses);
    Cut(entry.Tel, Text(Slice(entry.Tel, 0, FieldWidth)), NumberWords, LossKind::NumberCut, losses);
    TrimEnd(entry.Info, InfoWords, losses);
    TrimStart175(entry.Info, losses);
    CutInfo(entry.Info, losses);
    DropValues(entry);
}

}  // namespace norvik
