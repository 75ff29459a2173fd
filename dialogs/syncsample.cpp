#include "dialogs/syncsample.h"

#include "base/charset.h"
#include "base/lines.h"
#include "base/runtimeerror.h"
#include "sync/synctables.h"

#include <algorithm>

namespace norvik {

std::optional<Text> SyncSample::Line(TextView file, int record) {
    try {
        const FilePath path = FindIgnoringCase(folder_, PathFromText(file));
        const std::optional<FileTime> modified = LastModified(path);
        std::error_code unknown;  // what is no file is refused by Read()
        const std::uintmax_t size = std::filesystem::file_size(path, unknown);
        if (path != path_ || !modified || modified != modified_ || size != size_) {
            Read(path);
            modified_ = modified;
            size_ = size;
        }
    } catch (const RuntimeError&) {
        modified_.reset();
        lines_.clear();
        return std::nullopt;
    }
    if (lines_.empty()) {
        return Text();
    }
    return lines_[std::min(static_cast<std::size_t>(std::max(record, 1)), lines_.size()) - 1];
}

bool SyncSample::CanBeOpened(TextView file) const {
    try {
        OpenFile(FindIgnoringCase(folder_, PathFromText(file)));
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

void SyncSample::Read(const FilePath& path) {
    const Bytes bytes = ReadWholeFile(path);
    path_ = path;
    lines_.clear();
    const TextFile text = RecognizeText(bytes);
    LineReader lines(text.Content);
    while (!lines.AtEnd() && lines_.size() < SyncRecords) {
        AssignDecoded(lines_.emplace_back(), lines.NextBytes(), text.IsUtf8);
    }
}

}  // namespace norvik
