#include "base/runtimeerror.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace norvik::test {
namespace {

struct Row {
    ErrorNumber number;
    int value;
    TextView description;
};
constexpr Row Rows[] = {
    {ErrorNumber::InvalidArgument, 5, u"Ungültiger Prozeduraufruf oder ungültiges Argument"},
    {ErrorNumber::Overflow, 6, u"Überlauf"},
    {ErrorNumber::OutOfMemory, 7, u"Nicht genügend Speicher"},
    {ErrorNumber::IndexOutOfRange, 9, u"Index außerhalb des gültigen Bereichs"},
    {ErrorNumber::FileNotFound, 53, u"Datei nicht gefunden"},
    {ErrorNumber::FileAlreadyOpen, 55, u"Datei bereits geöffnet"},
    {ErrorNumber::DeviceError, 57, u"E/A-Fehler beim Zugriff auf ein Gerät"},
    {ErrorNumber::DiskFull, 61, u"Datenträger voll"},
    {ErrorNumber::ReadPastEnd, 62, u"Einlesen hinter Dateiende"},
    {ErrorNumber::BadFileName, 64, u"Dateiname falsch"},
    {ErrorNumber::AccessDenied, 70, u"Zugriff verweigert"},
    {ErrorNumber::PathAccessError, 75, u"Fehler beim Zugriff auf Pfad/Datei"},
    {ErrorNumber::PathNotFound, 76, u"Pfad nicht gefunden"},
};

TEST(RuntimeError, EveryNumberHasItsGermanDescription) {
    for (const Row& row : Rows) {
        const RuntimeError error(row.number);
        EXPECT_EQ(error.Number(), row.number);
        EXPECT_EQ(static_cast<int>(error.Number()), row.value);
        EXPECT_EQ(error.Description(), row.description) << row.value;
    }
}

TEST(RuntimeError, IsAStandardExceptionWithANeutralText) {
    const RuntimeError error(ErrorNumber::DiskFull);
    EXPECT_STREQ(static_cast<const std::exception&>(error).what(), "run-time error");
}

TEST(RuntimeError, NumberAndDescriptionFollowEachOtherDirectly) {
    EXPECT_EQ(RuntimeError(ErrorNumber::IndexOutOfRange).NumberAndDescription(),
              u"9Index außerhalb des gültigen Bereichs");
    EXPECT_EQ(RuntimeError(ErrorNumber::FileNotFound).NumberAndDescription(),
              u"53Datei nicht gefunden");
}

TEST(HardStop, EndsTheProgramWithStatus1) {
    EXPECT_EQ(HardStop::ExitStatus, 1);
}

TEST(HardStop, NoHandlerOfErrorsCatchesIt) {
    EXPECT_FALSE((std::is_base_of_v<std::exception, HardStop>));
    EXPECT_FALSE((std::is_base_of_v<HardStop, RuntimeError>));
}

}  // namespace
}  // namespace norvik::test
