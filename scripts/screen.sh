# A screen of a script's own, and an author at it. Sourced, not run.

# What ends with the script; its files lie in $scratch.
scratch=$(mktemp -d)
children=()
last_words=true # a command
at_end() {
    $last_words || true
    kill "${children[@]}" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$scratch"
}
trap at_end EXIT

# start_screen WIDTH HEIGHT: with a window manager.
start_screen() {
    unset WAYLAND_DISPLAY
    Xvfb -displayfd 3 -screen 0 "$1x$2x24" -dpi 96 3>"$scratch/display" 2>/dev/null &
    children+=($!)
    until [ -s "$scratch/display" ]; do
        kill -0 "${children[-1]}"
        sleep 0.1
    done
    DISPLAY=:$(<"$scratch/display")
    export DISPLAY
    openbox >/dev/null 2>&1 &
    children+=($!)
    for _ in {1..50}; do # until it is there
        xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break
        sleep 0.1
    done
}

# window NAME: waits for a window with this title and gives it the focus.
window() {
    timeout "${patience:-10}" xdotool search --sync --onlyvisible --name "$1" windowactivate --sync >/dev/null || {
        echo "There is no window $1." >&2
        return 1
    }
    sleep 0.4
}
keys() { xdotool key --delay 40 "$@"; sleep 0.3; }
words() { xdotool type --delay 15 "$1"; sleep 0.3; }

# picture NAME [TITLE]: of the screen, or of one window with its frame, in the folder $pictures.
picture() {
    if [ $# -gt 1 ]; then
        import -frame -window "$(xdotool search --onlyvisible --name "$2" | tail -n 1)" "$pictures/$1.png"
    else
        import -window root "$pictures/$1.png"
    fi
    step "$1.png"
}

# film NAME TITLE: pictures of a window, taken by frame, become NAME.gif in the folder $pictures.
film() {
    film_name=$1
    film_window=$(xdotool search --onlyvisible --name "$2" | tail -n 1)
    film_frames=0
    mkdir -p "$scratch/film"
}
# frame [COUNT]: as it looks now, for so many times an eighth of a second.
frame() {
    import -window "$film_window" "$scratch/film/one.png"
    for ((i = 0; i < ${1:-1}; ++i)); do
        film_frames=$((film_frames + 1))
        cp "$scratch/film/one.png" "$(printf '%s/film/%04d.png' "$scratch" "$film_frames")"
    done
}
# typed TEXT: types it, a few letters for each picture.
typed() {
    local rest=$1
    while [ -n "$rest" ]; do
        xdotool type --delay 15 -- "${rest:0:4}"
        rest=${rest:4}
        sleep 0.2
        frame
    done
}
film_end() {
    rm "$scratch/film/one.png"
    convert -delay 12 -loop 0 "$scratch/film/"*.png -resize 800x +dither -colors 48 +remap -fuzz 3% -layers Optimize \
        "$pictures/$film_name.gif"
    rm -r "$scratch/film"
    step "$film_name.gif"
}
