#include "base/runtimeerror.h"
#include "tools/tonenames.h"

namespace norvik {

std::vector<Text> ReadToneNames(const FilePath& folder) {
    try {
        return ToneNamesFrom(ReadWholeFile(FindIgnoringCase(folder, FilePath(ToneNamesFileName))));
    } catch (const RuntimeError&) {
        return DefaultToneNames();  // the file is optional
    }
}

}  // namespace norvik
