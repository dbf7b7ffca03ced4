#!/usr/bin/env bash
# Runs every libFuzzer target of a fuzz build for a fixed time each, from a
# corpus of the bundled files of its format and its built-in seeds, and
# prints per target the executions, the coverage edges and the crashes.
#   tools/scripts/fuzz.sh BUILD_DIR SECONDS [TARGET...]
# Crash, timeout and out-of-memory inputs land in BUILD_DIR/fuzz/crashes/<target>/;
# copy the ones worth keeping to fuzz/regressions/<target>/, which the test
# suite replays.
set -euo pipefail

build=${1:?usage: fuzz.sh BUILD_DIR SECONDS [TARGET...]}
seconds=${2:?usage: fuzz.sh BUILD_DIR SECONDS [TARGET...]}
shift 2
src=$(cd "$(dirname "$0")/../.." && pwd)
work=$build/fuzz
support=$src/share/support
samples=$src/share/samples

# The bundled files each target reads as they are.
bundled() {
  case $1 in
    dictionary_xml) echo "$support/config.xml $support/HistoryData.xml $support/TolvLanguage.xml" ;;
    uiconfig_xml)   echo "$support/UIConfig.xml" ;;
    library_xml)    find "$support/DwgLib" -name '*.DML' -o -name '*.DMLS' ;;
    project_xml)    find "$samples" -name '*.xml' ;;
    project_db)     echo "$support/template.orpx"; find "$samples" -name '*.orpx' ;;
    pattern_file)   echo "$support/tolv.pat $support/tolv.lin" ;;
  esac
}

targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for b in "$build"/bin/fuzz_*; do [ -x "$b" ] && targets+=("$(basename "$b" | sed 's/^fuzz_//')"); done
fi

# ASan holds freed memory in a quarantine of 256 MB by default, which alone
# would trip the 256 MB limit on memory; a small one still catches use after
# free while the limit catches what the readers themselves take.
export ASAN_OPTIONS=${ASAN_OPTIONS:-quarantine_size_mb=16:detect_leaks=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}

summary=()
status=0
for t in "${targets[@]}"; do
  bin=$build/bin/fuzz_$t
  seeds=$work/seeds/$t corpus=$work/corpus/$t crashes=$work/crashes/$t log=$work/logs/$t.log
  rm -rf "$seeds" "$crashes" && mkdir -p "$seeds" "$corpus" "$crashes" "$(dirname "$log")"
  for f in $(bundled "$t"); do cp "$f" "$seeds/"; done
  if [ -d "$src/fuzz/regressions/$t" ]; then
    find "$src/fuzz/regressions/$t" -type f ! -name '.*' -exec cp {} "$seeds/" \;
  fi
  TOLV_FUZZ_WRITE_SEEDS=$seeds "$bin" >/dev/null
  dict=()
  [ -f "$src/fuzz/dicts/$t.dict" ] && dict=(-dict="$src/fuzz/dicts/$t.dict")
  echo "==== fuzz_$t: $seconds s from $(ls "$seeds" | wc -l) seeds (log: $log)"
  # A crash stops libFuzzer; start again for what is left of the time, a
  # few times at most, so that one crash does not hide the rest.
  : >"$log"
  start=$SECONDS runs=0
  while :; do
    left=$((seconds - (SECONDS - start)))
    [ "$left" -ge 1 ] && [ "$runs" -lt 4 ] || break
    runs=$((runs + 1))
    if "$bin" "$corpus" "$seeds" "${dict[@]}" -max_total_time="$left" -rss_limit_mb=256 -timeout=1 \
         -artifact_prefix="$crashes/" -print_final_stats=1 >>"$log" 2>&1; then
      break
    fi
  done
  execs=$(awk -F: '/^stat::number_of_executed_units/ {n += $NF} END {print n + 0}' "$log")
  cov=$(grep -oE 'cov: [0-9]+' "$log" | tail -1 | awk '{print $2}')
  found=$(find "$crashes" -type f | wc -l)
  [ "$found" -eq 0 ] || status=1
  summary+=("$(printf '%-20s %12s %8s %8s' "$t" "$execs" "${cov:-?}" "$found")")
done

echo
printf '%-20s %12s %8s %8s\n' target executions cov crashes
printf '%s\n' "${summary[@]}"
[ "$status" -eq 0 ] || echo "crash inputs: $work/crashes/<target>/ (save them under fuzz/regressions/<target>/)"
exit "$status"
