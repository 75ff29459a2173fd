// Registers of random values; the same seed gives the same register everywhere.
#pragma once

#include "register/register.h"

#include <random>
#include <utility>

namespace norvik::test {

class RandomValues {
  public:
    explicit RandomValues(unsigned seed) : engine_(seed) {}

    /// 0 to `count` - 1.
    int Below(int count) {
        return static_cast<int>(engine_() % static_cast<std::mt19937::result_type>(count));
    }
    bool Toss() { return Below(2) == 1; }

    /// Any value of a type of at most 32 bits.
    template <typename Integer>
    Integer Any() {
        return static_cast<Integer>(engine_());
    }

    /// Up to `longest` of the characters, without blanks at the end.
    Text TextOf(TextView characters, int longest) {
        Text text;
        for (int length = Below(longest + 1); length > 0; --length) {
            text.push_back(
                characters[static_cast<std::size_t>(Below(static_cast<int>(characters.size())))]);
        }
        return Text(RightTrim(text));
    }

    /// Puts the positions 1 to the count into a random order.
    void Shuffle(RegisterState& state) {
        for (int position = state.AnzGes; position > 1; --position) {
            std::swap(state.RegisterOrder(position), state.RegisterOrder(Below(position) + 1));
        }
    }

  private:
    std::mt19937 engine_;
};

}  // namespace norvik::test
