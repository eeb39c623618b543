#!/usr/bin/env bash
# Installs a Qt 5 and a Qt 6 build into one prefix and checks that they live
# side by side: no file installed by one is installed by the other, each
# tool runs and names itself, and a consumer builds and runs against each,
# found with find_package (KelXml, KelXml6) and with pkg-config.
#
# Usage: scripts/check-side-by-side.sh QT5_BUILD_DIR QT6_BUILD_DIR WORK_DIR
set -euo pipefail
qt5=${1:?usage: scripts/check-side-by-side.sh QT5_BUILD_DIR QT6_BUILD_DIR WORK_DIR}
qt6=${2:?usage: scripts/check-side-by-side.sh QT5_BUILD_DIR QT6_BUILD_DIR WORK_DIR}
work=${3:?usage: scripts/check-side-by-side.sh QT5_BUILD_DIR QT6_BUILD_DIR WORK_DIR}
source=$(cd "$(dirname "$0")/.." && pwd)
sample=$source/examples/XmlFreqThrListType/valid-thresholds.xml
expected=$'30 MHz: -107 dBm\n1200 MHz: -98.5 dBm'

rm -rf "$work"
mkdir -p "$work"
work=$(cd "$work" && pwd)
prefix=$work/prefix

fail() {
    echo "side by side: $*" >&2
    exit 1
}

# cmake --install writes the files it installed to install_manifest.txt.
cmake --install "$qt5" --prefix "$prefix" >/dev/null
sort "$qt5/install_manifest.txt" >"$work/qt5.manifest"
cmake --install "$qt6" --prefix "$prefix" >/dev/null
sort "$qt6/install_manifest.txt" >"$work/qt6.manifest"
shared=$(comm -12 "$work/qt5.manifest" "$work/qt6.manifest")
[ -z "$shared" ] || fail "both builds install these files:"$'\n'"$shared"

for tool in kelxml kelxml6; do
    version=$("$prefix/bin/$tool" --version) || fail "$tool does not run"
    [[ $version == "$tool "* ]] || fail "$tool --version says: $version"
done

libdir() { # the build's library folder, relative to the prefix
    sed -n 's/^CMAKE_INSTALL_LIBDIR:PATH=//p' "$1/CMakeCache.txt"
}

for package in KelXml KelXml6; do
    if [ $package = KelXml ]; then build=$qt5; else build=$qt6; fi
    lib=$prefix/$(libdir "$build")

    consumer=$work/consumer-$package
    # Ninja, as the builds themselves: a bare machine need not have make.
    cmake -S "$source/tests/package" -B "$consumer" -G Ninja -DKELXML_PACKAGE=$package \
        -DCMAKE_PREFIX_PATH="$prefix" >"$work/$package.log" 2>&1 \
        && cmake --build "$consumer" >>"$work/$package.log" 2>&1 \
        || fail "find_package($package) does not build the consumer (see $work/$package.log)"
    output=$("$consumer/thresholds" "$sample")
    [ "$output" = "$expected" ] || fail "the find_package($package) consumer says: $output"

    flags=$(PKG_CONFIG_PATH=$lib/pkgconfig pkg-config --cflags --libs $package) \
        || fail "pkg-config does not find $package"
    # shellcheck disable=SC2086 # the flags are words
    g++ -std=c++17 -fPIC "$source/tests/package/thresholds.cpp" $flags -o "$work/thresholds-$package" \
        || fail "pkg-config $package does not build the consumer"
    output=$(LD_LIBRARY_PATH=$lib "$work/thresholds-$package" "$sample")
    [ "$output" = "$expected" ] || fail "the pkg-config $package consumer says: $output"
done

echo "side by side: the Qt 5 and Qt 6 builds share no file, and each builds and runs a consumer"
