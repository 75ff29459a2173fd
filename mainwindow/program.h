// All state of the program in one record. Only this floor and the window above it know it; what
// stands below takes the parts that it touches.
#pragma once

#include "base/paths.h"
#include "base/platform.h"
#include "mainwindow/fields.h"
#include "mainwindow/history.h"
#include "mainwindow/recentfiles.h"
#include "paper/phonelist.h"
#include "register/register.h"
#include "register/settings.h"
#include "registertools/fillregisterlist.h"
#include "sync/loadsyncdatabase.h"
#include "versions/versionstore.h"

#include <cstdint>
#include <map>
#include <memory>

namespace norvik {

/// Where earlier versions are kept, and of what this process must know.
struct Keeping {
    FilePath Folder;       ///< of the versions; empty where nothing is kept
    FilePath SessionFile;  ///< holds the register of this process while no save does
    bool SessionFileStands = false;
    bool SessionFileLags = false;  ///< it could not be written
    /// Versions that could not be written; each operation tries again.
    std::vector<Version> NotKept;
    /// Tells other processes that the session file's one is alive.
    std::shared_ptr<platform::FileLock> Lock;
    /// The contents of the files that this process loaded or saved, as hashes.
    std::map<FilePath, std::uint64_t> Known;
    /// The file that holds the register without a loss (History::Held), and its content's hash.
    FilePath HeldFile;
    std::uint64_t HeldHash = 0;
    FilePath Target;             ///< of the running save
    std::uint64_t Replaced = 0;  ///< the target's content before it, as a hash
    unsigned Changes = 0;        ///< how often a version was kept
    Text Note;                   ///< why the program ended the last time, where it had to
};

/// A row of the earlier versions' window.
struct VersionRow {
    FilePath File;  ///< where it is kept
    Text When = {};
    Text Original = {};
    Text Why = {};
    Text Entries = {};  ///< how many; "?" for a file that cannot be read
    bool operator==(const VersionRow&) const = default;
};

/// The earlier versions' window, named as it names its fields.
struct VersionsFields {
    bool Open = false;                     ///< the window is on the screen
    std::vector<VersionRow> ListVersions;  ///< the newest first
    int Chosen = -1;                       ///< the row; -1 for none
    std::vector<Text> ListNames;           ///< of the chosen version
    unsigned Changes = 0;                  ///< those of Keeping that the rows show
};

/// A row of the doubled numbers' window: one of the entries that share a number.
struct DoubleRow {
    int Place = 0;     ///< of the entry, in the table
    int Position = 0;  ///< its position
    int Group = 0;     ///< counts the numbers from 0
    Text Dialled = {};
    Text Name = {};
    Text Tel = {};
    bool operator==(const DoubleRow&) const = default;
};

/// The doubled numbers' window, named as it names its fields.
struct DoublesFields {
    bool Open = false;  ///< the window is on the screen
    std::vector<DoubleRow> ListDoubles;
    int Chosen = -1;          ///< the row; -1 for none
    unsigned Generation = 0;  ///< of the register that the rows show
};

/// The phone list's dialog.
struct PhoneListFields {
    bool AsPdf = false;       ///< it saves a PDF file in place of printing
    PhoneListOptions Chosen;  ///< stays for the next time
    /// How many entries there are of each kind of ListedEntries; one without any cannot be chosen.
    std::array<int, 3> Counts = {};
};

struct Program {
    /// Where "norvik.ini" and the optional companion files lie.
    FilePath Folder;
    Settings Set;
    RegisterState State;
    MainWindowFields Fields;
    Text SearchTerm;          ///< survives from one search to the next
    RegisterListFields List;  ///< of the register list's window
    SyncState Sync;
    History Past;        ///< what can be undone
    EditBuffer Shown;    ///< what ShowEntry put into the fields, or StoreEntry took out of them
    unsigned Shows = 0;  ///< how often an entry was shown
    unsigned Kept = 0;   ///< how often what was typed was stored, or kept as a step
    Keeping Keep;
    VersionsFields Versions;
    DoublesFields Doubles;
    RecentFiles Recent;
    FilePath SavedTo;  ///< the file that the last operation wrote; empty where it wrote none
    PhoneListFields PhoneList;
    /// Where the help documents are installed; those in Folder come first.
    FilePath DocumentFolder;
};

}  // namespace norvik
