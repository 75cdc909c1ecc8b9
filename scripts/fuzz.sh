#!/usr/bin/env bash
# Builds the fuzzers and lets each run for a while from its seeds, with the sanitizers.
#
# usage: scripts/fuzz.sh FOLDER SECONDS
#
# What a fuzzer finds is kept in FOLDER/found.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/common.sh
folder="$1"
seconds="$2"

configure fuzz
build "$folder" fuzz/all
mkdir -p "$folder/found"
status=0
met=0
for fuzzer in "$folder"/bin/fuzz_*; do
    [ -x "$fuzzer" ] || continue
    met=$((met + 1))
    name="$(basename "$fuzzer")"
    seeds="fuzz/corpus/${name#fuzz_}"
    grown="$folder/corpus/$name"
    mkdir -p "$grown"
    say "$name for $seconds s"
    "$fuzzer" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=1024 -print_final_stats=1 -verbosity=0 \
        -artifact_prefix="$folder/found/$name-" "$grown" "$seeds" || status=1
done
[ "$met" -gt 0 ] || fail "no fuzzer was built"
exit "$status"
