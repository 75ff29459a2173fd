#include "tests/support/builders.h"

#include "tests/support/scripteddesktop.h"

namespace norvik {

std::ostream& operator<<(std::ostream& out, const RegisterEntry& entry) {
    return out << "{RecIndex " << entry.RecIndex << ", RecNumber " << entry.RecNumber << ", Name '"
               << test::Utf8(entry.Name) << "', Tel '" << test::Utf8(entry.Tel) << "', Info '"
               << test::Utf8(entry.Info) << "', Ton " << entry.Ton << ", MsnFilter "
               << entry.MsnFilter << ", GebEinh " << entry.GebEinh << ", AB " << entry.AB
               << ", Listed " << entry.Listed << "}";
}

}  // namespace norvik

namespace norvik::test {

RegisterEntry Entry(TextView name, TextView tel, TextView info) {
    RegisterEntry entry;
    entry.Name = name;
    entry.Tel = tel;
    entry.Info = info;
    return entry;
}

RegisterState RegisterOf(std::initializer_list<RegisterEntry> entries) {
    RegisterState state;
    int place = 0;
    for (const RegisterEntry& entry : entries) {
        ++place;
        state.Register(place) = entry;
        state.Register(place).RecIndex = static_cast<std::int16_t>(place - 1);
    }
    SetCount(state, place);
    CountMarked(state);
    return state;
}

RegisterState RegisterOfNames(std::initializer_list<TextView> names) {
    RegisterState state = RegisterOf({});
    int place = 0;
    for (const TextView name : names) {
        ++place;
        state.Register(place).Name = name;
        state.Register(place).Tel = Decimal(place);
    }
    SetCount(state, place);
    return state;
}

std::vector<Text> Names(const RegisterState& state) {
    std::vector<Text> names;
    for (int position = 1; position <= state.AnzGes; ++position) {
        names.push_back(EntryAt(state, position).Name);
    }
    return names;
}

std::vector<int> Order(const RegisterState& state, int count) {
    std::vector<int> order;
    for (int position = 1; position <= count; ++position) {
        order.push_back(state.RegisterOrder(position));
    }
    return order;
}

Contents ContentsOf(const RegisterState& state) {
    return {state.Register, state.RegisterOrder};
}

}  // namespace norvik::test
