# SPDX-License-Identifier: MIT
# Shared by smoke and long. $scratch is a folder, in memory if possible; it is deleted when the
# script ends, with any files that an aborted target left in it.
scratch=$(mktemp -d -p "$([[ -w /dev/shm ]] && echo /dev/shm || echo "${TMPDIR:-/tmp}")" vymkit-fuzz-XXXXXX)
trap 'rm -rf "$scratch"' EXIT
hangs=120 # seconds for one input, on a busy computer; targets with a bound measure their processor time

# run_target BUILD_FOLDER TARGET CORPUS OPTION...: stores interesting inputs in the corpus, never
# in the seeds; stores a finding in the build's findings and ends the run.
run_target() {
  local build=$1 target=$2 corpus=$3 fuzz
  shift 3
  fuzz=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
  mkdir -p "$build/findings" "$scratch/$target"
  TMPDIR=$scratch/$target "$build/bin/$target" "$corpus" "$fuzz/seeds/$target" \
    -dict="$fuzz/words.dict" -artifact_prefix="$build/findings/$target-" -timeout=$hangs "$@"
}
