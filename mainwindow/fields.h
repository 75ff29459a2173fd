// The main window's fields as one record, named as the window names them. The toolkit draws it and
// puts into it what the user typed and clicked.
#pragma once

#include "register/register.h"

#include <array>
#include <vector>

namespace norvik {

/// What the colour of btnSaveChange tells of the shown entry.
enum class EditState {
    Neutral,  ///< as stored in the register: the system's button colour
    Pending,  ///< a choice was changed and not stored: light red
    Stored,   ///< just stored: light green
};

/// A colour as red, green and blue, each 0 to 255.
struct Colour {
    int Red;
    int Green;
    int Blue;
};
inline constexpr Colour PendingColour = {255, 128, 128};
inline constexpr Colour StoredColour = {192, 255, 192};

/// A choice list without a selected item.
inline constexpr int NoItem = -1;

/// Anzeigefeld(0) to Anzeigefeld(13).
inline constexpr int NameField = 0;
inline constexpr int TelField = 1;
inline constexpr int FirstDiagnosticField = 2;
inline constexpr int ChargeUnitsField = 3;
inline constexpr int MsnFilterField = 5;
inline constexpr int LastDiagnosticField = 7;
inline constexpr int FirstInfoField = 8;
inline constexpr int TextFields = FirstInfoField + InfoLines;

inline constexpr int Filters = 4;

struct MainWindowFields {
    std::array<Text, TextFields> Anzeigefeld;
    std::vector<Text> DDTonItems;
    std::vector<Text> DDABItems;
    std::vector<Text> DDMSNItems;
    int DDTon = 0;  ///< selected item, or NoItem; likewise the next two
    int DDAB = 0;
    int DDMSN = 0;
    bool chkTon = false;
    bool chkCharge = false;
    int OptFilter = 0;  ///< the option button that is on
    Text AnzGeb;
    bool ChargeErased = false;  ///< cleared on screen since the entry was shown
    bool chkExport = false;
    int Index = 0;  ///< table index of the shown entry
    bool chkListFilter = false;
    std::vector<Text> TelRegListe;
    EditState btnSaveChange = EditState::Neutral;
    bool btnSearchMoreEnabled = false;
    /// The check mark of the menu item: doubled lines of a CSV file are left out.
    bool mnuExtraDoubles = false;
    /// The menu items that save the register, all together.
    bool SaveMenusEnabled = false;
};

/// Fills the announcement list: "(normal)", "Ansage 1" to "Ansage 7".
void FillAnnouncements(MainWindowFields& fields);
/// Fills the MSN list: "(lt. Telefon)", "MSN 1" to "MSN 6".
void FillMsns(MainWindowFields& fields);
/// Fills the tone list with `names`, of which the first is "kein".
void FillTones(MainWindowFields& fields, std::vector<Text> names);

void EnableSaveMenus(MainWindowFields& fields, bool on);

/// The window's caption for a file; for none, its path being empty, "[keine]" takes its place.
Text CaptionOf(const CurrentFile& file);
/// The date and time of a file as AnzQuellZeit shows it; empty while nothing was loaded.
Text SourceTimeOf(const CurrentFile& file);

}  // namespace norvik
