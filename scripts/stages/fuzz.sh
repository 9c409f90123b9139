# Every fuzzer for some thousand inputs, from the inputs that are checked in.
groups="build test"

check() {
    # The same inputs at every run: a change is to blame for what it finds, not luck.
    limits="60 -seed=1 -runs=4000"
    [ "$mode" != long ] || limits=600
    names=$(./scripts/fuzz)
    # shellcheck disable=SC2046 # a list of words
    build fuzz $(echo "$names" | sed "s/^/fuzz_/")
    # shellcheck disable=SC2086 # a list of words
    echo "$names" | xargs -P "$(nproc)" -I{} ./scripts/fuzz --built {} $limits
    count fuzz "$(echo "$names" | wc -l)" 0
}

smoke() {
    build fuzz fuzz_format_fixed
    ./scripts/fuzz --built format_fixed 1
}
