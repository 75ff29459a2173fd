// The program as scripts meet it.
#pragma once

#include "tests/console/converterprocess.h"
#include "tests/console/examplefiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvik::test {

/// In front of each line that is the program's own.
inline const std::string Own = "norvik-konverter: ";

class ConverterProgram : public testing::Test {
  protected:
    /// Runs in the test's folder.
    [[nodiscard]] Outcome Run(const std::vector<std::string>& arguments,
                              Surroundings surroundings = {}) const {
        surroundings.Folder = folder.Path();
        return RunConverter(arguments, surroundings);
    }

    const TestFolder folder;
};

/// Anna has a tone that no telephone has.
inline Bytes FileWithFinding() {
    return FileOf({Raw("0200 0201 06 04 'Anna' 06 01 '1' 06 00 0255 020F 0200 0200")});
}
inline std::string FindingOf(const std::string& source) {
    return source + ": Es wurden 1 Fehler korrigiert\n" + source + ": #0[Anna] Klang zu hoch: 85\n";
}

}  // namespace norvik::test
