# Facades on four threads at once, with clang's look-out for data races.
groups="build test"

check() {
    build threads thread_tests
    run threads ctest --preset threads -R '^Threads\.'
    [ "$mode" != long ] || build/threads/bin/thread_tests --gtest_brief=1 --gtest_filter='Threads.*' \
        --gtest_repeat=100 >build/threads-long.log 2>&1 || fail_with build/threads-long.log
}

smoke() {
    smoke_preset threads
}
