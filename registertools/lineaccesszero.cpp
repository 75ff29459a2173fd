#include "registertools/lineaccesszero.h"

#include "base/repeatedbox.h"

#include <initializer_list>

namespace norvik {

namespace {

constexpr TextView Zero = u"0";
constexpr TextView OwnInternalMark = u"i";

/// Lines of the question how internal numbers are to be marked.
constexpr TextView ForOwnLineAccess =
    u"  Am Telefon muß automat. Amtholung aktiviert, die Anlagenamtholung deaktviert sein.";
constexpr TextView ForLineAccessOfExchange =
    u"  Am Telefon muß automat. Amtholung deaktiviert, die Anlagenamtholung aktviert sein.";

Text JoinLines(std::initializer_list<TextView> lines) {
    Text text;
    for (const TextView line : lines) {
        text.append(text.empty() ? TextView() : LineEnd).append(line);
    }
    return text;
}

/// The number with a zero in front, or an internal number without its mark.
Text WithZero(TextView number) {
    Text result;
    if (number.starts_with(u"**") || number.starts_with(u"##")) {
        result = number.substr(2);
    } else if (number.starts_with(u'i') || number.starts_with(u'*')) {
        result = number.substr(1);
    } else if (number.starts_with(u'#')) {
        result = number;
    } else {
        result.append(Zero).append(number);
    }
    return result.empty() ? Text(Zero) : result;
}

/// The number without its zero, or with the code of internal numbers in front.
Text WithoutZero(TextView number, TextView code) {
    return number.starts_with(Zero) ? Text(number.substr(Zero.size())) : Text(code).append(number);
}

void WarnOfCutNumber(const RegisterEntry& entry, TextView cut, RepeatedBox& warnings) {
    warnings.Ask({.text = JoinLines({u"Telefonnummer ist nach Konvertierung zu lang:",
                                     u"Name: " + entry.Name, u"Tel.: " + entry.Tel,
                                     Text(u"Neu : ").append(cut), u"Gekürzte Nummer gespeichert"}),
                  .title = u"WARNUNG",
                  .icon = Icon::Exclamation});
}

}  // namespace

void ConvertLineAccessZero(RegisterState& state, TextView code, Desktop& desktop) {
    const bool adds = code == Zero;
    desktop.SetStatus(adds ? Text(u"Nullen werden hinzugefügt...")
                           : Text(u"Nullen werden entfernt (").append(code).append(u")..."));
    desktop.SetPointer(Pointer::Hourglass);
    RepeatedBox warnings(desktop);
    for (const int index : UsedIndices(state)) {
        RegisterEntry& entry = state.Register(index);
        Text number = adds ? WithZero(entry.Tel) : WithoutZero(entry.Tel, code);
        if (number.size() > FieldWidth) {
            number.resize(FieldWidth);
            WarnOfCutNumber(entry, number, warnings);
        }
        entry.Tel = number;
    }
    state.WarnLineAccessZero = adds;
    desktop.SetPointer(Pointer::Normal);
    desktop.SetStatus(u"Konvertierung beendet.");
    RefreshStatus(state, desktop);
    desktop.ShowEntry();
}

void mnuBearbeitenNullHinzu(RegisterState& state, Desktop& desktop) {
    const Button answer = desktop.Ask(
        {.text = JoinLines({u"Diese Funktion fügt zu allen Telefonnummern eine Null",
                            u"hinzu, um das Telefon an Anlagen ohne automatische Amtholung",
                            u"einsetzen zu können.", u"Ausnahme: ",
                            u"Bei internen Telefonnummern (i/*) werden i oder * entfernt.",
                            u"Sind Sie sicher, daß Sie diese Funktion ausführen möchten?"}),
         .title = u"Konvertierung bestätigen",
         .icon = Icon::Question,
         .buttons = {Button::Yes, Button::No},
         .defaultButton = Button::No});
    if (answer != Button::Yes) {
        desktop.SetStatus(u"Konvertierung abgebrochen.");
        return;
    }
    ConvertLineAccessZero(state, Zero, desktop);
}

namespace {

Button AskForInternalMark(Desktop& desktop) {
    return desktop.Ask(
        {.text = JoinLines(
             {u"Diese Funktion entfernt bei allen Telefonnummern eine Null,",
              u"um ein an Anlagen ohne automatische Amtholung eingesetztes Telefon",
              u"an einem normalen Anschluß einsetzen zu können oder um z.B. die ",
              u"automatische Amtholung durch Telefonanlage oder das Telefon zu verwenden. ",
              u"Interne Nummern (ohne Null) müssen dabei gesondert behandelt werden.",
              u"Wollen Sie die automatische Amtholung eines Norvik 195 einsetzen?",
              u"- Wählen Sie JA, damit das entsprechende 'i' für interne Anrufe eingetragen wird.",
              ForOwnLineAccess,
              u"- Wählen Sie NEIN, um ein anlagenspezifisches Zeichen vorzusetzen.",
              ForLineAccessOfExchange, u"Wählen Sie ABBRECHEN, um die Konvertierung abzubrechen."}),
         .title = u"Konvertierung bestätigen",
         .icon = Icon::Question,
         .buttons = {Button::Yes, Button::No, Button::Cancel},
         .defaultButton = Button::Cancel});
}

/// Empty when the user gives none.
Text AskForCode(Desktop& desktop) {
    return desktop
        .AskForText({.prompt = JoinLines(
                         {u"Welchen Code sollen interne Telefonnummern vorgesetzt bekommen?",
                          u"Für ältere Auerswald-Anlagen bspw. '*',",
                          u"für neuere Norvik-Anlagen bspw. '##',", u"für Fritzboxen '**'"}),
                     .title = u"Code für interne Telefonate",
                     .preset = u"##"})
        .value_or(Text());
}

}  // namespace

void mnuBearbeitenNullEntf(RegisterState& state, Desktop& desktop) {
    Text code;
    switch (AskForInternalMark(desktop)) {
    case Button::Yes:
        code = OwnInternalMark;
        break;
    case Button::No:
        code = AskForCode(desktop);
        break;
    default:
        break;
    }
    if (code.empty()) {
        desktop.SetStatus(u"Konvertierung abgebrochen");
        return;
    }
    ConvertLineAccessZero(state, code, desktop);
}

}  // namespace norvik
