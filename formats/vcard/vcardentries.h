// From contacts to entries of the register.
#pragma once

#include "base/longreport.h"
#include "formats/vcard/vcardcontact.h"
#include "register/entry.h"
#include "register/settings.h"

#include <vector>

namespace norvik {

/// The contact's info text: organisation, address and note in lines of 21 characters, as far as
/// the six lines go. The organisation is left out where it is the name.
struct VCardInfo {
    Text Info;
    bool IsCut = false;
    bool Replaced = false;
};

/// Makes entries of contacts, one for each number, no more than the register has places, and
/// reports what is cut, spelled otherwise or left out.
class VCardEntries {
  public:
    explicit VCardEntries(const Settings& settings);

    void Take(const VCardContact& contact);
    /// Makes room for as many entries as there are places.
    void Reserve();

    std::vector<RegisterEntry> Entries;
    LongReport Report;    ///< lines ended by CR LF
    bool IsFull = false;  ///< there were more numbers than places

  private:
    struct Number {
        Text Dialled;
        NumberKind Kind;
    };

    void TakeNumbers(const VCardContact& contact, TextView name);
    void AppendEntry(TextView name, TextView bracket, Number& number);
    void Note(TextView finding, TextView name, TextView number = {});

    Text ownCountry_;
    SimplifiedText name_;          ///< of the contact that is taken
    VCardInfo info_;               ///< … likewise
    SimplifiedText joined_;        ///< of several texts
    std::vector<Number> numbers_;  ///< … likewise
    bool plusIsReported_ = false;
};

/// "Nachname, Vorname" of a contact, else another name that it has; at last its first number.
SimplifiedText VCardContactName(const VCardContact& contact);

/// The line of an address above postcode and town: the street, else the post box.
SimplifiedText VCardStreet(const VCardAddress& address);

/// A text in which nothing marks an entry for export.
Text WithoutExportMark(Text text);

}  // namespace norvik
