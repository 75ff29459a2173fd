#include "formats/csv/csvsplit.h"

#include <algorithm>

namespace norvik {

namespace {

using csvformat::Quote;

/// Fields after the last column are counted and otherwise ignored.
void AddField(CsvFields& fields, TextView field) {
    if (fields.Count < csvformat::Columns) {
        fields.Values[fields.Count] = field;
    }
    ++fields.Count;
}

TextView WithoutQuotes(TextView field) {
    if (field.empty() || field.front() != Quote || field.back() != Quote) {
        return field;
    }
    return field.size() < 2 ? TextView() : field.substr(1, field.size() - 2);
}

}  // namespace

bool IsQuotedHeader(TextView header) {
    return !header.empty() && header.front() == Quote && header.back() == Quote &&
           std::count(header.begin(), header.end(), Quote) % 2 == 0;
}

CsvFields SplitPlain(TextView line) {
    CsvFields fields;
    for (TextView rest = line; !line.empty();) {
        const std::size_t end = rest.find(csvformat::Separator);
        AddField(fields, WithoutQuotes(RightTrim(rest.substr(0, end))));
        if (end == TextView::npos) {
            break;
        }
        rest.remove_prefix(end + 1);
    }
    return fields;
}

CsvFields SplitQuoted(TextView line) {
    CsvFields fields;
    for (std::size_t next = 0;;) {
        const std::size_t open = line.find(Quote, next);
        const std::size_t close = open == TextView::npos ? open : line.find(Quote, open + 1);
        if (close == TextView::npos) {
            break;
        }
        AddField(fields, line.substr(open + 1, close - open - 1));
        next = close + 1;
    }
    ++fields.Count;
    return fields;
}

}  // namespace norvik
