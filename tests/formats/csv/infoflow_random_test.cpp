// Random texts flow as a slow and plain version of the flow says.
#include "formats/csv/infoflow.h"

#include "tests/losses/randomregister.h"
#include "tests/support/scripteddesktop.h"

#include <gtest/gtest.h>

#include <vector>

namespace norvik::test {

namespace {

/// The flow with its four counters, the line kept as text: nothing is skipped, all is built.
Text PlainFlow(const Text& text) {
    Text info;
    std::size_t start = 1;
    std::size_t length = 0;
    std::size_t blank = 0;
    bool breaks = false;
    const auto at = [&text](std::size_t k) { return text.at(k - 1); };
    std::size_t k = 1;
    while (k <= text.size()) {
        length += 1;
        if (at(k) == u' ') {
            blank = k;
        }
        if (at(k) == u'\u00FF' && length > 1) {
            breaks = true;
        } else if (at(k) == u'\u00FF') {
            length = 0;
            start = k + 1;
        }
        if (length > 21) {
            if (blank > start) {
                k = blank;
                length = k - start + 1;
            }
            breaks = true;
        }
        if (breaks) {
            Text line;
            for (std::size_t i = 0; i + 1 < length; ++i) {
                line += at(start + i);
            }
            line += Text(21, u' ');
            info += line.substr(0, 21);
            start = k;
            length = 1;
            if (at(k) == u'\u00FF') {
                start = k + 1;
                length = 0;
            }
            breaks = false;
        }
        ++k;
    }
    while (!info.empty() && info.back() == u' ') {
        info.pop_back();
    }
    return info.size() > 126 ? info.substr(0, 123) + u"..." : info;
}

TEST(AssembleInfo, RandomTextsFlowAsThePlainVersionSays) {
    const std::vector<Text> alphabets = {u"abc ",     u"abcdefghijk ",
                                         u"a\u00FF ", u"ab",
                                         u" ",        u"abcdefghijklmnopqrstuvwxyz     \u00FF"};
    int cut = 0;
    for (unsigned seed = 1; seed <= 5000; ++seed) {
        RandomValues random(seed);
        std::vector<Text> fields(static_cast<std::size_t>(random.Below(6) + 1));
        for (Text& field : fields) {
            const auto alphabet = static_cast<std::size_t>(random.Below(6));
            field = random.TextOf(alphabets.at(alphabet), random.Below(4) == 0 ? 90 : 24);
        }
        Text& any =
            fields.at(static_cast<std::size_t>(random.Below(static_cast<int>(fields.size()))));
        any += Text(22, u'x');  // so that the text is flowed
        Text joined;
        for (const Text& field : fields) {
            joined += field + u'\u00FF';
        }
        const Text expected = PlainFlow(joined);
        cut += expected.ends_with(u"...") ? 1 : 0;
        const std::vector<TextView> views(fields.begin(), fields.end());
        ASSERT_EQ(AssembleInfo(views), expected) << Utf8(joined);
    }
    EXPECT_GT(cut, 250);
}

}  // namespace

}  // namespace norvik::test
