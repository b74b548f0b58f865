# Sourced by ./run and ./test: packages and build, with progress a person can follow.

say() { printf '\033[1m==>\033[0m %s\n' "$*"; }
fail() { printf 'Σφάλμα: %s\n' "$*" >&2; exit 1; }

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"
    elif command -v sudo >/dev/null; then sudo "$@"
    else fail "χρειάζονται δικαιώματα διαχειριστή (root ή sudo) για: $*"
    fi
}

missing_packages() {
    local wanted
    wanted=$(sed -e 's/#.*//' -e '/^[[:space:]]*$/d' packaging/packages.txt "$@" | sort -u)
    comm -23 <(printf '%s\n' "$wanted") \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' 2>/dev/null | sed -n 's/^installed //p' | sort -u)
}

# Installs what of packages.txt (and of further lists given) isn't there.
install_packages() {
    command -v dpkg-query >/dev/null || fail "δεν βρέθηκε το dpkg· το σενάριο αυτό είναι για Debian 12"
    local missing
    missing=$(missing_packages "$@")
    [ -z "$missing" ] && return
    say "Εγκατάσταση πακέτων: $(echo $missing)"
    as_root apt-get update -qq || fail "το apt-get update απέτυχε· ελέγξτε τη σύνδεση με τα αποθετήρια"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null ||
        fail "δεν εγκαταστάθηκαν: $(echo $missing)"
    missing=$(missing_packages "$@")
    [ -z "$missing" ] || fail "λείπουν ακόμη τα πακέτα: $(echo $missing)"
}

# build PRESET [TARGET...]: configures once, then builds what changed.
build() {
    local preset=$1
    shift
    if [ ! -f "build/$preset/build.ninja" ]; then
        say "Ρύθμιση ($preset)"
        cmake --preset "$preset" >"build-$preset.log" 2>&1 || { cat "build-$preset.log" >&2; rm -f "build-$preset.log"; fail "η ρύθμιση απέτυχε"; }
        rm -f "build-$preset.log"
    fi
    say "Μεταγλώττιση ($preset)"
    local targets=()
    [ $# -gt 0 ] && targets=(--target "$@")
    cmake --build "build/$preset" "${targets[@]}" || fail "η μεταγλώττιση απέτυχε"
}
