#!/bin/sh
# check.sh [fast|all|coverage|heap|traps]
# Every check of the project; ./test, the commit hook and CI run this script and nothing else.
#   fast      what needs no build: format, layers, words, lengths, the page of classes, the checks' own tests
#   all       fast, then the build, headers alone, lint and all tests (default)
#   coverage  builds with counters, runs the tests and prints the coverage of the module and the framework
#   heap      runs the tests in a prefix whose heaps are checked at every call; a finding fails the test
#   traps     runs the tests in a build that ends at undefined behaviour
cd "$(dirname "$0")/.." || exit 1
jobs=$(nproc)
module_layers="core families preview numeric lists hatch light"

say() { printf '== %s\n' "$*"; }
fail() { echo "check: $*" >&2; exit 1; }

fast() {
    say "format"
    clang-format --version >build/unformatted.log 2>&1 ||
        { cat build/unformatted.log; fail "clang-format does not run; ./test installs it"; }
    python3 -c 'import sys; sys.path.insert(0, "tools")
from project_files import project_files
print("\0".join(project_files((".h", ".cpp"))), end="")' >build/sources.list || fail "the sources could not be listed"
    if ! xargs -0 -r -P "$jobs" -n 40 clang-format --dry-run -Werror <build/sources.list >build/unformatted.log 2>&1; then
        sed -n 's/:[0-9]*:[0-9]*: error:.*//p' build/unformatted.log | sort -u | grep . ||
            { cat build/unformatted.log; fail "clang-format failed"; }
        fail "run clang-format -i on these files"
    fi
    say "layers"
    python3 tools/check_layers.py || fail "an include goes against the layers"
    say "text"
    python3 tools/check_style.py || fail "a text rule is broken"
    python3 tools/class_page.py --check || fail "a page is out of date"
    say "the checks themselves"
    python3 tools/checks_test.py 2>&1 | tail -n 20 | grep -v '^$' >build/checks_test.log
    grep -q '^OK' build/checks_test.log || { cat build/checks_test.log; fail "a check does not find what it should"; }
}

configure() {
    cmake --preset "$1" >"build/configure-$1.log" 2>&1 ||
        { grep -A4 'CMake Error' "build/configure-$1.log"; fail "CMake could not configure; see build/configure-$1.log"; }
}

build() {
    say "build $1"
    configure "$1"
    cmake --build "build/$1" || fail "the build failed"
}

lint() {
    say "clang-tidy"
    python3 tools/lint.py build/dev || fail "clang-tidy has findings"
    say "cppcheck"
    mkdir -p build/cppcheck
    set --
    for layer in framework host_sdk $module_layers refhost palette tests benchmarks; do
        [ -d "$layer" ] && set -- "$@" "$layer"
    done
    cppcheck --quiet -j "$jobs" --std=c++20 --language=c++ --platform=win64 --library=googletest,windows \
        --enable=warning,performance,portability --inline-suppr --suppressions-list=tools/cppcheck.txt \
        --error-exitcode=1 --cppcheck-build-dir=build/cppcheck -DUNICODE -D_WIN32 -I. "$@" || fail "cppcheck has findings"
}

# run_tests BUILD [CONFIGURATION FIRST_PREFIX SECOND_PREFIX]: the last two are options of make-prefix.sh.
run_tests() {
    say "tests"
    prefix=${KV_WINEPREFIX:-$PWD/build/wineprefix}
    sh tools/make-prefix.sh ${3:+"$3"} "$prefix" && sh tools/make-prefix.sh ${4:+"$4"} "$prefix-2" ||
        fail "a Wine prefix could not be made"
    ctest --test-dir "build/$1" ${2:+-C "$2"} --output-on-failure --parallel 2
}

mkdir -p build
case ${1:-all} in
    fast) fast ;;
    all) fast && build dev && lint && run_tests dev ;;
    coverage)
        build coverage && run_tests coverage || exit 1
        say "coverage"
        set --
        for layer in framework $module_layers; do
            [ -d "$layer" ] && set -- "$@" --filter "$layer/"
        done
        gcovr --gcov-executable x86_64-w64-mingw32-gcov-posix -r . --object-directory build/coverage -j "$jobs" \
            --exclude-unreachable-branches --exclude-throw-branches "$@" --print-summary
        ;;
    heap)
        export KV_WINEPREFIX="$PWD/build/wineprefix-heap" WINEDEBUG=-all,err+heap,warn+heap OANOCACHE=1
        # This heap looks at all its blocks at every call: with the million blocks of a map, for ever. The long programs
        # of the second prefix are only told what is freed twice, and given filled memory back.
        export KV_MAPS=none WINE_TEST_TIMEOUT=3500
        build dev && run_tests dev heap --heap --freed
        ;;
    traps) build traps && run_tests traps ;;
    *) echo "usage: check.sh [fast|all|coverage|heap|traps]" >&2; exit 2 ;;
esac
