# Everything with clang, stopped at a wrong memory access, a leak or undefined behaviour.
groups="build test"

check() {
    build sanitizers
    # What compilers and package tools do there is seen in other stages.
    others='^(package\.|PublicHeaders\.|PairTable\.)'
    [ "$mode" != long ] || others='^$'
    run sanitizers ctest --preset sanitizers -E "$others"
    [ "$mode" != long ] || repeat build/sanitizers/bin/unit_tests 20
}

smoke() {
    smoke_preset sanitizers
}
