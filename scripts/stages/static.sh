# The optimized static library: hosts that contain it, installed, and packed with the shared one.
groups="build test"

check() {
    build shared
    if [ "$mode" = long ]; then
        build static
    else
        build static RasterPlanWriter RasterPlanWriterC rasterplan acceptance_tests
    fi
    run static ctest --preset static -R '^(package\.|Host|GoldenScenes|Scenes.Golden)'
    [ "$mode" != long ] || ctest --preset static -j "$(nproc)" -E '^package\.' >build/static-long.log 2>&1 ||
        fail_with build/static-long.log
}

smoke() {
    smoke_preset static
}
