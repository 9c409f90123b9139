# Everything that runs the library again in a process whose locale writes a decimal comma.
groups="build test"

german() { # COMMAND...
    [ -d build/locales/de_DE.UTF-8 ] ||
        { mkdir -p build/locales && localedef --no-archive -i de_DE -f UTF-8 build/locales/de_DE.UTF-8; }
    env "LOCPATH=$PWD/build/locales" LC_ALL=de_DE.UTF-8 RASTERPLAN_TEST_LOCALE=de_DE.UTF-8 "$@"
}

check() {
    build development
    # What compilers and package tools do there depends on no locale of a host.
    others='^(package\.|docs\.|PublicHeaders\.|PairTable\.|FormatFixedProof$)'
    [ "$mode" != long ] || others='^$'
    run german german ctest --preset development -E "$others"
}

smoke() {
    smoke_preset development german
}
