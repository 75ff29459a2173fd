// Run-time errors with the system's numbers and German descriptions, and the hard stop.
#pragma once

#include "base/text.h"

#include <exception>
#include <memory>

namespace norvik {

enum class ErrorNumber {
    InvalidArgument = 5,
    Overflow = 6,
    OutOfMemory = 7,
    IndexOutOfRange = 9,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceError = 57,
    DiskFull = 61,
    ReadPastEnd = 62,
    BadFileName = 64,
    AccessDenied = 70,
    PathAccessError = 75,
    PathNotFound = 76,
};

/// A failure that an operation may handle; one that none handles ends the operation, not the
/// program.
class RuntimeError : public std::exception {
  public:
    explicit RuntimeError(ErrorNumber number);
    /// `cause` names what in particular is at fault, for example an entry and its value.
    RuntimeError(ErrorNumber number, Text cause);

    [[nodiscard]] ErrorNumber Number() const { return number_; }
    /// The German description, for example "Index außerhalb des gültigen Bereichs".
    [[nodiscard]] TextView Description() const;
    /// Number and description one directly after the other, as messages show them.
    [[nodiscard]] Text NumberAndDescription() const;
    /// What in particular is at fault; empty where that is not known.
    [[nodiscard]] TextView Cause() const;
    [[nodiscard]] const char* what() const noexcept override;

  private:
    ErrorNumber number_;
    std::shared_ptr<const Text> cause_;  ///< shared, so that copying an error never fails
};

/// Ends the program at once, without a question and without saving. No operation catches it; it is
/// no std::exception, so that a general handler cannot swallow it either.
struct HardStop {
    static constexpr int ExitStatus = 1;
};

}  // namespace norvik
