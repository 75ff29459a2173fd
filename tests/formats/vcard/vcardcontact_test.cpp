#include "formats/vcard/vcardcontact.h"

#include "tests/support/testfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<VCardContact> ContactsIn(std::string_view file) {
    InputStream input(Bytes(file.begin(), file.end()));
    VCardReader reader(input);
    std::vector<VCardContact> contacts;
    for (VCardContact contact; reader.Next(contact);) {
        contacts.push_back(contact);
    }
    return contacts;
}

VCardContact ContactOf(std::string_view lines) {
    const auto contacts = ContactsIn("BEGIN:VCARD\r\n" + std::string(lines) + "\r\nEND:VCARD\r\n");
    EXPECT_EQ(contacts.size(), 1U);
    return contacts.empty() ? VCardContact() : contacts.front();
}

std::vector<Text> NumbersOf(const VCardContact& contact) {
    std::vector<Text> numbers;
    for (const VCardNumber& number : contact.Numbers) {
        numbers.push_back(number.Number);
    }
    return numbers;
}

/// The full names, "!" behind one whose card has no end.
std::vector<Text> NamesIn(std::string_view file) {
    std::vector<Text> names;
    for (const VCardContact& contact : ContactsIn(file)) {
        names.push_back(contact.FullName.Value + (contact.IsWhole ? u"" : u"!"));
    }
    return names;
}

TEST(VCardReader, TakesTheNames) {
    const VCardContact contact = ContactOf(
        "N:Haddad;Amira,Noor;Lea;Dr.;\nFN:Dr. Amira\\, Haddad\nNICKNAME:Ami\nEMAIL:a@b\nEMAIL:c@d");
    EXPECT_EQ(contact.Family.Value, u"Haddad");
    EXPECT_EQ(contact.Given.Value, u"Amira Noor");
    EXPECT_EQ(contact.Additional.Value, u"Lea");
    EXPECT_EQ(contact.FullName.Value, u"Dr. Amira, Haddad");
    EXPECT_EQ(contact.Nickname.Value, u"Ami");
    EXPECT_EQ(contact.Mail.Value, u"a@b");
}

TEST(VCardReader, TakesOrganisationAddressAndNotes) {
    const VCardContact contact = ContactOf(
        "ORG:Firma \\; Co;Einkauf;x\nORG:Andere\nADR:;;Alt 1;A;;1;\nNOTE:a\\nb\nADR;PREF=1:P;E;"
        "S 2;Ort;R;22;L\nADR;TYPE=pref:;;Drei;;;;\nNOTE:c\nLABEL:Weg\\nOrt");
    EXPECT_EQ(contact.Organisation.Value, u"Firma ; Co");
    EXPECT_EQ(contact.Department.Value, u"Einkauf");
    EXPECT_EQ(contact.Address.Box.Value, u"P");
    EXPECT_EQ(contact.Address.Extension.Value, u"E");
    EXPECT_EQ(contact.Address.Street.Value, u"S 2");
    EXPECT_EQ(contact.Address.City.Value, u"Ort");
    EXPECT_EQ(contact.Address.Region.Value, u"R");
    EXPECT_EQ(contact.Address.Code.Value, u"22");
    EXPECT_EQ(contact.Address.Country.Value, u"L");
    EXPECT_EQ(contact.Note.Value, u"a\nb\nc");
    EXPECT_EQ(contact.Label.Value, u"Weg\nOrt");
}

TEST(VCardReader, PassesOverAnEmptyAddress) {
    EXPECT_EQ(ContactOf("ADR;PREF=1:;;;;;;\nADR:;;Weg;;;;").Address.Street.Value, u"Weg");
}

TEST(VCardReader, TakesTheNumbersWithTheirKinds) {
    const VCardContact contact = ContactOf(
        "TEL;CELL:1\nitem1.X-ABLabel:_$!<HomeFAX>!$_\nItem1.TEL;type=HOME:2\nTEL:\nTEL: \n"
        "a.TEL:tel:+49-3;ext=4\na.X-ABLABEL:Arbeit\nTEL;ENCODING=QUOTED-PRINTABLE:=35=\n=36");
    EXPECT_THAT(NumbersOf(contact), ElementsAre(u"1", u"2", u"tel:+49-3;ext=4", u"56"));
    EXPECT_EQ(contact.Numbers[0].Kind, NumberKind::Mobile);
    EXPECT_EQ(contact.Numbers[1].Kind, NumberKind::Fax);
    EXPECT_EQ(contact.Numbers[2].Kind, NumberKind::Work);
    EXPECT_EQ(contact.Numbers[3].Kind, NumberKind::Unknown);
}

