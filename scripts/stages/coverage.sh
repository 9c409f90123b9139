# Which lines the tests run; see scripts/coverage.
groups="build test coverage"

check() {
    ./scripts/coverage
    passed=$((passed + 1))
}

smoke() {
    build coverage format_fixed_proof
    ./scripts/coverage --smoke
}
