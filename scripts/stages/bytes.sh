# The golden drawings, exported by libraries of both compilers, optimized and not.
groups="build test"

# Exports every golden scene with a library of this compiler and optimization, and compares the drawing.
compare() { # COMPILER OPTIMIZATION
    folder=build/bytes/$1$2
    mkdir -p build/bytes
    cmake -G Ninja -B "$folder" -DCMAKE_BUILD_TYPE= -DCMAKE_CXX_COMPILER="$1" -DCMAKE_CXX_FLAGS="$2" \
        -DRASTERPLANWRITER_BUILD_TOOL=OFF -DRASTERPLANWRITER_INSTALL=OFF >"$folder.log" 2>&1 || fail_with "$folder.log"
    cmake --build "$folder" --target export_host -- --quiet
    for scene in "$PWD"/tests/acceptance/golden/*.scene; do
        [ ! -e "${scene%.scene}.template" ] || continue
        (cd "$folder" && bin/export_host "$scene" >/dev/null)
        cmp "$folder/drawing.dxf" "${scene%.scene}.dxf"
        drawings=$((drawings + 1))
    done
    echo "$1 $2: the golden bytes"
}

check() {
    drawings=0
    optimizations="-O0 -O2"
    [ "$mode" != long ] || optimizations="-O0 -O1 -Os -O2 -O3"
    for compiler in g++ clang++; do
        for optimization in $optimizations; do
            compare "$compiler" "$optimization"
        done
    done
    if [ "$mode" = long ]; then
        passed=$((passed + drawings))
    else
        count bytes "$drawings" 0
    fi
}

smoke() {
    drawings=0
    compare clang++ -O2
}
