#include "formats/common/transliterate.h"

namespace norvik {

namespace {

/// Each character is replaced by the two at the same place of Spellings.
constexpr TextView Umlauts = u"äöüßÄÖÜ";
constexpr TextView Spellings = u"aeoeueszAeOeUe";
constexpr std::size_t SpellingLength = 2;

}  // namespace

Text Transliterate(TextView text) {
    Text result;
    result.reserve(text.size());
    for (const char16_t character : text) {
        const std::size_t place = Umlauts.find(character);
        if (place == TextView::npos) {
            result.push_back(character);
        } else {
            result.append(Spellings.substr(place * SpellingLength, SpellingLength));
        }
    }
    return result;
}

}  // namespace norvik
