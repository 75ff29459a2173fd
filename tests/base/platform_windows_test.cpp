#include "base/platform.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

TEST(IsPossibleName, TakesNoCharactersThatNameSomethingElse) {
    for (const char* name :
         {"C:\\a\\b.csv", "C:b.csv", "..\\b c.csv", "\\\\server\\share\\b.csv", "C:\\"}) {
        EXPECT_TRUE(platform::IsPossibleName(name)) << name;
    }
    for (const char* name : {"ab:c.csv", "C:\\a\\b:c.csv", "C:\\a:b\\c.csv", "b*.csv", "b?.csv",
                             "<b>.csv", "a|b.csv", "\"b\".csv", "b\n.csv"}) {
        EXPECT_FALSE(platform::IsPossibleName(name)) << name;
    }
}

}  // namespace
}  // namespace norvik::test
