# The unit tests under memcheck: it sees the use of values that nobody has set, which the sanitizers do not.
groups="build test valgrind"

# memcheck is the process then, so that the running program's own file is not the test program.
filter="-ModulePath.IsTheRunningProgram"
# Seconds as they are, and so minutes here; the same code runs in quick tests beside them.
slow="ParseNumber.AgreesWithTheStandardOnRandomTexts"
slow="$slow:PrintedValue.IsWhatTheTextOfRandomNumbersReadsBackAs"
slow="$slow:TemplateStream.TemplateCutAtAnyByteGivesTheDrawingsBeginning"
slow="$slow:ArcTangent.LiesWithinTheLastBitsOfTheStandardOne"

# Runs a program of tests, a share of them on every processor.
memcheck() { # PROGRAM ARGUMENT...
    log="build/valgrind-$(basename "$1")"
    rm -f "$log".*
    shares=$(nproc)
    # shellcheck disable=SC2016 # for the inner shell
    seq 0 $((shares - 1)) | xargs -P "$shares" -I{} sh -c 'log=$1 && shift && "$@" >"$log" 2>&1' - "$log.{}" \
        env "GTEST_TOTAL_SHARDS=$shares" GTEST_SHARD_INDEX={} valgrind --quiet --error-exitcode=9 --leak-check=full \
        --suppressions=tests/memcheck.supp "$@" || { cat "$log".* && exit 1; }
    tests=$(sed -n 's/^\[  PASSED  \] \([0-9]*\) tests*\.$/\1/p' "$log".* | paste -sd+)
    skipped=$(sed -n 's/^\[  SKIPPED \] \([0-9]*\) tests*.*$/\1/p' "$log".* | paste -sd+)
    skipped=$((${skipped:-0}))
    tests=$((${tests:-0} + skipped))
}

check() {
    if [ "$mode" = long ]; then
        build development
        memcheck build/development/bin/unit_tests --gtest_filter="$filter"
        passed=$((passed + tests))
        memcheck build/development/bin/fault_tests
        passed=$((passed + tests))
        return
    fi
    build development unit_tests
    memcheck build/development/bin/unit_tests --gtest_filter="$filter:$slow"
    count valgrind "$tests" "$skipped"
}

smoke() {
    build development thread_tests
    memcheck build/development/bin/thread_tests --gtest_filter='Threads.LastOfAll*'
    echo "valgrind: one program runs"
}
