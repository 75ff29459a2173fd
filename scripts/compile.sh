#!/bin/sh
# Compiles with ccache: scripts/compile.sh CCACHE COMPILER ARGUMENT…
# A precompiled header that it finds may have been made in another checkout, and what is compiled with
# it would depend on that checkout's files. Where these are gone, it would be compiled in each build. The
# build itself knows that it depends on its own.
"$@" || exit
file=""
last=""
for word; do
    [ "$last" != -MF ] || file=$word
    last=$word
done
if [ -n "$file" ] && grep -q '/cmake_pch\.hxx' "$file"; then
    sed -i -E 's#^(.*: )? *(\\ |[^ \\])*/cmake_pch\.hxx(\.cxx)?( \\)?$#\1 \4#' "$file"
fi
