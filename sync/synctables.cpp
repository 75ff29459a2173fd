#include "sync/synctables.h"

#include "base/charset.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "sync/quotedfields.h"

#include <limits>

namespace norvik {

namespace {

/// The numbers of the fields, from 1, that the items are taken from; 0 for none.
using Mapping = std::array<std::size_t, SyncItems>;

std::size_t FieldNumber(TextView setting) {
    using Limits = std::numeric_limits<long long>;
    const long long number = LeadingInteger(setting, Limits::min(), Limits::max());
    return number >= 1 && number <= static_cast<long long>(SyncFields)
               ? static_cast<std::size_t>(number)
               : 0;
}

Mapping ReadMapping(const SettingsTable& settings) {
    Mapping mapping{};
    for (std::size_t item = 0; item < SyncItems; ++item) {
        const int row = static_cast<int>(Setting::SyncName) + static_cast<int>(item);
        mapping.at(item) = FieldNumber(settings.At(row).Value);
    }
    return mapping;
}

struct Record {
    Text Line;
    bool Replaced = false;  ///< some of its characters
};

/// The next record: a line, and a second one where the first does not end with a quote.
Record NextRecord(LineReader& lines, bool isUtf8) {
    Record record;
    record.Replaced = AssignDecoded(record.Line, lines.NextBytes(), isUtf8);
    if (!record.Line.ends_with(u'"') && !lines.AtEnd()) {
        Text further;
        record.Replaced |= AssignDecoded(further, lines.NextBytes(), isUtf8);
        record.Line.append(further);
    }
    return record;
}

template <typename Row>
void FillRow(Row& row, const std::vector<TextView>& fields, const std::size_t* numbers) {
    for (std::size_t column = 0; column < row.size(); ++column) {
        const std::size_t number = numbers[column];
        row.at(column) = number >= 1 && number <= fields.size() ? fields[number - 1] : TextView();
    }
}

}  // namespace

SyncTables::SyncTables()
    : SyncNameTable(SyncRecords + 1),
      SyncAddressTable(SyncRecords + 1),
      SyncPhoneTable(SyncRecords + 1) {}

void SyncTables::NoteReplaced(TextView name) {
    if (ReplacedRecords == 0) {
        FirstReplaced = name;
    }
    ++ReplacedRecords;
}

std::size_t ReadSyncRecords(ByteView file, const SettingsTable& settings, SyncTables& tables) {
    const Mapping mapping = ReadMapping(settings);
    auto kept = std::make_shared<std::deque<Text>>();
    tables.Lines = kept;
    const TextFile text = RecognizeText(file);
    LineReader lines(text.Content);
    std::size_t record = 0;
    while (record < SyncRecords && !lines.AtEnd()) {
        ++record;
        Record next = NextRecord(lines, text.IsUtf8);
        kept->push_back(std::move(next.Line));
        const std::vector<TextView> fields = SplitQuotedFields(kept->back(), SyncFields);
        if (next.Replaced && !fields.empty()) {
            tables.NoteReplaced(fields.front());
        }
        const std::size_t* numbers = mapping.data();
        FillRow(tables.SyncNameTable.at(record), fields, numbers);
        numbers += SyncTables::NameColumns;
        FillRow(tables.SyncAddressTable.at(record), fields, numbers);
        numbers += SyncTables::AddressColumns;
        FillRow(tables.SyncPhoneTable.at(record), fields, numbers);
    }
    return record;
}

}  // namespace norvik
