#include "formats/registerfile/registerfilereader.h"

#include "formats/common/devicecharacters.h"
#include "formats/common/followload.h"
#include "registertools/checkregister.h"

#include <algorithm>
#include <limits>

namespace norvik {

namespace {

constexpr TextView Model195 = u"195";
constexpr TextView Model193 = u"193";
constexpr std::int32_t Limit16 = std::numeric_limits<std::int16_t>::max();
constexpr std::int32_t Limit32 = std::numeric_limits<std::int32_t>::max();

/// Bytes of which ReadTrace keeps the digits.
constexpr std::size_t TracedBytes = 15;

/// The value bytes behind `tag`, little-endian and unsigned, at most `limit`.
std::int32_t ReadValue(ByteReader& file, Byte tag, std::int32_t limit) {
    const std::size_t count = tag == 0 ? 0 : tag - std::size_t{1};
    std::uint64_t value = 0;
    std::size_t k = 0;
    for (const Byte byte : file.ReadBytes(count)) {
        // From the eighth byte on any bit is far beyond every limit; keep the sum from wrapping.
        const bool tooLarge = k >= 7 && byte != 0;
        value = tooLarge ? std::numeric_limits<std::uint64_t>::max()
                         : value | (k < 7 ? std::uint64_t{byte} << (8 * k) : 0);
        ++k;
    }
    if (value > static_cast<std::uint64_t>(limit)) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int32_t>(value);
}

std::int16_t ReadValue16(ByteReader& file, Byte tag) {
    return static_cast<std::int16_t>(ReadValue(file, tag, Limit16));
}

std::int16_t ReadInteger16(ByteReader& file) {
    return static_cast<std::int16_t>(ReadInteger(file, Limit16));
}

/// The text behind a string tag: length byte and so many bytes.
ByteView ReadStringValue(ByteReader& file) {
    return file.ReadBytes(file.ReadByte().value_or(0));
}

/// A string item whose tag must be right: a wrong one is a broken record and ends the program.
ByteView ReadString(ByteReader& file) {
    if (file.ReadByte().value_or(registerfile::ShortString) != registerfile::ShortString) {
        throw HardStop();
    }
    return ReadStringValue(file);
}

/// Reads the rest of a record behind the tag of its first item.
void ReadRecord(ByteReader& file, Byte firstTag, RegisterEntry& entry, Text& model) {
    entry.RecIndex = ReadValue16(file, firstTag);  // here tag 4 is not widened
    entry.RecNumber = ReadInteger16(file);
    entry.Name = DeviceToAnsi(ReadString(file));
    entry.Tel = TextFromBytes(ReadString(file));

    // The info text of a 195 file is missing in a 193 file, which goes on with the tone.
    Byte tag = file.ReadByte().value_or(registerfile::ShortString);
    if (tag != registerfile::ShortString) {
        model = Model193;
    }
    if (model != Model193) {
        entry.Info = DeviceToAnsi(ReadStringValue(file));
        tag = file.ReadByte().value_or(0);
    }
    entry.Ton = ReadValue16(file, tag);  // not widened either
    entry.MsnFilter = ReadInteger16(file);
    if (model == Model193) {
        entry.MsnFilter |= MsnOfTelephone;
    }
    entry.GebEinh = ReadInteger(file, Limit32);
    entry.AB = ReadInteger16(file);
    if (model == Model193) {
        entry.AB = 0;
    }
}

/// Appends the last bytes read to the trace, of which only the end is kept.
void Trace(Text& trace, ByteView read) {
    for (const Byte byte : read.last(std::min(read.size(), TracedBytes))) {
        trace.append(Hex2(byte));
    }
    constexpr std::size_t DigitsKept = 2 * TracedBytes;
    trace.erase(0, trace.size() - std::min(trace.size(), DigitsKept));
}

/// How many bytes there are, unless all of them are 0.
std::size_t FilledBytes(ByteView bytes) {
    const bool filled =
        std::any_of(bytes.begin(), bytes.end(), [](Byte byte) { return byte != Byte{0}; });
    return filled ? bytes.size() : 0;
}

/// Brings ReadTrace up to date when reading ends, however it ends.
class TraceAtEnd {
  public:
    TraceAtEnd(Text& trace, const ByteReader& file) : trace_(trace), file_(file) {}
    TraceAtEnd(const TraceAtEnd&) = delete;
    TraceAtEnd& operator=(const TraceAtEnd&) = delete;
    TraceAtEnd(TraceAtEnd&&) = delete;
    TraceAtEnd& operator=(TraceAtEnd&&) = delete;
    ~TraceAtEnd() { Trace(trace_, file_.Read()); }

