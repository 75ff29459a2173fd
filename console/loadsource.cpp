#include "console/loadsource.h"

#include "base/files.h"
#include "console/standardstreams.h"
#include "formats/common/followload.h"
#include "registertools/lineaccesszero.h"

namespace norvik {

namespace {

bool LoadRegister(const ConverterOptions& options, const Settings& settings, RegisterState& state,
                  Desktop& desktop) {
    const FormatRow& row = RowOf(options.From);
    return row.Load != nullptr &&
           row.Load(
               state, [&options] { return ReadSource(options.Source); },
               {.Csv = {.AvoidDoubles = options.AvoidDoubles}}, settings, desktop);
}

}  // namespace

Settings ReadConverterSettings(const ConverterOptions& options) {
    Settings settings;
    if (!options.SettingsFile.empty()) {
        ReadSettings(ReadWholeFile(options.SettingsFile), settings.Table);
    }
    ApplySettings(settings);
    return settings;
}

SourceFile ReadSource(const FilePath& source) {
    if (source == FilePath(StandardStream)) {
        return {.Content = ReadStandardInput(), .Path = source, .Modified = std::nullopt};
    }
    return ReadSourceFile(source);
}

bool LoadSource(const ConverterOptions& options, const Settings& settings, RegisterState& state,
                Desktop& desktop) {
    if (!LoadRegister(options, settings, state, desktop)) {
        return false;
    }
    if (options.Sorted && state.AnzGes > 0) {
        FollowLoad(state, desktop);
    } else {
        state.WarnLineAccessZero = true;
        ShowFirstEntry(state, desktop);
    }
    if (options.ZeroCode) {
        ConvertLineAccessZero(state, *options.ZeroCode, desktop);
    }
    return true;
}

}  // namespace norvik
