# What the scripts share. To be sourced by bash; leaves the caller in the project's root folder.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root" || exit 1
jobs=$(nproc 2>/dev/null || echo 2)

# quietly TITLE LOG COMMAND...: runs COMMAND with all its output in the file LOG; prints the title,
# how it ended and the time it took. When it failed, shows the end of LOG. Returns COMMAND's status.
quietly() {
  local title=$1 log=$2 start=$SECONDS status=0
  shift 2
  mkdir -p "$(dirname "$log")"
  printf '%s ... ' "$title"
  "$@" >"$log" 2>&1 </dev/null || status=$?
  if ((status == 0)); then
    printf 'done (%d s)\n' $((SECONDS - start))
  else
    printf 'FAILED with status %d (%d s)\n' "$status" $((SECONDS - start))
    tail -n 200 "$log"
    printf '(the whole output is in %s)\n' "$log"
  fi
  return "$status"
}

# build PRESET [TARGET...]: configures and builds build/PRESET; without targets, all of it.
build() {
  local preset=$1
  shift
  cmake --preset "$preset" && cmake --build --preset "$preset" --parallel "$jobs" ${1:+--target "$@"}
}
