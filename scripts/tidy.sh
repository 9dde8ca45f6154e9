#!/usr/bin/env bash
# clang-tidy over every source of the program and the simulated gateway; fails at the first finding.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset tidy >/dev/null
run-clang-tidy -quiet -j "$(nproc)" -p build-tidy '/(src|simulator)/' >build-tidy/findings 2>&1 || {
    grep -E 'error:|warning:' build-tidy/findings
    exit 1
}
