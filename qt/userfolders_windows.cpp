#include "qt/userfolders.h"

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <initguid.h>
#include <knownfolders.h>
#include <objbase.h>
#include <shlobj.h>

namespace norvik {

namespace {

FilePath KnownFolder(const KNOWNFOLDERID& name) {
    wchar_t* path = nullptr;
    const HRESULT result = SHGetKnownFolderPath(name, KF_FLAG_DEFAULT, nullptr, &path);
    FilePath folder = SUCCEEDED(result) ? FilePath(path) : FilePath();
    CoTaskMemFree(path);
    return folder;
}

}  // namespace

// What goes with the user to other machines, %APPDATA%.
FilePath UserDataFolder() {
    return KnownFolder(FOLDERID_RoamingAppData);
}

// What stays on this one, %LOCALAPPDATA%.
FilePath UserStateFolder() {
    return KnownFolder(FOLDERID_LocalAppData);
}

FilePath UserConfigFolder() {
    return KnownFolder(FOLDERID_LocalAppData);
}

}  // namespace norvik
