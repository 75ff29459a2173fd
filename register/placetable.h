// A fixed table of 2000 places, counted from 1.
#pragma once

#include "base/runtimeerror.h"

#include <vector>

namespace norvik {

/// The highest place of the register and of its order list.
inline constexpr int RegisterPlaces = 2000;

/// Places 1 to RegisterPlaces; any other raises run-time error 9.
template <typename Value>
class PlaceTable {
  public:
    PlaceTable() : values_(RegisterPlaces) {}

    Value& operator()(int place) { return values_[IndexOf(place)]; }
    const Value& operator()(int place) const { return values_[IndexOf(place)]; }

    bool operator==(const PlaceTable&) const = default;

  private:
    static std::size_t IndexOf(int place) {
        if (place < 1 || place > RegisterPlaces) {
            throw RuntimeError(ErrorNumber::IndexOutOfRange);
        }
        return static_cast<std::size_t>(place - 1);
    }

    std::vector<Value> values_;
};

}  // namespace norvik
