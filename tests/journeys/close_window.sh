# Closes the window by the desktop: with nothing to lose the program ends, with data it asks and stays on Cancel.
close_window() {
    start -p W || return 1
    key alt+F4
    until_true "the program did not end" gone || return 1
    start -p W || return 1
    cells 150 230 310
    key Return
    sleep 0.4
    key alt+F4
    dialog || return 1
    picture asked
    key Escape
    sleep 0.4
    gone && { fail "the data were given up"; return 1; }
    leave
}
