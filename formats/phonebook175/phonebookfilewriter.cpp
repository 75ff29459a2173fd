#include "formats/common/namingentry.h"
#include "formats/phonebook175/phonebookfile.h"

namespace norvik {

namespace {

using namespace phonebookfile;

/// Writes lines, several at a time; the room for them is taken once for the whole file.
class LineWriter {
  public:
    explicit LineWriter(OutputFile& file) : file_(file) {}

    void Add(TextView key, TextView value) { lines_.append(key).append(value).append(LineEnd); }

    /// Writes the lines that were added.
    void Write() {
        bytes_.clear();
        AppendBytes(bytes_, lines_);
        file_.Write(bytes_);
        lines_.clear();
    }

  private:
    OutputFile& file_;
    Text lines_;
    Bytes bytes_;
};

/// Takes the blanks off both ends; most texts have none.
void Trim(Text& text) {
    const TextView trimmed = TrimBlanks(text);
    if (trimmed.size() < text.size()) {
        text = Text(trimmed);
    }
}

}  // namespace

void WritePhonebookFile(RegisterState& state, const OutputTarget& target, Desktop& desktop) {
    desktop.SetPointer(Pointer::Hourglass);
    OutputFile file(target);
    LineWriter lines(file);
    lines.Add(u"", Identification);
    lines.Write();
    for (int position = 1; position <= state.AnzGes; ++position) {
        RegisterEntry& changed = EntryAt(state, position);
        NamingEntry(state, position, [&lines, &changed](const RegisterEntry& entry) {
            lines.Add(NameKey, entry.Name);
            lines.Add(TelKey, entry.Tel);
            Trim(changed.Info);
            for (std::size_t line = 0; line < InfoLines; ++line) {
                lines.Add(InfoKey, Slice(entry.Info, line * InfoLineWidth, InfoLineWidth));
            }
            lines.Write();
        });
    }
    file.Close();
    NoteSaved(state, u"175");
    desktop.SetPointer(Pointer::Normal);
}

}  // namespace norvik
