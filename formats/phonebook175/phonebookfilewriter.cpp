#include "formats/phonebook175/phonebookfile.h"

namespace norvik {

namespace {

using namespace phonebookfile;

void WriteLine(OutputFile& file, TextView key, TextView value) {
    Text line(key);
    line.append(value).append(LineEnd);
    file.Write(BytesFromText(line));
}

}  // namespace

void WritePhonebookFile(RegisterState& state, const FilePath& path, Desktop& desktop) {
    desktop.SetPointer(Pointer::Hourglass);
    OutputFile file(path);
    WriteLine(file, u"", Identification);
    for (int position = 1; position <= state.AnzGes; ++position) {
        RegisterEntry& entry = EntryAt(state, position);
        WriteLine(file, NameKey, entry.Name);
        WriteLine(file, TelKey, entry.Tel);
        entry.Info = Text(TrimBlanks(entry.Info));
        for (std::size_t line = 0; line < InfoLines; ++line) {
            WriteLine(file, InfoKey, Slice(entry.Info, line * InfoLineWidth, InfoLineWidth));
        }
    }
    file.Close();
    state.RegisterSaved = true;
    desktop.SetPointer(Pointer::Normal);
}

}  // namespace norvik
