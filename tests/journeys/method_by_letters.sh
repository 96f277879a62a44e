# Opens the drop-downs by letters: the distribution to Lognormal, and sees another plot.
method_by_letters() {
    start -p W || return 1
    cells 150 230 310 400 480
    key Return
    sleep 0.4
    import -window "$main" "$work/before.png"
    key a
    picture analysis
    key i
    sleep 0.4
    picture distribution
    key l
    sleep 0.3
    key Escape
    sleep 0.5
    import -window "$main" "$work/after.png"
    picture chosen
    cmp -s "$work/before.png" "$work/after.png" && { fail "the plot is the same"; return 1; }
    leave
}
