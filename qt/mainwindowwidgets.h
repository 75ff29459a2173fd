// The widgets of the main window and their layout. No behaviour: the main window connects them.
#pragma once

#include "mainwindow/fields.h"

#include <array>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QMainWindow;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QWidget;

namespace norvik {

class Display;
class EntryField;
class PhonePicture;
class EntryListView;

struct MainWindowWidgets {
    /// The text fields; the diagnostic ones (2 to 7) are in Diagnostics.
    std::array<EntryField*, TextFields> Texts{};
    std::array<QLineEdit*, TextFields> Diagnostics{};
    QComboBox* DDTon = nullptr;
    QCheckBox* chkTon = nullptr;
    QComboBox* DDAB = nullptr;
    QComboBox* DDMSN = nullptr;
    QCheckBox* chkCharge = nullptr;
    Display* AnzGeb = nullptr;
    QButtonGroup* FilterGroup = nullptr;
    std::array<QRadioButton*, Filters> OptFilter{};
    QCheckBox* chkExport = nullptr;
    Display* AnzNr = nullptr;
    Display* AnzGes = nullptr;
    Display* AnzMarkiert = nullptr;
    Display* Index = nullptr;
    QScrollBar* Satzwahl = nullptr;
    EntryListView* TelRegListe = nullptr;
    QCheckBox* chkListFilter = nullptr;
    Display* Status = nullptr;
    Display* AnzQuelle = nullptr;
    Display* AnzQuellZeit = nullptr;
    PhonePicture* Bild1 = nullptr;
    QPushButton* btnSaveChange = nullptr;
    QLabel* NotStored = nullptr;  ///< tells that something typed is not stored
    QPushButton* btnNew = nullptr;
    QPushButton* btnErase = nullptr;
    QPushButton* btnEraseCharge = nullptr;
    QPushButton* btnSearch = nullptr;
    QPushButton* btnSearchMore = nullptr;
};

/// Makes all widgets as children of `window`, lays them out and puts them in their tab order.
MainWindowWidgets MakeMainWindowWidgets(QMainWindow& window);

}  // namespace norvik
