# Every fuzzer for some seconds, from the inputs that are checked in.
groups="build test"

check() {
    seconds=15
    [ "$mode" != long ] || seconds=600
    names=$(./scripts/fuzz)
    # shellcheck disable=SC2046 # a list of words
    build fuzz $(echo "$names" | sed "s/^/fuzz_/")
    echo "$names" | xargs -P "$(nproc)" -I{} ./scripts/fuzz --built {} "$seconds"
    count fuzz "$(echo "$names" | wc -l)" 0
}

smoke() {
    build fuzz fuzz_format_fixed
    ./scripts/fuzz --built format_fixed 1
}
