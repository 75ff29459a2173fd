#include "sync/searchsyncaddress.h"

#include "formats/common/globalize.h"
#include "formats/vcard/vcardnumber.h"

#include <algorithm>

namespace norvik {

namespace {

/// So many characters at a number's end are compared.
constexpr std::size_t KeyLength = 10;
/// The letters of the telephone columns: business, private, fax, other.
constexpr TextView KindLetters = u"BPFA";

/// Shows the warning of zeros for the outside line while it is due; false when the user aborts.
bool PassesWarning(RegisterState& state, Desktop& desktop) {
    if (!state.WarnLineAccessZero) {
        return true;
    }
    Text text = u"ACHTUNG! Diese Funktion liefert nur sinnvolle Ergebnisse,";
    text.append(LineEnd).append(u"wenn das Register keine Nullen zur Amtholung enthält");
    text.append(LineEnd).append(u"(ggf. mit 'Bearbeiten' entfernen)");
    text.append(LineEnd);
    text.append(LineEnd).append(u"'Wiederholen': Aktion wird trotzdem durchgeführt");
    text.append(LineEnd).append(u"'Ignorieren' : Aktion wird durchgeführt, keine weitere Warnung");
    const Button answer = desktop.Ask({.text = text,
                                       .title = u"WARNUNG!",
                                       .icon = Icon::Exclamation,
                                       .buttons = {Button::Abort, Button::Retry, Button::Ignore},
                                       .defaultButton = Button::Abort});
    if (answer == Button::Ignore) {
        state.WarnLineAccessZero = false;
    }
    return answer != Button::Abort;
}

Text KeyOf(TextView number, const Settings& settings, RepeatedBox& reports) {
    const Text whole = Globalize(number, GlobalizeMode::International, settings, reports);
    return whole.substr(whole.size() - std::min(whole.size(), KeyLength));
}

/// The key of a number of the database. That of a contact may have what no telephone dials, such as
/// the "(0)" behind a country code.
Text KeyOfStored(TextView number, bool ofContact, TextView ownCountry, const Settings& settings,
                 RepeatedBox& reports) {
    return KeyOf(ofContact ? Dialled(number, ownCountry).Number : number, settings, reports);
}

/// A record of the database with the telephone column that was found.
struct Hit {
    const SyncTables& Tables;
    std::size_t Record;
    std::size_t Phone;

    [[nodiscard]] Text StreetColumn() const {
        return PadOrCut(Tables.SyncAddressTable[Record][SyncTables::Street], InfoLineWidth);
    }
    [[nodiscard]] Text PlaceColumn() const {
        const auto& address = Tables.SyncAddressTable[Record];
        Text place(Slice(address[SyncTables::Zip], 0, InfoLineWidth));
        place.append(u" ").append(Slice(address[SyncTables::City], 0, InfoLineWidth));
        return PadOrCut(place, InfoLineWidth);
    }
    [[nodiscard]] Text Description() const {
        const auto& name = Tables.SyncNameTable[Record];
        Text text(name[SyncTables::GivenName]);
        text.append(u" ").append(name[SyncTables::Surname]).append(LineEnd);
        text.append(StreetColumn()).append(LineEnd).append(PlaceColumn()).append(LineEnd);
        text.push_back(KindLetters[Phone]);
        return text.append(Tables.SyncPhoneTable[Record][Phone]).append(LineEnd);
    }
};

enum class Answer { Take, Next, Stop };

Answer AskForHit(const Text& header, const Hit& hit, RepeatedBox& withoutAddress,
                 Desktop& desktop) {
    const Text text = header + hit.Description();
    if (TrimBlanks(hit.StreetColumn() + hit.PlaceColumn()).empty()) {
        withoutAddress.Ask({.text = text + u"Dieser Datensatz enthält keine Adresse!",
                            .title = u"Keine Adresse",
                            .icon = Icon::Information});
        return Answer::Next;
    }
    const Button answer =
        desktop.Ask({.text = text + u"Soll die Adresse dieses Eintrags übernommen werden?",
                     .title = u"Adresse gefunden?",
                     .icon = Icon::Question,
                     .buttons = {Button::Yes, Button::No, Button::Cancel},
                     .defaultButton = Button::Yes});
    if (answer == Button::Cancel) {
        return Answer::Stop;
    }
    return answer == Button::Yes ? Answer::Take : Answer::Next;
}

/// Goes through all numbers of the database; whether an address was taken.
bool TakeAddresses(RegisterState& state, const SyncTables& tables, const Text& key,
                   const Settings& settings, RepeatedBox& reports, Desktop& desktop) {
    RepeatedBox withoutAddress(desktop);
    const Text ownCountry = OwnCountryCode(settings);
    const Text header = u"Suche nach " + key + u", gefunden:" + Text(LineEnd);
    bool taken = false;
    for (std::size_t record = 1; record < tables.SyncPhoneTable.size(); ++record) {
        for (std::size_t phone = 0; phone < SyncTables::PhoneColumns; ++phone) {
            if (KeyOfStored(tables.SyncPhoneTable[record][phone], tables.OfContacts, ownCountry,
                            settings, reports) != key) {
                continue;
            }
            const Hit hit = {tables, record, phone};
            const Answer answer = AskForHit(header, hit, withoutAddress, desktop);
            if (answer == Answer::Stop) {
                return taken;
            }
            if (answer == Answer::Take) {
                Text& info = EntryAt(state, state.AnzNr).Info;
                info.insert(0, hit.StreetColumn() + hit.PlaceColumn());
                desktop.ShowEntry();
                RefreshStatus(state, desktop);  // the entry's row in the list shows the text, too
                taken = true;
            }
        }
    }
    return taken;
}

}  // namespace

void SearchSyncAddress(RegisterState& state, const SyncState& sync, const Settings& settings,
                       Desktop& desktop) {
    if (!PassesWarning(state, desktop)) {
        return;
    }
    if (!sync.SyncLoaded) {
        desktop.Ask({.text = u"Keine Adreßdaten geladen!"});
    }
    RepeatedBox reports(desktop);
    const Text key = KeyOf(EntryAt(state, state.AnzNr).Tel, settings, reports);
    if (key == KeyOf({}, settings, reports)) {
        desktop.Ask({.text = u"Telefonnummer enthält keine synchronisationsrelevanten Daten!",
                     .title = u"SyncAdresse",
                     .icon = Icon::Critical});
        return;
    }
    desktop.SetStatus(u"Suche nach Adressdaten...");
    const bool taken = TakeAddresses(state, sync.Tables, key, settings, reports, desktop);
    desktop.SetStatus(taken ? u"OK" : u"Keine passenden Daten gefunden");
}

}  // namespace norvik
