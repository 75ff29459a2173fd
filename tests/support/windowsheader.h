// The system's header, without the macros that bear names of ours.
#pragma once

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#undef MessageBox
#undef ReplaceFile
