// What the users of a random run stored and did not erase: all of it must stand somewhere.
#pragma once

#include "tests/support/standing.h"

#include <string>

namespace norvik::test {

class Ledger {
  public:
    /// The entries stand in a register.
    void Add(const EntrySet& entries);
    /// A user took them out of a register, not by loading another one.
    void Erase(const EntrySet& entries);
    /// A user destroyed a file or version that held them, or was told that a save did. What does
    /// not last, in a register or another file, is forgotten; what does may go with its program.
    void Destroy(const EntrySet& entries, const EntrySet& lasting);

    /// A process.
    struct Ended {
        EntrySet Shown;
        EntrySet Undoable;
        bool Killed = false;
        bool Troubled = false;  ///< a fault kept it from the disk
    };
    /// What an end may take with it: with a fault, what was shown or could be undone; else that
    /// part of it whose file was destroyed by others, and which the end did not see. `lasting`
    /// stands in registers and files: an equal entry that another program can still bring back does
    /// not count as this one, for its user may have erased that or taken it back.
    void End(const Ended& ended, const EntrySet& lasting);

    [[nodiscard]] EntrySet Lost(const EntrySet& standing) const;
    /// The first lost entry in words, or nothing.
    [[nodiscard]] std::string Finding(const char* when, const EntrySet& standing) const;

  private:
    /// Forgets those of the entries that do not stand.
    void Forget(const EntrySet& entries, const EntrySet& standing);

    EntrySet stored_;
    EntrySet destroyed_;
};

}  // namespace norvik::test
