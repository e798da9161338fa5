#!/usr/bin/env bash
# Zantor's benchmark. Builds a Release zantor of this tree and one of a baseline commit, generates
# synthetic PADS V4 files under /tmp, and measures in one run, as CPU time (user + sys from
# /usr/bin/time, the median of BENCH_REPEAT runs, so that other work on the machine counts little):
#   - CPU ms per page of `zantor print` to PDF, SVG and PNG of a library of real-sized decals, for
#     this tree and the baseline, and their ratio; the size of the SVG files against the baseline,
#   - `zantor list` of a decal library of 120 MB and more against `grep -c ''` over the same file
#     (this tree and the baseline),
#   - `zantor print` of all decals of an N-decal and a 4N-decal PCB file: the ratio of their times
#     and of their peak memory (linear: 4, flat: 1).
# Usage: bench/run.sh [N]          N defaults to 2000 decals
# Environment: BENCH_DIR (default /tmp/zantor-bench), BENCH_LIBRARY_MB (default 120),
#              BENCH_BASELINE (default a54dcc3, the last commit before the work on the speed of
#              pages and readers), BENCH_REPEAT (default 5), BENCH_FORMAT pdf or trace (default
#              pdf): what the N / 4N prints write; BENCH_ZANTOR and BENCH_BASELINE_ZANTOR:
#              binaries to measure instead of building them.
set -euo pipefail
cd "$(dirname "$0")/.."

n=${1:-2000}
work=${BENCH_DIR:-/tmp/zantor-bench}
library_mb=${BENCH_LIBRARY_MB:-120}
format=${BENCH_FORMAT:-pdf}
baseline=${BENCH_BASELINE:-a54dcc3}
repeat=${BENCH_REPEAT:-5}
build=build-bench

bash scripts/setup-debian.sh
for tool in /usr/bin/time python3; do
    command -v "$tool" >/dev/null || {
        echo "bench: $tool is needed (scripts/setup-debian.sh installs it as root)" >&2
        exit 1
    }
done
mkdir -p "$work"

# release_build SOURCE BUILD_DIR: a Release zantor of SOURCE in BUILD_DIR.
release_build() {
    local launcher=()
    if command -v ccache >/dev/null; then
        launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    fi
    if ! { cmake -S "$1" -B "$2" "${launcher[@]}" -DCMAKE_BUILD_TYPE=Release \
        -DZANTOR_BUILD_TESTS=OFF && cmake --build "$2" --target zantor -j"$(nproc)"; } \
        >"$work/build.log" 2>&1; then
        tail -30 "$work/build.log" >&2
        exit 1
    fi
}
zantor=${BENCH_ZANTOR:-}
if [ -z "$zantor" ]; then
    release_build . "$build"
    zantor=$PWD/$build/src/app/zantor
fi
# The baseline: a clone sharing this repository's objects, moved to the baseline commit.
baseline_commit=$(git rev-parse --verify "$baseline^{commit}")
old_zantor=${BENCH_BASELINE_ZANTOR:-}
if [ -z "$old_zantor" ]; then
    if [ ! -d "$work/baseline-src/.git" ]; then
        git clone --quiet --shared --no-checkout "$(git rev-parse --git-common-dir)" \
            "$work/baseline-src"
    fi
    git -C "$work/baseline-src" checkout --quiet --force --detach "$baseline_commit"
    release_build "$work/baseline-src" "$work/baseline-build"
    old_zantor=$work/baseline-build/src/app/zantor
fi

# The user's settings stay out of it: every run starts from the defaults.
export XDG_CONFIG_HOME=$work/config
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}

library=$work/library-${library_mb}mb.d
pcb_n=$work/pcb-$n.asc
pcb_4n=$work/pcb-$((4 * n)).asc
pages_small=$work/pages-28.d
pages_large=$work/pages-280.d
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
generate "$pages_small" library --decals 28 --seed 3
generate "$pages_large" library --decals 280 --seed 3

# cpu COMMAND...: runs the command BENCH_REPEAT times under /usr/bin/time and sets `cpu` (the
# median of user + sys seconds), `wall` (the median of the elapsed seconds) and `peak_mb` (the
# median of the maximum resident set size); a failing command ends the benchmark.
cpu=0
wall=0
peak_mb=0
median() {
    sort -g | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'
}
cpu() {
    local times=() walls=() peaks=() i
    for ((i = 0; i < repeat; i++)); do
        if ! /usr/bin/time -f '%U %S %M %e' -o "$work/time.txt" "$@" >"$work/stdout.txt" \
            2>"$work/stderr.txt"; then
            echo "failed: $*" >&2
            cat "$work/stderr.txt" >&2
            exit 1
        fi
        times+=("$(awk '{ printf "%.2f", $1 + $2 }' "$work/time.txt")")
        peaks+=("$(awk '{ printf "%.1f", $3 / 1024 }' "$work/time.txt")")
        walls+=("$(awk '{ print $4 }' "$work/time.txt")")
    done
    cpu=$(printf '%s\n' "${times[@]}" | median)
    wall=$(printf '%s\n' "${walls[@]}" | median)
    peak_mb=$(printf '%s\n' "${peaks[@]}" | median)
}

