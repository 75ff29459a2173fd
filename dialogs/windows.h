// What the menu opens beside the main window: the other windows, and documents in other programs.
// Implemented by the window (qt/) and by the tests' scripted desktop; the converter has none.
#pragma once

#include "base/paths.h"

namespace norvik {

class Windows {
  public:
    Windows() = default;
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;
    Windows(Windows&&) = delete;
    Windows& operator=(Windows&&) = delete;
    virtual ~Windows() = default;

    /// Closes the main window as its close box does.
    virtual void CloseMainWindow() = 0;
    /// Shows the dialog of the mobile export and returns when it is closed.
    virtual void ShowMobileExport() = 0;
    /// Shows the register list beside the main window, or brings it to the front.
    virtual void ShowRegisterList() = 0;
    virtual void CloseRegisterList() = 0;
    /// Shows the settings dialog and returns when it is closed.
    virtual void ShowSettings() = 0;
    /// Shows the window of the earlier versions beside the main window, or brings it to the front.
    virtual void ShowVersions() = 0;
    virtual void CloseVersions() = 0;
    /// Shows the window of the doubled numbers beside the main window, or brings it to the front.
    virtual void ShowDoubles() = 0;
    virtual void CloseDoubles() = 0;
    /// Shows the phone list's dialog and returns when it is closed.
    virtual void ShowPhoneList() = 0;

    /// Opens a document with the program that the desktop has for it. Gives 33 when it was handed
    /// over, 2 when there is no such document, 31 when no program opens it.
    virtual int OpenDocument(const FilePath& document) = 0;
    /// Opens a text in the desktop's text editor, whether it exists or not.
    virtual void OpenInTextEditor(const FilePath& document) = 0;
};

}  // namespace norvik
