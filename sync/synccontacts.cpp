#include "sync/synccontacts.h"

#include "base/runtimeerror.h"
#include "formats/vcard/vcard.h"
#include "formats/vcard/vcardentries.h"
#include "formats/vcard/vcardnumber.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace norvik {

namespace {

/// No more of a text is kept; a thousand contacts stay small whatever a file holds.
constexpr std::size_t LongestContactText = 1000;

struct PostalAddress {
    SimplifiedText Street;
    SimplifiedText Zip;
    SimplifiedText City;
};

std::vector<TextView> LinesOf(TextView text) {
    std::vector<TextView> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(u'\n'), text.size());
        if (const TextView line = TrimBlanks(text.substr(0, end)); !line.empty()) {
            lines.push_back(line);
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

/// The length of the postcode that the line begins with, 0 where there is none.
std::size_t PostcodeLength(TextView line) {
    constexpr std::size_t ShortestPostcode = 4;
    const std::size_t end = line.find_first_not_of(u"0123456789");
    return end != TextView::npos && end >= ShortestPostcode && line[end] == u' ' ? end : 0;
}

/// The address as it is written on a letter: the town stands in the line with the postcode, else in
/// the last one, and the street above it.
PostalAddress AddressOfLabel(const SimplifiedText& label) {
    const std::vector<TextView> lines = LinesOf(label.Value);
    if (lines.empty()) {
        return {};
    }
    if (lines.size() == 1) {
        return {.Street = {Text(lines.front()), label.Replaced}, .Zip = {}, .City = {}};
    }
    std::size_t place = lines.size() - 1;
    while (place > 1 && PostcodeLength(lines[place]) == 0) {
        --place;
    }
    if (PostcodeLength(lines[place]) == 0) {
        place = lines.size() - 1;
    }
    const std::size_t postcode = PostcodeLength(lines[place]);
    return {.Street = {Text(lines[place - 1]), label.Replaced},
            .Zip = {Text(lines[place].substr(0, postcode))},
            .City = {Text(TrimBlanks(lines[place].substr(postcode)))}};
}

PostalAddress AddressOf(const VCardContact& contact) {
    const VCardAddress& address = contact.Address;
    PostalAddress parts = {VCardStreet(address), address.Code, address.City};
    const bool isEmpty =
        parts.Street.Value.empty() && parts.Zip.Value.empty() && parts.City.Value.empty();
    return isEmpty ? AddressOfLabel(contact.Label) : parts;
}

SyncTables::Phones ColumnOf(NumberKind kind) {
    switch (kind) {
    case NumberKind::Work:
        return SyncTables::Business;
    case NumberKind::Home:
        return SyncTables::Private;
    case NumberKind::Fax:
        return SyncTables::Fax;
    case NumberKind::Mobile:
    case NumberKind::Unknown:
        break;
    }
    return SyncTables::Other;
}

/// Puts contacts into the tables, one behind the other.
class ContactRecords {
  public:
    explicit ContactRecords(SyncTables& tables)
        : tables_(tables), kept_(std::make_shared<std::deque<Text>>()) {
        tables_.Lines = kept_;
        tables_.OfContacts = true;
    }

    void Take(const VCardContact& contact) {
        const std::size_t first = NextRecord();
        auto& names = tables_.SyncNameTable[first];
        names[SyncTables::Surname] = Keep(SurnameOf(contact));
        names[SyncTables::GivenName] = Keep(contact.Given);
        names[SyncTables::Company] = Keep(contact.Organisation);
        const PostalAddress address = AddressOf(contact);
        tables_.SyncAddressTable[first] = {KeepUnmarked(address.Street), KeepUnmarked(address.Zip),
                                           KeepUnmarked(address.City)};
        if (replaced_) {
            tables_.NoteReplaced(Keep(VCardContactName(contact)));
            replaced_ = false;
        }
        TakeNumbers(contact, first);
        ++contacts_;
    }

    [[nodiscard]] std::size_t Contacts() const { return contacts_; }
    [[nodiscard]] bool IsFull() const {
        return contacts_ == SyncRecords || last_ == MostContactRecords;
    }

  private:
    /// A contact without a name of a person is shown by another one.
    static SimplifiedText SurnameOf(const VCardContact& contact) {
        const bool hasName = !contact.Family.Value.empty() || !contact.Given.Value.empty();
        return hasName ? contact.Family : VCardContactName(contact);
    }

    TextView Keep(const SimplifiedText& text) {
        replaced_ = replaced_ || text.Replaced;
        return text.Value.empty() ? TextView()
                                  : kept_->emplace_back(Slice(text.Value, 0, LongestContactText));
    }

    /// An address is taken over into an entry, which it must not mark.
    TextView KeepUnmarked(const SimplifiedText& text) {
        return Keep({WithoutExportMark(text.Value), text.Replaced});
    }

    std::size_t NextRecord() {
        ++last_;
        if (last_ == tables_.SyncPhoneTable.size()) {
            tables_.SyncNameTable.emplace_back();
            tables_.SyncAddressTable.emplace_back();
            tables_.SyncPhoneTable.emplace_back();
        }
        return last_;
    }

    /// Puts each number into its column, those of one column one below the other.
    void TakeNumbers(const VCardContact& contact, std::size_t first) {
        std::array<std::size_t, SyncTables::PhoneColumns> next{};
        next.fill(first);
        std::array<std::unordered_set<Text>, SyncTables::PhoneColumns> dialled;
        for (const VCardNumber& number : contact.Numbers) {
            const SyncTables::Phones column = ColumnOf(number.Kind);
            Text key = Dialled(number.Number, {}).Number;
            if (key.empty() || !dialled.at(column).insert(std::move(key)).second) {
                continue;
            }
            const std::size_t record = next.at(column)++;
            if (record > last_) {
                if (last_ == MostContactRecords) {
                    return;
                }
                NextRecord();
                tables_.SyncNameTable[record] = tables_.SyncNameTable[first];
                tables_.SyncAddressTable[record] = tables_.SyncAddressTable[first];
            }
            tables_.SyncPhoneTable[record].at(column) =
                kept_->emplace_back(ShownNumber(number.Number));
        }
    }

    SyncTables& tables_;
    std::shared_ptr<std::deque<Text>> kept_;
    std::size_t last_ = 0;  ///< of the records that are filled
    std::size_t contacts_ = 0;
    bool replaced_ = false;  ///< a character of the contact
};

}  // namespace

bool NamesVCard(TextView path) {
    return LowerCase(path).ends_with(FromAscii(vcard::Ending));
}

std::size_t ReadSyncContacts(InputStream& input, SyncTables& tables, Desktop& desktop,
                             const Clock& clock) {
    const auto size = static_cast<std::size_t>(input.Size().value_or(0));
    LoadProgress progress(u"vCard-Datei", size, desktop, clock);
    ContactRecords records(tables);
    VCardReader reader(input);
    VCardContact contact;
    try {
        while (!records.IsFull() && reader.Next(contact)) {
            if (contact.IsGroup && contact.Numbers.empty()) {
                continue;
            }
            records.Take(contact);
            if (size > 0) {
                const auto taken = static_cast<std::size_t>(reader.BytesRead());
                progress.Remaining(size - std::min(taken, size));
            }
        }
    } catch (const RuntimeError&) {  // what has been read stays
    }
    progress.Done();
    return records.Contacts();
}

}  // namespace norvik
