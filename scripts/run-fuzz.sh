#!/usr/bin/env bash
# Runs every fuzz target of a fuzz build for a set time, each on a seed corpus made from demo/,
# data/ and fuzz/seeds/, and fails when a target finds a crash, a hang or a disagreement.
#
#   run-fuzz.sh <build-dir> <seconds-per-target> [targets-at-a-time]
#
# Everything generated stays in the build folder: corpus/<target> (the seeds and what libFuzzer
# adds to them, kept between runs), findings/<target> (the inputs that failed) and logs/.
# An input that failed belongs, once its cause is fixed, in tests/fuzz-regressions/<target>/,
# where the core tests replay it.
set -euo pipefail

if [ $# -lt 2 ] || [ $# -gt 3 ]; then
    echo "usage: $0 <build-dir> <seconds-per-target> [targets-at-a-time]" >&2
    exit 2
fi
cd "$(dirname "$0")/.."
build=$(cd "$1" && pwd)
seconds=$2
jobs=${3:-1}
corpus=$build/corpus
findings=$build/findings
logs=$build/logs
mkdir -p "$corpus" "$findings" "$logs"
# The checks write the inputs that must be files into a scratch folder below TMPDIR: in memory
# where the machine allows it, which makes the file targets twice as fast.
scratch_parent=/dev/shm
[ -d "$scratch_parent" ] && [ -w "$scratch_parent" ] || scratch_parent=$build
TMPDIR=$(mktemp -d "$scratch_parent/orrerion-fuzz.XXXXXX")
export TMPDIR
trap 'rm -rf -- "$TMPDIR"' EXIT

descriptors=(demo/game/ORBDescriptor/*.orb)

# seed <target> <file>...: copies the files into the target's corpus.
seed() {
    local target=$1
    shift
    mkdir -p "$corpus/$target"
    local f
    for f in "$@"; do cp -- "$f" "$corpus/$target/seed-$(basename -- "$f")"; done
}

seed ProfileEdits "${descriptors[@]}" demo/game/ORBInst.dat
seed Descriptor "${descriptors[@]}"
seed SystemList demo/game/SOLARSYS.TXT
seed SpecialCodes data/SPECIAL.LST
seed Cp1252 "${descriptors[@]}" demo/game/SOLARSYS.TXT demo/game/aliens.txt data/SPECIAL.LST
for dir in fuzz/seeds/*/; do
    if [ -d "$dir" ]; then seed "$(basename -- "$dir")" "$dir"*; fi
done

# The message lines of the demo descriptors, one "<key>=<line>" per file, and one line per code
# of SPECIAL.LST with its default argument.
mkdir -p "$corpus/MessageCodec"
awk -v out="$corpus/MessageCodec" '
    { sub(/\r$/, "") }
    /^(Message|Response|Beam)[^=]*=/ { n++; print > (out "/seed-line-" n); close(out "/seed-line-" n) }
' "${descriptors[@]}"
awk -v out="$corpus/MessageCodec" '
    { sub(/\r$/, "") }
    /^[%^*][^ ]* - / {
        code = substr($0, 1, index($0, " - ") - 1)
        arg = ""
        if (match($0, /\([^)]*\)/)) arg = substr($0, RSTART + 1, RLENGTH - 2)
        else if (match($0, /\[[^]]*\]/)) arg = substr($0, RSTART + 1, RLENGTH - 2)
        if (code ~ /^\*/) line = "MessageHail1=Hello*RTrade" code arg
        else if (code ~ /^\^/) line = "MessageHail1=Hello" code
        else line = "ResponseHail1=" code arg "Hello"
        n++
        print line > (out "/seed-code-" n); close(out "/seed-code-" n)
    }
' data/SPECIAL.LST

# fuzz <target>: runs one target; its exit status is the target's.
fuzz() {
    local target=$1
    mkdir -p "$findings/$target"
    # FUZZ_SEED 0 lets libFuzzer choose; a fixed one replays the same search (CI uses one, so a
    # change is judged by the inputs its parent was judged by).
    "$build/bin/fuzz_$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -seed="${FUZZ_SEED:-0}" -artifact_prefix="$findings/$target/" -print_final_stats=1 \
        "$corpus/$target" >"$logs/$target.log" 2>&1
}

# Up to `jobs` targets at a time; each leaves its exit status in logs/<target>.status.
targets=()
for binary in "$build"/bin/fuzz_*; do targets+=("${binary##*/fuzz_}"); done
for target in "${targets[@]}"; do
    while [ "$(jobs -rp | wc -l)" -ge "$jobs" ]; do wait -n || true; done
    (
        status=0
        fuzz "$target" || status=$?
        echo "$status" >"$logs/$target.status"
    ) &
done
wait

failed=()
for target in "${targets[@]}"; do
    log=$logs/$target.log
    if [ "$(cat "$logs/$target.status")" = 0 ]; then
        runs=$(awk '/^stat::number_of_executed_units:/ { print $2 }' "$log")
        printf '%-14s ok: %s inputs in %s s\n' "$target" "${runs:-?}" "$seconds"
    else
        printf '%-14s FAILED: see %s\n' "$target" "$log"
        grep -E 'Disagreement|ERROR: (AddressSanitizer|libFuzzer)|runtime error|Test unit written' \
            "$log" | head -n 5 | sed 's/^/    /'
        failed+=("$target")
    fi
done

if [ ${#failed[@]} -gt 0 ]; then
    echo "Fuzzing found problems in: ${failed[*]}"
    echo "The inputs are in $findings/<target>/; once fixed, keep each in"
    echo "tests/fuzz-regressions/<target>/ so that the core tests replay it."
    exit 1
fi
