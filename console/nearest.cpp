#include "console/nearest.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace norvik {

namespace {

char Lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string_view WithoutDashes(std::string_view word) {
    return word.substr(std::min(word.find_first_not_of('-'), word.size()));
}

/// 0 for a candidate that begins with the word.
std::size_t Distance(std::string_view word, std::string_view candidate) {
    const bool begins = EditDistance(word, candidate.substr(0, word.size())) == 0;
    return begins && !word.empty() ? 0 : EditDistance(word, candidate);
}

}  // namespace

std::size_t EditDistance(std::string_view a, std::string_view b) {
    // distances[j]: from the characters of `a` so far to the first j of `b`.
    std::vector<std::size_t> distances(b.size() + 1);
    std::iota(distances.begin(), distances.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = distances[0];
        distances[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (Lowered(a[i]) == Lowered(b[j]) ? 0 : 1);
            diagonal = distances[j + 1];
            distances[j + 1] = std::min({replaced, diagonal + 1, distances[j] + 1});
        }
    }
    return distances.back();
}

std::optional<std::string_view> Nearest(std::string_view word,
                                        std::span<const std::string_view> candidates) {
    const std::string_view bare = WithoutDashes(word);
    const auto distance = [bare](std::string_view candidate) {
        return Distance(bare, WithoutDashes(candidate));
    };
    const auto nearest = std::min_element(
        candidates.begin(), candidates.end(),
        [&distance](std::string_view a, std::string_view b) { return distance(a) < distance(b); });
    // With more than two wrong letters of three it is another word.
    const bool near =
        nearest != candidates.end() && !bare.empty() && 3 * distance(*nearest) <= 2 * bare.size();
    return near ? std::optional(*nearest) : std::nullopt;
}

}  // namespace norvik
