#include "ringtones/renameringtones.h"

#include "base/numbers.h"
#include "ringtones/listfolderfiles.h"
#include "ringtones/tonenames.h"

namespace norvik {

namespace {

constexpr TextView ToneExtension = u"t9r";
constexpr TextView ToneEnding = u".t9r";
constexpr std::size_t SlotDigits = 2;

bool Confirms(Desktop& desktop) {
    Text text = u"Diese Aktion benennt, soweit möglich (siehe Anleitung) die Klingeltöne aus dem "
                u"Unterverzeichnis '\\tonruf'! neu";
    text.append(LineEnd);
    return desktop.Ask({.text = text,
                        .title = u"Liste mit Klingeltonnamen erneuern",
                        .icon = Icon::Exclamation,
                        .buttons = {Button::Ok, Button::Cancel}}) == Button::Ok;
}

void ReportNoNames(Desktop& desktop) {
    Text text = u"Es wurden keine verwertbaren Klingeltonnamen gefunden!";
    text.append(LineEnd).append(u"Existiert das Unterverzeichnis \\tonruf?");
    text.append(LineEnd);
    text.append(u"Beginnen die Namen mit der zweistelligen Speicherplatznummer?");
    text.append(LineEnd).append(LineEnd).append(u"Die Aktion wird abgebrochen.");
    desktop.Ask(
        {.text = text, .title = u"Klingeltonnamen ersetzen: FEHLER", .icon = Icon::Critical});
}

/// Puts the name of a tone file at its slot's place; false when it is not usable.
bool TakeName(TextView file, std::vector<Text>& names) {
    constexpr long long MostOfTwoDigits = 99;
    const long long slot =
        LeadingInteger(Slice(file, 0, SlotDigits), -MostOfTwoDigits, MostOfTwoDigits);
    const std::size_t end = LowerCase(file).find(ToneEnding, 1);
    if (slot <= 0 || slot > OwnTones || end == Text::npos) {
        return false;
    }
    names.at(static_cast<std::size_t>(BuiltInTones + slot)) = file.substr(0, end);
    return true;
}

}  // namespace

std::optional<std::vector<Text>> RenameRingtones(const FilePath& folder, Desktop& desktop) {
    if (!Confirms(desktop)) {
        return std::nullopt;
    }
    std::vector<Text> names = DefaultToneNames();
    int usable = 0;
    for (const Text& file :
         ListFolderFiles(FindIgnoringCase(folder, FilePath(ToneFolderName)), ToneExtension)) {
        usable += TakeName(file, names) ? 1 : 0;
    }
    if (usable == 0) {
        ReportNoNames(desktop);
        return std::nullopt;
    }
    return names;
}

}  // namespace norvik
