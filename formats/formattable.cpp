#include "formats/formattable.h"

#include "formats/calllist/calllist.h"
#include "formats/charges/chargestatement.h"
#include "formats/csv/csvmenu.h"
#include "formats/ip286/ip286.h"
#include "formats/ip286/ip286menu.h"
#include "formats/phonebook175/phonebookfile.h"
#include "formats/phonebook175/phonebookfilemenu.h"
#include "formats/registerfile/registerfile.h"
#include "formats/registerfile/registerfilemenu.h"
#include "formats/vcard/vcard.h"
#include "formats/vcard/vcardmenu.h"
#include "formats/vcard/vcardwriter.h"

#include <algorithm>

namespace norvik {

namespace {

// The loads and writers of the rooms, with the parameters of the table.

bool StartRegisterFile(RegisterState& state, const FilePath& path, const Settings& /*settings*/,
                       Desktop& desktop) {
    LoadRegisterFile(state, path, desktop);  // reports, and the start goes on with what it read
    return true;
}

bool LoadNV(RegisterState& state, const SourceReader& read, const SourceOptions& /*options*/,
            const Settings& /*settings*/, Desktop& desktop) {
    return LoadNVOrReport(state, read, desktop);
}

bool Write195(RegisterState& state, const OutputTarget& target, const TargetOptions& /*options*/,
              const Settings& /*settings*/, Desktop& desktop) {
    WriteRegisterFile195(state, target, desktop);
    return true;
}

bool Write193(RegisterState& state, const OutputTarget& target, const TargetOptions& options,
              const Settings& /*settings*/, Desktop& desktop) {
    return WriteRegisterFile193(state, target, options.OnlyMarked, desktop);
}

bool Start175(RegisterState& state, const FilePath& path, const Settings& /*settings*/,
              Desktop& desktop) {
    return Load175OrReport(state, path, desktop);
}

bool Load175(RegisterState& state, const SourceReader& read, const SourceOptions& /*options*/,
             const Settings& /*settings*/, Desktop& desktop) {
    return Load175OrReport(state, read, desktop);
}

bool Write175(RegisterState& state, const OutputTarget& target, const TargetOptions& /*options*/,
              const Settings& /*settings*/, Desktop& desktop) {
    WritePhonebookFile(state, target, desktop);
    return true;
}

bool StartCsv(RegisterState& state, const FilePath& path, const Settings& settings,
              Desktop& desktop) {
    // A name in the working folder must not look like the option "#D".
    const bool likeOption = path.native().starts_with('#');
    return LoadCSVOrReport(state, settings, likeOption ? "." / path : path, desktop);
}

bool LoadCsv(RegisterState& state, const SourceReader& read, const SourceOptions& options,
             const Settings& settings, Desktop& desktop) {
    return LoadCSVOrReport(state, settings, read, options.Csv, desktop);
}

bool WriteCsv(RegisterState& state, const OutputTarget& target, const TargetOptions& options,
              const Settings& /*settings*/, Desktop& /*desktop*/) {
    WriteCSV(state, target, options.Quoted);
    return true;
}

bool WriteIp286(RegisterState& state, const OutputTarget& target, const TargetOptions& options,
                const Settings& /*settings*/, Desktop& desktop) {
    WarnOfLargeRegister(state, desktop);
    ExportIP286(state, target, options.Exclusions, desktop);
    return true;
}

bool WriteMobile(RegisterState& state, const OutputTarget& target, const TargetOptions& options,
                 const Settings& settings, Desktop& desktop) {
    ExportMobile(state, options.Mobile, settings, target, desktop);
    return true;
}

bool WriteStatement(RegisterState& state, const OutputTarget& target,
                    const TargetOptions& /*options*/, const Settings& settings,
                    Desktop& /*desktop*/) {
    WriteChargeStatement(state, settings.UnitPrice, target);
    return true;
}

bool StartVCard(RegisterState& state, const FilePath& path, const Settings& settings,
                Desktop& desktop) {
    return LoadVCardOrReport(
        state, [&path] { return OpenSourceFile(path); }, settings, desktop);
}

bool LoadVCardSource(RegisterState& state, const SourceReader& open, const SourceOptions& options,
                     const Settings& settings, Desktop& desktop) {
    return LoadVCardOrReport(state, open, settings, desktop, options.VCardCharacters);
}

bool WriteVCardFile(RegisterState& state, const OutputTarget& target,
                    const TargetOptions& /*options*/, const Settings& settings,
                    Desktop& /*desktop*/) {
    WriteVCard(state, target, settings);
    return true;
}

// clang-format off
constexpr FormatRow Rows[] = {
    {FileFormat::Register195, "195", registerfile::Ending, u"195-Datei", "registerfile",
     registerfile::OpenFilter, registerfile::SaveFilter195, StartRegisterFile, LoadNV, Write195,
     false, false, WriteFailure::StatusLine, u"mnuDateiSaveNV"},
    {FileFormat::Register193, "193", registerfile::Ending, u"193-Datei", "registerfile",
     registerfile::OpenFilter, registerfile::SaveFilter193, StartRegisterFile, LoadNV, Write193,
     true, false, WriteFailure::StatusLine, u"MNUDateiSave193"},
    {FileFormat::Phonebook175, "175", phonebookfile::Ending, u"175-Datei", "phonebookfile",
     phonebookfile::DialogFilter, phonebookfile::DialogFilter, Start175, Load175, Write175,
     false, false, WriteFailure::StatusLine, u"mnuDateiSave175"},
    {FileFormat::Csv, "csv", csvformat::Ending, u"CSV-Datei", "csv",
     csvformat::DialogFilter, csvformat::DialogFilter, StartCsv, LoadCsv, WriteCsv,
     false, false, WriteFailure::UndefinedError, u"mnuDateiSaveCSV"},
    {FileFormat::Ip286, "ip286", ip286::Ending, u"CSV-Datei für das IP 286", "ip286",
     {}, ip286::DialogFilter, nullptr, nullptr, WriteIp286,
     false, false, WriteFailure::UndefinedError, u"mnuDateiSaveIP286"},
    {FileFormat::MobileExport, "simsurf", mobileexport::Ending, u"Handyexport", "mobileexport",
     {}, mobileexport::DialogFilter, nullptr, nullptr, WriteMobile,
     true, false, WriteFailure::RuntimeError, u"mnuDateiHandyexp"},
    {FileFormat::ChargeStatement, "gebuehren", chargestatement::Ending, u"Gebührenauszug", "chargestatement",
     {}, chargestatement::DialogFilter, nullptr, nullptr, WriteStatement,
     false, false, WriteFailure::RuntimeError, u"mnuGebAuszug"},
    {FileFormat::CallList, "", calllist::Ending, u"Anrufliste", "calllist",
     calllist::DialogFilter, {}, nullptr, nullptr, nullptr},
    {FileFormat::VCard, "vcard", vcard::Ending, u"vCard-Datei", "vcard",
     vcard::DialogFilter, vcard::DialogFilter, StartVCard, LoadVCardSource, WriteVCardFile,
     false, true, WriteFailure::UndefinedError, u"mnuDateiSaveVCard"},
};
// clang-format on

bool CanBeLoaded(const FormatRow& row) {
    return row.Load != nullptr;
}

bool CanBeRead(const FormatRow& row) {
    return !row.OpenFilter.empty();
}

bool CanBeWritten(const FormatRow& row) {
    return row.Write != nullptr;
}

using Condition = bool (*)(const FormatRow&);

std::vector<std::string_view> Names(Condition applies) {
    std::vector<std::string_view> names;
    for (const FormatRow& row : Rows) {
        if (applies(row)) {
            names.push_back(row.Word);
        }
    }
    return names;
}

template <typename Matches>
std::optional<FileFormat> First(const Matches& matches) {
    const auto* const found = std::find_if(std::begin(Rows), std::end(Rows), matches);
    return found == std::end(Rows) ? std::nullopt : std::optional(found->Format);
}

std::optional<FileFormat> OfName(std::string_view name, Condition applies) {
    return First(
        [&](const FormatRow& row) { return applies(row) && row.Word == name && !name.empty(); });
}

std::optional<FileFormat> OfEnding(const FilePath& path, Condition applies) {
    const Text name = LowerCase(TextFromPath(path.filename()));
    return First([&](const FormatRow& row) {
        return applies(row) && name.ends_with(FromAscii(row.Ending));
    });
}

}  // namespace

std::span<const FormatRow> FormatTable() {
    return Rows;
}

const FormatRow& RowOf(FileFormat format) {
    return FormatTable()[static_cast<std::size_t>(format)];
}

std::vector<std::string_view> SourceNames() {
    return Names(CanBeLoaded);
}

std::vector<std::string_view> TargetNames() {
    return Names(CanBeWritten);
}

std::optional<FileFormat> SourceOfName(std::string_view name) {
    return OfName(name, CanBeLoaded);
}

std::optional<FileFormat> TargetOfName(std::string_view name) {
    return OfName(name, CanBeWritten);
}

std::optional<FileFormat> SourceOfEnding(const FilePath& path) {
    return OfEnding(path, CanBeRead);
}

std::optional<FileFormat> TargetOfEnding(const FilePath& path) {
    return OfEnding(path, CanBeWritten);
}

std::vector<FileFormat> TargetFormats() {
    std::vector<FileFormat> formats;
    for (const FormatRow& row : Rows) {
        if (CanBeWritten(row)) {
            formats.push_back(row.Format);
        }
    }
    return formats;
}

const FormatRow* RowOfStartFile(TextView name) {
    const Text lowered = LowerCase(name);
    const auto* const found =
        std::find_if(std::begin(Rows), std::end(Rows), [&lowered](const FormatRow& row) {
            return row.LoadStartFile != nullptr &&
                   lowered.ends_with(FromAscii(row.Ending.substr(1)));
        });
    return found == std::end(Rows) ? nullptr : found;
}

}  // namespace norvik
