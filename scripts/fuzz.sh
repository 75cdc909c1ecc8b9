#!/usr/bin/env bash
# Builds the fuzzers and lets each run for a while from its seeds, with the sanitizers.
#
# usage: scripts/fuzz.sh FOLDER SECONDS [SECONDS_OF_WHOLE_WAY]
#
# The one that goes the whole way of a calendar, from its file to its reminders, is slow and may be given longer. An input
# that takes a minute is one that hangs: under the sanitizers and beside other work, some rightly take fifteen seconds.
#
# What a fuzzer finds is kept in FOLDER/found.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh
folder="$1"
seconds="$2"
whole_way="${3:-$seconds}"

# What is freed is kept back by the sanitizers for a while, by default more than the rest of a fuzzer takes: its memory
# would reach the limit below without a fault.
export ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}quarantine_size_mb=64"

configure fuzz
build "$folder" fuzz/all
mkdir -p "$folder/found"

# fuzz FUZZER: alone it prints when it is done, so that what runs at the same time does not mix.
fuzz() {
    local name seeds grown status=0 seconds="$seconds"
    name="$(basename "$1")"
    [ "$name" != fuzz_whole_way ] || seconds="$whole_way"
    seeds="fuzz/corpus/${name#fuzz_}"
    grown="$folder/corpus/$name"
    mkdir -p "$grown"
    "$1" -max_total_time="$seconds" -timeout=60 -rss_limit_mb=1024 -print_final_stats=1 -verbosity=0 \
        -artifact_prefix="$folder/found/$name-" "$grown" "$seeds" >"$folder/$name.log" 2>&1 || status=1
    say "$name for $seconds s"
    cat "$folder/$name.log"
    return "$status"
}

running=()
status=0

# Nearly all take as long, so the oldest is the next to be done.
wait_for_oldest() {
    wait "${running[0]}" || status=1
    running=("${running[@]:1}")
}

met=0
for fuzzer in "$folder"/bin/fuzz_*; do
    [ -x "$fuzzer" ] || continue
    met=$((met + 1))
    if [ ${#running[@]} -ge "$(jobs_count)" ]; then
        wait_for_oldest
    fi
    fuzz "$fuzzer" &
    running+=($!)
done
[ "$met" -gt 0 ] || fail "no fuzzer was built"
while [ ${#running[@]} -gt 0 ]; do
    wait_for_oldest
done
exit "$status"
