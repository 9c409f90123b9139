# The build for 64-bit Windows, under Wine.
groups="build test windows"

check() {
    build windows
    run windows ctest --preset windows
}

smoke() {
    smoke_preset windows
}