ratio() {
    awk -v a="$1" -v b="$2" 'BEGIN { if (b > 0) printf "%.2f", a / b; else print "n/a" }'
}

size_mb() {
    awk -v bytes="$(stat -L -c %s "$1")" 'BEGIN { printf "%.1f", bytes / 1e6 }'
}

echo "Machine:  $(uname -srm), $(nproc) cores, $(awk -F': ' '/model name/ { print $2; exit }' \
    /proc/cpuinfo)"
echo "Date:     $(date -u '+%Y-%m-%d %H:%M UTC')"
echo "Baseline: $(git log -1 --format='%h %s' "$baseline_commit" | cut -c1-90)"
echo "This:     $(git log -1 --format='%h %s' HEAD | cut -c1-90)$(git diff --quiet HEAD || echo ' (with changes)')"
echo "Files:    $library ($(size_mb "$library") MB)"
echo "          $pcb_n ($(size_mb "$pcb_n") MB), $pcb_4n ($(size_mb "$pcb_4n") MB)"
echo "CPU time: user + sys, median of $repeat runs"
echo

# Pages: CPU per page is the time of a job of many pages less that of a one-page job, divided by
# the pages in between, so that start-up does not count. PNG pages take long enough that 28 of
# them are measured; PDF and SVG pages take 280.
out=$work/out
first_decal=$("$zantor" list "$pages_small" 2>/dev/null | sed -n 1p)
printf '%-6s %14s %14s %8s\n' page "baseline ms" "this ms" ratio
for kind in pdf svg png; do
    pages_file=$pages_large
    pages=280
    if [ "$kind" = png ]; then
        pages_file=$pages_small
        pages=28
    fi
    declare -A per_page=()
    for which in old new; do
        binary=$zantor
        if [ "$which" = old ]; then binary=$old_zantor; fi
        rm -rf "$out" && mkdir -p "$out"
        cpu "$binary" print "$pages_file" --select "$first_decal" --output "$out/one.$kind"
        one=$cpu
        cpu "$binary" print "$pages_file" --output "$out/all.$kind"
        per_page[$which]=$(awk -v all="$cpu" -v one="$one" -v p="$pages" \
            'BEGIN { printf "%.2f", (all - one) * 1000 / (p - 1) }')
        if [ "$kind" = svg ]; then
            bytes=$(cat "$out"/all-*.svg | wc -c)
            if [ "$which" = old ]; then svg_old=$bytes; else svg_new=$bytes; fi
        fi
    done
    printf '%-6s %14s %14s %8s\n' "$kind" "${per_page[old]}" "${per_page[new]}" \
        "$(ratio "${per_page[new]}" "${per_page[old]}")"
done
echo "SVG files: $((svg_new / 280)) bytes a page, baseline $((svg_old / 280)):" \
    "$(ratio "$svg_new" "$svg_old") x"
rm -rf "$out"
echo

# Both read the file from the page cache.
cat "$library" "$pcb_n" "$pcb_4n" >/dev/null
# grep's CPU time is below the 10 ms /usr/bin/time shows: the elapsed time is given beside it.
cpu grep -c '' "$library"
grep_cpu=$cpu
grep_wall=$wall
cpu "$zantor" list "$library"
list_cpu=$cpu
list_wall=$wall
list_peak=$peak_mb
decals=$(wc -l <"$work/stdout.txt")
cpu "$old_zantor" list "$library"
echo "list of $(size_mb "$library") MB, $decals decals (CPU s / elapsed s):"
echo "    grep -c '' $grep_cpu / $grep_wall; zantor list $list_cpu / $list_wall" \
    "($(ratio "$list_wall" "$grep_wall") x grep elapsed, $list_peak MB peak);" \
    "baseline $cpu / $wall ($(ratio "$cpu" "$list_cpu") x this CPU)"
cpu grep -c '' "$pcb_4n"
grep_cpu=$cpu
cpu "$zantor" list "$pcb_4n"
echo "list of the PCB 4N file ($(wc -l <"$work/stdout.txt") decals used): $cpu s" \
    "($(ratio "$cpu" "$grep_cpu") x grep)"
echo

out=$work/out
rm -rf "$out"
mkdir -p "$out"
repeat=1
cpu "$zantor" print "$pcb_n" --kind decal --output "$out/n.$format"
print_n=$cpu
peak_n=$peak_mb
echo "print PCB N ($n decals, $format): $print_n s, $peak_n MB peak"
rm -rf "$out" && mkdir -p "$out"
cpu "$zantor" print "$pcb_4n" --kind decal --output "$out/4n.$format"
echo "print PCB 4N ($((4 * n)) decals, $format): $cpu s, $peak_mb MB peak"
echo "    4N / N time: $(ratio "$cpu" "$print_n") (linear: 4)," \
    "peak memory: $(ratio "$peak_mb" "$peak_n") (flat: 1)"
rm -rf "$out"
