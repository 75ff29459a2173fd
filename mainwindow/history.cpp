#include "mainwindow/history.h"

#include <algorithm>
#include <cstring>

namespace norvik {

namespace {

/// The library compares such texts character by character.
bool IsSameText(const Text& a, const Text& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof a[0]) == 0;
}

/// The listed marks belong to the register list, not to the entry.
bool IsSameEntry(const RegisterEntry& a, const RegisterEntry& b) {
    return a.RecIndex == b.RecIndex && a.RecNumber == b.RecNumber && a.Ton == b.Ton &&
           a.MsnFilter == b.MsnFilter && a.GebEinh == b.GebEinh && a.AB == b.AB &&
           IsSameText(a.Name, b.Name) && IsSameText(a.Tel, b.Tel) && IsSameText(a.Info, b.Info);
}

RegisterRest RestOf(const RegisterState& state) {
    return {state.AnzGes,      state.AnzNr, state.AnzMarkiert,
            state.LoadedModel, state.File,  state.WarnLineAccessZero};
}

void SwapRest(RegisterRest& rest, RegisterState& state) {
    RegisterRest now = RestOf(state);
    SetCount(state, rest.AnzGes);
    state.AnzNr = rest.AnzNr;
    state.Satzwahl.Value = std::clamp(rest.AnzNr, 1, state.Satzwahl.Maximum);
    state.AnzMarkiert = rest.AnzMarkiert;
    state.LoadedModel = std::move(rest.LoadedModel);
    state.File = std::move(rest.File);
    state.WarnLineAccessZero = rest.WarnLineAccessZero;
    rest = std::move(now);
}

/// Brings what is no step up to date: position, marks, source, flags.
void FollowRest(RegisterState& last, const RegisterState& state) {
    last.AnzGes = state.AnzGes;
    last.AnzNr = state.AnzNr;
    last.AnzMarkiert = state.AnzMarkiert;
    last.Satzwahl = state.Satzwahl;
    last.LoadedModel = state.LoadedModel;
    last.File = state.File;
    last.WarnLineAccessZero = state.WarnLineAccessZero;
    last.Generation = state.Generation;
}

/// Puts the places that differ into the step, with what stood there before, and follows them.
void TakeEntries(RegisterState& last, const RegisterState& state, HistoryStep& step) {
    for (int place = 1; place <= RegisterPlaces; ++place) {
        RegisterEntry& before = last.Register(place);
        const RegisterEntry& now = state.Register(place);
        if (!IsSameEntry(before, now)) {
            step.Entries.emplace_back(place, std::move(before));
            before = now;
        } else {
            before.Listed = now.Listed;
        }
    }
}

void TakeOrder(RegisterState& last, const RegisterState& state, HistoryStep& step) {
    for (int position = 1; position <= RegisterPlaces; ++position) {
        std::int16_t& before = last.RegisterOrder(position);
        const std::int16_t now = state.RegisterOrder(position);
        if (before != now) {
            step.Order.emplace_back(position, before);
            before = now;
        }
    }
}

std::size_t BytesOf(const Text& text) {
    constexpr std::size_t KeptInside = 7;  // texts so short take no memory of their own
    return text.capacity() > KeptInside ? (text.capacity() + 1) * sizeof(char16_t) + 16 : 0;
}

std::size_t BytesOf(const HistoryStep& step) {
    std::size_t bytes = sizeof step + step.Entries.capacity() * sizeof step.Entries.front() +
                        step.Order.capacity() * sizeof step.Order.front();
    for (const auto& [place, entry] : step.Entries) {
        bytes += BytesOf(entry.Name) + BytesOf(entry.Tel) + BytesOf(entry.Info);
    }
    return bytes;
}

/// Drops the oldest steps until the rest is few and small enough. `kept` is never dropped.
void DropOldest(History& history) {
    std::size_t bytes = SizeOf(history);
    while (history.Steps.size() > 1 && history.Done > 1 &&
           (history.Steps.size() > HistorySteps || bytes > HistoryBytes)) {
        bytes -= history.Steps.front().Bytes;
        history.Steps.pop_front();
        --history.Done;
    }
}

/// The step's text: the number of its entries stands where "#" stands.
Text WhatOf(TextView what, std::size_t entries) {
    Text text(what);
    const std::size_t mark = text.find(u'#');
    if (mark != Text::npos) {
        text.replace(mark, 1, Decimal(static_cast<long long>(entries)));
        if (entries == 1 && text.ends_with(u"Einträge)")) {
            text.replace(text.size() - 9, 8, u"Eintrag");
        }
    }
    return text;
}

std::vector<RegisterEntry> EntriesInOrder(const RegisterState& state) {
    std::vector<RegisterEntry> entries;
    entries.reserve(static_cast<std::size_t>(std::max(0, state.AnzGes)));
    for (int position = 1; position <= state.AnzGes; ++position) {
        entries.push_back(EntryAt(state, position));
    }
    return entries;
}

bool AreEntriesOf(const std::shared_ptr<const std::vector<RegisterEntry>>& entries,
                  const RegisterState& state) {
    if (entries == nullptr || static_cast<int>(entries->size()) != state.AnzGes) {
        return false;
    }
    int position = 0;
    return std::all_of(entries->begin(), entries->end(), [&](const RegisterEntry& entry) {
        return IsSameEntry(entry, EntryAt(state, ++position));
    });
}

/// Swaps the step's values with the register's; the recorded register follows.
void Swap(History& history, HistoryStep& step, RegisterState& state) {
    for (auto& [place, entry] : step.Entries) {
        RegisterEntry& now = state.Register(place);
        if (!step.Loaded) {
            entry.Listed = now.Listed;
        }
        std::swap(now, entry);
        history.Last.Register(place) = now;
    }
    for (auto& [position, index] : step.Order) {
        std::swap(state.RegisterOrder(position), index);
        history.Last.RegisterOrder(position) = state.RegisterOrder(position);
    }
    SwapRest(step.Rest, state);
    if (step.Loaded) {
        ++state.Generation;
    }
    state.RegisterSaved = IsAsSaved(history, state);
    FollowRest(history.Last, state);
    step.Bytes = BytesOf(step);
}

/// Takes a typed step out of the history.
TypedEntry TakeTyped(History& history, std::size_t index) {
    const auto step = history.Steps.begin() + static_cast<std::ptrdiff_t>(index);
    TypedEntry typed = std::move(*step->Typed);
    history.Steps.erase(step);
    return typed;
}

void InsertTyped(History& history, std::size_t index, TypedEntry typed, TextView what) {
    HistoryStep step;
    step.What = Text(what);
    step.Typed = std::move(typed);
    step.Bytes = BytesOf(step);
    history.Steps.insert(history.Steps.begin() + static_cast<std::ptrdiff_t>(index),
                         std::move(step));
}

}  // namespace

