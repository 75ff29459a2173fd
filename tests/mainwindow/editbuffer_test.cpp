#include "mainwindow/editbuffer.h"

#include <gtest/gtest.h>

namespace norvik::test {
namespace {

/// Fields of which no two hold the same.
MainWindowFields FullFields() {
    MainWindowFields fields;
    char16_t next = u'a';
    for (Text& text : fields.Anzeigefeld) {
        text = Text(1, next++);
    }
    fields.DDTon = 3;
    fields.DDAB = 4;
    fields.DDMSN = 5;
    fields.chkTon = true;
    fields.chkCharge = true;
    fields.OptFilter = 2;
    fields.AnzGeb = u"1,20";
    fields.ChargeErased = true;
    return fields;
}

TEST(EditBuffer, ComesBackIntoTheFieldsWhole) {
    const MainWindowFields full = FullFields();
    MainWindowFields fields;
    PutBuffer(BufferOf(full), fields);
    EXPECT_EQ(BufferOf(fields), BufferOf(full));
    EXPECT_EQ(fields.Anzeigefeld[NameField], u"a");
    EXPECT_EQ(fields.Anzeigefeld[TelField], u"b");
    EXPECT_EQ(fields.Anzeigefeld[TextFields - 1], u"n");
    EXPECT_EQ(fields.DDTon, 3);
    EXPECT_EQ(fields.DDAB, 4);
    EXPECT_EQ(fields.DDMSN, 5);
    EXPECT_TRUE(fields.chkTon);
    EXPECT_TRUE(fields.chkCharge);
    EXPECT_EQ(fields.OptFilter, 2);
    EXPECT_EQ(fields.AnzGeb, u"1,20");
    EXPECT_TRUE(fields.ChargeErased);
}

TEST(EditBuffer, LeavesTheDiagnosticFieldsAlone) {
    MainWindowFields fields;
    fields.Anzeigefeld[ChargeUnitsField] = u"42";
    PutBuffer(BufferOf(FullFields()), fields);
    EXPECT_EQ(fields.Anzeigefeld[ChargeUnitsField], u"42");
}

TEST(EditBuffer, TellsEveryFieldApart) {
    const EditBuffer full = BufferOf(FullFields());
    const auto differs = [&full](auto change) {
        MainWindowFields fields = FullFields();
        change(fields);
        return !(BufferOf(fields) == full);
    };
    EXPECT_TRUE(differs([](auto& f) { f.Anzeigefeld[NameField] = u"x"; }));
    EXPECT_TRUE(differs([](auto& f) { f.Anzeigefeld[TextFields - 1] = u"x"; }));
    EXPECT_TRUE(differs([](auto& f) { f.DDTon = 0; }));
    EXPECT_TRUE(differs([](auto& f) { f.DDAB = 0; }));
    EXPECT_TRUE(differs([](auto& f) { f.DDMSN = 0; }));
    EXPECT_TRUE(differs([](auto& f) { f.chkTon = false; }));
    EXPECT_TRUE(differs([](auto& f) { f.chkCharge = false; }));
    EXPECT_TRUE(differs([](auto& f) { f.OptFilter = 0; }));
    EXPECT_TRUE(differs([](auto& f) { f.AnzGeb = u"0,00"; }));
    EXPECT_TRUE(differs([](auto& f) { f.ChargeErased = false; }));
    EXPECT_FALSE(differs([](auto& f) { f.Anzeigefeld[ChargeUnitsField] = u"x"; }));
    EXPECT_FALSE(differs([](auto& f) { f.chkListFilter = true; }));
}

}  // namespace
}  // namespace norvik::test
