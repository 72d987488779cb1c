#!/bin/sh
# build-release.sh TARGET...
# Builds targets of the release preset. Silent when they are up to date; a failure is told in one line.
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root" || exit 1
log=build/build-release.log

fail() {
    grep -E 'error|Error|FAILED' "$log" | head -n 5 >&2
    echo "set-up: $*; see $log" >&2
    exit 1
}

mkdir -p build
# Two runs at once must not build in one folder; the second finds everything done.
exec 9>build/release.lock
flock 9
if [ ! -f build/release/build.ninja ]; then
    cmake --preset release >"$log" 2>&1 9>&- || fail "CMake could not configure the release build"
fi
# What is compared here is the last line: the first run of a build folder also reports that it configures again.
if [ "$(ninja -C build/release -n "$@" 2>/dev/null | tail -n 1)" != "ninja: no work to do." ]; then
    echo "set-up: building (minutes when it is the first time)" >&2
    cmake --build build/release --target "$@" >"$log" 2>&1 9>&- || fail "the release build failed"
fi
