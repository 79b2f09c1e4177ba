# Sourced by ./run, ./test and the developer scripts: messages, packages, configuring, building.
# Everything here speaks on the standard error stream, so that a program's own output stays clean.
# shellcheck shell=bash

kt_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
kt_script=$(basename "$0")

say() { printf '%s: %s\n' "$kt_script" "$*" >&2; }

fail()
{
    say "$*"
    exit 1
}

# as_root COMMAND...: with sudo where one is not root; sudo may ask for a password only on a terminal.
as_root()
{
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif [ -t 0 ]; then
        sudo "$@"
    else
        sudo -n "$@"
    fi
}

apt_get() { as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o Dpkg::Use-Pty=0 "$@"; }

# packages_of SET...: the packages of these sets, one a line.
packages_of()
{
    awk -v sets=" $* " '!/^#/ && NF && index(sets, " " $1 " ") { print $2 }' "$kt_root/tools/packages.txt"
}

# missing_packages SET...: those of them that are not installed.
missing_packages()
{
    packages_of "$@" | while read -r package; do
        dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || echo "$package"
    done
}

# have_candidates PACKAGE...: apt knows where to get each of them, so its lists need no update.
have_candidates()
{
    local package policy
    for package; do
        policy=$(LC_ALL=C apt-cache policy "$package" 2>/dev/null)
        [[ $policy == *"Candidate: "[^\(]* ]] || return 1
    done
}

# need_packages SET...: installs what is missing of the sets.
need_packages()
{
    local -a missing
    if ! command -v apt-get >/dev/null; then
        say "no apt-get here, so no packages are installed; tools/packages.txt lists what is needed"
        return
    fi
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    [ "$(id -u)" = 0 ] || command -v sudo >/dev/null ||
        fail "packages are missing, and there is no sudo to install them with: ${missing[*]}"
    say "installing the packages ${missing[*]}"
    mkdir -p "$kt_root/build"
    local log=$kt_root/build/packages.log updated=
    : >"$log" || fail "cannot write $log"
    if ! have_candidates "${missing[@]}"; then
        update_lists "$log"
        updated=yes
    fi
    apt_get install --no-install-recommends "${missing[@]}" 2>&1 | follow "$log" && return
    # The lists may be older than the mirror: once more with new ones.
    if [ -z "$updated" ]; then
        update_lists "$log"
        apt_get install --no-install-recommends "${missing[@]}" 2>&1 | follow "$log" && return
    fi
    fail "could not install the packages ${missing[*]}: $(reason "$log")"
}

update_lists()
{
    say "fetching the package lists"
    apt_get update 2>&1 | follow "$1" || fail "apt-get update failed: $(reason "$1")"
}

# reason LOG: why it failed. Of sudo's lines the last one tells, of apt's the first.
reason()
{
    grep '^sudo: ' "$1" | tail -n 1 | grep . || grep -m 1 '^E: ' "$1" || echo "see $1"
}

# follow LOG: keeps what comes in, and shows a sign of life now and then.
follow()
{
    local line n=0
    while IFS= read -r line; do
        printf '%s\n' "$line" >>"$1"
        case $line in
            Get:* | "Setting up "*) n=$((n + 1)) && [ $((n % 40)) != 0 ] || printf '  %s\n' "$line" >&2 ;;
        esac
    done
}

# build_preset PRESET [TARGET...]: configures where needed and builds; one build at a time in a folder.
build_preset()
{
    local preset=$1 folder=$kt_root/build/$1
    shift
    mkdir -p "$folder" || fail "cannot make the folder $folder"
    (
        flock 9
        cd "$kt_root" || exit 1
        configure_preset "$preset" && compile_preset "$preset" "$@"
    ) 9>"$folder/.lock" </dev/null || exit 1
}

configure_preset()
{
    local folder=build/$1
    # Ninja looks after changed CMake files by itself, but not after the presets and what scripts are built with.
    local scripting="${KT_SCRIPTING:-AUTO} ${KT_PYTHON2_ROOT:-} $(cat build/python2/ready 2>/dev/null)"
    [ -e "$folder/build.ninja" ] && [ "$folder/.configured" -nt CMakePresets.json ] &&
        [ "$(cat "$folder/.configured")" = "$scripting" ] && return
    say "configuring $folder"
    local -a launcher=()
    command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    if ! cmake --preset "$1" "${launcher[@]}" "-DKT_SCRIPTING=${KT_SCRIPTING:-AUTO}" \
        "-DKT_PYTHON2_ROOT=${KT_PYTHON2_ROOT:-}" >"$folder/configure.log" 2>&1; then
        sed -n '/CMake Error/,$p' "$folder/configure.log" | head -n 30 >&2
        fail "cmake could not configure $folder: see $folder/configure.log"
    fi
    echo "$scripting" >"$folder/.configured"
}

compile_preset()
{
    local preset=$1 target
    shift
    local -a targets=()
    for target; do
        targets+=(--target "$target")
    done
    if [ -t 2 ]; then
        cmake --build --preset "$preset" -j "$(nproc)" "${targets[@]}" >&2
    else
        NINJA_STATUS='[%f/%t] ' cmake --build --preset "$preset" -j "$(nproc)" "${targets[@]}" 2>&1 | sparsely
    fi || fail "building build/$preset failed: the compiler's words are above"
}

# sparsely: of Ninja's progress every 25th line; of everything else all.
sparsely()
{
    local line n=0
    while IFS= read -r line; do
        case $line in
            "ninja: no work to do.") ;;
            \[[0-9]*/[0-9]*\]\ *) n=$((n + 1)) && [ $((n % 25)) != 0 ] || printf '  %s\n' "$line" >&2 ;;
            *) printf '%s\n' "$line" >&2 ;;
        esac
    done
}
