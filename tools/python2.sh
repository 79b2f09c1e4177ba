# Sourced after tools/setup.sh: Python 2.7 and the sources of Boost.Python, which Debian 12 no longer packages.
# They are packages of the release before, from the mirrors that this machine is set up with, checked against Debian's
# own keyring, and unpacked into build/python2, which all builds share. The machine's apt, its lists and its packages
# stay as they are.
#   KT_PYTHON2_ROOT=PREFIX  an installed Python 2.7 instead; then only Boost.Python's sources are fetched
#   KT_SCRIPTING=OFF        no scripting: nothing is fetched
# shellcheck shell=bash

kt_python2=$kt_root/build/python2
kt_python2_suite=bullseye
kt_python2_packages=(libpython2.7-dev libpython2.7 libpython2.7-stdlib libpython2.7-minimal python2.7-minimal)
kt_python2_recipe=1 # counted up whenever what is made here changes
kt_debian_keyring=${KT_DEBIAN_KEYRING:-/usr/share/keyrings/debian-archive-keyring.gpg}

# need_python2: makes build/python2 where it is not there yet. Without it everything but scripting is built, so a
# failure is told in one line and is none of the caller's.
need_python2()
{
    [ "${KT_SCRIPTING:-AUTO}" != OFF ] || return 0
    python2_is_ready && return 0
    mkdir -p "$kt_python2" || { say "cannot make the folder $kt_python2, so there is no scripting"; return 0; }
    (
        flock 9
        python2_is_ready && exit 0
        why=$(make_python2 3>&1 >&2) && exit 0
        say "building without scripting: there is no Python 2.7 for it ($why);" \
            "KT_PYTHON2_ROOT=PREFIX points at an installed one, KT_SCRIPTING=OFF does without"
    ) 9>"$kt_python2/.lock" 4>&2 </dev/null
    return 0
}

python2_recipe() { echo "$kt_python2_recipe ${KT_PYTHON2_ROOT:-own}"; }

python2_is_ready() { [ "$(cat "$kt_python2/ready" 2>/dev/null)" = "$(python2_recipe)" ]; }

# make_python2: on failure says why on descriptor 3.
make_python2()
{
    local -a mirrors
    local mirror tried=
    command -v apt-get >/dev/null || { echo "no apt-get here to fetch it with" >&3; return 1; }
    [ -r "$kt_debian_keyring" ] || { echo "no keyring $kt_debian_keyring to check it against" >&3; return 1; }
    mapfile -t mirrors < <(apt_mirrors)
    [ ${#mirrors[@]} -gt 0 ] || { echo "apt has no Debian mirror set up" >&3; return 1; }
    rm -rf "$kt_python2"/{ready,prefix,boost,fetched}
    : >"$kt_python2/log"
    say "fetching Python 2.7 and the sources of Boost.Python (once, into build/python2)"
    for mirror in "${mirrors[@]}"; do
        if fetch_python2 "$mirror" && unpack_python2; then
            rm -rf "$kt_python2/fetched"
            python2_recipe >"$kt_python2/ready"
            return 0
        fi
        tried+="${tried:+, }$mirror"
    done >>"$kt_python2/log" 2>&1
    rm -rf "$kt_python2/fetched"
    echo "tried the suite $kt_python2_suite of $tried: $(python2_reason)" >&3
    return 1
}

python2_reason()
{
    grep -m 1 '^E: ' "$kt_python2/log" || tail -n 1 "$kt_python2/log" | grep . || echo "see $kt_python2/log"
}

# apt_mirrors: where this machine gets its Debian release's main component from, one address a line.
apt_mirrors()
{
    local etc=${KT_APT_ETC:-/etc/apt} file
    for file in "$etc/sources.list" "$etc"/sources.list.d/*.list; do
        [ -r "$file" ] && mirrors_of_list <"$file"
    done | awk '!seen[$0]++'
    for file in "$etc"/sources.list.d/*.sources; do
        [ -r "$file" ] && mirrors_of_stanzas <"$file"
    done | awk '!seen[$0]++'
}

# The one-line format: deb [ OPTIONS ] ADDRESS SUITE COMPONENT...
mirrors_of_list()
{
    awk '{ sub(/#.*/, "") }
        $1 == "deb" {
            sub(/\[[^]]*\]/, "")
            $0 = $0
            for (i = 4; i <= NF; ++i)
                if ($i == "main" && $3 !~ /-|\// && $2 !~ /^cdrom:/)
                    print $2
        }'
}

