# What the scripts share. Sourced, not run.

step() { printf '\n== %s\n' "$*"; }

# need PACKAGE...: installs those of the Debian packages that are missing.
need() {
    local missing=() package status
    for package in "$@"; do
        status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) || true
        [ "$status" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    step "installing ${missing[*]}"
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            echo "These packages are missing, and there is no sudo to install them: ${missing[*]}" >&2
            return 1
        }
        root=(sudo)
    fi
    "${root[@]}" apt-get update -q
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q -y --no-install-recommends "${missing[@]}"
}

# The fonts are for machines without a desktop.
BUILD_PACKAGES=(g++ cmake ninja-build qt6-base-dev qt6-svg-dev qt6-webengine-dev
                libhunspell-dev hunspell-en-us libchm-dev libcmark-dev libutf8proc-dev libpcre2-dev zlib1g-dev
                fonts-dejavu-core)

# The embedded browser does not start for root otherwise.
[ "$(id -u)" -ne 0 ] || export QTWEBENGINE_DISABLE_SANDBOX=1
# clang and its run-time library for the build with sanitizers, other readers of compiled help and another
# compiler of it (fp-utils), judges of electronic books and of PDF files; the last line for the Debian
# package.
TEST_PACKAGES=(libgtest-dev clang libclang-rt-14-dev libmspack-dev p7zip-full python3-chm fp-utils
               epubcheck unzip qpdf poppler-utils
               chromium nodejs tidy
               dpkg-dev file desktop-file-utils lintian appstream bash-completion)

# What drives the browser in tests, into build/web-tests; anew when another version is wanted.
web_modules() {
    command -v npm >/dev/null || need npm
    mkdir -p build/web-tests
    cmp -s tests/web/package-lock.json build/web-tests/installed && return
    step "installing what drives the browser"
    cp tests/web/package.json tests/web/package-lock.json build/web-tests/
    npm ci --prefix build/web-tests --ignore-scripts --no-audit --no-fund
    cp tests/web/package-lock.json build/web-tests/installed
}

# What cross-builds for Windows; see scripts/build-windows.
WINDOWS_PACKAGES=(g++-mingw-w64-x86-64-posix dpkg-dev googletest librsvg2-bin imagemagick
                  qt6-base-dev-tools nsis zip)
# What runs it.
WINE_PACKAGES=(wine64 wine xvfb openbox x11-utils xdotool imagemagick unzip)

# build PRESET [CMAKE_OPTION...]: configures and builds, saying little.
build() {
    local preset=$1
    shift
    step "building ($preset)"
    cmake --preset "$preset" "$@" >/dev/null
    cmake --build --preset "$preset"
}
