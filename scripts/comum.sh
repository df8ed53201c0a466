# Shared by the scripts: the packages of the distribution that the program and its tests need, by name.
# shellcheck shell=bash

raiz=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

pacotes_para_construir=(
    build-essential cmake ninja-build ccache
    qt6-base-dev qt6-base-dev-tools qt6-svg-dev libqt6svg6 qt6-qpa-plugins qt6-translations-l10n
    libsqlitecpp-dev libsqlite3-dev libicu-dev libxcb1-dev libcups2-dev libfreexl-dev
    libpq-dev # speaks with a database server
    libqrencode-dev # draws the contact's code
    libcmark-dev # makes the pages of the manual
    fonts-dejavu-core
)
# A screen in memory with a window manager, for a machine without a display.
pacotes_para_ecra_virtual=(xvfb openbox dbus xdotool x11-utils imagemagick)
# What takes the manual's pictures: the screen, a clock that stands where it is told, a smaller palette.
pacotes_para_retratos=("${pacotes_para_ecra_virtual[@]}" python3 faketime pngquant)
pacotes_para_testar=(
    "${pacotes_para_ecra_virtual[@]}" trayer python3-xlib python3-dbus python3-gi python3 desktop-file-utils appstream openssl poppler-utils python3-xlrd xz-utils
    cups-daemon cups-client cups-filters libreoffice-calc-nogui libreoffice-writer-nogui
    fonts-droid-fallback # the one font among these that has Chinese
    # Servers of tests/servidores: mail, address books, presence, and a client of the latter in a terminal of its own.
    dovecot-pop3d radicale xandikos prosody finch tmux
    vdirsyncer # another program's copy of an address book
    postgresql iproute2 # the database server, and a network of its own for it
    zbar-tools # reads the contact's code from its picture
    faketime # a clock that a test moves under the running program
    # A sound server, whose own output is recorded, and the desktop's starter of entries.
    pulseaudio pulseaudio-utils libglib2.0-bin
)

# What makes a package of the distribution and looks at it.
pacotes_para_empacotar=(dpkg-dev desktop-file-utils appstream lintian git)

# The cross compiler for Windows, what makes its libraries, and what runs and packs programs of that system.
pacotes_para_windows=(
    g++-mingw-w64-x86-64-posix ccache cmake ninja-build dpkg-dev
    qt6-base-dev qt6-base-dev-tools icu-devtools tcl
    wine64 wine xvfb xauth nsis zip xz-utils qt6-translations-l10n
)

# Installs those of the named packages that are missing, and says which.
instalar_pacotes() {
    local em_falta=() pacote
    for pacote in "$@"; do
        dpkg-query -W -f='${Status}' "$pacote" 2>/dev/null | grep -q '^install ok installed$' || em_falta+=("$pacote")
    done
    [ ${#em_falta[@]} -eq 0 ] && return 0
    echo "Installing ${#em_falta[@]} Debian packages: ${em_falta[*]}"
    local como_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "There is no sudo here. Run this as root, and then the script once more:" >&2
            echo "    apt-get install --no-install-recommends ${em_falta[*]}" >&2
            return 1
        fi
        como_root=(sudo)
    fi
    "${como_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
    "${como_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        "${em_falta[@]}" >/dev/null
}

# construir <preset> [target]: configures and builds, quietly unless something goes wrong.
construir() {
    cd "$raiz" || return 1
    cmake --preset "$1" >"/tmp/morvex-configure.$$" 2>&1 || { cat "/tmp/morvex-configure.$$"; return 1; }
    rm -f "/tmp/morvex-configure.$$"
    cmake --build --preset "$1" ${2:+--target "$2"}
}
