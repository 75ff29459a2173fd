#!/usr/bin/env bash
# The spell check finds a misspelling in each kind of file, and nothing where there is none.
set -uo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
mkdir -p scripts docs/help docs/formats packaging/debian qt samples tests .ci
cp "$root/scripts/spelling.py" scripts/
printf '# names\nNorvik\nnvdatei\n' > scripts/words.txt

# Each misspelling holds an x; what is right, or code, holds none.
cat > README.md <<'TEXT'
# A register

The fille_name is wronxg, `xcodde` is code; see [the lxist](docs/xlist.md) and https://xy.invalid/xz.
The button "Schließxen" is German, "Schließen" and "close" are right, Schließen is none of it.

    xcodde in a block

| a table | a cxell |
TEXT
cat > docs/help/nvreadme.htm <<'TEXT'
<style>.xklasse { }</style>
<p>Ein <q>Fxehler</q>, <code>xkode</code>, gr&uuml;n, M&uuml;ller und <img alt="ein Bxild">.</p>
<!-- xkommentar -->
<p>colour ist englisch, Norvik und Nvdatei gibt es.
TEXT
printf 'Alles richtig.\nNicht rixchtig.\n' > docs/help/whatsnew.txt
cat > docs/norvik.1 <<'TEXT'
.TH XNORVIK 1
Die Option \fB\-\-xoption\fR und \fIXDATEI\fR
sind \(lqguxt\(rq.
.EX
xprogramm
.EE
.SH SCHLÜXSSE
TEXT
cat > qt/window.cpp <<'TEXT'
// A windowx of NorvikWindow::Show, norvik_xy and "Fensterx" or "Fenster".
#include "xwindow.h"
/* Over two
   linesx. */
const char* Name = "xname // xnone";  ///< The namex.
const Text Caption = u"&Schließxen\n&Fenster";
char Quote = '"';  // afterx it
}  // namespace xnorvik
TEXT
cp qt/window.cpp tests/window_test.cpp
printf '#!/usr/bin/env python3\n"""The docx string."""\nxname = "xtext"  # a commenxt\n' > scripts/tool.py
printf '#!/usr/bin/env bash\n# A commexnt\nxname=1  # anothexr\necho "#xtext"\n' > .ci/run
printf '[Desktop Entry]\n# A commexnt\nComment=Ein Texxt\nExec=xprogram\n' > packaging/norvik.desktop
printf 'norvik (1.0) unstable; urgency=xlow\n\n  * Ein Fexhler.\n\n -- Xname <a@b.invalid>  Sat\n' \
    > packaging/debian/changelog
printf 'Brandt and the Nachbxar of "Oma"; Nachbar\n' > samples/README.md
printf '\377\376x' > docs/picture.png

expected='README.md:3: wronxg
README.md:3: lxist
README.md:4: Schließen
README.md:4: Schließxen
README.md:8: cxell
docs/help/nvreadme.htm:2: Fxehler
docs/help/nvreadme.htm:2: Bxild
docs/help/nvreadme.htm:4: colour
docs/help/whatsnew.txt:2: rixchtig
docs/norvik.1:3: guxt
docs/norvik.1:7: SCHLÜXSSE
qt/window.cpp:1: windowx
qt/window.cpp:1: Fensterx
qt/window.cpp:4: linesx
qt/window.cpp:5: namex
qt/window.cpp:6: Schließxen
qt/window.cpp:7: afterx
tests/window_test.cpp:1: windowx
tests/window_test.cpp:1: Fensterx
tests/window_test.cpp:4: linesx
tests/window_test.cpp:5: namex
tests/window_test.cpp:7: afterx
scripts/tool.py:2: docx
scripts/tool.py:3: commenxt
.ci/run:2: commexnt
.ci/run:3: anothexr
packaging/norvik.desktop:2: commexnt
packaging/norvik.desktop:3: Texxt
packaging/debian/changelog:3: Fexhler
samples/README.md:1: Nachbxar'
failures=0
found=$(python3 scripts/spelling.py README.md docs/help/nvreadme.htm docs/help/whatsnew.txt docs/norvik.1 \
    qt/window.cpp tests/window_test.cpp scripts/tool.py .ci/run packaging/norvik.desktop \
    packaging/debian/changelog samples/README.md docs/picture.png docs/missing.md)
status=$?
if [ "$status" -ne 1 ] || [ "$(sort <<<"$found")" != "$(sort <<<"$expected")" ]; then
    echo "FAILED: status $status; expected (<) and found (>):"
    diff <(sort <<<"$expected") <(sort <<<"$found")
    failures=1
fi

echo "All is right here." > right.md
if ! python3 scripts/spelling.py right.md; then
    echo "FAILED: something was found in a right text"
    failures=1
fi
if PATH=$folder/none "$(command -v python3)" scripts/spelling.py right.md 2>/dev/null; then
    echo "FAILED: it passes without hunspell"
    failures=1
fi
exit "$failures"
