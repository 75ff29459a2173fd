// What a vCard tells of a person or firm, as far as a telephone register or an address book can use
// it, and the reader that takes contacts from a file one by one.
#pragma once

#include "base/charset.h"
#include "base/simplify.h"
#include "formats/vcard/vcardkind.h"
#include "formats/vcard/vcardlines.h"
#include "formats/vcard/vcardproperty.h"
#include "formats/vcard/vcardtext.h"

#include <array>
#include <string>
#include <unordered_map>
#include <vector>

namespace norvik {

struct VCardNumber {
    Text Number;  ///< as the card has it, in ASCII but for strange characters; see Dialled
    NumberKind Kind = NumberKind::Unknown;
    std::string Group = {};  ///< lowered; the label of the same group may tell the kind
};

struct VCardAddress {
    SimplifiedText Box;
    SimplifiedText Extension;
    SimplifiedText Street;
    SimplifiedText City;
    SimplifiedText Region;
    SimplifiedText Code;
    SimplifiedText Country;
};

/// A contact; what its card does not have is empty. Of several values of a name the first one
/// counts that is not of another script. Texts are one line each, but the note and the label, whose
/// lines are separated by U+000A.
struct VCardContact {
    SimplifiedText Family;
    SimplifiedText Given;
    SimplifiedText Additional;
    SimplifiedText FullName;
    SimplifiedText Nickname;
    SimplifiedText Organisation;
    SimplifiedText Department;
    SimplifiedText Mail;
    SimplifiedText PhoneticFamily;  ///< as it is spoken, which other scripts do not tell
    SimplifiedText PhoneticGiven;
    SimplifiedText SortName;  ///< by which the contact is sorted
    VCardAddress Address;     ///< the preferred one, else the first that says anything
    SimplifiedText Label;     ///< an address as it is written on a letter
    SimplifiedText Note;
    std::vector<VCardNumber> Numbers;  ///< in the card's order
    long long NumbersLeftOut = 0;      ///< beyond MostVCardNumbers
    bool NameGaveWay = false;          ///< one of another script to one that can be read
    bool IsGroup = false;              ///< stands for a list of contacts
    bool IsWhole = true;               ///< the card has an end
};

/// More numbers of one contact are counted alone.
inline constexpr std::size_t MostVCardNumbers = 2000;
/// No more of a number is kept; nobody can dial it.
inline constexpr std::size_t LongestVCardNumber = 100;
/// The label of a group with a longer name is not looked at.
inline constexpr std::size_t LongestVCardGroup = 64;

/// Reads the contacts of a stream in a memory that does not grow with it. Bytes that belong to no
/// card are passed over; a card in a card is passed over, too, it tells of somebody else.
class VCardReader {
  public:
    /// `input` must live as long as the reader. `characters` is the character set of the properties
    /// that declare none, in a file without a byte order mark.
    explicit VCardReader(InputStream& input, Charset characters = Charset::Automatic);

    /// Puts the next contact into `contact`, whose room is used again; false at the end. Raises
    /// what reading raises.
    bool Next(VCardContact& contact);

    [[nodiscard]] std::uintmax_t BytesRead() const { return lines_.BytesRead(); }

  private:
    enum class Place {
        Outside,
        Guessed,  ///< in a card whose beginning is missing, if its end comes
        Inside,
    };

    /// How the bytes of a property are to be read.
    struct Manner {
        VCardCharset Characters;
        VCardTransfer Transfer;
    };

    bool Take(const VCardProperty& property, VCardContact& contact);
    bool TakeEdge(VCardName edge, VCardContact& contact);
    void TakeText(VCardName what, const VCardProperty& property, VCardContact& contact);
    void TakeName(std::string_view value, VCardCharset charset, VCardContact& contact);
    void TakeNameParts(std::string_view value, VCardCharset charset,
                       const std::array<SimplifiedText*, 3>& parts);
    void TakeSortName(const VCardProperty& property, VCardCharset charset, VCardContact& contact);
    void TakeNames(SimplifiedText& target, std::string_view piece, VCardCharset charset);
    void TakeLine(SimplifiedText& target, std::string_view piece, VCardCharset charset);
    void TakeLines(SimplifiedText& target, std::string_view piece, VCardCharset charset);
    void TakeNote(SimplifiedText& note, std::string_view value, VCardCharset charset);
    bool TakeFirst(SimplifiedText& target, std::string_view value, VCardCharset charset);
    void TakeAddress(const VCardProperty& property, std::string_view value, VCardCharset charset,
                     VCardContact& contact);
    void TakeNumber(const VCardProperty& property, std::string_view value, VCardCharset charset,
                    VCardContact& contact);
    void TakeLabel(const VCardProperty& property);
    [[nodiscard]] Manner MannerOf(const VCardProperty& property) const;
    bool Begin(Place place, VCardContact& contact);
    void Finish(VCardContact& contact) const;

    VCardLines lines_;
    std::string transferred_;  ///< a value that stands otherwise in the line
    std::string unescaped_;    ///< a piece of a value
    std::string names_;        ///< several names as one
    SimplifiedText further_;   ///< a value behind others
    std::array<SimplifiedText, 3> otherName_;
    VCardAddress address_;  ///< that is not the contact's
    SimplifiedText number_;
    Text roomOfNumber_;  ///< of the first number of the contact before
    Place place_ = Place::Outside;
    bool hasBegun_ = false;  ///< the next card, whose first line has been read
    VCardCharset preset_;    ///< of properties that declare none
    VCardCharset charset_ = VCardCharset::Undeclared;  ///< of those of this card
    bool hasAddress_ = false;
    bool hasPreferred_ = false;  ///< … address
    bool agentFollows_ = false;  ///< the line before announces a card in the card
    unsigned nested_ = 0;        ///< cards in the card that have not ended
    std::unordered_map<std::string, NumberKind> kindOfGroup_;
};

}  // namespace norvik
