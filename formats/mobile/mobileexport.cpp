#include "formats/mobile/mobileexport.h"

#include "formats/common/globalize.h"
#include "formats/common/quietsave.h"

namespace norvik {

Text WithoutComma(Text name) {
    if (const std::size_t comma = name.find(u','); comma != Text::npos && comma > 0) {
        name.erase(comma, 1);
    }
    return name;
}

namespace {

bool Confirms(const RegisterState& state, Desktop& desktop) {
    Text text = u"Diese Funktion exportiert das aktuelle Telefonbuch";
    text.append(LineEnd).append(u"in ein u.a. von SIM-Surf lesbares Format");
    if (state.WarnLineAccessZero) {
        text.append(LineEnd);
        text.append(u"ACHTUNG: Diese Funktion liefert nur sinnvolle Ergebnisse, wenn das");
        text.append(LineEnd).append(u"Telefonregister keine führenden Nullen enthält!!!");
    }
    return desktop.Ask({.text = text,
                        .title = u"Export",
                        .icon = Icon::Exclamation,
                        .buttons = {Button::Ok, Button::Cancel}}) == Button::Ok;
}

Button AskForEntry(const RegisterEntry& entry, RepeatedBox& questions) {
    Text text = entry.Name;
    text.append(LineEnd).append(entry.Tel).append(LineEnd).append(LineEnd);
    text.append(u"Diesen Eintrag exportieren?");
    return questions.Ask({.text = text,
                          .title = u"Exportabfrage",
                          .icon = Icon::Question,
                          .buttons = {Button::Yes, Button::No, Button::Cancel},
                          .defaultButton = Button::Yes});
}

GlobalizeMode ModeOf(const MobileExportOptions& options) {
    if (options.GlobalizeNumber) {
        return GlobalizeMode::International;
    }
    return options.AddRegionCode ? GlobalizeMode::AddArea : GlobalizeMode::Clean;
}

Text Number(const RegisterEntry& entry, const MobileExportOptions& options,
            const Settings& settings, RepeatedBox& reports) {
    Text number = Globalize(entry.Tel, ModeOf(options), settings, reports);
    if (options.Change00toPlus && number.starts_with(u"00")) {
        number.replace(0, 2, u"+");
    }
    return number;
}

Text Line(const RegisterEntry& entry, int runningNumber, const MobileExportOptions& options,
          const Settings& settings, RepeatedBox& reports) {
    const TextView quote = options.UseQuotesForData ? u"\"" : u"";
    Text line;
    const auto append = [&line, quote](TextView value) {
        line.append(quote).append(value).append(quote);
    };
    if (options.WriteMemNumber) {
        append(Decimal(runningNumber));
        line.append(options.DataSeparator);
    }
    append(options.DeleteCommaInNames ? WithoutComma(entry.Name) : entry.Name);
    line.append(options.DataSeparator);
    append(Number(entry, options, settings, reports));
    return line.append(LineEnd);
}

/// Writes the file; false when the user cancelled at an entry.
bool WriteEntries(const RegisterState& state, const MobileExportOptions& options,
                  const Settings& settings, const OutputTarget& target, Desktop& desktop) {
    RepeatedBox questions(desktop);
    RepeatedBox reports(desktop);
    OutputFile output(target);
    int exported = 0;
    bool cancelled = false;
    for (const int index : UsedIndices(state)) {
        const RegisterEntry& entry = state.Register(index);
        bool wanted = IsMarked(entry);
        if (!options.UseReductionFlags) {
            const Button answer = AskForEntry(entry, questions);
            cancelled = answer == Button::Cancel;
            wanted = answer == Button::Yes;
        }
        if (cancelled) {
            break;
        }
        if (wanted) {
            ++exported;
            output.Write(BytesFromText(Line(entry, exported, options, settings, reports)));
        }
    }
    output.Close();
    return !cancelled;
}

}  // namespace

void ExportMobile(const RegisterState& state, const MobileExportOptions& options,
                  const Settings& settings, const OutputTarget& target, Desktop& desktop) {
    if (!Confirms(state, desktop)) {
        return;
    }
    desktop.SetStatus(u"Exportiere Telefonbuch in Textdatei...");
    bool complete = false;
    Text remark;
    OutputTarget told = target;
    told.BeforeOverwriting = TellDesktop(desktop, remark);
    SaveOrSay([&] { complete = WriteEntries(state, options, settings, told, desktop); }, desktop);
    desktop.SetStatus(u"Telefonbuch exportiert" + remark);
    if (!complete) {
        desktop.SetStatus(u"Telefonbuchexport durch Benutzer abgebrochen." + remark);
    }
}

}  // namespace norvik
