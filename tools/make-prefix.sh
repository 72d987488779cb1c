#!/bin/sh
# make-prefix.sh [--display | --heap | --freed | --double] PREFIXDIR
# Makes the Wine prefix that builds, tests and runs use. It is built beside its place and moved there complete, so a
# broken prefix is never left behind; of several callers at once one builds and the others wait for it.
# --display keeps Wine's X11 driver, for a person at the screen; otherwise the prefix draws without any display.
# --heap surrounds every block of a heap with marks, and checks all of them at every call; findings go to the channel
# "heap". Programs take ten times as long.
# --freed only fills what is freed and tells what is freed twice: for programs to which --heap would take hours.
# --double gives the screen 192 dots per inch, where programs show themselves in double size.
display= heap= double=
case $1 in
    --display) display=1; shift ;;
    --heap) heap=f0; shift ;;
    --freed) heap=70; shift ;;
    --double) double=1; shift ;;
esac
prefix=$1
[ -n "$prefix" ] && [ $# -eq 1 ] || { echo "usage: make-prefix.sh [--display | --heap | --freed | --double] PREFIXDIR" >&2; exit 2; }

wine=/usr/lib/wine/wine64
wineserver=/usr/lib/wine/wineserver
here=$(cd "$(dirname "$0")" && pwd)

fail() { echo "make-prefix: $*" >&2; exit 1; }

[ -x "$wine" ] || fail "Wine is not installed (package wine64)"
[ -d /usr/share/wine/fonts ] || fail "Wine's fonts are not installed (package fonts-wine)"
mkdir -p "$(dirname "$prefix")" || fail "cannot create $(dirname "$prefix")"
prefix=$(cd "$(dirname "$prefix")" && pwd)/$(basename "$prefix")

exec 9>"$prefix.lock" || fail "cannot write $prefix.lock"
flock 9 || fail "cannot lock $prefix.lock"
[ -f "$prefix/.kv-ready" ] && exit 0

free=$(df -Pk "$(dirname "$prefix")" | awk 'NR == 2 { print $4 }')
[ "$free" -gt 1000000 ] || fail "a Wine prefix needs 1 GB of free disk; $(dirname "$prefix") has $((free / 1024)) MB"

fresh=$prefix.new
rm -rf "$fresh" "$prefix" || fail "cannot remove $fresh or $prefix"
stop() { WINEPREFIX=$fresh "$wineserver" -k >/dev/null 2>&1 9>&-; WINEPREFIX=$fresh "$wineserver" -w >/dev/null 2>&1 9>&-; }
give_up() { stop; rm -rf "$fresh"; fail "$*"; }
trap 'stop; rm -rf "$fresh"; exit 1' HUP INT TERM

export WINEPREFIX="$fresh" WINEARCH=win64 WINEDEBUG=-all LC_ALL=C.UTF-8
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe="
unset DISPLAY WAYLAND_DISPLAY
# Background processes of Wine live on for seconds: none may inherit the lock or the caller's output.
quiet() { "$wine" "$@" >/dev/null 2>&1 </dev/null 9>&-; }

quiet wineboot -i
[ -d "$fresh/drive_c/windows/system32" ] || give_up "Wine could not make a prefix in $fresh"

# Known folders are links into the home folder; programs under test must not write there.
find "$fresh/drive_c/users" -type l | while read -r link; do rm "$link" && mkdir "$link"; done

{
    echo 'Windows Registry Editor Version 5.00'
    if [ -z "$display" ]; then
        printf '\n[HKEY_CURRENT_USER\\Software\\Wine\\Drivers]\n"Graphics"="null"\n'
    fi
    if [ -n "$heap" ]; then
        printf '\n[HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Control\\Session Manager]\n"GlobalFlag"=dword:000000%s\n' \
            "$heap"
    fi
    # Without a debugger and a crash dialog a crashed process ends at once, with a status that tells of it. Tips are
    # yellowish, as on Windows: lists would take a white ground for that of tips.
    cat <<'REG'

[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\AeDebug]
"Debugger"="false"

[HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\ThemeManager]
"ThemeActive"="0"

[HKEY_CURRENT_USER\Control Panel\Colors]
"InfoWindow"="255 255 225"

[HKEY_CURRENT_USER\Control Panel\Desktop]
"FontSmoothing"="0"
REG
    [ -z "$double" ] || echo '"LogPixels"=dword:000000c0'
} >"$fresh/drive_c/settings.reg"
quiet regedit /S 'C:\settings.reg' || give_up "Wine could not store its settings"

x86_64-w64-mingw32-gcc-posix -O1 -o "$fresh/drive_c/reglink.exe" "$here/reglink.c" -ladvapi32 ||
    give_up "cannot compile tools/reglink.c"
quiet 'C:\reglink.exe' || give_up "the classes of the current user could not be linked"

# Wine takes its own fonts from the prefix only; with them texts measure the same on every machine.
cp /usr/share/wine/fonts/*.ttf /usr/share/wine/fonts/*.fon "$fresh/drive_c/windows/Fonts/" ||
    give_up "cannot copy Wine's fonts"
stop
rm -f "$fresh/drive_c/settings.reg" "$fresh/drive_c/reglink.exe"
: >"$fresh/.kv-ready"
mv "$fresh" "$prefix" || fail "cannot move $fresh to $prefix"
