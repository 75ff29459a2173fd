// Entries and registers for tests, in a few words.
#pragma once

#include "register/register.h"

#include <initializer_list>
#include <ostream>

namespace norvik {

/// How GoogleTest shows an entry.
std::ostream& operator<<(std::ostream& out, const RegisterEntry& entry);

}  // namespace norvik

namespace norvik::test {

/// An entry as ClearEntry makes it, with a name and a number.
RegisterEntry Entry(TextView name, TextView tel = u"", TextView info = u"");

/// A register of the given entries at places 1, 2, …, their RecIndex counting from 0; the first one
/// is shown.
RegisterState RegisterOf(std::initializer_list<RegisterEntry> entries);

/// A register of entries with the given names, numbered "1", "2", ….
RegisterState RegisterOfNames(std::initializer_list<TextView> names);

/// The names at positions 1 to count.
std::vector<Text> Names(const RegisterState& state);

/// The order list's places 1 to `count`.
std::vector<int> Order(const RegisterState& state, int count);

/// All entries of the table and the whole order, for comparing before and after.
struct Contents {
    PlaceTable<RegisterEntry> Entries;
    PlaceTable<std::int16_t> Order;
    bool operator==(const Contents&) const = default;
};
Contents ContentsOf(const RegisterState& state);

}  // namespace norvik::test
