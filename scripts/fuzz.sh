#!/usr/bin/env bash
# Builds the libFuzzer targets (fuzz/*_fuzzer.cpp) with clang in build-fuzz/ and runs each from
# its corpus for a bounded time. A crash, a sanitizer report, a leak, an input that takes more
# than 5 s or a run that needs more than 2 GB fails the script; the input that did it is kept
# under build-fuzz/artifacts/TARGET/ (copy it to tests/data/fuzz/TARGET/ as a regression input).
#
# Usage: scripts/fuzz.sh [SECONDS_PER_TARGET (default 60)] [TARGET...]
# Environment: ZANTOR_FUZZ_JOBS (parallel runs per target, default 1), ZANTOR_FUZZ_BUILD (the
# build folder, default build-fuzz).
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
shift || true
build_dir=${ZANTOR_FUZZ_BUILD:-build-fuzz}
jobs=${ZANTOR_FUZZ_JOBS:-1}

if ! command -v clang++-14 >/dev/null; then
    echo "fuzz.sh needs clang++-14 and libclang-rt-14-dev (scripts/setup-debian.sh installs them)" >&2
    exit 1
fi

targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
    for source in fuzz/*_fuzzer.cpp; do
        targets+=("$(basename "$source" .cpp)")
    done
fi

launcher=()
if command -v ccache >/dev/null; then
    launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
CC=clang-14 CXX=clang++-14 cmake -S . -B "$build_dir" "${launcher[@]}" \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZANTOR_FUZZ=ON -DZANTOR_BUILD_TESTS=OFF >/dev/null
cmake --build "$build_dir" -j"$(nproc)" --target "${targets[@]}"

# Seeds: the handmade fixtures and the bundled sample, with the option bytes some targets take
# off the front (all zero: the plain case), and the fonts for the font target.
seed_files() {
    find tests/data/library data/samples -type f
}
make_seeds() {
    local target=$1 seeds=$2 prefix=$3
    rm -rf "$seeds"
    mkdir -p "$seeds"
    local n=0 file
    if [ "$target" = stroke_font_fuzzer ]; then
        for file in data/fonts/*.fnt; do
            n=$((n + 1))
            { printf 'Zantor 1:1 _%%\0'; cat "$file"; } >"$seeds/font-$n"
        done
        return
    fi
    while IFS= read -r file; do
        n=$((n + 1))
        { printf "$prefix"; cat "$file"; } >"$seeds/seed-$n"
    done < <(seed_files)
}

# Leaks that Qt's system libraries (fontconfig) keep until the process ends are not ours.
export LSAN_OPTIONS=${LSAN_OPTIONS:-suppressions=$PWD/scripts/lsan.supp:print_suppressions=0}

status=0
for target in "${targets[@]}"; do
    case $target in
        catalogue_fuzzer) prefix='\0\0\0\0' ;;
        attribute_scan_fuzzer) prefix='\0' ;;
        decal_page_fuzzer) prefix='\1\0\0\144\1\1\1\1\1\0\12' ;;
        *) prefix='' ;;
    esac
    corpus="$build_dir/corpus/$target"
    seeds="$build_dir/seeds/$target"
    artifacts="$build_dir/artifacts/$target/"
    mkdir -p "$corpus" "$artifacts"
    make_seeds "$target" "$seeds" "$prefix"
    regressions=()
    if [ -d "tests/data/fuzz/$target" ]; then
        regressions=("tests/data/fuzz/$target")
    fi
    parallel=()
    if [ "$jobs" -gt 1 ]; then
        parallel=(-jobs="$jobs" -workers="$jobs")
    fi
    echo "== $target: ${seconds} s"
    if ! "$build_dir/fuzz/$target" "$corpus" "$seeds" "${regressions[@]}" \
        -max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048 -malloc_limit_mb=2048 \
        -max_len=65536 "${parallel[@]}" -print_final_stats=1 \
        -artifact_prefix="$artifacts" 2>"$build_dir/$target.log"; then
        echo "$target FAILED; see $build_dir/$target.log and $artifacts" >&2
        tail -n 40 "$build_dir/$target.log" >&2
        status=1
    fi
    grep -E '^(#[0-9]+ +DONE|stat::number_of_executed_units|stat::peak_rss_mb)' \
        "$build_dir/$target.log" || true
    grep -E 'DONE +cov:' "$build_dir/$target.log" | tail -n 1 || true
done
exit $status
