# Everything, with g++ and assertions.
groups="build test"

check() {
    build development
    run plain ctest --preset development
    [ "$mode" = long ] || return 0
    repeat build/development/bin/unit_tests 20
    # The suite fails every tenth allocation only.
    /usr/bin/python3 tests/memory/exhaust.py --injector build/development/tests/memory/libfailing_malloc.so \
        --tool build/development/bin/rasterplan --host build/development/bin/library_host \
        --host build/development/bin/library_host_c --pictures tests/tool/data
}

smoke() {
    smoke_preset development
    # The readers of other makers are packages too.
    ctest --preset development -R '^reader\.(ezdxf|ogrinfo)\.one$' >build/readers-smoke.log 2>&1 ||
        fail_with build/readers-smoke.log
}
