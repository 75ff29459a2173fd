#include "base/windows1252.h"
#include "tools/tonenames.h"

namespace norvik {

void WriteToneNames(const FilePath& folder, const std::vector<Text>& names) {
    Text file;
    for (std::size_t item = 1; item < names.size(); ++item) {
        file.append(names[item]).append(LineEnd);
    }
    ReplaceFile(FindIgnoringCase(folder, FilePath(ToneNamesFileName)), BytesFromText(file));
}

}  // namespace norvik
