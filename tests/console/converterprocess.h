// The converter as a process of its own.
#pragma once

#include "base/windows1252.h"
#include "tests/support/testfolder.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace norvik::test {

/// What a process finds beside its arguments.
struct Surroundings {
    /// What comes through the pipe that is its standard input.
    Bytes Input = {};
    /// Its working folder.
    FilePath Folder = "/";
    std::string Locale = "C";
    /// Files that it writes do not grow beyond so many bytes.
    std::optional<unsigned> LongestFile = {};
    /// A file in place of the pipe behind its standard output.
    FilePath Output = {};
    /// Whoever reads its standard output goes away after the first byte.
    bool ReaderLeaves = false;
    /// Standard streams that it does not have.
    std::vector<int> Closed = {};
    /// Variables of its environment beside those of the tests.
    std::vector<std::pair<std::string, std::string>> Variables = {};
};

struct Outcome {
    int Status = -1;
    Bytes Output;
    std::string Errors;
};

/// Runs any program to its end.
Outcome RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const Surroundings& surroundings = {});

/// Has the system's shell run a line.
Outcome RunInShell(const std::string& line, const Surroundings& surroundings = {});

/// The converter as a word of such a line.
std::string ConverterInShell();

/// Runs the converter.
Outcome RunConverter(const std::vector<std::string>& arguments,
                     const Surroundings& surroundings = {});

/// Between fork and exec: lets the program put coverage counters aside that it may not be able to
/// write whole, since these would spoil those of all others.
void CountAside();

/// A whole standard output as a string.
std::string StringOf(const Bytes& bytes);

}  // namespace norvik::test
