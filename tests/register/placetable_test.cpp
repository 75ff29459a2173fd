#include "register/placetable.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

TEST(PlaceTable, HasThePlaces1To2000) {
    PlaceTable<int> table;
    table(1) = 11;
    table(2000) = 22;
    const PlaceTable<int>& same = table;
    EXPECT_EQ(same(1), 11);
    EXPECT_EQ(same(2), 0);
    EXPECT_EQ(same(2000), 22);
}

TEST(PlaceTable, AnyOtherPlaceRaisesError9) {
    PlaceTable<int> table;
    const PlaceTable<int>& same = table;
    for (const int place : {0, 2001, -1, 32767, -2147483647 - 1, 2147483647}) {
        try {
            table(place) = 1;
            ADD_FAILURE() << place;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::IndexOutOfRange);
        }
        EXPECT_THROW(static_cast<void>(same(place)), RuntimeError) << place;
    }
    EXPECT_EQ(table, PlaceTable<int>());
}

}  // namespace
}  // namespace norvik::test
