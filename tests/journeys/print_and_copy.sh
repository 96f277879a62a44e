# Copies the picture of the plot, and prints it to a PDF whose text can be read.
print_and_copy() {
    start -p W || return 1
    cells 150 230 310 400
    key Return
    sleep 0.4
    press 156 46 # the icon that copies the plot
    sleep 0.6
    picture copy
    xclip -selection clipboard -t TARGETS -o 2>/dev/null | grep -q image/png || { fail "no picture on the clipboard"; return 1; }
    xclip -selection clipboard -t image/png -o >"$work/copied.png"
    identify "$work/copied.png" >/dev/null || { fail "the picture cannot be read"; return 1; }
    key p
    dialog || return 1
    picture output
    key a # the printer; where there is none, a file
    sleep 0.8
    picture printing
    text "$work/out.pdf"
    key Return
    until_true "nothing was printed" test -s "$work/out.pdf" || return 1
    pdftotext "$work/out.pdf" - | grep -q "Eta" || { fail "the print does not show the line: $(pdftotext "$work/out.pdf" - | head -20)"; return 1; }
    sleep 0.5
    picture printed
    key Escape
    sleep 0.3
    leave
}
