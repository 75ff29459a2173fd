// The menu as one table: the window builds its menus from these rows, and the tests walk them.
#pragma once

#include "base/desktop.h"
#include "dialogs/windows.h"
#include "mainwindow/program.h"

#include <span>
#include <string_view>

namespace norvik {

struct MenuRow {
    std::string_view Menu;  ///< object name of the menu
    TextView MenuCaption;   ///< with "&" before the mnemonic, as all captions
    std::string_view Name;  ///< object name of the item
    TextView Caption;
    std::string_view Shortcut;  ///< in the toolkit's notation, or empty
    int Group;                  ///< a separator stands between the groups of a menu
    bool SavesRegister;         ///< enabled and disabled together by EnableSaveMenus
    /// Runs the operation of the item's name.
    void (*Run)(Program&, Desktop&, Windows&);
    bool MainWindowFields::*Check = nullptr;  ///< the item's check mark, if it has one
    /// What undoing calls a change that the operation makes; "#" stands for the number of entries.
    TextView Step = {};
    /// The item's caption and whether it is enabled, each where it changes; Caption is the longest
    /// part that stays.
    Text (*CaptionNow)(const Program&) = nullptr;
    bool (*EnabledNow)(const Program&) = nullptr;
};

/// All menu items, in their order, the items of a menu together.
std::span<const MenuRow> MenuTable();

/// The item of that name; raises std::out_of_range where there is none.
const MenuRow& MenuRowOf(std::string_view name);

/// The item that saves the register for the model that it was loaded from; where there is none, for
/// the 195.
const MenuRow& SaveItemOf(const RegisterState& state);

}  // namespace norvik
