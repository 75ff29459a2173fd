// One line of a vCard taken apart: its name, its parameters and the bytes of its value.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace norvik {

/// The parts of a line, as they stand there. In "item1.TEL;TYPE=home:040" they are "item1", "TEL",
/// "TYPE=home" and "040".
struct VCardProperty {
    std::string_view Group;
    std::string_view Name;
    std::string_view Parameters;
    std::string_view Value;
};

/// Nothing for a line without a name and a colon. A colon in quotes does not end the parameters,
/// unless there is none behind the quotes.
std::optional<VCardProperty> SplitVCardProperty(std::string_view line);

/// The properties that tell something of a contact or of its card.
enum class VCardName {
    Begin,
    End,
    Version,
    Agent,
    Name,
    FullName,
    Nickname,
    Organisation,
    Address,
    Label,
    Mail,
    Note,
    Number,
    GroupLabel,
    Kind,
    PhoneticFamily,
    PhoneticGiven,
    SortName,
};

/// In any case of letters; nothing for another property.
std::optional<VCardName> VCardNameOf(std::string_view name);

/// Takes the parameters of a property off one by one, a list of values value by value. A value
/// without a name, as version 2.1 has them, has an empty one.
class VCardParameters {
  public:
    explicit VCardParameters(std::string_view parameters) : rest_(parameters) {}

    struct Parameter {
        std::string_view Name;
        std::string_view Value;  ///< without quotes
    };
    std::optional<Parameter> Next();

  private:
    std::string_view name_;
    std::string_view rest_;
    bool inList_ = false;
};

/// How the bytes of a value were made fit for mail.
enum class VCardTransfer { Plain, QuotedPrintable, Base64 };
VCardTransfer TransferOf(const VCardProperty& property);
/// What one parameter alone tells of that.
VCardTransfer TransferOf(const VCardParameters::Parameter& parameter);

/// Whether one of the parameters says that this value is liked best.
bool IsPreferred(const VCardProperty& property);

/// The value's bytes as they were; those of a damaged value as far as they can be told. They stand
/// in the value itself or in `room`.
std::string_view TransferredBytes(std::string_view value, VCardTransfer transfer,
                                  std::string& room);

/// A piece of a value up to the next separator that has no "\" in front, and whether there is a
/// further one.
std::string_view TakeVCardPiece(std::string_view& rest, char separator);

/// `piece` with "\n", "\,", "\;", "\:" and "\\" as what they stand for; in the piece itself or in
/// `room`.
std::string_view Unescaped(std::string_view piece, std::string& room);

/// Compares ASCII letters without regard to case.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);
bool ContainsIgnoringCase(std::string_view bytes, std::string_view part);
std::string LoweredAscii(std::string_view bytes);

/// Without blanks and tabs at its ends.
std::string_view TrimmedBytes(std::string_view bytes);

}  // namespace norvik
