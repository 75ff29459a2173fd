// What holds for the whole application, and for the window tests as well.
#pragma once

#include "base/paths.h"

#include <QString>

#include <string>
#include <vector>

class QApplication;

namespace norvik {

/// Makes the toolkit's own buttons and boxes German and its own, whatever the system's locale and
/// desktop, and ties the windows to the program's entry in the desktop's menu. Gives them the
/// program's picture.
void PrepareApplication(QApplication& application);

/// Takes the file that the desktop hands over out of the program's arguments
/// (platform::Arguments()): "--datei" in the first place, and the path behind it. The words of the
/// command line cannot hold a path with blanks or commas; this one may hold anything, so it is
/// taken before anybody reads the arguments. Gives an empty path, and leaves the arguments alone,
/// where the first one is another; "--datei" without a path, as the desktop's menu starts the
/// program, is taken out, too.
FilePath TakeFile(std::vector<std::string>& arguments);

/// The words of the command line: the program's arguments, joined by one blank.
QString CommandLine(const std::vector<std::string>& arguments);

/// The program's folder of a running application.
FilePath ApplicationFolder();

/// Where the running application keeps earlier versions.
FilePath ApplicationVersionFolder();

/// Where the running application remembers the last files.
FilePath ApplicationSettingsFile();

/// Where the help documents of a program in `executableFolder` are installed: in the data folder of
/// an installation, else beside the program.
FilePath InstalledDocumentFolder(const FilePath& executableFolder);

/// The same for the running application.
FilePath ApplicationDocumentFolder();

}  // namespace norvik