# The format in stanzas: fields, whose values may go on in indented lines.
mirrors_of_stanzas()
{
    awk '
        function finish(    i, n, words)
        {
            if (field["types"] ~ /(^| )deb( |$)/ && field["components"] ~ /(^| )main( |$)/ &&
                tolower(field["enabled"]) !~ /no|false|off|0/ && has_release(field["suites"])) {
                n = split(field["uris"], words, " ")
                for (i = 1; i <= n; ++i)
                    print words[i]
            }
            delete field
        }
        function has_release(suites,    i, n, words)
        {
            n = split(suites, words, " ")
            for (i = 1; i <= n; ++i)
                if (words[i] !~ /-|\//)
                    return 1
            return 0
        }
        /^#/ { next }
        /^[ \t]*$/ { finish(); next }
        /^[^ \t]/ { name = tolower($0); sub(/:.*/, "", name); sub(/^[^:]*:/, "") }
        { gsub(/[ \t]+/, " "); field[name] = field[name] " " $0 " " }
        END { finish() }'
}

# fetch_python2 MIRROR: the packages and the source archive, into build/python2/fetched.
fetch_python2()
{
    local work=$kt_python2/fetched
    rm -rf "$work"
    mkdir -p "$work"/{state/lists/partial,cache/archives/partial,files} || return 1
    : >"$work/status"
    {
        echo "deb [signed-by=$kt_debian_keyring] $1 $kt_python2_suite main"
        echo "deb-src [signed-by=$kt_debian_keyring] $1 $kt_python2_suite main"
    } >"$work/sources.list"
    # Read after the machine's own settings (its proxy is needed), so that nothing of the machine is touched.
    cat >"$work/apt.conf" <<CONF
#clear APT::Update::Post-Invoke;
#clear APT::Update::Post-Invoke-Success;
#clear APT::Update::Pre-Invoke;
#clear Acquire::IndexTargets::deb::DEP-11;
#clear Acquire::IndexTargets::deb::CNF;
Dir::Etc::SourceList "$work/sources.list";
Dir::Etc::SourceParts "/dev/null";
Dir::Etc::Preferences "/dev/null";
Dir::Etc::PreferencesParts "/dev/null";
Dir::State "$work/state";
Dir::State::Status "$work/status";
Dir::Cache "$work/cache";
Acquire::Languages "none";
Acquire::Retries "2";
APT::Sandbox::User "";
CONF
    private_apt update || return 1
    say "  lists fetched" 2>&4
    if [ -z "${KT_PYTHON2_ROOT:-}" ]; then
        (cd "$work/files" && private_apt download "${kt_python2_packages[@]}") || return 1
        say "  Python 2.7 fetched" 2>&4
    fi
    (cd "$work/files" && private_apt source --download-only --tar-only boost1.74)
}

private_apt() { apt-get -q -y -c "$kt_python2/fetched/apt.conf" -o Dpkg::Use-Pty=0 "$@"; }

unpack_python2()
{
    local files=$kt_python2/fetched/files package
    mkdir -p "$kt_python2/prefix" "$kt_python2/boost" || return 1
    for package in "$files"/*.deb; do
        [ ! -e "$package" ] || dpkg -x "$package" "$kt_python2/prefix" || return 1
    done
    tar -xf "$files"/boost1.74_*.orig.tar.* -C "$kt_python2/boost" --strip-components=1 \
        --wildcards --no-wildcards-match-slash \
        '*/libs/python/src' '*/LICENSE_1_0.txt' || return 1
    [ -n "${KT_PYTHON2_ROOT:-}" ] || compile_stdlib
    return 0
}

# Compiled now, so that no run of the interpreter has to; it could do without.
compile_stdlib()
{
    local usr=$kt_python2/prefix/usr
    PYTHONHOME=$usr "$usr/bin/python2.7" -E -m compileall -q -x '/(test|tests|lib2to3)/' "$usr/lib/python2.7"
}
