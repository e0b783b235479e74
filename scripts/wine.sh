# Wine, without what it says about itself. Sourced after scripts/screen.sh.
export WINEDEBUG=-all
export LC_ALL=C.UTF-8 # in which names of files beyond ASCII are kept
run=$PWD/cmake/windows/run-under-wine

# start_wine FOLDER: its drive and registry are kept there. One server for the whole script: between two
# programs it would end, and sometimes take the second one with it.
start_wine() {
    step "starting Wine"
    export WINEPREFIX=$1
    mkdir -p "$1"
    if [ ! -f "$1/has-started" ]; then # services start only in the second life of a new one
        "$run" wineboot --init
        touch "$1/has-started"
    fi
    /usr/lib/wine/wineserver -k -w || true # of a script that was killed, too
    /usr/lib/wine/wineserver -p
    last_words="/usr/lib/wine/wineserver -k"
    "$run" wineboot --init
    use_font 'DejaVu Sans' Tahoma 'MS Shell Dlg' 'MS Shell Dlg 2' 'Segoe UI'
    use_font 'DejaVu Sans Mono' 'Courier New' Courier
}

# use_font FONT NAME...: for the fonts of Windows, which are not here.
use_font() {
    local name
    for name in "${@:2}"; do
        "$run" reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$name" /d "$1" /f >/dev/null
    done
}
