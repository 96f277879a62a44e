# Types five lives, one of them a suspension, and reads the fit off the saved report.
type_and_read() {
    start -p W || return 1
    picture empty
    cells 150 230 310 -400 480
    key Return
    sleep 0.5
    picture fit
    savedas "$work/typed.w" || return 1
    holds "$work/typed.w" 150 || return 1
    # The console program reads the same file to the same line: an independent way to the numbers.
    "$(dirname "$VANEX")/vanexc" "$work/typed.w" --report "$work/report.txt" || { fail "vanexc cannot read it"; return 1; }
    holds "$work/report.txt" "Total =5" || return 1
    leave
}
