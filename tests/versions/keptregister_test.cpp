#include "versions/keptregister.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"
#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;

/// Two entries in another order than their places, with a value in every field.
RegisterState Given() {
    RegisterState state = RegisterOfNames({u"Änne", u"Bert"});
    RegisterEntry& entry = state.Register(2);
    entry = {.RecIndex = -1,
             .RecNumber = 258,
             .Name = u"Bert",
             .Tel = u"0123",
             .Info = u"() Info",
             .Ton = 138,
             .MsnFilter = 146,
             .GebEinh = 70000,
             .AB = 7,
             .Listed = false};
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    state.RegisterOrder(3) = 2;  // as an erase in a sorted register leaves it
    state.LoadedModel = u"195";
    state.File = {.Type = u"195", .Path = u8"/tmp/büro.t9t", .Modified = FileTime()};
    state.WarnLineAccessZero = true;
    CountMarked(state);
    return state;
}

/// The order behind the third position, as it is at first: 1997 places.
std::string RestOfOrder() {
    std::string bytes;
    for (int position = 4; position <= RegisterPlaces; ++position) {
        bytes.push_back(static_cast<char>(position % 256));
        bytes.push_back(static_cast<char>(position / 256));
    }
    return bytes;
}

Bytes Written() {
    Bytes bytes = Raw("03000000 '195'"                                       // the model
                      " 03000000 '195'"                                      // the source
                      " 0E000000 '/tmp/b' C3BC 'ro.t9t'"                     //
                      " 01 0000000000000000"                                 //
                      " 0200 01 0200"                                        // count, flag, places
                      " 0100 0000 0000 0000 0F00 00000000 0000"              // place 1
                      " 04000000 C46E6E65 01000000 '1' 00000000"             //
                      " 0200 FFFF 0201 8A00 9200 70110100 0700"              // place 2
                      " 04000000 'Bert' 04000000 '0123' 07000000 '() Info'"  //
                      " 0200 0100 0200");                                    // the order
    for (const char byte : RestOfOrder()) {
        bytes.push_back(static_cast<Byte>(byte));
    }
    return bytes;
}

TEST(EncodeRegister, WritesTheseBytes) {
    EXPECT_EQ(EncodeRegister(Given()), Written());
}

TEST(DecodeRegister, GivesTheSameRegister) {
    const std::optional<RegisterState> state = DecodeRegister(Written());
    ASSERT_TRUE(state.has_value());
    const RegisterState given = Given();
    EXPECT_EQ(ContentsOf(*state), ContentsOf(given));
    EXPECT_THAT(Names(*state), ElementsAre(u"Bert", u"Änne"));
    EXPECT_EQ(state->AnzGes, 2);
    EXPECT_EQ(state->AnzNr, 1);
    EXPECT_EQ(state->AnzMarkiert, 1);
    EXPECT_EQ(state->Satzwahl.Maximum, 2);
    EXPECT_EQ(state->LoadedModel, u"195");
    EXPECT_EQ(state->File.Type, u"195");
    EXPECT_EQ(state->File.Path, given.File.Path);
    EXPECT_EQ(state->File.Modified, FileTime());
    EXPECT_TRUE(state->WarnLineAccessZero);
}

TEST(DecodeRegister, KnowsASourceWithoutADate) {
    RegisterState state = Given();
    state.File.Modified.reset();
    const std::optional<RegisterState> decoded = DecodeRegister(EncodeRegister(state));
    ASSERT_TRUE(decoded.has_value());
    EXPECT_EQ(decoded->File.Modified, std::nullopt);
}

TEST(DecodeRegister, KeepsWhatStandsInFreedPlaces) {
    RegisterState state = Given();
    SetCount(state, 1);
    const std::optional<RegisterState> decoded = DecodeRegister(EncodeRegister(state));
    ASSERT_TRUE(decoded.has_value());
    EXPECT_EQ(ContentsOf(*decoded), ContentsOf(state));
    EXPECT_EQ(decoded->AnzGes, 1);
}

TEST(EncodeRegister, LeavesOutThePositionAndTheListedMarks) {
    RegisterState state = Given();
    state.AnzNr = 2;
    state.Register(1).Listed = true;
    state.Register(9).Listed = true;
    EXPECT_EQ(EncodeRegister(state), Written());
}

TEST(EncodeRegister, TakesAFullRegisterOfLongTexts) {
    RegisterState state;
    SetCount(state, RegisterPlaces);
    for (int place = 1; place <= RegisterPlaces; ++place) {
        state.Register(place).Name = Text(255, u'n') + Decimal(place);
        state.Register(place).Info = Text(126, u'€');
    }
    const std::optional<RegisterState> decoded = DecodeRegister(EncodeRegister(state));
    ASSERT_TRUE(decoded.has_value());
    EXPECT_EQ(ContentsOf(*decoded), ContentsOf(state));
}

/// The next place worth a look: each of the entries, some of the long order behind them.
std::size_t NextPlace(std::size_t place) {
    constexpr std::size_t EndOfEntries = 150;
    return place + (place < EndOfEntries ? 1 : 211);
}

TEST(DecodeRegister, RefusesBytesThatAreCutAnywhere) {
    const Bytes whole = Written();
    for (std::size_t size = 0; size < whole.size(); size = NextPlace(size)) {
        ASSERT_FALSE(DecodeRegister(ByteView(whole).first(size)).has_value()) << size;
    }
    Bytes more = whole;
    more.push_back(0);
    EXPECT_FALSE(DecodeRegister(more).has_value());
}

TEST(DecodeRegister, NeverTakesADamagedByteForAnotherRegisterThanItCanHold) {
    const Bytes whole = Written();
    for (std::size_t place = 0; place < whole.size(); place = NextPlace(place)) {
        for (const unsigned bit : {0U, 7U}) {
            Bytes damaged = whole;
            damaged[place] = static_cast<Byte>(damaged[place] ^ (1U << bit));
            const std::optional<RegisterState> state = DecodeRegister(damaged);
            if (state) {
                ASSERT_LE(state->AnzGes, RegisterPlaces);
                for (int position = 1; position <= RegisterPlaces; ++position) {
                    ASSERT_NO_THROW(EntryAt(*state, position));
                }
            }
        }
    }
}

TEST(DecodeRegister, RefusesAnOrderThatShowsOnePlaceTwice) {
    Bytes bytes = Written();
    const std::size_t order = bytes.size() - std::size_t{2} * RegisterPlaces;
    bytes[order] = 1;
    EXPECT_FALSE(DecodeRegister(bytes).has_value());
}

}  // namespace
}  // namespace norvik::test
