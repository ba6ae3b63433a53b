# For the tests of installations: builds and runs the README's first program as a host would. The settings come in the
# environment, see CMakeLists.txt.

write_first_program() {
    local folder=$1
    rm -rf "$folder"
    mkdir -p "$folder"
    awk '/^```cpp$/ { inside = 1; next } inside && /^```$/ { exit } inside' "$SOURCE_DIR/README.md" >"$folder/main.cpp"
    if ! grep -q "int main" "$folder/main.cpp"; then
        echo "The first \`\`\`cpp block of README.md is not a program."
        return 1
    fi
    cp "$SOURCE_DIR/tests/install/consumer/CMakeLists.txt" "$folder"
}

# It must succeed and print one line.
run_first_program() {
    local output
    output=$("$@")
    output=${output//$'\r'/}
    echo "$output"
    if [[ $(wc -l <<<"$output") -ne 1 || -z $output ]]; then
        echo "The program did not print one line."
        return 1
    fi
}

build_with_cmake() {
    local folder=$1 prefix=$2 compiler=(-DCMAKE_CXX_COMPILER="$CXX")
    if [[ -n $TOOLCHAIN ]]; then
        compiler=(-DCMAKE_TOOLCHAIN_FILE="$TOOLCHAIN")
    fi
    cmake -G Ninja -S "$folder" -B "$folder/build" "${compiler[@]}" \
        -DCMAKE_BUILD_TYPE="$BUILD_TYPE" -DCMAKE_PREFIX_PATH="$prefix"
    cmake --build "$folder/build"
    used_library_of "$folder/build" "$prefix"
}

# A library that happens to be installed elsewhere on the machine must not stand in.
used_library_of() {
    local build=$1 prefix=$2
    if ! grep -q "^TnGraphics_DIR:PATH=$prefix/" "$build/CMakeCache.txt"; then
        grep "^TnGraphics_DIR" "$build/CMakeCache.txt"
        echo "The package was not taken from $prefix."
        return 1
    fi
}

build_with_pkg_config() {
    local folder=$1 prefix=$2 flags
    flags=$(PKG_CONFIG_PATH="$prefix/$LIBDIR/pkgconfig" pkg-config --cflags --libs TnGraphics)
    # shellcheck disable=SC2086 # the flags are several words
    "$CXX" -std=c++20 "$folder/main.cpp" $flags -o "$folder/plain"
}

# Both ways on Linux, and the program upon the library that lies there.
use_on_linux() {
    local folder=$1 prefix=$2
    write_first_program "$folder"
    build_with_cmake "$folder" "$prefix"
    run_first_program "$folder/build/consumer"
    build_with_pkg_config "$folder" "$prefix"
    LD_LIBRARY_PATH="$prefix/$LIBDIR" run_first_program "$folder/plain"
}

use_on_windows() {
    local folder=$1 prefix=$2
    shift 2
    write_first_program "$folder"
    build_with_cmake "$folder" "$prefix"
    run_first_program "$@" "$folder/build/consumer.exe"
}
