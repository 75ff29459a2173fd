#include "mainwindow/recentfiles.h"

#include "base/numbers.h"
#include "formats/formattable.h"
#include "versions/versionstore.h"

#include <algorithm>

namespace norvik {

namespace {

/// The end of a long folder tells more than its beginning.
Text ShownFolder(const FilePath& folder) {
    constexpr std::size_t Longest = 50;
    Text text = TextFromPath(folder);
    if (text.size() > Longest) {
        text = u"…" + text.substr(text.size() - Longest + 1);
    }
    return text;
}

}  // namespace

void AddRecent(RecentFiles& files, const FilePath& path, const FilePath& hidden) {
    if (path.empty() || IsInFolder(path, hidden)) {
        return;
    }
    const FilePath full = FullPath(path);
    files.Folder = full.parent_path();
    if (LoadItemOf(full).empty()) {
        return;
    }
    RemoveRecent(files, full);
    files.Paths.insert(files.Paths.begin(), full);
    files.Paths.resize(std::min(files.Paths.size(), MostRecentFiles));
}

void NoteFolder(RecentFiles& files, const FilePath& visited, const FilePath& hidden) {
    if (!visited.empty() && !IsInFolder(visited, hidden)) {
        files.Folder = FullPath(visited);
    }
}

void RemoveRecent(RecentFiles& files, const FilePath& path) {
    std::erase_if(files.Paths, [&path](const FilePath& known) { return IsSamePath(known, path); });
}

Text RecentCaption(std::size_t place, const FilePath& path) {
    const Text shown = TextFromPath(path.filename()) + u" – " + ShownFolder(path.parent_path());
    Text caption = u"&" + Decimal(static_cast<long long>(place)) + u" ";
    for (const char16_t character : shown) {
        caption.append(character == u'&' ? 2 : 1, IsControl(character) ? u'?' : character);
    }
    return caption;
}

std::string_view LoadItemOf(const FilePath& path) {
    const std::optional<FileFormat> format = SourceOfEnding(path);
    if (!format) {
        return {};
    }
    switch (*format) {
    case FileFormat::Register195:
    case FileFormat::Register193:
        return "mnuDateiLoadNV";
    case FileFormat::Phonebook175:
        return "mnuDateiLoad175";
    case FileFormat::Csv:
        return "mnuDateiLoadCSV";
    case FileFormat::VCard:
        return "mnuDateiLoadVCard";
    case FileFormat::Ip286:
    case FileFormat::MobileExport:
    case FileFormat::ChargeStatement:
    case FileFormat::CallList:
        break;
    }
    return {};
}

}  // namespace norvik
