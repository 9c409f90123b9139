# Everything, with g++ and assertions.
groups="build test"

check() {
    build development
    run plain ctest --preset development
    [ "$mode" != long ] || repeat build/development/bin/unit_tests 20
}

smoke() {
    smoke_preset development
    # The readers of other makers are packages too.
    ctest --preset development -R '^reader\.(ezdxf|ogrinfo)\.one$' >build/readers-smoke.log 2>&1 ||
        fail_with build/readers-smoke.log
}
