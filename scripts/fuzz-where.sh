#!/usr/bin/env bash
# Fuzzes the WHERE-text translator for a bounded time: scripts/fuzz-where.sh [SECONDS] [SEED].
# Builds bench/fuzz_where in build/ and runs it; exits with 1 when it found a crash, an
# accepted clause the engine cannot read, or a round slower than a second.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
seed="${2:-}"
bash scripts/build.sh --target fuzz_where
exec timeout --signal=KILL "$((seconds + 120))" build/bench/fuzz_where "$seconds" $seed
