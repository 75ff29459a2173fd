#include "ringtones/tonenames.h"

#include "base/files.h"
#include "base/lines.h"
#include "base/outputfile.h"
#include "base/runtimeerror.h"
#include "base/windows1252.h"

#include <utility>

namespace norvik {

namespace {

constexpr char16_t CommentMark = u';';

void AddNumbered(std::vector<Text>& names, TextView stem, int count) {
    for (int number = 1; number <= count; ++number) {
        names.push_back(Text(stem) + Decimal(number));
    }
}

}  // namespace

std::vector<Text> DefaultToneNames() {
    std::vector<Text> names = {u"kein"};
    names.reserve(ToneItems);
    AddNumbered(names, u"3Klang ", 3);
    AddNumbered(names, u"2Klang ", 5);
    AddNumbered(names, u"Ton ", 2);
    AddNumbered(names, u"Klingel ", 10);
    AddNumbered(names, u"Eigen ", OwnTones);
    return names;
}

std::vector<Text> ToneNamesFrom(ByteView file) {
    std::vector<Text> names = DefaultToneNames();
    LineReader lines(file);
    for (std::size_t item = 1; item < names.size() && !lines.AtEnd();) {
        Text line = lines.Next();
        if (line.empty() || line.front() != CommentMark) {
            names[item] = std::move(line);
            ++item;
        }
    }
    return names;
}

std::vector<Text> ReadToneNames(const FilePath& folder) {
    try {
        return ToneNamesFrom(ReadWholeFile(FindIgnoringCase(folder, FilePath(ToneNamesFileName))));
    } catch (const RuntimeError&) {
        return DefaultToneNames();  // the file is optional
    }
}

void WriteToneNames(const FilePath& folder, const std::vector<Text>& names,
                    OverwritingHook beforeOverwriting) {
    Text file;
    for (std::size_t item = 1; item < names.size(); ++item) {
        file.append(names[item]).append(LineEnd);
    }
    OutputTarget target(FindIgnoringCase(folder, FilePath(ToneNamesFileName)));
    target.BeforeOverwriting = std::move(beforeOverwriting);
    ReplaceFile(std::move(target), BytesFromText(file));
}

}  // namespace norvik
