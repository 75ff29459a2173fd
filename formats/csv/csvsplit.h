// Splitting a line of a CSV file into its fields.
#pragma once

#include "formats/csv/csvformat.h"

namespace norvik {

/// The first fifteen fields of a line, the missing ones empty, and the number of fields that the
/// splitter reports. The fields are parts of the line that was split.
struct CsvFields {
    std::array<TextView, csvformat::Columns> Values;
    std::size_t Count = 0;
};

/// Whether a header says that the file's values stand in quotes: it begins and ends with a quote
/// and holds an even number of them.
bool IsQuotedHeader(TextView header);

/// Cuts at every ";" and right-trims; a pair of quotes around a field is taken off. An empty line
/// has no field.
CsvFields SplitPlain(TextView line);

/// Takes what stands between successive pairs of quotes and skips all else. The number reported is
/// that of the pairs plus 1.
CsvFields SplitQuoted(TextView line);

}  // namespace norvik
