# The build for 64-bit Windows, under Wine.
groups="build test windows"

check() {
    # For the test that both systems' tools write the same bytes: in a whole run it is there already.
    build development rasterplan
    cmake --preset windows -DRASTERPLANWRITER_NATIVE_TOOL="$PWD/build/development/bin/rasterplan" >/dev/null
    build windows
    run windows ctest --preset windows --verbose
}

smoke() {
    smoke_preset windows
}
