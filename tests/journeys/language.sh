# Changes the language by its icon: the drop-downs carry the new words, and the settings keep them.
language() {
    start -p W || return 1
    press 949 46
    dialog || return 1
    picture page
    key l
    sleep 0.5
    picture languages
    key c # Deutsch
    sleep 0.5
    picture chosen
    key Escape
    sleep 0.6
    picture german
    until_true "the settings do not name the language" inifile VXLNGDEU || return 1
    leave || return 1
    inifile VXLNGDEU || { fail "the language was lost at the end"; return 1; }
}
inifile() { grep -aqF -- "$1" "$XDG_CONFIG_HOME/OmniVANEX/VANEX.INI"; }
