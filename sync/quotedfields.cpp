#include "sync/quotedfields.h"

namespace norvik {

std::vector<TextView> SplitQuotedFields(TextView record, std::size_t room) {
    constexpr char16_t Quote = u'"';
    std::vector<TextView> fields;
    std::size_t position = 0;
    while (fields.size() < room) {
        const std::size_t opening = record.find(Quote, position);
        const std::size_t closing =
            opening == TextView::npos ? TextView::npos : record.find(Quote, opening + 1);
        if (closing == TextView::npos) {
            break;
        }
        fields.push_back(record.substr(opening + 1, closing - opening - 1));
        position = closing + 1;
    }
    return fields;
}

}  // namespace norvik
