# Adds a point, takes it back, and finds in the saved file the data of before.
undo() {
    start -p W || return 1
    cells 150 230 310
    key Return
    cells 999
    key Return
    sleep 0.3
    picture added
    key ctrl+z
    sleep 0.4
    picture undone
    key ctrl+s
    sleep 0.6
    text "$work/undone.w"
    key Return
    holds "$work/undone.w" 310 || return 1
    grep -aq 999 "$work/undone.w" && { fail "the point is still there"; return 1; }
    leave
}
