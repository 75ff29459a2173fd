#include "registertools/sortregister.h"

#include <algorithm>
#include <numeric>

namespace norvik {

namespace {

/// The entry's lower-cased name at each used position.
std::vector<Text> SortKeys(const RegisterState& state) {
    std::vector<Text> keys;
    keys.reserve(static_cast<std::size_t>(std::max(0, state.AnzGes)));
    for (int position = 1; position <= state.AnzGes; ++position) {
        keys.push_back(LowerCase(EntryAt(state, position).Name));
    }
    return keys;
}

/// The indices of `keys` in sorted order, equal keys in their old order.
std::vector<std::size_t> SortedIndices(const std::vector<Text>& keys) {
    std::vector<std::size_t> indices(keys.size());
    std::iota(indices.begin(), indices.end(), std::size_t{0});
    std::stable_sort(indices.begin(), indices.end(),
                     [&keys](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
    return indices;
}

/// For each key the number of greater keys before it, given the keys' sorted order.
std::vector<int> GreaterKeysBefore(const std::vector<std::size_t>& sorted) {
    // A Fenwick tree over the old places counts which of the keys taken so far stand at or before a
    // place. Taken from the greatest on, those are the greater ones; of equal keys the later is
    // taken first and never stands before.
    std::vector<int> tree(sorted.size() + 1, 0);
    std::vector<int> greaterBefore(sorted.size(), 0);
    for (std::size_t rank = sorted.size(); rank > 0; --rank) {
        const std::size_t place = sorted[rank - 1];
        for (std::size_t i = place; i > 0; i &= i - 1) {
            greaterBefore[place] += tree[i];
        }
        for (std::size_t i = place + 1; i < tree.size(); i += i & (~i + 1)) {
            ++tree[i];
        }
    }
    return greaterBefore;
}

std::vector<int> SwapsOfPasses(const std::vector<std::size_t>& sorted) {
    const std::vector<int> greaterBefore = GreaterKeysBefore(sorted);
    const auto highest = std::max_element(greaterBefore.begin(), greaterBefore.end());
    const int passes = highest == greaterBefore.end() ? 1 : *highest + 1;
    std::vector<int> swaps(static_cast<std::size_t>(passes), 0);
    for (const int count : greaterBefore) {
        if (count > 0) {
            ++swaps[static_cast<std::size_t>(count - 1)];
        }
    }
    // So far swaps[k - 1] counts the keys with exactly k greater ones before them.
    for (std::size_t pass = swaps.size() - 1; pass > 0; --pass) {
        swaps[pass - 1] += swaps[pass];
    }
    return swaps;
}

void Reorder(RegisterState& state, const std::vector<std::size_t>& sorted) {
    std::vector<std::int16_t> order;
    order.reserve(sorted.size());
    for (const std::size_t old : sorted) {
        order.push_back(state.RegisterOrder(static_cast<int>(old) + 1));
    }
    for (std::size_t i = 0; i < order.size(); ++i) {
        state.RegisterOrder(static_cast<int>(i) + 1) = order[i];
    }
}

/// Tells a record from others while the order changes.
Text Identity(const RegisterEntry& entry) {
    return entry.Name + entry.Tel;
}

}  // namespace

std::vector<int> SwapsOfPasses(const std::vector<Text>& keys) {
    return SwapsOfPasses(SortedIndices(keys));
}

void SortRegister(RegisterState& state, int& place, Desktop& desktop) {
    desktop.SetPointer(Pointer::Hourglass);
    const Text remembered = Identity(EntryAt(state, place));

    const std::vector<std::size_t> sorted = SortedIndices(SortKeys(state));
    int pass = 0;
    for (const int swaps : SwapsOfPasses(sorted)) {
        ++pass;
        desktop.SetStatus(u"Sortiere, Durchgang " + Decimal(pass));
        desktop.SetStatus(u"Sortiert: " + Decimal(swaps));
    }
    Reorder(state, sorted);

    desktop.SetStatus(u"Suche Datensatz...");
    int position = 1;
    while (position <= state.AnzGes && Identity(EntryAt(state, position)) != remembered) {
        ++position;
    }
    if (position > state.AnzGes) {
        desktop.Ask({.text = u"Sortierfehler", .title = u""});
        throw HardStop();
    }
    place = position;
    desktop.SetPointer(Pointer::Normal);
    desktop.SetStatus(u"Sortieren beendet");
}

}  // namespace norvik
