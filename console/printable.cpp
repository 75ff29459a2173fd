#include "console/printable.h"

#include <algorithm>

namespace norvik {

Text Printable(TextView text) {
    Text printable(text);
    std::replace_if(printable.begin(), printable.end(), IsControl, u'?');
    return printable;
}

Text PrintablePath(const FilePath& path) {
    return Printable(TextFromPath(path));
}

}  // namespace norvik
