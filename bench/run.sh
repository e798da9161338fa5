#!/usr/bin/env bash
# Zantor's benchmark: builds a Release zantor, generates large synthetic PADS V4 files under
# /tmp, and times in one run
#   - `zantor list` of a decal library of 120 MB and more against `grep -c ''` over the same file,
#   - `zantor list` of the larger PCB file,
#   - `zantor print` of all decals of an N-decal and a 4N-decal PCB file (when the print command
#     exists), with the ratio of their times and of their peak memory.
# Usage: bench/run.sh [N]          N defaults to 2000 decals
# Environment: BENCH_DIR (default /tmp/zantor-bench), BENCH_LIBRARY_MB (default 120),
#              BENCH_FORMAT pdf or trace (default pdf): what `zantor print` writes.
set -euo pipefail
cd "$(dirname "$0")/.."

n=${1:-2000}
work=${BENCH_DIR:-/tmp/zantor-bench}
library_mb=${BENCH_LIBRARY_MB:-120}
format=${BENCH_FORMAT:-pdf}
build=build-bench

bash scripts/setup-debian.sh
for tool in /usr/bin/time python3; do
    command -v "$tool" >/dev/null || {
        echo "bench: $tool is needed (scripts/setup-debian.sh installs it as root)" >&2
        exit 1
    }
done
mkdir -p "$work"
if ! { cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DZANTOR_BUILD_TESTS=OFF &&
    cmake --build "$build" --target zantor -j"$(nproc)"; } >"$work/build.log" 2>&1; then
    tail -30 "$work/build.log" >&2
    exit 1
fi
zantor=$PWD/$build/src/app/zantor

# The user's settings stay out of it: every run starts from the defaults.
export XDG_CONFIG_HOME=$work/config
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}

library=$work/library-${library_mb}mb.d
pcb_n=$work/pcb-$n.asc
pcb_4n=$work/pcb-$((4 * n)).asc
generate() {
    local file=$1
    shift
    if [ ! -s "$file" ]; then
        python3 bench/generate_pads.py "$@" "$file.part" && mv "$file.part" "$file"
    fi
}
generate "$library" library --megabytes "$library_mb"
generate "$pcb_n" pcb --decals "$n"
generate "$pcb_4n" pcb --decals $((4 * n)) --seed 2

# measure LABEL COMMAND...: runs the command once under /usr/bin/time and sets `seconds` (wall
# clock, from the nanosecond clock: time's own is in hundredths) and `peak_mb` (maximum resident
# set size); a failing command ends the benchmark.
seconds=0
peak_mb=0
measure() {
    local label=$1
    shift
    local start end
    start=$(date +%s%N)
    if ! /usr/bin/time -v -o "$work/time.txt" "$@" >"$work/stdout.txt" 2>"$work/stderr.txt"; then
        echo "$label failed:" >&2
        cat "$work/stderr.txt" >&2
        exit 1
    fi
    end=$(date +%s%N)
    seconds=$(awk -v ns=$((end - start)) 'BEGIN { printf "%.3f", ns / 1e9 }')
    peak_mb=$(awk -F': ' '/Maximum resident set size/ { printf "%.1f", $2 / 1024 }' \
        "$work/time.txt")
    printf '%-44s %9.3f s %9.1f MB peak\n' "$label" "$seconds" "$peak_mb"
}

ratio() {
    awk -v a="$1" -v b="$2" 'BEGIN { if (b > 0) printf "%.2f", a / b; else print "n/a" }'
}

size_mb() {
    awk -v bytes="$(stat -c %s "$1")" 'BEGIN { printf "%.1f", bytes / 1e6 }'
}

echo "Machine: $(uname -srm), $(nproc) cores, $(awk -F': ' '/model name/ { print $2; exit }' \
    /proc/cpuinfo)"
echo "Date:    $(date -u '+%Y-%m-%d %H:%M UTC')"
echo "Files:   $library ($(size_mb "$library") MB)"
echo "         $pcb_n ($(size_mb "$pcb_n") MB), $pcb_4n ($(size_mb "$pcb_4n") MB)"
echo

# Both read the file from the page cache.
cat "$library" "$pcb_n" "$pcb_4n" >/dev/null

measure "grep -c '' library" grep -c '' "$library"
grep_seconds=$seconds
measure "zantor list library" "$zantor" list "$library"
list_seconds=$seconds
list_peak=$peak_mb
echo "    $(wc -l <"$work/stdout.txt") decals listed; zantor list / grep: $(ratio "$list_seconds" "$grep_seconds")"
measure "grep -c '' PCB 4N" grep -c '' "$pcb_4n"
grep_seconds=$seconds
measure "zantor list PCB 4N (used decals)" "$zantor" list "$pcb_4n"
echo "    $(wc -l <"$work/stdout.txt") decals listed; zantor list / grep: $(ratio "$seconds" "$grep_seconds")"
echo

if ! "$zantor" --help 2>/dev/null | grep -qE '^  print( |$)'; then
    echo "zantor print: skipped (this build has no print command yet)"
    exit 0
fi
out=$work/out
rm -rf "$out"
mkdir -p "$out"
measure "zantor print PCB N ($n decals, $format)" \
    "$zantor" print "$pcb_n" --kind decal --output "$out/n.$format"
print_n=$seconds
peak_n=$peak_mb
measure "zantor print PCB 4N ($((4 * n)) decals, $format)" \
    "$zantor" print "$pcb_4n" --kind decal --output "$out/4n.$format"
echo "    4N / N time: $(ratio "$seconds" "$print_n") (linear: 4)," \
    "peak memory: $(ratio "$peak_mb" "$peak_n") (flat: 1)"
rm -rf "$out"
