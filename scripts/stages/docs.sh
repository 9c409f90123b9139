# The site: every public name has its comment, every link of the guide its page.
groups="docs"

make_site() {
    ./scripts/docs >build/docs.log 2>&1 || fail_with build/docs.log
    sed -n '/say what they throw/s/^/docs: /p' build/docs.log
}

check() {
    make_site
    passed=$((passed + 1))
}

smoke() {
    make_site
}
