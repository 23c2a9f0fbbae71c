#!/usr/bin/env bash
# Sets up a fresh Debian 12 machine (as root) and builds OrrinQuiver, then
#   scripts/run.sh demo   runs the demo (a window, or PNG screens without a display)
#   scripts/run.sh test   runs every test: the suite, the install check, ...
#   scripts/run.sh fuzz   runs only the fuzz targets, QUIVER_FUZZ_SECONDS each
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$here"
build=${QUIVER_BUILD_DIR:-$here/build}
jobs=$(nproc 2>/dev/null || echo 2)

packages=(
    g++ clang cmake ninja-build pkg-config
    qt6-base-dev qt6-base-dev-tools qt6-declarative-dev qt6-multimedia-dev
    qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools qt6-qpa-plugins
    libqt6svg6 libgl-dev libxkbcommon-dev libpugixml-dev libbenchmark-dev
    libclang-rt-14-dev fonts-dejavu-core
)

install_missing() {
    local missing=()
    for p in "${packages[@]}"; do
        dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local sudo=""
    [ "$(id -u)" -eq 0 ] || sudo=sudo
    $sudo apt-get update -q
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -q --no-install-recommends "${missing[@]}"
}

configure_and_build() {
    cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
    cmake --build "$build" -j "$jobs"
}

run_demo() {
    configure_and_build
    if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
        exec "$build/app/quiver" demo
    fi
    QT_QPA_PLATFORM=offscreen exec "$build/app/quiver" demo --out "$build/demo-screens"
}

# A host program built against the installed package, and the installed
# command: a broken install, a missing header, a wrong package config or a
# program that finds its library only through LD_LIBRARY_PATH fails here.
check_install() {
    local stage="$build/stage"
    rm -rf "$stage" "$build/example-host"
    cmake --install "$build" --prefix "$stage" > /dev/null
    cmake -S "$here/examples/host" -B "$build/example-host" -G Ninja \
        -DCMAKE_PREFIX_PATH="$stage" -DCMAKE_BUILD_TYPE=RelWithDebInfo > /dev/null
    cmake --build "$build/example-host"
    env -u LD_LIBRARY_PATH QT_QPA_PLATFORM=offscreen "$build/example-host/quiver-host"
    env -u LD_LIBRARY_PATH QT_QPA_PLATFORM=offscreen "$stage/bin/quiver" render \
        "$here/tests/serialize/fixtures/control-201.xml" --out "$build/stage-render.png"
    local plugin
    for plugin in $(find "$stage" -path '*/designer/*.so'); do
        if env -u LD_LIBRARY_PATH ldd "$plugin" | grep 'not found'; then
            echo "$plugin does not find its libraries" >&2
            return 1
        fi
    done
}

# The same suite built by clang with AddressSanitizer, UndefinedBehaviorSanitizer
# and leak detection: any report fails the run.
run_sanitized_tests() {
    local asan="$build-sanitize"
    CC=clang CXX=clang++ cmake -S "$here" -B "$asan" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
        -DORRINQUIVER_SANITIZE=ON -DORRINQUIVER_BUILD_BENCH=OFF
    cmake --build "$asan" -j "$jobs"
    ASAN_OPTIONS=detect_leaks=1:abort_on_error=1:strict_string_checks=1 \
    LSAN_OPTIONS="suppressions=$here/tests/lsan.supp:print_suppressions=0" \
    UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1 \
        ctest --test-dir "$asan" --output-on-failure -j "$jobs"
}

# The libFuzzer targets of fuzz/, built by clang on a library instrumented
# for them (docs/reliability.md). Each runs QUIVER_FUZZ_SECONDS (45 by
# default, to keep the test command within CI's time) from its committed
# seeds and what earlier runs found; a crash, a leak, a broken promise or an
# input slower than a minute fails the run and leaves the input in the build
# folder's crashes/. Optimised lightly with line tables only, which builds
# fast and still names every frame of a report.
run_fuzzers() {
    local fuzz="$build-fuzz" seconds=${QUIVER_FUZZ_SECONDS:-45}
    CC=clang CXX=clang++ cmake -S "$here" -B "$fuzz" -G Ninja -DCMAKE_BUILD_TYPE= \
        -DCMAKE_CXX_FLAGS="-O1 -gline-tables-only" \
        -DORRINQUIVER_BUILD_FUZZ=ON -DORRINQUIVER_BUILD_TESTS=OFF -DORRINQUIVER_BUILD_BENCH=OFF
    cmake --build "$fuzz" -j "$jobs" --target fuzzers
    mkdir -p "$fuzz/crashes"
    local program target dict
    for program in "$fuzz"/fuzz/fuzz_*; do
        [ -f "$program" ] && [ -x "$program" ] || continue
        target=${program##*/fuzz_}
        dict=()
        [ -f "$here/fuzz/$target.dict" ] && dict=(-dict="$here/fuzz/$target.dict")
        mkdir -p "$fuzz/corpus/$target"
        echo "Fuzzing $target for $seconds s"
        ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1 \
        LSAN_OPTIONS="suppressions=$here/tests/lsan.supp:print_suppressions=0" \
        QT_QPA_PLATFORM=offscreen \
            "$program" -max_total_time="$seconds" -timeout=60 -print_final_stats=1 \
            -artifact_prefix="$fuzz/crashes/$target-" "${dict[@]}" \
            "$fuzz/corpus/$target" "$here/fuzz/corpus/$target"
    done
}

run_tests() {
    configure_and_build
    ctest --test-dir "$build" --output-on-failure -j "$jobs"
    check_install
    run_sanitized_tests
    run_fuzzers
}

case "${1:-}" in
    demo) install_missing; run_demo ;;
    test) install_missing; run_tests ;;
    fuzz) install_missing; run_fuzzers ;;
    *) echo "usage: $0 demo|test|fuzz" >&2; exit 2 ;;
esac
