// What the readers note of files that they do not take whole. The window shows none of it.
#include "formats/calllist/calllist.h"
#include "formats/csv/csvformat.h"
#include "formats/phonebook175/phonebookfile.h"
#include "formats/registerfile/registerfile.h"
#include "tests/formats/registerfile/registerfilebytes.h"
#include "tests/support/scripteddesktop.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

const Bytes Anna = Raw("0200 0201 06 04 'Anna' 06 01 '1' 06 00 0200 020F 0200 0200");

/// The register after the load of a register file of these bytes.
LoadDamage DamageOf195(const Bytes& file) {
    RegisterState state;
    ScriptedDesktop desktop;
    LoadRegisterFile(state, {.Content = file, .Path = "a.t9t", .Modified = {}}, desktop);
    return state.Damage;
}

TEST(LoadDamage, OfARegisterFileThatEndsEarly) {
    const LoadDamage whole = DamageOf195(FileOf({Anna}));
    EXPECT_FALSE(whole.EndsEarly);
    EXPECT_FALSE(whole.LastEntryIsCut);
    const LoadDamage open = DamageOf195(OpenFileOf({Anna}));
    EXPECT_TRUE(open.EndsEarly);
    EXPECT_FALSE(open.LastEntryIsCut);
    const LoadDamage cut = DamageOf195(OpenFileOf({Anna, Raw("0201")}));
    EXPECT_TRUE(cut.EndsEarly);
    EXPECT_TRUE(cut.LastEntryIsCut);
    const LoadDamage noHeader = DamageOf195(Raw("06 0D"));
    EXPECT_TRUE(noHeader.EndsEarly);
    EXPECT_FALSE(noHeader.LastEntryIsCut);
}

TEST(LoadDamage, OfARegisterFileWithBytesBehindItsEnd) {
    EXPECT_EQ(DamageOf195(Join({FileOf({Anna}), Raw("00 01")})).BytesBehindEnd, 2U);
    EXPECT_EQ(DamageOf195(Join({FileOf({Anna}), Raw("00 00")})).BytesBehindEnd, 0U);
}

TEST(LoadDamage, IsForgottenByTheNextLoad) {
    RegisterState state;
    ScriptedDesktop desktop;
    LoadRegisterFile(state, {.Content = Raw("06 0D"), .Path = {}, .Modified = {}}, desktop);
    EXPECT_TRUE(state.Damage.EndsEarly);
    LoadRegisterFile(state, {.Content = FileOfMany(2001), .Path = {}, .Modified = {}}, desktop);
    EXPECT_FALSE(state.Damage.EndsEarly);
    ASSERT_TRUE(state.Damage.Failure);
    EXPECT_EQ(state.Damage.Failure->Number(), ErrorNumber::IndexOutOfRange);
    LoadRegisterFile(state, {.Content = FileOf({Anna}), .Path = {}, .Modified = {}}, desktop);
    EXPECT_FALSE(state.Damage.Failure);
}

TEST(LoadDamage, OfACsvFile) {
    RegisterState state;
    ScriptedDesktop desktop;
    const auto load = [&](const std::string& text) {
        LoadCSV(state, {.Content = Bytes(text.begin(), text.end()), .Path = {}, .Modified = {}}, {},
                Settings(), desktop);
        return state.Damage;
    };
    EXPECT_EQ(load("Name;Tel\r\nAnna;1\r\nx\r\n\r\n \t\r\ny\r\n").LinesPassedOver, 2);
    std::string full = "Name;Tel\r\n";
    for (int i = 0; i < RegisterPlaces; ++i) {
        full += std::to_string(i) + ";1\r\n";
    }
    EXPECT_FALSE(load(full + "\r\n").IsFull);
    EXPECT_TRUE(load(full + "\r\nx;1").IsFull);
}

TEST(LoadDamage, OfAPhonebookFile) {
    RegisterState state;
    ScriptedDesktop desktop;
    const std::string text = "norvik 175 phonebook\r\nX\r\nY\r\n";
    LoadPhonebookFile(
        state, {.Content = Bytes(text.begin(), text.end()), .Path = {}, .Modified = {}}, desktop);
    EXPECT_EQ(state.Damage.CorruptLines, 2);
    EXPECT_FALSE(state.Damage.IsFull);
}

TEST(LoadDamage, OfACallList) {
    const Bytes header = Raw("06 12 'Anrufliste 195/193'");
    const Bytes call = Raw("02 01 06 0A '0512241830' 06 04 '0301' 01");
    const CallListExtent whole = ExtentOf(Join({header, call, Raw("00")}));
    EXPECT_EQ(whole.WholeCalls, 1);
    EXPECT_FALSE(whole.EndsInCall || whole.BrokenCall);
    const CallListExtent cut = ExtentOf(Join({header, call, Raw("02 02 06 0A '05'")}));
    EXPECT_EQ(cut.WholeCalls, 1);
    EXPECT_EQ(cut.WholeBytes, header.size() + call.size());
    EXPECT_TRUE(cut.EndsInCall);
    const CallListExtent broken = ExtentOf(Join({header, call, Raw("02 02 07")}));
    EXPECT_EQ(broken.WholeBytes, header.size() + call.size());
    EXPECT_TRUE(broken.BrokenCall);
    EXPECT_EQ(ExtentOf({}).WholeCalls, 0);
    EXPECT_FALSE(ExtentOf({}).EndsInCall);
}

}  // namespace
}  // namespace norvik::test
