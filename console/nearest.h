// The word that somebody probably meant.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace norvik {

/// How many characters must be inserted, removed or replaced to make `a` into `b`, regardless of
/// the case of A to Z.
std::size_t EditDistance(std::string_view a, std::string_view b);

/// The first of the candidates that are nearest to `word`: one that begins with it before all
/// others, then by the distance. Leading "-" do not count. Nothing where none of them resembles the
/// word.
std::optional<std::string_view> Nearest(std::string_view word,
                                        std::span<const std::string_view> candidates);

}  // namespace norvik
