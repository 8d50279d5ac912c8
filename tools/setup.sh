# Installs what is missing and configures a build. Sourced by ./run, ./test and ./bench from the root.

say() { printf '==> %s\n' "$*"; }

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

install_packages() {
    local wanted=() name
    while read -r name; do
        case "$name" in '' | '#'*) continue ;; esac
        is_installed "$name" || wanted+=("$name")
    done < tools/debian-packages.txt
    # node and npm may have come from elsewhere than Debian; any will do.
    command -v node > /dev/null || wanted+=(nodejs)
    command -v npm > /dev/null || wanted+=(npm)
    [ ${#wanted[@]} -eq 0 ] && return
    say "Installing Debian packages: ${wanted[*]}"
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${wanted[@]}" > /dev/null
}

install_node_modules() {
    local stamp=node_modules/.quillet-lock
    cmp -s package-lock.json "$stamp" && return
    say "Installing the highlighter, the icons and the parsers (npm ci)"
    npm ci --ignore-scripts --no-audit --no-fund --loglevel=error
    cp package-lock.json "$stamp"
}

# configure PRESET
configure() {
    [ -f "build/$1/build.ninja" ] && return
    say "Configuring the $1 build"
    cmake --preset "$1" > /dev/null
}

# build PRESET TARGET...
build() {
    local preset=$1
    shift
    say "Building ($preset)"
    cmake --build --preset "$preset" --target "$@"
}

set_up() {
    install_packages
    install_node_modules
}
