# What the groups of window tests share: starting a face, typing, looking.

checks=0
failures=0
patience=100 # looks of a tenth of a second

skip() {
    echo "$1"
    exit 77
}

# check WHAT COMMAND...: counts, and says what failed together with the command's output.
check() {
    local what=$1
    shift
    checks=$((checks + 1))
    if ! "$@" >"$work/check.log" 2>&1; then
        failures=$((failures + 1))
        echo "FAILED: $what"
        cat "$work/check.log"
    fi
}

finish() {
    echo "checks: $checks"
    [ "$checks" -gt 0 ] && [ "$failures" -eq 0 ]
    exit
}

# eventually COMMAND...: until it succeeds; its last output when it does not.
eventually() {
    local look
    for look in $(seq $patience); do
        "$@" >"$work/look.log" 2>&1 && return 0
        sleep 0.1
    done
    cat "$work/look.log"
    return 1
}

stop_wine() { WINEPREFIX=$PROTCSV_WINEPREFIX wineserver -k -w 2>/dev/null; }

stop_everything() {
    stop_wine
    [ ${#helpers[@]} -eq 0 ] || kill "${helpers[@]}" 2>/dev/null
}

window_manager_runs() { xprop -root _NET_SUPPORTING_WM_CHECK | grep "window id"; }

start_display() {
    local program
    for program in Xvfb xdotool xprop openbox; do
        command -v $program >/dev/null || skip "$program is missing"
    done
    Xvfb -displayfd 3 -screen 0 1280x1024x24 3>"$work/display" >/dev/null 2>&1 &
    helpers+=($!)
    eventually test -s "$work/display" || skip "Xvfb opens no display"
    DISPLAY=:$(cat "$work/display")
    export DISPLAY PROTCSV_KEEP_DISPLAY=1
    openbox >/dev/null 2>&1 &
    helpers+=($!)
    eventually window_manager_runs || skip "openbox does not start"
}

prepare_prefix() { scripts/wine wineboot -i >/dev/null 2>&1; }

set_resolution() { # dots per inch
    scripts/wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null
    stop_wine
}

# show FACE [ARGUMENT]: starts a face of form_demo; what it tells is in $told.
show() {
    told=$work/told.txt
    : >"$told"
    scripts/wine "$programs/form_demo.exe" "$@" >"$told" 2>/dev/null &
    shown=$!
}

opens() { # TITLE: the window is there, and then has the keyboard
    look "$1" || { echo "no window: $1"; cat "$told"; return 1; }
    eventually has_keyboard "$1"
}
has_keyboard() { xdotool getactivewindow getwindowname | grep "^$1"; }

# look TITLE [SECONDS]: the window and its controls in $seen.
look() {
    seen=$work/seen.txt
    scripts/wine "$programs/window_dump.exe" "$@" 2>/dev/null | tr -d '\r' >"$seen"
    [ -s "$seen" ]
}

# Fields of a line of $seen.
text_field=3 state_field=4 sight_field=5 focus_field=6
value() { awk -F '\t' -v id="$1" -v field="$2" 'NR > 1 && $2 == id { print $field }' "$seen"; }
is_now() { # ID FIELD VALUE
    look "$title" 1
    [ "$(value "$1" "$2")" = "$3" ] || { echo "control $1 is '$(value "$1" "$2")', not '$3'"; return 1; }
}
holds() { eventually is_now "$1" $text_field "$2"; }
is_on() { eventually is_now "$1" $state_field on; }
is_off() { eventually is_now "$1" $state_field off; }
is_visible() { eventually is_now "$1" $sight_field visible; }
is_hidden() { eventually is_now "$1" $sight_field hidden; }
has_focus() { eventually is_now "$1" $focus_field focus; }
window_is() { # TITLE on|off
    look "$1" 1
    [ "$(head -n 1 "$seen" | cut -f 4)" = "$2" ] || { cat "$seen"; return 1; }
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

keys() { xdotool key --delay 40 "$@"; }
letters() { xdotool type --delay 40 "$1"; }

# A box says a text that holds TEXT, keeps the form from input, and goes when answered.
box_says() {
    opens Pruefung && grep -qF "$1" "$seen" || { echo "the box does not say: $1"; cat "$seen"; return 1; }
    eventually window_is "$title" off || return 1
    keys Return
    eventually window_is "$title" on
}

photograph() { # NAME
    [ -n "$pictures" ] || return 0
    mkdir -p "$pictures"
    import -window root "$pictures/$1.png"
}

# Visible controls lie in the window, no two of them on one another; frames are around others.
in_place() {
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
        exit !(x * x <= 4 && y * y <= 4) }' "$work/form.txt"
}

last_currency_is_on_view() { is_now 116 $text_field "$(sed -n 's/^currency: //p' "$told" | tail -n 1)"; }

click() { # ID: the middle of a control
    look "$title" 1
    local place
    place=$(awk -F '\t' -v id="$1" 'NR > 1 && $2 == id { print int($7 + $9 / 2), int($8 + $10 / 2) }' "$seen")
    # shellcheck disable=SC2086
    xdotool mousemove --sync $place click 1
}
