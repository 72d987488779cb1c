#!/bin/sh
# runwine.sh PROGRAM [ARGS]
# Runs one Windows program in the project's Wine prefix and passes its output and exit status on.
# Output goes through files: background Wine processes would otherwise keep the caller's pipe open.
#   KV_WINEPREFIX       the prefix; made when it does not exist
#   KV_DESKTOP          a further prefix beside it, for what must not share focus and mouse with the others
#   KV_DISPLAY          X display for a prefix made with --display; by default no display is used
#   WINE_TEST_TIMEOUT   seconds before the program is ended (300; 0 never)
#   WINEDEBUG           the channels that Wine reports on; empty for its own choice, which is errors (by default none)
root=$(cd "$(dirname "$0")/.." && pwd)
export WINEPREFIX="${KV_WINEPREFIX:-$root/build/wineprefix}${KV_DESKTOP:+-$KV_DESKTOP}"
export WINEDEBUG="${WINEDEBUG--all}" LC_ALL=C.UTF-8
unset WAYLAND_DISPLAY
if [ -n "$KV_DISPLAY" ]; then export DISPLAY="$KV_DISPLAY"; else unset DISPLAY; fi
[ -f "$WINEPREFIX/.kv-ready" ] || sh "$root/tools/make-prefix.sh" "$WINEPREFIX" >&2 || exit 98

scratch=$(mktemp -d) || exit 99
trap 'rm -rf "$scratch"' EXIT
# A test program that ends in the middle with status 0 leaves this file behind.
export TEST_PREMATURE_EXIT_FILE="Z:$scratch/premature"

timeout --foreground -k 2 "${WINE_TEST_TIMEOUT:-300}" /usr/lib/wine/wine64 "$@" \
    >"$scratch/out" 2>"$scratch/err" </dev/null
rc=$?
# Where the platform checks the heaps, what it finds does not change the status of the program.
if grep -qE '(err|warn):heap:' "$scratch/err"; then
    echo "runwine: $1 ended with a damaged heap" >&2
    rc=96
fi
tr -d '\r' <"$scratch/out"
tr -d '\r' <"$scratch/err" >&2
case $rc in
    53) echo "runwine: a DLL that $1 needs is missing (run again with WINEDEBUG=)" >&2 ;;
    124 | 137) echo "runwine: $1 was ended after ${WINE_TEST_TIMEOUT:-300} seconds" >&2 ;;
esac
if [ -e "$scratch/premature" ] && [ $rc -eq 0 ]; then
    echo "runwine: $1 ended before all of its tests had run" >&2
    rc=97
fi
exit $rc
