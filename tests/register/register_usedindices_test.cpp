// The table indices that the operations on the table itself visit.
#include "register/register.h"

#include "tests/support/builders.h"
#include "tests/support/scripteddesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

RegisterState Ordered(std::initializer_list<int> order, int count) {
    RegisterState state;
    int position = 0;
    for (const int index : order) {
        ++position;
        state.RegisterOrder(position) = static_cast<std::int16_t>(index);
    }
    SetCount(state, count);
    return state;
}

TEST(UsedIndices, OfAFreshRegisterAreThePositions) {
    EXPECT_THAT(UsedIndices(Ordered({1, 2, 3}, 3)), ElementsAre(1, 2, 3));
}

TEST(UsedIndices, AreAscendingWhateverTheOrder) {
    EXPECT_THAT(UsedIndices(Ordered({4, 1, 3, 2}, 4)), ElementsAre(1, 2, 3, 4));
}

TEST(UsedIndices, AreThoseOfThePositionsUpToTheCount) {
    EXPECT_THAT(UsedIndices(Ordered({4, 1, 3, 2}, 2)), ElementsAre(1, 4));
}

TEST(UsedIndices, AfterAnEraseInASortedRegisterMissNoShownEntry) {
    RegisterState state = Ordered({4, 1, 3, 2}, 4);
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 2, desktop);
    EXPECT_THAT(UsedIndices(state), ElementsAre(2, 3, 4));
}

TEST(UsedIndices, AfterAnEraseAndANewEntryHoldTheFreedPlaceAgain) {
    RegisterState state = Ordered({4, 1, 3, 2}, 4);
    ScriptedDesktop desktop;
    DeleteEntryAt(state, 2, desktop);
    AppendEntry(state);
    EXPECT_THAT(UsedIndices(state), ElementsAre(1, 2, 3, 4));
}

TEST(UsedIndices, OfNoEntryAreNone) {
    EXPECT_THAT(UsedIndices(Ordered({}, 0)), IsEmpty());
}

TEST(UsedIndices, OfAFullRegisterAreAll2000) {
    RegisterState state;
    for (int position = 1; position <= RegisterPlaces; ++position) {
        state.RegisterOrder(position) = static_cast<std::int16_t>(RegisterPlaces + 1 - position);
    }
    SetCount(state, RegisterPlaces);
    const std::vector<int> indices = UsedIndices(state);
    ASSERT_EQ(indices.size(), 2000U);
    for (std::size_t i = 0; i < indices.size(); ++i) {
        ASSERT_EQ(indices[i], static_cast<int>(i) + 1);
    }
}

}  // namespace
}  // namespace norvik::test
