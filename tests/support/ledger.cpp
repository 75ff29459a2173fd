#include "tests/support/ledger.h"

namespace norvik::test {

namespace {

EntrySet Both(const EntrySet& entries, const EntrySet& others) {
    return Without(entries, Without(entries, others));
}

}  // namespace

void Ledger::Add(const EntrySet& entries) {
    stored_.insert(entries.begin(), entries.end());
}

void Ledger::Erase(const EntrySet& entries) {
    stored_ = Without(stored_, entries);
}

void Ledger::Destroy(const EntrySet& entries, const EntrySet& lasting) {
    Forget(entries, lasting);
    destroyed_.insert(entries.begin(), entries.end());
}

void Ledger::End(const Ended& ended, const EntrySet& lasting) {
    if (ended.Troubled) {
        Forget(ended.Shown, lasting);
        Forget(ended.Undoable, lasting);
        return;
    }
    if (ended.Killed) {
        Forget(Both(ended.Shown, destroyed_), lasting);
    }
    Forget(Both(ended.Undoable, destroyed_), lasting);
}

EntrySet Ledger::Lost(const EntrySet& standing) const {
    return Without(stored_, standing);
}

void Ledger::Forget(const EntrySet& entries, const EntrySet& standing) {
    stored_ = Without(stored_, Without(entries, standing));
}

std::string Ledger::Finding(const char* when, const EntrySet& standing) const {
    const EntrySet lost = Lost(standing);
    return lost.empty() ? "" : "lost " + std::string(when) + ": " + *lost.begin();
}

}  // namespace norvik::test
