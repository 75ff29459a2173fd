#!/usr/bin/env bash
# Fails where a program for Windows needs a library that Windows does not bring along:
# scripts/windows-needs.sh PROGRAM…
set -euo pipefail

# Those of Windows 10 that the programs and the toolkit may use, beside its own names for parts of them.
system="advapi32 authz comdlg32 d2d1 d3d11 d3d9 dwmapi dwrite dxgi gdi32 imm32 kernel32 mpr msvcrt netapi32 ntdll
ole32 oleaut32 rpcrt4 setupapi shcore shell32 shlwapi user32 userenv uxtheme version winmm winspool.drv
ws2_32 wtsapi32"
status=0
for program in "$@"; do
    for library in $(x86_64-w64-mingw32-objdump -p "$program" | sed -n 's/^\s*DLL Name: //p'); do
        name=$(printf '%s' "$library" | tr '[:upper:]' '[:lower:]')
        if [[ $name != api-ms-win-* ]] && ! grep -qwF -- "${name%.dll}" <<< "$system"; then
            echo "$program needs $library" >&2
            status=1
        fi
    done
done
exit $status
