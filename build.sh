#!/usr/bin/env bash
# Sets up a Debian 12 machine for KelXml, builds it and runs it.
#
#   ./build.sh examples   install what is missing, build with Qt 5, check the samples
#   ./build.sh test       install what is missing, build and run every test with Qt 5 and Qt 6,
#                         then each fuzz target for a few seconds
#   ./build.sh asan       the tests built with AddressSanitizer and UBSan (Qt 5)
#   ./build.sh valgrind   the tests run under valgrind's memcheck (Qt 5)
#   ./build.sh tsan       the threads test built with ThreadSanitizer (Qt 5)
#   ./build.sh fuzz [S]   each fuzz target for S seconds (default 60), with clang
#   ./build.sh docs       the API reference (Doxygen) in build/docs/docs/html
#   ./build.sh package    Debian packages of the Qt 5 and Qt 6 builds, in build/packages
#   ./build.sh bench [ARGS] the benchmarks, optimised, with Qt 5 and Qt 6: one table each
#                         (ARGS go to bench/kelxml_bench, e.g. --benchmark_filter=pairs)
#
# Builds go to build/<name>; installing packages needs root (or sudo).
set -euo pipefail
cd "$(dirname "$0")"

# python3-jsonschema: the test that validates check's JSON records. libzip-dev:
# the tool's KMZ. gdal-bin and libxml2-utils: the tests that read the tool's
# maps with ogrinfo, gdalinfo and xmllint.
packages=(cmake ninja-build g++ pkg-config qtbase5-dev qt6-base-dev python3 python3-jsonschema
    libzip-dev gdal-bin libxml2-utils)

install_packages() {
    local missing=()
    local package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' \
            || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "== installing ${missing[*]}"
    local sudo=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "Run as root (or install sudo) to install: ${missing[*]}" >&2; exit 1; }
        sudo=(sudo)
    fi
    "${sudo[@]}" apt-get update -q
    DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# build NAME QT_MAJOR [cmake options...]
build() {
    local dir=build/$1 qt=$2
    shift 2
    echo "== building $dir (Qt $qt)"
    # ccache, when installed, makes rebuilds in fresh folders cheap.
    local launcher=()
    command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    cmake -S . -B "$dir" -G Ninja -DKELXML_QT_MAJOR="$qt" -DKELXML_WERROR=ON "${launcher[@]}" "$@"
    cmake --build "$dir"
}

# The libFuzzer targets, built with clang, ASan and UBSan (library and fuzzers only).
build_fuzzers() {
    install_packages clang libclang-rt-14-dev
    CC=clang CXX=clang++ build fuzz 5 -DKELXML_BUILD_FUZZERS=ON -DKELXML_BUILD_TESTS=OFF \
        -DKELXML_BUILD_TOOLS=OFF -DKELXML_SANITIZE=fuzzer-no-link,address,undefined
}

run_tests() {
    echo "== testing $1"
    ctest --test-dir "$1" --output-on-failure
}

case "${1:-}" in
examples)
    install_packages "${packages[@]}"
    build qt5 5
    scripts/check-examples.sh build/qt5/tools/kelxml
    ;;
test)
    install_packages "${packages[@]}" valgrind
    build qt5 5
    run_tests build/qt5
    build qt6 6
    run_tests build/qt6
    echo "== installing the Qt 5 and Qt 6 builds side by side"
    scripts/check-side-by-side.sh build/qt5 build/qt6 build/side-by-side
    build_fuzzers
    echo "== fuzz smoke runs"
    scripts/fuzz.sh build/fuzz build/qt5/tools/kelxml 5
    ;;
asan)
    install_packages "${packages[@]}"
    build asan 5 -DCMAKE_BUILD_TYPE=Debug -DKELXML_SANITIZE=address,undefined
    UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1 run_tests build/asan
    ;;
tsan)
    # The library and the test that reads, checks, copies and writes every
    # sample on eight threads; scripts/tsan.supp names what Debian's Qt and C
    # library do out of the sanitizer's sight, each with its reason.
    install_packages "${packages[@]}"
    build tsan 5 -DKELXML_SANITIZE=thread -DKELXML_BUILD_TOOLS=OFF
    echo "== testing build/tsan/tests/tst_threads under ThreadSanitizer"
    TSAN_OPTIONS="halt_on_error=1 suppressions=$PWD/scripts/tsan.supp" build/tsan/tests/tst_threads
    ;;
valgrind)
    install_packages "${packages[@]}" valgrind
    build qt5 5
    echo "== testing build/qt5 under valgrind"
    for test in build/qt5/tests/tst_*; do
        [ -f "$test" ] && [ -x "$test" ] || continue
        valgrind -q --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite,indirect --show-possibly-lost=no \
            --suppressions=scripts/valgrind.supp \
            "$test" -silent
    done
    echo "valgrind: no errors and no leaks"
    ;;
fuzz)
    install_packages "${packages[@]}"
    build qt5 5
    build_fuzzers
    scripts/fuzz.sh build/fuzz build/qt5/tools/kelxml "${2:-60}"
    ;;
docs)
    install_packages cmake ninja-build g++ qtbase5-dev doxygen
    echo "== building the API reference in build/docs/docs/html"
    cmake -S . -B build/docs -G Ninja -DKELXML_QT_MAJOR=5 -DKELXML_BUILD_TESTS=OFF -DKELXML_BUILD_TOOLS=OFF
    cmake --build build/docs --target docs
    ;;
package)
    # dpkg-shlibdeps (dpkg-dev) and file work out the packages' dependencies.
    install_packages "${packages[@]}" dpkg-dev file
    rm -rf build/packages
    for qt in 5 6; do
        build pkg-qt$qt $qt -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr -DKELXML_BUILD_TESTS=OFF
        echo "== packaging build/pkg-qt$qt"
        cpack --config build/pkg-qt$qt/CPackConfig.cmake -B "$PWD/build/packages"
    done
    rm -rf build/packages/_CPack_Packages
    ls -l build/packages/*.deb
    ;;
bench)
    install_packages "${packages[@]}" libbenchmark-dev
    for qt in 5 6; do
        name=bench$([ $qt = 6 ] && echo 6 || true)
        # The tool is built here too: the whole-process rows run it.
        build "$name" $qt -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKELXML_BUILD_BENCH=ON \
            -DKELXML_BUILD_TESTS=OFF -DKELXML_BUILD_TOOLS=ON
    done
    for dir in build/bench build/bench6; do
        echo "== benchmarks of $dir"
        "$dir/bench/kelxml_bench" "${@:2}"
    done
    ;;
*)
    sed -n '2,16p' "$0" | sed 's/^# \{0,1\}//'
    exit 64
    ;;
esac
