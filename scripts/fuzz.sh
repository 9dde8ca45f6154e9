#!/usr/bin/env bash
# fuzz.sh SECONDS: runs every fuzzer for that long, from the lines in fuzz/corpus. Ends at the first fault.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/set_up.sh

install_packages "${build_packages[@]}" "${check_packages[@]}"
configure fuzz
cmake --build --preset fuzz
for fuzzer in build-fuzz/bin/fuzz_*; do
    echo "$(basename "$fuzzer"), $1 s"
    found=$(mktemp -d)
    "$fuzzer" -max_total_time="$1" -print_final_stats=1 -verbosity=0 -artifact_prefix="$found/" "$found" fuzz/corpus
    rm -r "$found"
done
