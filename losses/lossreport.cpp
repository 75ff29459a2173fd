#include "losses/lossreport.h"

#include "formats/common/transliterate.h"
#include "formats/ip286/ip286.h"
#include "losses/lossreport_entry.h"
#include "registertools/checkregister.h"

#include <algorithm>
#include <map>

namespace norvik {

namespace {

/// What the IP 286 makes of the register as a whole.
class Ip286Losses {
  public:
    explicit Ip286Losses(TextView exclusions) : exclusions_(SplitExclusions(exclusions)) {}

    [[nodiscard]] bool Leaves(const RegisterEntry& entry) const {
        return IsExcluded(entry, exclusions_);
    }

    /// Looks at the next entry that is written.
    void Look(const RegisterEntry& entry, int position, EntryLosses& losses) {
        ++written_;
        if (written_ > LargestIP286Register) {
            losses.Add(LossKind::TooManyEntries,
                       u"Eintrag " + Decimal(written_) +
                           u" der Datei; das IP 286 speichert höchstens " +
                           Decimal(LargestIP286Register));
        }
        const Text name(TrimBlanks(Transliterate(entry.Name)));
        if (name.empty()) {
            losses.Add(LossKind::BlankName, u"Name ist leer");
            return;
        }
        const auto [first, isNew] = positions_.try_emplace(name, position);
        if (!isNew) {
            losses.Add(LossKind::DoubledName, u"gleicher Name wie #" + Decimal(first->second));
        }
    }

  private:
    std::vector<TextView> exclusions_;
    int written_ = 0;
    std::map<Text, int> positions_;  ///< where each name occurs first
};

/// Makes of the entry what is left of it in the target.
void Convert(RegisterEntry& entry, FileFormat target, const TargetOptions& options,
             EntryLosses& losses) {
    const auto* const row = std::find_if(std::begin(LossTable), std::end(LossTable),
                                         [target](const LossRow& r) { return r.Target == target; });
    if (row != std::end(LossTable)) {
        row->Through(entry, options, losses);
    }
}

void FindEntryLosses(const RegisterEntry& entry, FileFormat target, const TargetOptions& options,
                     EntryLosses& losses) {
    RegisterEntry rest = entry;
    Convert(rest, target, options, losses);
    if (losses.IsTorn()) {
        return;
    }
    if (RowOf(target).Load != nullptr) {  // a load with its check follows
        LongReport findings;              // the repair alone matters
        CheckEntry(rest, findings);
    }
    CompareValues(entry, rest, losses);
}

bool IsLeftUnmarked(const RegisterEntry& entry, FileFormat target, const TargetOptions& options) {
    const bool onlyMarked =
        (options.OnlyMarked && RowOf(target).CanLeaveOutUnmarked) ||
        (options.Mobile.UseReductionFlags && target == FileFormat::MobileExport);
    return onlyMarked && !IsMarked(entry);
}

}  // namespace

std::vector<Loss> LossReport(const RegisterState& state, FileFormat target,
                             const TargetOptions& options) {
    std::vector<Loss> report;
    const bool ip286 = target == FileFormat::Ip286;
    Ip286Losses ip286Losses(options.Exclusions);
    for (int position = 1; position <= state.AnzGes; ++position) {
        const RegisterEntry& entry = EntryAt(state, position);
        if (IsLeftUnmarked(entry, target, options) || (ip286 && ip286Losses.Leaves(entry))) {
            continue;
        }
        EntryLosses losses(report, position, entry.Name);
        if (ip286) {
            ip286Losses.Look(entry, position, losses);
        }
        FindEntryLosses(entry, target, options, losses);
    }
    return report;
}

Text LossLine(const Loss& loss) {
    Text line = u"#" + Decimal(loss.Position) + u" " + loss.Name + u": " + loss.What;
    std::replace_if(line.begin(), line.end(), IsControl, u'?');
    return line;
}

}  // namespace norvik
