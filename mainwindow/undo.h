// Undoing and redoing: every operation that the window starts becomes a step here, without knowing
// of it.
#pragma once

#include "base/desktop.h"
#include "mainwindow/program.h"

#include <functional>

namespace norvik {

// What undoing calls the changes that are made without a menu item.
inline constexpr TextView StoredStep = u"Eintrag übernommen";
inline constexpr TextView NewStep = u"Neuer Eintrag";
inline constexpr TextView EraseStep = u"Eintrag löschen";
inline constexpr TextView MarkedStep = u"Eintrag markieren";
inline constexpr TextView UnmarkedStep = u"Markierung entfernen";

/// Whether the fields hold something typed or chosen that ShowEntry did not put there and nobody
/// stored.
bool IsNotStored(const Program& program);

/// Runs `operation` under RunOperation. What it changed in the register becomes a step called
/// `what` ("#" stands for the number of changed entries), and what was typed and left by it one of
/// its own in front. A HardStop passes through; nothing is recorded then.
void RunStep(Program& program, TextView what, const std::function<void()>& operation,
             Desktop& desktop);

/// The captions of the two menu items: "Rückgängig: Eintrag löschen"; without a step nothing
/// follows the word.
Text UndoCaption(const Program& program);
Text RedoCaption(const Program& program);
bool CanUndo(const Program& program);
bool CanRedo(const Program& program);

/// Takes back what is typed, else the last step, and shows the entry that it brought back.
void mnuBearbeitenUndo(Program& program, Desktop& desktop);
/// Does the last undone step again.
void mnuBearbeitenRedo(Program& program, Desktop& desktop);

}  // namespace norvik
