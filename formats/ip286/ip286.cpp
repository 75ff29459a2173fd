#include "formats/ip286/ip286.h"

#include "formats/common/namingentry.h"
#include "formats/common/transliterate.h"

#include <algorithm>

namespace norvik {

namespace {

constexpr char16_t ExclusionSeparator = u'|';
constexpr TextView Account = u"1";

Bytes Line(TextView name, TextView number, TextView account) {
    Text line = u"\"";
    line.append(name).append(u"\",\"").append(number).append(u"\",\"").append(account);
    line.append(u"\"").append(LineEnd);
    return BytesFromText(line);
}

}  // namespace

std::vector<TextView> SplitExclusions(TextView exclusions) {
    std::vector<TextView> texts;
    for (TextView rest = exclusions; !rest.empty();) {
        const std::size_t end = std::min(rest.find(ExclusionSeparator), rest.size());
        if (end > 0) {
            texts.push_back(rest.substr(0, end));
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return texts;
}

bool IsExcluded(const RegisterEntry& entry, const std::vector<TextView>& exclusions) {
    return std::any_of(exclusions.begin(), exclusions.end(),
                       [&](TextView text) { return Contains(entry.Tel, text); });
}

void ExportIP286(const RegisterState& state, const OutputTarget& target, TextView exclusions,
                 Desktop& desktop) {
    const std::vector<TextView> texts = SplitExclusions(exclusions);
    int exported = 0;
    int ignored = 0;
    Text ignoredNames;
    OutputFile output(target);
    output.Write(Line(u"Name", u"Telefonnummer", u"Konto"));
    for (int position = 1; position <= state.AnzGes; ++position) {
        const RegisterEntry& entry = EntryAt(state, position);
        if (IsExcluded(entry, texts)) {
            ++ignored;
            ignoredNames.append(entry.Name).append(LineEnd);
        } else {
            ++exported;
            NamingEntry(state, position, [&output](const RegisterEntry& exportedEntry) {
                output.Write(Line(Transliterate(exportedEntry.Name), exportedEntry.Tel, Account));
            });
        }
    }
    output.Close();
    Text report = Decimal(exported);
    report.append(u" Einträge exportiert").append(LineEnd).append(Decimal(ignored));
    report.append(u" Einträge wurden ignoriert").append(LineEnd).append(ignoredNames);
    desktop.Ask({.text = report, .title = Text(ip286::ResultTitle), .icon = Icon::Information});
}

}  // namespace norvik
