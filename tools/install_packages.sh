#!/usr/bin/env bash
# Installs what is missing of the groups of tools/packages.txt that are named, such as "build run".
# Never asks and never fails hard: what cannot be installed is named in one line "missing: ...",
# and the exit status is then 1. Used by ./run and ./test.
set -u
list="$(dirname "${BASH_SOURCE[0]}")/packages.txt"

# The entries of the named groups, one a line, comments cut.
entries() {
    local wanted=" $* " group="" line
    while IFS= read -r line; do
        line="${line%%#*}"
        line="${line%"${line##*[![:space:]]}"}"
        case "$line" in
            "") ;;
            \[*\]) group="${line:1:${#line}-2}" ;;
            *) [[ "$wanted" == *" $group "* ]] && printf '%s\n' "$line" ;;
        esac
    done <"$list"
}

# Of the entries on standard input, the first choice of each that has nothing installed.
missing() {
    local line choice found
    local -A installed=()
    while read -r state name; do
        [ "$state" = installed ] && installed["$name"]=1
    done < <(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${names[@]}" 2>/dev/null)
    for line in "${wanted[@]}"; do
        found=""
        for choice in ${line//|/ }; do
            [ -n "${installed[$choice]:-}" ] && found=1
        done
        [ -n "$found" ] || printf '%s\n' "${line%% *}"
    done
}

mapfile -t wanted < <(entries "$@")
[ "${#wanted[@]}" -gt 0 ] || { echo "usage: $0 GROUP... (groups of $list)" >&2; exit 2; }
if ! command -v dpkg-query >/dev/null; then
    echo "missing: dpkg-query (this is no Debian system; install by hand: ${wanted[*]})" >&2
    exit 1
fi
names=()
for entry in "${wanted[@]}"; do
    for name in ${entry//|/ }; do names+=("$name"); done
done

mapfile -t absent < <(missing)
[ "${#absent[@]}" -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
        as_root=(sudo -n)
    else
        echo "missing: ${absent[*]}" >&2
        echo "(to install them, as root: apt-get install ${absent[*]})" >&2
        exit 1
    fi
fi

apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300)
log="$(mktemp)"
trap 'rm -f "$log"' EXIT
echo "installing: ${absent[*]}" >&2
"${apt[@]}" update >"$log" 2>&1 </dev/null
if ! "${apt[@]}" install -y --no-install-recommends "${absent[@]}" >>"$log" 2>&1 </dev/null; then
    # One package that cannot be had must not keep the others away.
    for name in "${absent[@]}"; do
        "${apt[@]}" install -y --no-install-recommends "$name" >>"$log" 2>&1 </dev/null
    done
fi
mapfile -t absent < <(missing)
if [ "${#absent[@]}" -gt 0 ]; then
    tail -n 5 "$log" >&2
    echo "missing: ${absent[*]}" >&2
    exit 1
fi
