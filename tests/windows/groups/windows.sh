# What the groups share that look at windows: a display of their own, keys, what a window holds. To be read behind
# common.sh.

helpers=()
patience=200 # looks of a twentieth of a second

# eventually COMMAND...: until it succeeds; its last output when it does not.
eventually() {
    local look
    for look in $(seq $patience); do
        "$@" >"$PROT_GROUP_FOLDER/look.log" 2>&1 && return 0
        sleep 0.05
    done
    cat "$PROT_GROUP_FOLDER/look.log"
    return 1
}

# Programs that run already have another display, or none; none may be left.
stop_wine() { WINEPREFIX=$PROTCSV_WINEPREFIX wineserver -k -w 2>/dev/null; }

stop_everything() {
    stop_wine
    [ ${#helpers[@]} -eq 0 ] || kill "${helpers[@]}" 2>/dev/null
}

window_manager_runs() { xprop -root _NET_SUPPORTING_WM_CHECK | grep "window id"; }

start_display() {
    local program number=$PROT_GROUP_FOLDER/display
    for program in Xvfb xdotool xprop openbox; do
        command -v $program >/dev/null || skip "$program is missing"
    done
    trap stop_everything EXIT
    trap 'exit 1' INT TERM
    stop_wine
    rm -f "$number"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 3>"$number" >/dev/null 2>&1 &
    helpers+=($!)
    eventually test -s "$number" || skip "Xvfb opens no display"
    DISPLAY=:$(cat "$number")
    export DISPLAY PROTCSV_KEEP_DISPLAY=1
    openbox >/dev/null 2>&1 &
    helpers+=($!)
    eventually window_manager_runs || skip "openbox does not start"
    start_desktop
}

# Before the first window: programs that start together may each make a desktop.
start_desktop() { scripts/wine cmd /c exit; }

# look TITLE [SECONDS]: the window whose title begins so, and its controls, in $seen (see window_dump.cpp).
look() {
    local line
    seen=$PROT_GROUP_FOLDER/seen.txt
    : >"$seen"
    if [ -z "${watcher_PID:-}" ]; then
        coproc watcher { exec scripts/wine out/build/win64/tests/windows/forms/window_dump.exe 2>/dev/null; }
    fi
    printf '%s %s\n' "${2:-10}" "$1" >&"${watcher[1]}" || return 1
    while IFS= read -r -t 20 line <&"${watcher[0]}" && [ "$line" != . ]; do printf '%s\n' "$line"; done >"$seen"
    [ -s "$seen" ]
}

opens() { # TITLE: the window is there, and then has the keyboard
    look "$1" || { echo "no window: $1"; return 1; }
    eventually has_keyboard "$1"
}
has_keyboard() { xdotool getactivewindow getwindowname | grep "^$1"; }
closes() { eventually is_gone "$1"; } # TITLE
is_gone() { ! look "$1" 0; }

# Fields of a line of $seen.
text_field=3 state_field=4 sight_field=5 focus_field=6 entries_field=11
value() { awk -F '\t' -v id="$1" -v field="$2" 'NR > 1 && $2 == id { print $field; exit }' "$seen"; }
is_now() { # ID FIELD VALUE, of the window $title
    look "$title" 0
    [ "$(value "$1" "$2")" = "$3" ] || { echo "control $1 is '$(value "$1" "$2")', not '$3'"; return 1; }
}
holds() { eventually is_now "$1" $text_field "$2"; }
is_on() { eventually is_now "$1" $state_field on; }
is_off() { eventually is_now "$1" $state_field off; }
is_visible() { eventually is_now "$1" $sight_field visible; }
is_hidden() { eventually is_now "$1" $sight_field hidden; }
has_focus() { eventually is_now "$1" $focus_field focus; }
window_is() { # TITLE on|off
    look "$1" 0
    [ "$(head -n 1 "$seen" | cut -f $state_field)" = "$2" ] || { cat "$seen"; return 1; }
}

keys() { xdotool key --delay 20 "$@"; }
letters() { xdotool type --delay 20 "$1"; }

# The system's own question above its Save dialog.
asks_to_replace() { opens Fehler && grep -qF 'Wollen Sie sie überschreiben?' "$seen" || { cat "$seen"; return 1; }; }
