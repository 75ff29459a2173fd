// What a single entry loses in another format: the parts that lossreport.cpp puts together.
#pragma once

#include "losses/lossreport.h"

#include <initializer_list>

namespace norvik {

/// Where the losses of one entry are noted.
class EntryLosses {
  public:
    /// The report and the name must live as long as this.
    EntryLosses(std::vector<Loss>& report, int position, TextView name)
        : report_(report), position_(position), name_(name) {}

    void Add(LossKind kind, Text what);
    /// Notes a loss after which nothing can be said of the entry's other fields.
    void AddTear(LossKind kind, Text what);
    [[nodiscard]] bool IsTorn() const { return torn_; }

  private:
    std::vector<Loss>& report_;
    int position_;
    TextView name_;
    bool torn_ = false;
};

inline constexpr std::size_t InfoWidth = InfoLines * InfoLineWidth;
/// The bits of MsnFilter that have a meaning.
inline constexpr int MsnFilterMask = MsnMask | EnGeb | (FilterMask << FilterShift);

/// A text field in the user's words.
struct FieldWords {
    TextView Name;  ///< "Infotext"
    TextView In;    ///< "im Infotext"
    TextView Of;    ///< "des Infotexts"
};

inline constexpr FieldWords NameWords = {u"Name", u"im Namen", u"des Namens"};
inline constexpr FieldWords NumberWords = {u"Nummer", u"in der Nummer", u"der Nummer"};
inline constexpr FieldWords InfoWords = {u"Infotext", u"im Infotext", u"des Infotexts"};

/// Joins the pieces of a sentence.
Text Sentence(std::initializer_list<TextView> pieces);

/// Puts `after` in the place of `text`; gives whether that changes anything.
bool Changes(Text& text, Text after);

// Each of these changes a field as a target does and notes what that loses.

/// Takes the blanks off the end.
void TrimEnd(Text& text, const FieldWords& field, EntryLosses& losses);
/// Puts the shortened text `cut` in the place of `text`.
void Cut(Text& text, Text cut, const FieldWords& field, LossKind kind, EntryLosses& losses);
/// Leaves no more than the six info lines.
void CutInfo(Text& info, EntryLosses& losses);
void DropInfo(RegisterEntry& entry, EntryLosses& losses);
/// Notes the characters that differ in two texts of the same length.
void NoteDeviceBytes(TextView before, TextView after, const FieldWords& field, EntryLosses& losses);

/// Clears all fields but the texts, as a file that holds texts alone leaves them. They are compared
/// later on.
void DropValues(RegisterEntry& entry);

// Each of these makes of an entry what is left of it when it was written and loaded again (for a
// format that is not loaded: what the file holds of it), and notes what the texts lose.

void ThroughRegister195(RegisterEntry& entry, const TargetOptions& options, EntryLosses& losses);
void ThroughRegister193(RegisterEntry& entry, const TargetOptions& options, EntryLosses& losses);
void ThroughPhonebook175(RegisterEntry& entry, const TargetOptions& options, EntryLosses& losses);
void ThroughCsv(RegisterEntry& entry, const TargetOptions& options, EntryLosses& losses);
void ThroughIp286(RegisterEntry& entry, const TargetOptions& options, EntryLosses& losses);
void ThroughMobileExport(RegisterEntry& entry, const TargetOptions& options, EntryLosses& losses);
void ThroughChargeStatement(RegisterEntry& entry, const TargetOptions& options,
                            EntryLosses& losses);
void ThroughVCard(RegisterEntry& entry, const TargetOptions& options, EntryLosses& losses);

struct LossRow {
    FileFormat Target;
    void (*Through)(RegisterEntry& entry, const TargetOptions& options, EntryLosses& losses);
};

/// A row for each format that can be written.
inline constexpr LossRow LossTable[] = {
    {FileFormat::Register195, ThroughRegister195},
    {FileFormat::Register193, ThroughRegister193},
    {FileFormat::Phonebook175, ThroughPhonebook175},
    {FileFormat::Csv, ThroughCsv},
    {FileFormat::Ip286, ThroughIp286},
    {FileFormat::MobileExport, ThroughMobileExport},
    {FileFormat::ChargeStatement, ThroughChargeStatement},
    {FileFormat::VCard, ThroughVCard},
};

/// Notes what differs in the fields that are no text, and whether the export mark is gone.
void CompareValues(const RegisterEntry& before, const RegisterEntry& after, EntryLosses& losses);

}  // namespace norvik
