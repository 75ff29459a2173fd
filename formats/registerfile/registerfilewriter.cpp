#include "formats/common/devicecharacters.h"
#include "formats/common/namingentry.h"
#include "formats/registerfile/registerfile.h"

namespace norvik {

namespace {

void WriteByte(OutputFile& file, Byte byte) {
    file.Write(ByteView(&byte, 1));
}

void WriteInteger(OutputFile& file, int value) {
    file.Write(EncodeInteger(value));
}

/// The tag is written before the length is looked at, so a text that is too long leaves it behind.
void WriteString(OutputFile& file, ByteView bytes, TextView field) {
    WriteByte(file, registerfile::ShortString);
    if (bytes.size() > registerfile::LongestString) {
        const Text length = Decimal(static_cast<long long>(bytes.size()));
        throw RuntimeError(ErrorNumber::InvalidArgument,
                           Text(field) + u" mit " + length + u" Zeichen");
    }
    WriteByte(file, static_cast<Byte>(bytes.size()));
    file.Write(bytes);
}

void WriteCharges(OutputFile& file, const RegisterEntry& entry) {
    if (entry.GebEinh > registerfile::LargestInteger) {
        throw RuntimeError(ErrorNumber::InvalidArgument, Decimal(entry.GebEinh) + u" Einheiten");
    }
    WriteInteger(file, entry.GebEinh);
}

/// The items that open the record of both models: running numbers, then name and number.
void WriteRecordHead(OutputFile& file, int record, ByteView name, const RegisterEntry& entry) {
    WriteInteger(file, record - 1);
    WriteInteger(file, record);
    WriteString(file, name, u"Name");
    WriteString(file, BytesFromText(RightTrim(entry.Tel)), u"Nummer");
}

void WriteRecord195(OutputFile& file, int record, const RegisterEntry& entry) {
    WriteRecordHead(file, record, AnsiToDevice(RightTrim(entry.Name)), entry);
    WriteString(file, AnsiToDevice(RightTrim(entry.Info)), u"Infotext");
    WriteInteger(file, entry.Ton);
    WriteInteger(file, entry.MsnFilter);
    WriteCharges(file, entry);
    WriteInteger(file, entry.AB);
}

void WriteRecord193(OutputFile& file, int record, const RegisterEntry& entry) {
    const Bytes name = AnsiToDevice(Slice(RightTrim(entry.Name), 0, registerfile::NameWidth193));
    WriteRecordHead(file, record, name, entry);
    WriteInteger(file, 0);  // no tone
    WriteInteger(file, entry.MsnFilter);
    WriteCharges(file, entry);
    WriteInteger(file, 0);  // no announcement
}

}  // namespace

Bytes EncodeInteger(int value) {
    constexpr int LargestSigned8 = 127;
    if (value > registerfile::LargestInteger) {
        throw RuntimeError(ErrorNumber::InvalidArgument);
    }
    const auto low = static_cast<Byte>(static_cast<unsigned>(value) & 0xFFU);
    if (value > LargestSigned8) {
        return {registerfile::Integer16, low, static_cast<Byte>(value / 256)};
    }
    return {registerfile::Integer8, low};
}

void WriteRegisterFile195(RegisterState& state, const OutputTarget& target, Desktop& desktop) {
    desktop.SetPointer(Pointer::Hourglass);
    OutputFile file(target);
    file.Write(RegisterFileHeader);
    for (int position = 1; position <= state.AnzGes; ++position) {
        NamingEntry(state, position,
                    [&](const RegisterEntry& entry) { WriteRecord195(file, position, entry); });
    }
    WriteByte(file, registerfile::EndOfList);
    file.Close();
    NoteSaved(state, u"195");
    desktop.SetPointer(Pointer::Normal);
}

bool WriteRegisterFile193(RegisterState& state, const OutputTarget& target, bool onlyMarked,
                          Desktop& desktop) {
    if (onlyMarked && state.AnzMarkiert == 0) {
        desktop.Ask({.text = u"Keine Datensätze zum Exportieren!",
                     .title = u"Fehler",
                     .icon = Icon::Exclamation});
        return false;
    }
    desktop.SetPointer(Pointer::Hourglass);
    OutputFile file(target);
    file.Write(RegisterFileHeader);
    int record = 1;
    for (int position = 1; position <= state.AnzGes; ++position) {
        if (!onlyMarked || IsMarked(EntryAt(state, position))) {
            NamingEntry(state, position,
                        [&](const RegisterEntry& entry) { WriteRecord193(file, record, entry); });
            ++record;
        }
    }
    WriteByte(file, registerfile::EndOfList);
    file.Close();
    state.RegisterSaved = true;
    if (!onlyMarked) {
        NoteSaved(state, u"193");
    }
    desktop.SetPointer(Pointer::Normal);
    return true;
}

}  // namespace norvik
