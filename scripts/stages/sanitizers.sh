# Everything with clang, stopped at a wrong memory access, a leak or undefined behaviour.
groups="build test"

check() {
    build sanitizers
    run sanitizers ctest --preset sanitizers
    [ "$mode" != long ] || repeat build/sanitizers/bin/unit_tests 20
}

smoke() {
    smoke_preset sanitizers
}
