#include "formats/calllist/calllist.h"

#include "base/files.h"
#include "base/repeatedbox.h"
#include "base/runtimeerror.h"
#include "formats/common/bytereader.h"
#include "formats/common/devicecharacters.h"
#include "formats/common/quietsave.h"
#include "formats/common/registerfileheader.h"
#include "formats/common/undefinederror.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace norvik {

namespace {

constexpr TextView Title = u"Anruferliste";
/// Two-digit years below this one are in the 21st century.
constexpr int FirstYearOf20thCentury = 90;

bool LooksLikeRegisterFile(ByteView header) {
    return header.size() >= RegisterFileHeader.size() &&
           std::equal(RegisterFileHeader.begin(), RegisterFileHeader.end(), header.begin());
}

/// The unsigned number of little-endian bytes.
std::int64_t NumberOf(ByteView bytes) {
    constexpr std::int64_t Most = std::numeric_limits<std::int64_t>::max();
    std::int64_t number = 0;
    for (std::size_t k = bytes.size(); k > 0; --k) {
        if (number > Most / 256) {
            throw RuntimeError(ErrorNumber::Overflow);
        }
        number = number * 256 + bytes[k - 1];
    }
    return number;
}

/// The number with at least two digits: "00", "07", "100".
Text TwoDigits(std::int64_t number) {
    Text digits = Decimal(number < 0 ? -number : number);
    digits.insert(0, digits.size() < 2 ? 2 - digits.size() : 0, u'0');
    return number < 0 ? u"-" + digits : digits;
}

/// A length byte that counts itself, and the bytes that follow; nothing when it is 0 or missing.
std::optional<ByteView> ReadElement(ByteReader& input) {
    const Byte length = input.ReadByte().value_or(0);
    if (length == 0) {
        return std::nullopt;
    }
    return input.ReadBytes(length - std::size_t{1});
}

/// The bytes of a string with its tag and length; fewer where the file ends.
ByteView ReadString(ByteReader& input) {
    if (input.ReadByte().value_or(calllist::StringTag) != calllist::StringTag) {
        throw HardStop();
    }
    return input.ReadBytes(input.ReadByte().value_or(0));
}

/// YYMMDDhhmm as DD.MM.CCYY hh:mm.
Text DateText(TextView stamp) {
    const TextView year = Slice(stamp, 0, 2);
    constexpr long long MostOfTwoDigits = 99;
    const bool recent =
        LeadingInteger(year, -MostOfTwoDigits, MostOfTwoDigits) < FirstYearOf20thCentury;
    Text text(Slice(stamp, 4, 2));
    text.append(u".").append(Slice(stamp, 2, 2)).append(recent ? u".20" : u".19").append(year);
    text.append(u" ").append(Slice(stamp, 6, 2)).append(u":").append(Slice(stamp, 8, 2));
    return text;
}

struct Call {
    std::int64_t Number = 0;
    ByteView Date;
    ByteView Caller;
};

/// The next call up to its last element; nothing when a length of 0 ends the list.
std::optional<Call> ReadCall(ByteReader& input) {
    const std::optional<ByteView> number = ReadElement(input);
    if (!number) {
        return std::nullopt;
    }
    Call call;
    call.Number = NumberOf(*number) - 1;
    call.Date = ReadString(input);
    call.Caller = ReadString(input);
    return call;
}

/// Converts the next call; false when a length of 0 ends the list.
bool ConvertCall(ByteReader& input, OutputFile& output, RepeatedInput& questions) {
    const std::optional<Call> call = ReadCall(input);
    if (!call) {
        return false;
    }
    const auto write = [&output](TextView text) { output.Write(BytesFromText(text)); };
    write(TwoDigits(call->Number) + calllist::Separator);
    const Text date = DateText(TextFromBytes(call->Date));
    write(date + calllist::Separator);
    const Text caller = DeviceToAnsi(call->Caller);
    const Text msn = questions
                         .Ask({.prompt = u"MSN zu " + date + u" " + caller,
                               .title = u"Anruferliste-Ergänzung MSN",
                               .preset = u"0"})
                         .value_or(Text());
    write(msn + calllist::Separator + caller + Text(LineEnd));
    return ReadElement(input).has_value();
}

/// A folder is none: it is not replaced, and writing reports it.
bool IsFile(const FilePath& path) {
    std::error_code failure;  // what cannot be looked up will not be written either
    return std::filesystem::exists(path, failure) && !std::filesystem::is_directory(path, failure);
}

}  // namespace

