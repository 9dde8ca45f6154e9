#!/usr/bin/env bash
# clang-tidy over every source of the program and the simulated gateway; fails at any finding, and tells them all.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset tidy >/dev/null
# What Qt's generators make is no source of ours.
run-clang-tidy -quiet -j "$(nproc)" -p build-tidy "$PWD/(src|simulator)/.*\.cpp$" >build-tidy/findings 2>build-tidy/progress || {
    grep -E 'error:|warning:' build-tidy/findings | sort -u
    exit 1
}
