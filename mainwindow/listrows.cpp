#include "mainwindow/listrows.h"

#include <algorithm>

namespace norvik {

std::vector<Text> ListRows(const RegisterState& state, bool onlyListed) {
    std::vector<Text> rows;
    rows.reserve(static_cast<std::size_t>(std::max(0, state.AnzGes)));
    for (int position = 1; position <= state.AnzGes; ++position) {
        const RegisterEntry& entry = EntryAt(state, position);
        if (entry.Name.empty() || (onlyListed && !entry.Listed)) {
            continue;
        }
        Text row = u"#" + Decimal(position);
        row.append(u": ").append(entry.Name).append(u" (").append(entry.Tel).append(u")");
        if (!entry.Info.empty()) {
            row.append(u" ").append(entry.Info);
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

int PositionOfRow(TextView row) {
    return static_cast<int>(ParseDecimal(Slice(row, 1, row.find(u':') - 1)));
}

TextView WithoutPosition(TextView row) {
    const auto name = row.find_first_not_of(u"0123456789", 1);
    const bool hasPosition =
        row.starts_with(u'#') && name != TextView::npos && name > 1 && row.substr(name, 2) == u": ";
    return hasPosition ? row.substr(name + 2) : row;
}

std::optional<int> RowOfPosition(const std::vector<Text>& rows, int position) {
    const auto row =
        std::lower_bound(rows.begin(), rows.end(), position, [](const Text& candidate, int wanted) {
            return PositionOfRow(candidate) < wanted;
        });
    if (row == rows.end() || PositionOfRow(*row) != position) {
        return std::nullopt;
    }
    return static_cast<int>(row - rows.begin());
}

}  // namespace norvik
