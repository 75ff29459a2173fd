#include "base/runtimeerror.h"

#include <utility>

namespace norvik {

RuntimeError::RuntimeError(ErrorNumber number) : number_(number) {}

RuntimeError::RuntimeError(ErrorNumber number, Text cause)
    : number_(number), cause_(std::make_shared<const Text>(std::move(cause))) {}

TextView RuntimeError::Description() const {
    switch (number_) {
    case ErrorNumber::InvalidArgument:
        return u"Ungültiger Prozeduraufruf oder ungültiges Argument";
    case ErrorNumber::Overflow:
        return u"Überlauf";
    case ErrorNumber::OutOfMemory:
        return u"Nicht genügend Speicher";
    case ErrorNumber::IndexOutOfRange:
        return u"Index außerhalb des gültigen Bereichs";
    case ErrorNumber::FileNotFound:
        return u"Datei nicht gefunden";
    case ErrorNumber::FileAlreadyOpen:
        return u"Datei bereits geöffnet";
    case ErrorNumber::DeviceError:
        return u"E/A-Fehler beim Zugriff auf ein Gerät";
    case ErrorNumber::DiskFull:
        return u"Datenträger voll";
    case ErrorNumber::ReadPastEnd:
        return u"Einlesen hinter Dateiende";
    case ErrorNumber::BadFileName:
        return u"Dateiname falsch";
    case ErrorNumber::AccessDenied:
        return u"Zugriff verweigert";
    case ErrorNumber::PathAccessError:
        return u"Fehler beim Zugriff auf Pfad/Datei";
    case ErrorNumber::PathNotFound:
        return u"Pfad nicht gefunden";
    }
    return u"";
}

Text RuntimeError::NumberAndDescription() const {
    return Decimal(static_cast<int>(number_)).append(Description());
}

TextView RuntimeError::Cause() const {
    return cause_ ? TextView(*cause_) : TextView();
}

const char* RuntimeError::what() const noexcept {
    return "run-time error";
}

}  // namespace norvik
