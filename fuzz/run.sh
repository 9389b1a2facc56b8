#!/usr/bin/env bash
# Fuzzes the reader of the original engine's files: fuzz/run.sh [seconds], or fuzz/run.sh merge to
# minimise build-fuzz/work into fuzz/corpus/corpus.tar.xz.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=$root/build-fuzz
fuzzer=$build/bin/jetreader_fuzzer
mkdir -p "$build/work" "$build/seeds" "$build/artifacts"
if [ "${1:-}" = merge ]; then
  merged=$(mktemp -d)
  "$fuzzer" -merge=1 -max_len=400000 -timeout=10 "$merged" "$build/work"
  tar -C "$merged" -cf - . | xz -9e > "$root/fuzz/corpus/corpus.tar.xz"
  rm -rf "$merged"
  exit 0
fi
tar -xJf "$root/fuzz/corpus/corpus.tar.xz" -C "$build/work"
find "$root/tests/data/jet" -name '*.mdb' -size -400k -exec cp {} "$build/seeds/" \;
find "$root/tests/data/jet" -name '*.brk' -exec cp {} "$build/seeds/" \;
cd "$build"
exec nice -n 19 "$fuzzer" -fork=1 -ignore_crashes=1 -ignore_timeouts=1 -ignore_ooms=1 -max_len=400000 \
  -timeout=10 -rss_limit_mb=2048 -artifact_prefix=artifacts/ -max_total_time="${1:-3600}" work seeds
