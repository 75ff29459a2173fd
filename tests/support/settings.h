// Settings that several tests begin with.
#pragma once

#include "register/settings.h"

namespace norvik::test {

/// A telephone in Berlin: country code 49, area code 30.
inline Settings Berlin() {
    Settings settings;
    settings.Table.SetValue(Setting::CountryCode, u"49");
    settings.Table.SetValue(Setting::RegionCode, u"30");
    ApplySettings(settings);
    return settings;
}

}  // namespace norvik::test
