#include "console/damage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(DamageOf, IsNothingForAWholeRegister) {
    EXPECT_THAT(DamageOf(RegisterState()), IsEmpty());
    EXPECT_THAT(DamageOf(CallListExtent{.WholeCalls = 3}), IsEmpty());
    EXPECT_THAT(PassedOver({}), IsEmpty());
}

TEST(DamageOf, SaysAllThatIsAmiss) {
    RegisterState state;
    state.RecordsRead = 2;
    state.Damage.CorruptLines = 1;
    state.Damage.IsFull = true;
    state.Damage.Failure = RuntimeError(ErrorNumber::ReadPastEnd);
    EXPECT_THAT(DamageOf(state),
                ElementsAre(u"ist beschädigt: 1 fehlerhafte Zeile; 2 Einträge sind gelesen",
                            u"ist nicht ganz gelesen: mehr als 2000 Einträge, die weiteren fehlen",
                            u"ist beschädigt: endet mitten in Eintrag 3; 2 Einträge sind gelesen"));
}

TEST(PassedOver, CountsWhatNoReaderTakes) {
    EXPECT_THAT(PassedOver({.LinesPassedOver = 1, .BytesBehindEnd = 1, .Failure = {}}),
                ElementsAre(u"1 Zeile ohne zweites Feld übergangen",
                            u"hinter der Endmarke 1 Byte übergangen"));
}

}  // namespace
}  // namespace norvik::test
