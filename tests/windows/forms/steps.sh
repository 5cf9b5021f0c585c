# What the parts of the group window-forms share: starting a face, asking what it told, geometry.

programs=out/build/win64/tests/windows/forms

set_resolution() { # dots per inch
    resolution=$1
    scripts/wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null
    stop_wine
    start_desktop
}

# show FACE [ARGUMENT]: starts a face of form_demo; what it tells is in $told.
show() {
    told=$PROT_GROUP_FOLDER/told.txt
    : >"$told"
    scripts/wine "$programs/form_demo.exe" "$@" >"$told" 2>/dev/null &
    shown=$!
}

tells() { eventually grep -qxF "$1" "$told" || { echo "not told: $1"; cat "$told"; return 1; }; }
told_times() { # LINE COUNT, also after a moment for more of them
    tells "$1"
    sleep 0.3
    [ "$(grep -cxF "$1" "$told")" -eq "$2" ] || { cat "$told"; return 1; }
}
ends() {
    eventually grep -qx end "$told" || { echo "still there"; cat "$told"; return 1; }
    wait $shown
}

# A box says a text that holds TEXT, keeps the form from input, and goes when answered.
box_says() {
    opens Pruefung && grep -qF "$1" "$seen" || { echo "the box does not say: $1"; cat "$seen"; return 1; }
    eventually window_is "$title" off || return 1
    keys Return
    eventually window_is "$title" on
}

# Visible controls lie in the window, no two of them on one another; frames are around others.
in_place() { eventually is_in_place; }
is_in_place() {
    look "$title" 0
    awk -F '\t' '
        NR == 1 { left = $7; top = $8; right = $7 + $9; bottom = $8 + $10; next }
        $5 != "visible" { next }
        $7 < left || $8 < top || $7 + $9 > right || $8 + $10 > bottom { print "outside: " $0; bad = 1 }
        $9 == 0 || $10 == 0 { print "no size: " $0; bad = 1 }
        { line[NR] = $0; l[NR] = $7; t[NR] = $8; r[NR] = $7 + $9; b[NR] = $8 + $10; n[++count] = NR }
        END {
            for (i = 1; i <= count; ++i) for (j = i + 1; j <= count; ++j) {
                x = n[i]; y = n[j]
                apart = r[x] <= l[y] || r[y] <= l[x] || b[x] <= t[y] || b[y] <= t[x]
                around = l[x] < l[y] && t[x] < t[y] && r[x] > r[y] && b[x] > b[y]
                if (!apart && !around) { print "overlap: " line[x] " / " line[y]; bad = 1 }
            }
            exit bad || count < 2
        }' "$seen"
}

# Frames (group boxes, class BUTTON) contain the first control behind them.
frames_stand_around() {
    awk -F '\t' '
        frame { if ($7 > l && $8 > t && $7 + $9 < r && $8 + $10 < b) ++good; frame = 0 }
        $2 == 100 || $2 == 110 { frame = 1; l = $7; t = $8; r = $7 + $9; b = $8 + $10 }
        END { exit good != 2 }' "$seen"
}

# in_the_middle OWNER-PLACE: of the form that was seen last, within a pixel for each rounding.
in_the_middle() {
    awk -F '\t' -v owner="$1" 'NR == FNR && FNR == 1 {
        split(owner, o, " ")
        x = (o[1] + o[3] / 2) - ($7 + $9 / 2); y = (o[2] + o[4] / 2) - ($8 + $10 / 2)
        print x, y
        exit !(x * x <= 4 && y * y <= 4) }' "$PROT_GROUP_FOLDER/form.txt"
}

last_currency_is_on_view() { is_now 116 $text_field "$(sed -n 's/^currency: //p' "$told" | tail -n 1)"; }

click() { # ID: the middle of a control
    look "$title" 0
    local place
    place=$(awk -F '\t' -v id="$1" 'NR > 1 && $2 == id { print int($7 + $9 / 2), int($8 + $10 / 2) }' "$seen")
    # shellcheck disable=SC2086
    xdotool mousemove --sync $place click 1
}
