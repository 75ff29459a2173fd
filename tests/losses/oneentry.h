// Registers of three entries of which the one in the middle has something to lose.
#pragma once

#include "tests/support/builders.h"

namespace norvik::test {

inline RegisterState One(const RegisterEntry& entry) {
    return RegisterOf({Entry(u"Anna", u"1"), entry, Entry(u"Carl", u"3")});
}

template <typename Value>
RegisterState OneWith(Value RegisterEntry::*field, int value) {
    RegisterEntry entry = Entry(u"Bert", u"2");
    entry.*field = static_cast<Value>(value);
    return One(entry);
}

inline RegisterState OneWithInfo(const Text& info) {
    return One(Entry(u"Bert", u"2", info));
}

}  // namespace norvik::test
