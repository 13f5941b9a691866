#!/usr/bin/env bash
# Configures (once) and builds the whole tree incrementally in build/.
set -euo pipefail
cd "$(dirname "$0")/.."
export CCACHE_BASEDIR="$PWD"
if [ ! -f build/CMakeCache.txt ]; then
  cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Debug
fi
cmake --build build "$@"