void StartHistory(History& history, const RegisterState& state) {
    history.Steps.clear();
    history.Done = 0;
    history.Last = state;
    NoteFile(history, state, true);
}

bool RecordStep(History& history, const RegisterState& state, TextView what) {
    RegisterState& last = history.Last;
    HistoryStep step;
    step.Loaded = last.Generation != state.Generation;
    step.Rest = RestOf(last);
    TakeEntries(last, state, step);
    TakeOrder(last, state, step);
    const bool changed = step.Loaded || !step.Entries.empty() || !step.Order.empty() ||
                         last.AnzGes != state.AnzGes ||
                         last.WarnLineAccessZero != state.WarnLineAccessZero;
    // An entry that was erased and came back stands in its place as if nothing had happened.
    const auto more = static_cast<std::size_t>(std::max(0, state.AnzGes - last.AnzGes));
    FollowRest(last, state);
    if (!changed) {
        return false;
    }
    step.What = WhatOf(what, std::max(step.Entries.size(), more));
    step.Bytes = BytesOf(step);
    history.Steps.resize(history.Done);
    history.Steps.push_back(std::move(step));
    ++history.Done;
    DropOldest(history);
    return true;
}

void RecordTyped(History& history, std::size_t done, TypedEntry typed, TextView what) {
    InsertTyped(history, done, std::move(typed), what);
    ++history.Done;
    DropOldest(history);
}

void RecordTypedAsUndone(History& history, TypedEntry typed, TextView what) {
    InsertTyped(history, history.Done, std::move(typed), what);
}

void NoteFile(History& history, const RegisterState& state, bool held) {
    history.Saved = std::make_shared<const std::vector<RegisterEntry>>(EntriesInOrder(state));
    if (held) {
        history.Held = history.Saved;
    }
}

bool IsAsSaved(const History& history, const RegisterState& state) {
    return AreEntriesOf(history.Saved, state);
}

bool IsHeld(const History& history, const RegisterState& state) {
    return AreEntriesOf(history.Held, state);
}

const HistoryStep* StepToUndo(const History& history) {
    return history.Done == 0 ? nullptr : &history.Steps[history.Done - 1];
}

const HistoryStep* StepToRedo(const History& history) {
    return history.Done == history.Steps.size() ? nullptr : &history.Steps[history.Done];
}

std::optional<TypedEntry> Undo(History& history, RegisterState& state) {
    HistoryStep& step = history.Steps.at(--history.Done);
    if (step.Typed) {
        return TakeTyped(history, history.Done);
    }
    Swap(history, step, state);
    return std::nullopt;
}

std::optional<TypedEntry> Redo(History& history, RegisterState& state) {
    HistoryStep& step = history.Steps.at(history.Done);
    if (step.Typed) {
        return TakeTyped(history, history.Done);
    }
    Swap(history, step, state);
    ++history.Done;
    return std::nullopt;
}

std::size_t SizeOf(const History& history) {
    std::size_t bytes = 0;
    for (const HistoryStep& step : history.Steps) {
        bytes += step.Bytes;
    }
    return bytes;
}

}  // namespace norvik
