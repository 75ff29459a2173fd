// Holds a loss report against the truth: the register is written and loaded by the real writers and
// readers, and what differs then must be what the report names.
#pragma once

#include "formats/csv/csvformat.h"
#include "formats/phonebook175/phonebookfile.h"
#include "formats/registerfile/registerfile.h"
#include "losses/lossreport.h"
#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace norvik::test {

/// Writes the register into the file, in a format that can be loaded.
inline void WriteTarget(RegisterState state, FileFormat target, const TargetOptions& options,
                        const FilePath& path) {
    ScriptedDesktop desktop;
    switch (target) {
    case FileFormat::Register195:
        return WriteRegisterFile195(state, path, desktop);
    case FileFormat::Register193:
        WriteRegisterFile193(state, path, options.OnlyMarked, desktop);
        return;
    case FileFormat::Phonebook175:
        return WritePhonebookFile(state, path, desktop);
    case FileFormat::Csv:
        desktop.AnswerBox(options.Quoted ? Button::Yes : Button::No);
        return SaveCSV(state, path, desktop);
    default:
        FAIL() << "nothing loads this format";
    }
}

inline RegisterState LoadTarget(FileFormat target, const FilePath& path) {
    RegisterState state;
    ScriptedDesktop desktop;
    if (target == FileFormat::Csv) {
        LoadCSV(state, path, Settings(), desktop);
    } else if (target == FileFormat::Phonebook175) {
        LoadPhonebookFile(state, path, desktop);
    } else {
        LoadRegisterFile(state, path, desktop);
    }
    return state;
}

inline RegisterState WrittenAndLoaded(const RegisterState& state, FileFormat target,
                                      const TargetOptions& options = {}) {
    const TestFolder folder;
    WriteTarget(state, target, options, folder / "a");
    return LoadTarget(target, folder / "a");
}

/// The parts of an entry that differ.
inline std::set<std::string> Differences(const RegisterEntry& a, const RegisterEntry& b) {
    constexpr int Meaningful = MsnMask | EnGeb | (FilterMask << FilterShift);
    const std::map<std::string, bool> differs = {
        {"name", a.Name != b.Name},
        {"number", a.Tel != b.Tel},
        {"info", a.Info != b.Info},
        {"mark", IsMarked(a) != IsMarked(b)},
        {"tone", a.Ton != b.Ton},
        {"announcement", a.AB != b.AB},
        {"MSN", MsnOf(a) != MsnOf(b)},
        {"filter", FilterOf(a) != FilterOf(b)},
        {"counter", HasChargeCounter(a) != HasChargeCounter(b)},
        {"charges", a.GebEinh != b.GebEinh},
        {"bits", ((a.MsnFilter ^ b.MsnFilter) & ~Meaningful) != 0},
    };
    std::set<std::string> names;
    for (const auto& difference : differs) {
        if (difference.second) {
            names.insert(difference.first);
        }
    }
    return names;
}

/// The parts of an entry that a loss is about.
inline std::set<std::string> NamedBy(const Loss& loss) {
    switch (loss.Kind) {
    case LossKind::NameCut:
        return {"name"};
    case LossKind::NumberCut:
    case LossKind::NumberCleaned:
        return {"number"};
    case LossKind::InfoText:
    case LossKind::InfoCut:
    case LossKind::InfoFirstLine:
        return {"info"};
    case LossKind::Mark:
        return {"info", "mark"};
    case LossKind::RingTone:
        return {"tone"};
    case LossKind::Announcement:
        return {"announcement"};
    case LossKind::Msn:
        return {"MSN"};
    case LossKind::CallFilter:
        return {"filter"};
    case LossKind::ChargeCounter:
        return {"counter"};
    case LossKind::Charges:
        return {"charges"};
    case LossKind::UnusedBits:
        return {"bits"};
    default:  // the sentence names the text
        return {Contains(loss.What, u"Info")     ? "info"
                : Contains(loss.What, u"Nummer") ? "number"
                                                 : "name"};
    }
}

/// Every part of every entry is what it was, or the report names it, and nothing else.
inline void ExpectTrue(const std::vector<Loss>& report, const RegisterState& before,
                       const RegisterState& after) {
    ASSERT_EQ(after.AnzGes, before.AnzGes);
    std::vector<std::set<std::string>> named(static_cast<std::size_t>(before.AnzGes));
    for (const Loss& loss : report) {
        named.at(static_cast<std::size_t>(loss.Position - 1)).merge(NamedBy(loss));
    }
    for (int position = 1; position <= before.AnzGes; ++position) {
        const RegisterEntry& was = EntryAt(before, position);
        const RegisterEntry& is = EntryAt(after, position);
        EXPECT_EQ(named.at(static_cast<std::size_t>(position - 1)), Differences(was, is))
            << "position " << position << "\nbefore " << was << "\nafter  " << is;
    }
}

inline std::vector<std::string> LossLines(const std::vector<Loss>& report) {
    std::vector<std::string> lines;
    for (const Loss& loss : report) {
        lines.push_back(Utf8(LossLine(loss)));
    }
    return lines;
}

inline std::vector<LossKind> Kinds(const std::vector<Loss>& report) {
    std::vector<LossKind> kinds;
    for (const Loss& loss : report) {
        kinds.push_back(loss.Kind);
    }
    return kinds;
}

/// An entry, its losses in a format that can be loaded, as kinds and as lines. The report is held
/// against the truth.
struct ExpectedLoss {
    LossKind Kind;
    std::string Line;
};
inline void ExpectLosses(const RegisterState& state, FileFormat target,
                         const TargetOptions& options, const std::vector<ExpectedLoss>& expected) {
    const std::vector<Loss> report = LossReport(state, target, options);
    std::vector<LossKind> kinds;
    std::vector<std::string> lines;
    for (const ExpectedLoss& loss : expected) {
        kinds.push_back(loss.Kind);
        lines.push_back(loss.Line);
    }
    EXPECT_EQ(LossLines(report), lines);
    EXPECT_EQ(Kinds(report), kinds);
    ExpectTrue(report, state, WrittenAndLoaded(state, target, options));
}

}  // namespace norvik::test