  private:
    Text& trace_;
    const ByteReader& file_;
};

}  // namespace

std::int32_t ReadInteger(ByteReader& file, std::int32_t limit) {
    constexpr Byte WidenedInteger32 = registerfile::Integer32 + 1;
    const Byte tag = file.ReadByte().value_or(0);
    return ReadValue(file, tag == registerfile::Integer32 ? WidenedInteger32 : tag, limit);
}

int ReadRegisterRecords(RegisterState& state, ByteReader& file) {
    int& count = state.RecordsRead;
    count = 0;
    while (!file.AtEnd()) {
        const Byte tag = file.ReadByte().value_or(registerfile::EndOfList);
        if (tag == registerfile::EndOfList) {
            state.Damage.BytesBehindEnd = FilledBytes(file.Rest());
            return count;
        }
        const int place = count + 1;
        state.RegisterOrder(place) = static_cast<std::int16_t>(place);
        ReadRecord(file, tag, state.Register(place), state.LoadedModel);
        ++count;
    }
    state.Damage.EndsEarly = true;
    state.Damage.LastEntryIsCut = count > 0 && file.IsShort();
    return count;
}

int ReadRegisterFile(RegisterState& state, ByteView bytes, Desktop& desktop) {
    state.LoadedModel = Model195;
    ByteReader file(bytes);
    const TraceAtEnd traceAtEnd(state.ReadTrace, file);
    const ByteView header = file.ReadBytes(RegisterFileHeader.size());
    if (!std::equal(header.begin(), header.end(), RegisterFileHeader.begin(),
                    RegisterFileHeader.end())) {
        desktop.Ask({.text = u"Abweichender Header",
                     .title = u"norvik 195 laden",
                     .icon = Icon::Exclamation});
    }
    desktop.SetPointer(Pointer::Hourglass);
    return ReadRegisterRecords(state, file);
}

void ShowFindings(RegisterState& state, Desktop& desktop) {
    if (!state.LoadReport.IsEmpty()) {
        desktop.Ask({.text = state.LoadReport.Shown(), .title = u"Debugs beim Einlesen"});
        state.LoadReport.Clear();
    }
}

namespace {

void Empty(RegisterState& state) {
    ResetRegister(state);
    state.LoadReport.Clear();
}

void ReportError(const RuntimeError& error, Desktop& desktop) {
    desktop.Ask({.text = u"mnuLade193195: " + error.NumberAndDescription(), .title = u""});
}

}  // namespace

bool LoadRegisterFile(RegisterState& state, const FilePath& path, Desktop& desktop) {
    SourceFile file;
    try {
        file = ReadSourceFile(path);
    } catch (const RuntimeError& error) {
        Empty(state);
        ReportError(error, desktop);
        return false;
    }
    return LoadRegisterFile(state, file, desktop);
}

bool LoadRegisterFile(RegisterState& state, const SourceFile& file, Desktop& desktop) {
    int count = 0;
    const auto load = [&] {
        Empty(state);
        state.File = {.Type = {}, .Path = file.Path, .Modified = file.Modified};
        count = ReadRegisterFile(state, file.Content, desktop);
        state.File.Type = state.LoadedModel;
    };
    const auto report = [&](const RuntimeError& error) {
        ReportError(error, desktop);
        state.File.Type = state.LoadedModel;
    };
    if (!LoadOrReport(state, load, report, desktop)) {
        return false;
    }
    desktop.SetPointer(Pointer::Normal);
    ShowFindings(state, desktop);
    SetCount(state, count);
    RefreshStatus(state, desktop);
    CheckRegister(state, desktop);
    desktop.ShowCurrentFile();
    return true;
}

}  // namespace norvik
