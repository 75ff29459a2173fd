#include "console/damage.h"

namespace norvik {

namespace {

Text Counted(long long number, TextView one, TextView more) {
    return Decimal(number) + u" " + Text(number == 1 ? one : more);
}

/// "2 Einträge sind gelesen".
Text Whole(long long entries) {
    return Counted(entries, u"Eintrag ist gelesen", u"Einträge sind gelesen");
}

constexpr TextView IsDamaged = u"ist beschädigt: ";

Text AtEntry(TextView what, long long entriesBefore) {
    return Text(what) + u" " + Decimal(entriesBefore + 1) + u"; " + Whole(entriesBefore);
}

Text Full() {
    return u"ist nicht ganz gelesen: mehr als " + Decimal(RegisterPlaces) +
           u" Einträge, die weiteren fehlen";
}

Text FailureSentence(const RuntimeError& failure, int entriesRead) {
    switch (failure.Number()) {
    case ErrorNumber::IndexOutOfRange:
        return Full();
    case ErrorNumber::ReadPastEnd:
        return Text(IsDamaged) + AtEntry(u"endet mitten in Eintrag", entriesRead);
    default:
        return Text(IsDamaged) + Text(failure.Description()) + AtEntry(u" in Eintrag", entriesRead);
    }
}

Text EarlyEnd(bool lastIsCut, int entriesRead) {
    if (lastIsCut) {
        return Text(IsDamaged) + AtEntry(u"endet mitten in Eintrag", entriesRead - 1);
    }
    return Text(IsDamaged) + u"endet vorzeitig; " + Whole(entriesRead);
}

}  // namespace

std::vector<Text> DamageOf(const RegisterState& state) {
    const LoadDamage& damage = state.Damage;
    std::vector<Text> sentences;
    if (damage.EndsEarly) {
        sentences.push_back(EarlyEnd(damage.LastEntryIsCut, state.RecordsRead));
    }
    if (damage.BrokenEntry) {
        sentences.push_back(Text(IsDamaged) + AtEntry(u"unlesbar ist Eintrag", state.RecordsRead));
    }
    if (damage.CorruptLines > 0) {
        sentences.push_back(
            Text(IsDamaged) +
            Counted(damage.CorruptLines, u"fehlerhafte Zeile; ", u"fehlerhafte Zeilen; ") +
            Whole(state.RecordsRead));
    }
    if (damage.IsFull) {
        sentences.push_back(Full());
    }
    if (damage.Failure) {
        sentences.push_back(FailureSentence(*damage.Failure, state.RecordsRead));
    }
    return sentences;
}

std::vector<Text> DamageOf(const CallListExtent& calls) {
    if (!calls.EndsInCall && !calls.BrokenCall) {
        return {};
    }
    return {Text(IsDamaged) +
            Text(calls.EndsInCall ? u"endet mitten in Anruf " : u"unlesbar ist Anruf ") +
            Decimal(calls.WholeCalls + 1) + u"; " +
            Counted(calls.WholeCalls, u"Anruf ist gelesen", u"Anrufe sind gelesen")};
}

std::vector<Text> PassedOver(const LoadDamage& damage) {
    std::vector<Text> sentences;
    if (damage.LinesPassedOver > 0) {
        sentences.push_back(Counted(damage.LinesPassedOver, u"Zeile ohne zweites Feld übergangen",
                                    u"Zeilen ohne zweites Feld übergangen"));
    }
    if (damage.BytesBehindEnd > 0) {
        sentences.push_back(u"hinter der Endmarke " +
                            Counted(static_cast<long long>(damage.BytesBehindEnd),
                                    u"Byte übergangen", u"Bytes übergangen"));
    }
    return sentences;
}

}  // namespace norvik
