# The site: every public name has its comment, every link of the guide its page.
groups="docs"

check() {
    ./scripts/docs >build/docs.log 2>&1 || fail_with build/docs.log
    passed=$((passed + 1))
}

smoke() {
    check
}