TEST(VCardReader, CountsNumbersBeyondTheirLimit) {
    std::string lines;
    for (std::size_t i = 0; i < MostVCardNumbers + 3; ++i) {
        lines += "TEL:" + std::to_string(i) + "\n";
    }
    const VCardContact contact = ContactOf(lines + "TEL:" + std::string(LongestVCardLine, '1'));
    EXPECT_EQ(contact.Numbers.size(), MostVCardNumbers);
    EXPECT_EQ(contact.NumbersLeftOut, 4);
    EXPECT_EQ(ContactOf("TEL:" + std::string(200, '1')).Numbers[0].Number.size(),
              LongestVCardNumber);
}

TEST(VCardReader, KnowsTheCharacterSetOfEachProperty) {
    const VCardContact contact = ContactOf(
        "N;CHARSET=ISO-8859-1:M\xFC;\xC3\xBC\nFN:M\xFC\nORG:M\xC3\xBC\nNOTE;CHARSET=UTF-8:\xFC");
    EXPECT_EQ(contact.Family.Value, u"Mü");
    EXPECT_EQ(contact.Given.Value, u"Ã¼");
    EXPECT_EQ(contact.FullName.Value, u"Mü");
    EXPECT_EQ(contact.Organisation.Value, u"Mü");
    EXPECT_EQ(contact.Note.Value, u"?");
    EXPECT_EQ(ContactOf("VERSION:4.0\nFN:M\xFC").FullName.Value, u"M?");
    EXPECT_EQ(ContactOf("FN;X=1;charset=latin1;CHARSET=UTF-8:\xC3\xBC").FullName.Value, u"Ã¼");
    EXPECT_THAT(NamesIn("\xEF\xBB\xBF"
                        "BEGIN:VCARD\nFN:M\xFC\nEND:VCARD"),
                ElementsAre(u"M?"));
}

TEST(VCardReader, TellsAGroup) {
    EXPECT_TRUE(ContactOf("KIND:Group").IsGroup);
    EXPECT_TRUE(ContactOf("X-ADDRESSBOOKSERVER-KIND:group").IsGroup);
    EXPECT_FALSE(ContactOf("KIND:individual").IsGroup);
}

TEST(VCardReader, ACardInACardOfACardIsPassedOverToo) {
    const VCardContact contact = ContactOf(
        "FN:Chef\nAGENT:\nBEGIN:VCARD\nFN:b\nAGENT:\nBEGIN:VCARD\nFN:c\nTEL:99\nEND:VCARD\n"
        "TEL:98\nEND:VCARD\nTEL:123");
    EXPECT_EQ(contact.FullName.Value, u"Chef");
    ASSERT_EQ(contact.Numbers.size(), 1U);
    EXPECT_EQ(contact.Numbers.front().Number, u"123");
}

TEST(VCardReader, PassesOverACardInACard) {
    const VCardContact contact = ContactOf("FN:a\nAGENT:\nBEGIN:VCARD\nFN:b\nTEL:9\nEND:"
                                           "VCARD\nAGENT:BEGIN:VCARD\\nTEL:8\\nEND:VCARD\nTEL:1");
    EXPECT_THAT(NumbersOf(contact), ElementsAre(u"1"));
    EXPECT_EQ(contact.FullName.Value, u"a");
}

TEST(VCardReader, EndsACardWhereTheNextOneOrTheFileDoes) {
    EXPECT_THAT(NamesIn("BEGIN:VCARD\nFN:a\nbegin:vcard\nFN:b\nEND:VCARD \nBEGIN: VCARD\nFN:c"),
                ElementsAre(u"a!", u"b", u"c!"));
    EXPECT_THAT(NamesIn("BEGIN:VCARD"), ElementsAre(u"!"));
}

TEST(VCardReader, TakesACardWithoutABeginningIfItEnds) {
    EXPECT_THAT(NamesIn("x\nFN:a\nEND:VCARD\nFN:b\nBEGIN:VCARD\nFN:c\nEND:VCARD\nFN:d"),
                ElementsAre(u"a", u"c"));
    EXPECT_THAT(NamesIn("END:VCARD\nBEGIN:VEVENT\nEND:VEVENT\n"), IsEmpty());
    EXPECT_THAT(NamesIn(""), IsEmpty());
}

TEST(VCardReader, PassesOverAPicture) {
    EXPECT_THAT(NamesIn("BEGIN:VCARD\r\nPHOTO;JPEG;ENCODING=BASE64:QUJD\r\nREVG\r\n "
                        "Rw==\r\n\r\nFN:a\r\nEND:VCARD"),
                ElementsAre(u"a"));
}

}  // namespace
}  // namespace norvik::test
