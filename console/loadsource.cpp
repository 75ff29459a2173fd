#include "console/loadsource.h"

#include "base/files.h"
#include "base/runtimeerror.h"
#include "console/damage.h"
#include "console/standardstreams.h"
#include "formats/common/followload.h"
#include "registertools/checkregister.h"
#include "registertools/lineaccesszero.h"

#include <algorithm>
#include <utility>

namespace norvik {

namespace {

/// Gives whether the load went to its end.
bool LoadRegister(const ConverterOptions& options, Source& source, const Settings& settings,
                  RegisterState& state, Desktop& desktop) {
    const FormatRow& row = RowOf(options.From);
    try {
        return row.Load != nullptr &&
               row.Load(
                   state, [&source] { return std::move(source); },
                   {.Csv = {.AvoidDoubles = options.AvoidDoubles, .Characters = options.Characters},
                    .VCardCharacters = options.Characters},
                   settings, desktop);
    } catch (const HardStop&) {
        state.Damage.BrokenEntry = true;
        state.File.Type = state.LoadedModel;
        SetCount(state, std::max(1, state.RecordsRead));
        return false;
    }
}

}  // namespace

Settings ReadConverterSettings(const ConverterOptions& options) {
    Settings settings;
    if (!options.SettingsFile.empty()) {
        ReadSettings(ReadWholeFile(options.SettingsFile), settings.Table);
    }
    ApplySettings(settings);
    if (options.UnitPrice) {
        settings.UnitPrice = *options.UnitPrice;
    }
    return settings;
}

Source OpenSource(const FilePath& source) {
    if (source == FilePath(StandardStream)) {
        return {OpenStandardInput(), source, std::nullopt};
    }
    return OpenSourceFile(source);
}

Source OpenSource(const ConverterOptions& options) {
    Source source = OpenSource(options.Source);
    return RowOf(options.From).IsStreamed ? std::move(source) : ReadWhole(std::move(source));
}

LoadResult LoadSource(const ConverterOptions& options, Source source, const Settings& settings,
                      RegisterState& state, Desktop& desktop) {
    const unsigned before = state.Generation;
    const bool toItsEnd = LoadRegister(options, source, settings, state, desktop);
    if (!toItsEnd && state.Generation == before) {
        return LoadResult::OtherKind;
    }
    const bool damaged = !toItsEnd || !DamageOf(state).empty();
    if (damaged && state.RecordsRead == 0) {
        return LoadResult::NothingRead;
    }
    if (damaged && !options.DespiteDamage) {
        return LoadResult::Damaged;
    }
    if (!toItsEnd) {
        CheckRegister(state, desktop);
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
    return damaged ? LoadResult::TakenDespiteDamage : LoadResult::Whole;
}

}  // namespace norvik
