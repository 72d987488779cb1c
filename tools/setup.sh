#!/bin/sh
# setup.sh run|test
# Installs the Debian packages that are missing. Speaks on standard error, and only when there is something to do.
run_packages="g++-mingw-w64-x86-64-posix mingw-w64-tools cmake ninja-build libwine-dev googletest nlohmann-json3-dev
libboost-dev libstb-dev wine64 fonts-wine python3"
test_packages="$run_packages clang-format clang-tidy cppcheck gcovr"

case $1 in
    run) packages=$run_packages ;;
    test) packages=$test_packages ;;
    *) echo "usage: setup.sh run|test" >&2; exit 2 ;;
esac

say() { echo "set-up: $*" >&2; }
fail() { say "$*"; exit 1; }

root=$(cd "$(dirname "$0")/.." && pwd)
mkdir -p "$root/build" 2>/dev/null && [ -w "$root/build" ] && [ -O "$root/build" ] ||
    fail "$root/build must belong to you; remove it or work in a clone of your own"

command -v dpkg-query >/dev/null || fail "this system is not Debian; packages needed: $(echo $packages)"
missing=
for package in $packages; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing="$missing $package"
done

if [ -n "$missing" ]; then
    if [ "$(id -u)" -eq 0 ]; then
        as_root=
    elif command -v sudo >/dev/null && { [ -t 0 ] || sudo -n true 2>/dev/null; }; then
        as_root=sudo
    else
        fail "packages are missing and you may not install them; ask an administrator for: apt-get install$missing"
    fi
    free=$(df -Pk /usr | awk 'NR == 2 { print $4 }')
    [ "$free" -gt 2500000 ] || fail "the packages need 2.5 GB of free disk; /usr has $((free / 1024)) MB"

    log=$root/build/setup.log
    apt="$as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=600 -o Acquire::Retries=2"
    say "installing$missing (log: build/setup.log)"
    $apt update >"$log" 2>&1 && ! grep -q '^[WE]: Failed to fetch' "$log" ||
        fail "the package servers cannot be reached; see build/setup.log"
    $apt install -y --no-install-recommends $missing >>"$log" 2>&1 ||
        fail "the packages could not be installed; see build/setup.log"
fi

free=$(df -Pk "$root/build" | awk 'NR == 2 { print $4 }')
[ "$free" -gt 2000000 ] || [ -f "$root/build/wineprefix/.kv-ready" ] ||
    fail "a build needs 2 GB of free disk; $root/build has $((free / 1024)) MB"
