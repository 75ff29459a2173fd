// Random registers, written and loaded: what differs is what the report names.
#include "tests/losses/lossroundtrip.h"
#include "tests/losses/randomregister.h"

namespace norvik::test {
namespace {

/// Characters that matter to a format, among others that do not.
constexpr TextView Characters = u"ab01+ ()()()()áßŽ^éƒ‚\n i  w";

/// What a CSV file of the form can hold, of the two characters that the forms fear.
TextView FormCharacters(const TargetOptions& options) {
    return options.Quoted ? u";" : u"\"\"";
}

Text AnyText(RandomValues& random, const TargetOptions& options, int longest) {
    Text text = random.TextOf(Text(Characters).append(FormCharacters(options)), longest);
    if (random.Below(4) == 0) {
        text.append(static_cast<std::size_t>(random.Below(4)), u' ');
    }
    if (random.Below(4) == 0) {
        text.insert(0, static_cast<std::size_t>(random.Below(30)), u' ');
    }
    if (random.Below(4) == 0) {
        const TextView end = FormCharacters(options).substr(0, 1);
        text.insert(0, end).append(end);
    }
    return text;
}

template <typename Integer>
Integer AnyValue(RandomValues& random, int usual) {
    const int kind = random.Below(4);
    return kind == 0 ? random.Any<Integer>()
                     : static_cast<Integer>(kind == 1 ? 0 : random.Below(usual));
}

/// One entry in four has nothing but a name and a number, which every format holds.
RegisterEntry AnyEntry(RandomValues& random, const TargetOptions& options) {
    RegisterEntry entry = Entry(u"Anna", u"0301");
    if (random.Below(4) == 0) {
        return entry;
    }
    entry.Name = AnyText(random, options, 24);
    entry.Tel = AnyText(random, options, 24);
    entry.Info = AnyText(random, options, random.Toss() ? 10 : 180);
    entry.Ton = AnyValue<std::int16_t>(random, 300);
    entry.MsnFilter = random.Toss() ? std::int16_t{15} : AnyValue<std::int16_t>(random, 256);
    entry.GebEinh = AnyValue<std::int32_t>(random, 70000);
    entry.AB = AnyValue<std::int16_t>(random, 10);
    return entry;
}

/// The positions of which the file cannot be written.
std::set<int> Unwritable(const std::vector<Loss>& report) {
    std::set<int> positions;
    for (const Loss& loss : report) {
        if (loss.Kind == LossKind::TextTooLong || loss.Kind == LossKind::ChargesTooHigh) {
            positions.insert(loss.Position);
        }
    }
    return positions;
}

RegisterState AnyRegister(RandomValues& random, FileFormat target, const TargetOptions& options) {
    RegisterState state = RegisterOf({});
    SetCount(state, 300);
    for (int place = 1; place <= state.AnzGes; ++place) {
        state.Register(place) = AnyEntry(random, options);
    }
    random.Shuffle(state);
    for (const int position : Unwritable(LossReport(state, target, options))) {
        EntryAt(state, position) = Entry(u"Anna");
    }
    return state;
}

struct Case {
    FileFormat Target;
    TargetOptions Options;
    std::set<LossKind> Kinds;  ///< those that must have occurred, and no others
};

const std::vector<Case> Cases = {
    {FileFormat::Register195,
     {},
     {LossKind::DeviceByte, LossKind::Blanks, LossKind::RingTone, LossKind::Announcement,
      LossKind::Charges, LossKind::UnusedBits}},
    {FileFormat::Register193,
     {},
     {LossKind::DeviceByte, LossKind::NameCut, LossKind::InfoText, LossKind::Blanks, LossKind::Mark,
      LossKind::RingTone, LossKind::Announcement, LossKind::Msn, LossKind::Charges,
      LossKind::UnusedBits}},
    {FileFormat::Phonebook175,
     {},
     {LossKind::NameCut, LossKind::NumberCut, LossKind::InfoCut, LossKind::InfoFirstLine,
      LossKind::Blanks, LossKind::Mark, LossKind::RingTone, LossKind::Announcement, LossKind::Msn,
      LossKind::CallFilter, LossKind::ChargeCounter, LossKind::Charges, LossKind::UnusedBits}},
    {FileFormat::Csv,
     {},
     {LossKind::Quote, LossKind::NameCut, LossKind::NumberCut, LossKind::NumberCleaned,
      LossKind::InfoCut, LossKind::Blanks, LossKind::Mark, LossKind::RingTone,
      LossKind::Announcement, LossKind::Msn, LossKind::UnusedBits}},
    {FileFormat::Csv,
     {.Quoted = true},
     {LossKind::NameCut, LossKind::NumberCut, LossKind::NumberCleaned, LossKind::InfoCut,
      LossKind::Blanks, LossKind::Mark, LossKind::RingTone, LossKind::Announcement, LossKind::Msn,
      LossKind::UnusedBits}},
};

TEST(LossReport, OfRandomRegistersIsTrue) {
    for (const Case& aim : Cases) {
        std::set<LossKind> kinds;
        for (unsigned seed = 1; seed <= 3; ++seed) {
            RandomValues random(seed);
            const RegisterState state = AnyRegister(random, aim.Target, aim.Options);
            const std::vector<Loss> report = LossReport(state, aim.Target, aim.Options);
            ExpectTrue(report, state, WrittenAndLoaded(state, aim.Target, aim.Options));
            for (const Loss& loss : report) {
                kinds.insert(loss.Kind);
            }
        }
        EXPECT_EQ(kinds, aim.Kinds) << "target " << static_cast<int>(aim.Target);
    }
}

}  // namespace
}  // namespace norvik::test
