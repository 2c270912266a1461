# shellcheck shell=bash
# Configures and builds one preset, quietly. Sourced by ./run and ./test, which stand at the top
# of the tree: build_preset PRESET TARGET... says on standard error what it does, and only when
# there is something to do.

# A compiler cache that has no home to write to would fail every file.
[ -w "${HOME:-/nonexistent}" ] || export CCACHE_DISABLE=1

# What a build cannot do without; names what is missing.
have_build_tools() {
    local tool absent=()
    for tool in cmake ninja g++ pkg-config python3; do
        command -v "$tool" >/dev/null || absent+=("$tool")
    done
    [ "${#absent[@]}" -eq 0 ] && return 0
    echo "cannot build, these programs are missing: ${absent[*]}" >&2
    return 1
}

# configure_preset PRESET OPTION...: the log is shown only when it fails or warns.
configure_preset() {
    local preset="$1" log="build/$1.configure.log"
    shift
    mkdir -p build
    if ! cmake --preset "$preset" "$@" >"$log" 2>&1; then
        cat "$log" >&2
        echo "configuring failed" >&2
        return 1
    fi
    grep -i -A 4 'CMake Warning' "$log" >&2
    return 0
}

build_preset() {
    local preset="$1" log="build/$1.build.log"
    shift
    if ninja -C "build/$preset" -n "$@" 2>/dev/null | grep -q 'no work to do'; then
        return 0
    fi
    echo "building $preset (the first time takes some minutes) ..." >&2
    if [ -t 2 ]; then
        ninja -j "$(nproc)" -C "build/$preset" "$@" >&2 && return 0
    else
        ninja -j "$(nproc)" -C "build/$preset" "$@" >"$log" 2>&1 && return 0
        grep -v '^\[[0-9]*/[0-9]*\]' "$log" | tail -n 60 >&2
    fi
    echo "the build of $preset failed" >&2
    return 1
}
