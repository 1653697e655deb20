#!/usr/bin/env bash
# Checks that need no build: formatting, who may include whom, and words that do not belong in the tree.
set -u
cd "$(dirname "$0")/.."
bad=0
report() { printf '%s:\n%s\n\n' "$1" "$2"; bad=1; }

unformatted=$(git ls-files '*.h' '*.cpp' | xargs -r clang-format --dry-run 2>&1 | grep 'warning: code should be' | cut -d: -f1 | sort -u)
[ -n "$unformatted" ] && report "Not formatted (./dev format)" "$unformatted"

# includes FOLDER ALLOWED...: quoted includes of FOLDER must start with one of the allowed folders (or name a neighbour).
includes() {
    local folder=$1 allowed
    shift
    allowed=$(printf '|%s' "$@")
    local wrong
    wrong=$(git grep -nE '^#include "[a-z_]+/' -- "$folder" | grep -vE "#include \"(${allowed:1})/")
    [ -n "$wrong" ] && report "$folder may include only: $*" "$wrong"
}
includes plugin/settings settings
includes plugin/model model settings
includes plugin/commands commands node model settings
includes plugin/contexts contexts node model settings
includes plugin/ui ui node model settings
includes workbench/kernel kernel
includes workbench/mel mel kernel
includes workbench/api api kernel
includes workbench/view view api kernel
includes workbench/ui ui view api mel kernel
includes workbench/app app ui view api mel kernel
node=$(git grep -nE '^#include "[a-z_]+/' -- plugin/node ':!plugin/node/PluginMain.cpp' | grep -vE '#include "(node|model|settings)/')
[ -n "$node" ] && report "plugin/node may include only: node model settings" "$node"
qt=$(git grep -nE '#include <Q[A-Z]' -- workbench/kernel workbench/mel)
[ -n "$qt" ] && report "workbench/kernel and workbench/mel are free of Qt" "$qt"
forward=$(git grep -nE '^\s*(class|struct)\s+M[A-Z][A-Za-z0-9]+\s*;' -- plugin)
[ -n "$forward" ] && report "Host types come by including their header" "$forward"

literals=$(git grep -nE 'Q(String|ByteArray)Literal' -- plugin)
[ -n "$literals" ] && report "Qt's literals point into the module: what outlives it (a settings cache) would dangle after unloading" "$literals"

words=$(git grep -nIiE '\b(sp[e]c\.md|sp[e]cification|the sp[e]c\b|p[a]rts? [1-6]\.[1-6]\b|TODO\b|FIXME|XXX\b)' \
    -- . ':!*.svg' ':!cmake/check-source.sh')
[ -n "$words" ] && report "Words that do not belong here" "$words"
paths=$(git grep -nIE '(/home/[a-z]|/w[o]rk/|/r[o]ot/)' -- . ':!cmake/check-source.sh')
[ -n "$paths" ] && report "Paths of one machine" "$paths"

[ $bad -eq 0 ] && echo "Source checks passed."
exit $bad