void EnsureNotItself(const FilePath& file, const FilePath& output) {
    std::error_code failure;  // two files of which one does not exist are not the same
    if (std::filesystem::equivalent(file, output, failure)) {
        throw RuntimeError(ErrorNumber::FileAlreadyOpen);
    }
}

FilePath CallListOutput(const FilePath& file) {
    const FilePath::string_type& path = file.native();
    FilePath output = path.substr(0, path.find('.'));
    output += ".csv";
    return output;
}

std::optional<Text> ConvertCallList(const FilePath& file, Desktop& desktop) {
    const FilePath outputPath = CallListOutput(file);
    const Bytes bytes = ReadWholeFile(file);
    EnsureNotItself(file, outputPath);
    if (IsFile(outputPath) && !desktop.AskToReplace(outputPath)) {
        return std::nullopt;
    }
    Text remark = desktop.BeforeReplacing(outputPath);
    WriteCallList(bytes, TargetOf(outputPath, desktop, remark), desktop);
    ReportCallList(outputPath, desktop);
    return remark;
}

CallListExtent ExtentOf(ByteView calls) {
    CallListExtent extent;
    ByteReader input(calls);
    input.ReadBytes(calllist::HeaderLength);
    extent.WholeBytes = input.Read().size();
    try {
        for (bool goesOn = true; goesOn && !input.AtEnd();) {
            if (!ReadCall(input)) {
                break;
            }
            if (input.IsShort()) {
                extent.EndsInCall = true;
                break;
            }
            goesOn = ReadElement(input).has_value();
            ++extent.WholeCalls;
            extent.WholeBytes = input.Read().size();
        }
    } catch (const HardStop&) {
        extent.BrokenCall = true;
    } catch (const RuntimeError&) {
        extent.BrokenCall = true;
    }
    return extent;
}

void WriteCallList(ByteView calls, const OutputTarget& target, Desktop& desktop) {
    ByteReader input(calls);
    OutputFile output(target);
    if (LooksLikeRegisterFile(input.ReadBytes(calllist::HeaderLength))) {
        desktop.Ask(
            {.text = u"Header=RegisterHeader!", .title = Text(Title), .icon = Icon::Exclamation});
    }
    RepeatedInput questions(desktop);
    while (!input.AtEnd() && ConvertCall(input, output, questions)) {
    }
    output.Close();
}

void ReportCallList(const FilePath& output, Desktop& desktop) {
    Text report = u"Anruferliste wurde in Datei";
    report.append(LineEnd).append(TextFromPath(output)).append(u" gespeichert.");
    desktop.Ask({.text = report, .title = Text(Title), .icon = Icon::Information});
}

void mnuDateiConvCallListCSV(Desktop& desktop) {
    const std::optional<FilePath> chosen = desktop.AskForFileToOpen(
        {.filter = Text(calllist::DialogFilter), .ending = std::string(calllist::Ending)});
    if (!chosen) {
        return;
    }
    const FilePath file = WithEnding(*chosen, calllist::Ending);
    try {
        if (const std::optional<Text> remark = ConvertCallList(file, desktop)) {
            ShowSaved(CallListOutput(file), desktop, *remark);
        }
    } catch (const RuntimeError& error) {
        ReportUndefinedError(u"mnuDateiConvCallListCSV", error, desktop);
        ShowNotSaved(error, desktop);
    }
}

}  // namespace norvik
