# Adds a point, takes it back, and finds in the saved file the data of before.
undo() {
    start -p W || return 1
    cells 150 230 310
    key Return
    cells 402.75
    key Return
    sleep 0.3
    picture added
    key ctrl+z
    sleep 0.4
    picture undone
    savedas "$work/undone.w" || return 1
    holds "$work/undone.w" 310 || return 1
    grep -aq 402.75 "$work/undone.w" && { fail "the point is still there"; return 1; }
    leave
}
