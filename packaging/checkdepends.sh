#!/usr/bin/env bash
# Fails unless the package depends on what its programs need: checkdepends.sh PACKAGE
set -euo pipefail

depends=$(dpkg-deb -f "$1" Depends)
status=0
for name in libc6 libgcc-s1 libhpdf-2.3.0 libqt6core6 libqt6gui6 libqt6printsupport6 libqt6widgets6 \
    libstdc++6 qt6-translations-l10n; do
    case ", $depends," in
        *", $name,"* | *", $name ("*) ;;
        *)
            echo "$1 does not depend on $name" >&2
            status=1
            ;;
    esac
done
[ "$status" -eq 0 ] || echo "Depends: $depends" >&2
exit "$status"
