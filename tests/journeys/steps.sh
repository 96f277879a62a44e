# Steps of the journeys. A step that fails leaves its reason and returns 1.

reason=
program=
work=

fail() {
    reason=$*
    return 1
}

# begin JOURNEY: a home of its own, settings that skip what only the first start shows.
begin() {
    name=$1
    reason=
    work=$(TMPDIR= mktemp -d /tmp/journey-XXXXXX) || exit 1
    export HOME=$work XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data XDG_RUNTIME_DIR=$work/run TMPDIR=$work
    mkdir -p "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_RUNTIME_DIR"
    chmod 700 "$XDG_RUNTIME_DIR"
}

# start [ARGUMENT...]: the program, past agreement and welcome, its main window in front.
start() {
    (cd "$work" && exec "$VANEX" "$@" >"$work/out" 2>"$work/err") &
    program=$!
    local tries
    for tries in $(seq 100); do
        kill -0 "$program" 2>/dev/null || { fail "the program ended: $(cat "$work/err")"; return 1; }
        xdotool search --onlyvisible --pid "$program" >/dev/null 2>&1 && break
        sleep 0.05
    done
    sleep 0.3
    front
    key y # the agreement
    sleep 1.2
    picture welcome
    key Return
    sleep 0.4
    main=$(xdotool search --onlyvisible --pid "$program" --name OmniVANEX | tail -1)
    [ -n "$main" ] || { fail "no main window"; return 1; }
}

# front: the newest window of the program gets the keys.
front() { xdotool windowactivate --sync "$(xdotool search --onlyvisible --pid "$program" | tail -1)" 2>/dev/null; }
key() { xdotool key --clearmodifiers --delay 40 "$@"; sleep 0.15; }
keys() { local one; for one in "$@"; do key "$one"; done; }
text() { xdotool type --clearmodifiers --delay 25 -- "$1"; sleep 0.1; }
cells() { local one; for one in "$@"; do text "$one"; key Return; done; }
press() { xdotool mousemove --window "$main" "$1" "$2" click "${3:-1}"; sleep 0.3; }
title() { xdotool getwindowname "$main"; }
picture() { import -window root "$PICTURES/journey-$name-$1.png"; }

# dialog: waits for a window over the main one, and for its first paint.
dialog() {
    until_true "no dialog came" over || return 1
    sleep 0.4
}
over() { [ "$(xdotool getactivewindow)" != "$main" ]; }

# savedas FILE: Ctrl+S, the name, Enter; the file is there.
savedas() {
    key ctrl+s
    dialog || return 1
    text "$1"
    key Return
    until_true "$1 was not written" test -s "$1"
}

# until WHAT COMMAND...: waits up to 5 s for the command to be true.
until_true() {
    local what=$1 tries
    shift
    for tries in $(seq 100); do
        "$@" >/dev/null 2>&1 && return 0
        sleep 0.05
    done
    fail "$what"
}

# holds FILE TEXT: the file comes to hold the text.
holds() { until_true "$1 does not hold $2" grep -aqF -- "$2" "$1"; }

# leave: the exit sequence, unsaved data given up.
leave() {
    key Escape
    key y
    sleep 0.3
    kill -0 "$program" 2>/dev/null && key n
    until_true "the program did not end" gone
}
gone() { ! kill -0 "$program" 2>/dev/null; }
ended() { gone || fail "the program is still there"; }

finish() {
    kill -0 "$program" 2>/dev/null && kill "$program"
    wait "$program" 2>/dev/null
    rm -rf "$work"
}
