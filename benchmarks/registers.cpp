#include "benchmarks/registers.h"

#include <random>

namespace norvik::benchmarks {

RegisterState RandomRegister(int count) {
    constexpr TextView Letters = u"abcdefghijklmnopqrstuvwxyzäöüßABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÜ ";
    std::mt19937 random(195);
    const auto number = [&random](int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random);
    };
    const auto text = [&](int length, TextView characters) {
        Text result;
        while (static_cast<int>(result.size()) < length) {
            result.push_back(characters[static_cast<std::size_t>(
                number(0, static_cast<int>(characters.size()) - 1))]);
        }
        return result;
    };
    RegisterState state;
    for (int place = 1; place <= count; ++place) {
        RegisterEntry& entry = state.Register(place);
        entry.Name = text(number(5, 20), Letters);
        entry.Tel = text(number(4, 16), u"0123456789");
        entry.Info = text(number(0, 126), Letters);
        entry.Ton = static_cast<std::int16_t>(number(0, 79));
        entry.MsnFilter = static_cast<std::int16_t>(number(0, 255));
        entry.GebEinh = number(0, 5000);
        entry.AB = static_cast<std::int16_t>(number(0, 7));
    }
    SetCount(state, count);
    return state;
}

void EntryCounts(benchmark::internal::Benchmark* measured) {
    measured->Arg(250)->Arg(500)->Arg(1000)->Arg(RegisterPlaces)->Unit(benchmark::kMicrosecond);
}

}  // namespace norvik::benchmarks
