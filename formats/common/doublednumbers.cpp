#include "formats/common/doublednumbers.h"

#include "formats/common/globalize.h"

#include <unordered_map>

namespace norvik {

namespace {

/// Keys that a number of the public network does not hold; an "i" stands only in front.
constexpr TextView ExchangeKeys = u"i*#A";

}  // namespace

Text DialledKey(TextView number, const Settings& settings) {
    const Text cleaned = CleanNumber(number, GlobalizeMode::CleanForTelephone);
    if (cleaned.find_first_of(u"0123456789") == Text::npos) {
        return {};
    }
    const Text digits = CleanNumber(number, GlobalizeMode::Clean);
    const bool isOfOwnArea = !digits.starts_with(u'0') && !digits.starts_with(u'+');
    const bool hasArea = settings.AreaPrefix.size() > 1;  // behind its "0"
    if (cleaned.find_first_of(ExchangeKeys) == Text::npos && (hasArea || !isOfOwnArea)) {
        return Globalized(number, GlobalizeMode::International, settings);
    }
    Text key = cleaned;
    std::erase_if(key, [](char16_t character) { return Contains(u"()-", {&character, 1}); });
    return key;
}

std::vector<DoubledNumber> DoubledNumbers(const RegisterState& state, const Settings& settings) {
    std::vector<DoubledNumber> numbers;
    std::unordered_map<Text, std::size_t> known;
    for (int position = 1; position <= state.AnzGes; ++position) {
        Text key = DialledKey(EntryAt(state, position).Tel, settings);
        if (key.empty()) {
            continue;
        }
        const auto [place, isNew] = known.try_emplace(key, numbers.size());
        if (isNew) {
            numbers.push_back({std::move(key), {}});
        }
        numbers[place->second].Positions.push_back(position);
    }
    std::erase_if(numbers, [](const DoubledNumber& one) { return one.Positions.size() < 2; });
    return numbers;
}

}  // namespace norvik
