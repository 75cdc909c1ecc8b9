# What ./run and ./check share: saying what is done, installing what is missing, configuring and building.
# shellcheck shell=bash

say() {
    printf '==> %s\n' "$*"
}

fail() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

jobs_count() {
    nproc 2>/dev/null || echo 2
}

# Prints the packages named in the given lists (scripts/packages/NAME.txt), one a line, marks kept.
listed_packages() {
    local list
    for list in "$@"; do
        sed -e 's/[[:space:]]*#.*//' -e '/^$/d' "scripts/packages/$list.txt"
    done
}

# Prints those of its arguments that are not installed.
missing_packages() {
    [ $# -gt 0 ] || return 0
    local installed package
    # It complains of every package that it never met, which is what is asked here.
    installed=" $( (dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true) |
        sed -n 's/^installed //p' | tr '\n' ' ') "
    for package in "$@"; do
        case "$installed" in
        *" $package "*) ;;
        *) echo "$package" ;;
        esac
    done
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif ! command -v sudo >/dev/null; then
        fail "packages are missing and neither root nor sudo is at hand. As root, run: $*"
    elif [ -t 0 ]; then
        sudo "$@"
    else
        sudo -n "$@"
    fi
}

apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300 "$@" </dev/null
}

# Those of the optional packages that the archive, as last fetched, can install beside what is there already.
offered_packages() {
    local package
    for package in "$@"; do
        # Read whole: a reader that leaves early looks like a failure of the one that writes.
        if [[ "$(apt-cache policy "$package" 2>/dev/null)" =~ Candidate:\ [^\(] ]] &&
            apt-get -s --no-install-recommends --no-remove install "$package" >/dev/null 2>&1; then
            echo "$package"
        fi
    done
}

# ensure_packages LIST...: installs what is missing of the named lists. Costs one dpkg query when nothing is.
ensure_packages() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        say "This is no Debian: taking for granted that these, or their like, are installed:" \
            "$(listed_packages "$@" | tr -d '?' | tr '\n' ' ')"
        return
    fi
    local required optional offered
    mapfile -t required < <(listed_packages "$@" | sed '/^?/d')
    mapfile -t optional < <(listed_packages "$@" | sed -n 's/^?//p')
    mapfile -t required < <(missing_packages "${required[@]}")
    mapfile -t optional < <(missing_packages "${optional[@]}")
    if [ ${#required[@]} -gt 0 ]; then
        say "Fetching the list of packages"
        apt_get update || say "Not every source answered; going on with what is known"
    fi
    mapfile -t offered < <(offered_packages "${optional[@]}")
    if [ $((${#required[@]} + ${#offered[@]})) -gt 0 ]; then
        say "Installing: ${required[*]} ${offered[*]}"
        apt_get install -y --no-install-recommends "${required[@]}" "${offered[@]}" ||
            fail "these packages could not be installed: ${required[*]} ${offered[*]}"
    fi
}

# configure PRESET [OPTION...]: quiet unless it fails.
configure() {
    local log
    log="$(mktemp)"
    say "Configuring: cmake --preset $*"
    if ! cmake --preset "$@" >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}

# build FOLDER [TARGET...]
build() {
    local folder="$1"
    shift
    say "Building in $folder"
    cmake --build "$folder" --parallel "$(jobs_count)" ${1:+--target "$@"}
}
