#include "formats/common/namingentry.h"

#include "base/runtimeerror.h"
#include "tests/support/builders.h"

#include <gtest/gtest.h>

namespace norvik::test {

namespace {

/// The cause of the error that writing the entry at position 1, the second of the table, ends with.
Text CauseOf(const RuntimeError& raised, TextView name = u"B") {
    RegisterState state = RegisterOf({Entry(u"A"), Entry(name)});
    state.RegisterOrder(1) = 2;
    state.RegisterOrder(2) = 1;
    try {
        NamingEntry(state, 1, [&raised](const RegisterEntry&) { throw raised; });
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), raised.Number());
        return Text(error.Cause());
    }
    ADD_FAILURE() << "nothing was raised";
    return {};
}

TEST(NamingEntry, WritesTheEntryAtThePosition) {
    RegisterState state = RegisterOf({Entry(u"A"), Entry(u"B")});
    Text written;
    NamingEntry(state, 2, [&written](const RegisterEntry& entry) { written += entry.Name; });
    EXPECT_EQ(written, u"B");
}

TEST(NamingEntry, AValueThatTheFileCannotHoldNamesTheEntry) {
    EXPECT_EQ(CauseOf(RuntimeError(ErrorNumber::InvalidArgument)), u"#1 B");
    EXPECT_EQ(CauseOf(RuntimeError(ErrorNumber::InvalidArgument, u"70000 Einheiten")),
              u"#1 B: 70000 Einheiten");
}

TEST(NamingEntry, ALongNameIsCutAsItIsShown) {
    EXPECT_EQ(CauseOf(RuntimeError(ErrorNumber::InvalidArgument), Text(255, u'n')),
              u"#1 " + Text(21, u'n'));
}

TEST(NamingEntry, AFullDiskIsNoEntrysFault) {
    EXPECT_EQ(CauseOf(RuntimeError(ErrorNumber::DiskFull)), u"");
}

}  // namespace

}  // namespace norvik::test
