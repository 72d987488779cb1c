#!/bin/sh
# Runs one Windows program in the project's Wine prefix and passes its output and exit status on.
# Output goes through a file: background Wine processes would otherwise keep the caller's pipe open.
root=$(cd "$(dirname "$0")/.." && pwd)
export WINEPREFIX="${KV_WINEPREFIX:-$root/build/wineprefix}"
export WINEDEBUG="${WINEDEBUG:--all}" LC_ALL=C.UTF-8
[ -n "$KV_DISPLAY" ] && export DISPLAY="$KV_DISPLAY" || unset DISPLAY
[ -f "$WINEPREFIX/.kv-ready" ] || sh "$root/tools/make-prefix.sh" "$WINEPREFIX" >&2 || exit 98
out=$(mktemp) || exit 99
trap 'rm -f "$out"' EXIT
timeout -k 2 "${WINE_TEST_TIMEOUT:-300}" /usr/lib/wine/wine64 "$@" >"$out" 2>&1 </dev/null
rc=$?
cat "$out"
exit $rc
