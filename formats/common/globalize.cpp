#include "formats/common/globalize.h"

#include <algorithm>

namespace norvik {

namespace {

/// The first character of a list is kept only in front of the number, the others anywhere.
constexpr TextView AllowedForTelephone = u"i*#0123456789A()-pw";
constexpr TextView Allowed = u"+0123456789pw";

Text Cleaned(TextView number, TextView allowed) {
    const auto isDigit = [](char16_t character) { return character >= u'0' && character <= u'9'; };
    if (std::all_of(number.begin(), number.end(), isDigit)) {  // most are, and all are allowed
        return Text(number);
    }
    Text result;
    result.reserve(number.size());
    for (std::size_t i = 0; i < number.size(); ++i) {
        const std::size_t place = isDigit(number[i]) ? 1 : allowed.find(number[i]);
        if (place != TextView::npos && (place > 0 || i == 0)) {
            result.push_back(number[i]);
        }
    }
    return result;
}

/// Replaces `prefix` in front of `text`, if it stands there.
void ReplaceStart(Text& text, TextView prefix, TextView replacement) {
    if (text.starts_with(prefix)) {
        text.replace(0, prefix.size(), replacement);
    }
}

}  // namespace

Text CleanNumber(TextView number, GlobalizeMode mode) {
    const bool forTelephone = mode == GlobalizeMode::CleanForTelephone;
    return Cleaned(TrimBlanks(number), forTelephone ? AllowedForTelephone : Allowed);
}

Text Globalize(TextView number, GlobalizeMode mode, const Settings& settings, Desktop& desktop) {
    RepeatedBox reports(desktop);
    return Globalize(number, mode, settings, reports);
}

Text Globalized(TextView number, GlobalizeMode mode, const Settings& settings) {
    Text result = CleanNumber(number, mode);
    if (mode >= GlobalizeMode::AddArea && !result.starts_with(u'0') && !result.starts_with(u'+')) {
        result.insert(0, settings.AreaPrefix);
    }
    if (mode >= GlobalizeMode::International) {
        ReplaceStart(result, u"+", u"00");
        if (!result.starts_with(u"00")) {
            result.replace(0, 1, settings.InternationalPrefix);  // in place of the trunk "0"
        }
    }
    if (mode == GlobalizeMode::InternationalPlus) {
        ReplaceStart(result, u"00", u"+");
    }
    return result;
}

Text Globalize(TextView number, GlobalizeMode mode, const Settings& settings,
               RepeatedBox& reports) {
    Text result = Globalized(number, mode, settings);
    if (result.starts_with(u"+0")) {
        reports.Ask({.text = u"Fehler in Rufnummer: " + result,
                     .title = u"Norvik:Globalize",
                     .icon = Icon::Information});
    }
    return result;
}

}  // namespace norvik
