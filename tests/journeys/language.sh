# Changes the language by its icon: the drop-downs carry the new words.
language() {
    start -p W || return 1
    xdotool mousemove --window "$main" 949 46
    sleep 0.3
    xdotool click 1
    sleep 0.8
    picture page
    key l
    sleep 0.4
    picture languages
    key g
    sleep 0.4
    key Escape
    sleep 0.6
    picture german
    leave
}
