# Opens a file, adds a point, saves, starts again with the file and finds the point.
edit_and_reopen() {
    printf '11\n22\n33\n' >"$work/start.txt"
    "$(dirname "$VANEX")/vanexc" "$work/start.txt" -p W --save "$work/edit.w" || { fail "no file to start from"; return 1; }
    start "$work/edit.w" || return 1
    [[ $(title) == *edit.w* ]] || { fail "the title is $(title)"; return 1; }
    key End
    key Down
    cells 44.5
    key Return
    sleep 0.4
    picture edited
    key ctrl+s
    holds "$work/edit.w" 44.5 || return 1
    leave || return 1
    start "$work/edit.w" || return 1
    picture reopened
    leave
}
