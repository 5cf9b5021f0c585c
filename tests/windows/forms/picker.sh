# A picker among twenty thousand entries: typing, moving, what the form does to it.

# Ids of its parts, of the list and the text behind it, and of the list before it.
line=104 count=105 rows=106 year=108 konto=111 kinds=102

rows_are() { eventually is_now $rows $entries_field "$1"; } # as window_dump tells them
first_row_is() { eventually begins_with_row "$1"; }
begins_with_row() {
    look "$title" 0
    value $rows $entries_field | grep "^$1\(,\|$\)" || { value $rows $entries_field; return 1; }
}
selects() { eventually is_selected "$1"; }
is_selected() {
    look "$title" 0
    value $rows $entries_field | tr , '\n' | grep -xF "> $1" || { value $rows $entries_field; return 1; }
}
selects_other_than() { eventually is_selected_other "$1"; }
is_selected_other() { is_selected "$1" && return 1; value $rows $entries_field | grep ">"; }
selects_nothing() { look "$title" 0 && ! value $rows $entries_field | grep '>'; }
chosen_last() { eventually last_choice_is "$1"; }
last_choice_is() { [ "$(grep '^client: ' "$told" | tail -n 1)" = "client: $1" ] || { cat "$told"; return 1; }; }
click_row() { # NUMBER, from the top
    local place
    look "$title" 0
    place=$(awk -F '\t' -v id=$rows -v row="$1" 'NR > 1 && $2 == id { print int($7 + $9 / 3), int($8 + 10 + $10 / 7 * (row - 1)) }' "$seen")
    # shellcheck disable=SC2086
    xdotool mousemove --sync $place click 1
}
slowest_key_below() { # MILLISECONDS
    eventually grep "^slowest key: " "$told" || return 1
    [ "$(sed -n 's/^slowest key: //p' "$told")" -lt "$1" ] || { cat "$told"; return 1; }
}

show picker
check "the form opens" opens $title
check "everything in its place" in_place
check "the line has the focus" has_focus $line
check "all entries match" holds $count "20000 von 20000"
check "the first are on view" first_row_is "10 Händler & Söhne 1"
check "none is selected" selects_nothing
check "OK waits for a choice" is_off 1
keys Return
check "and Enter does not press it" has_focus $line

letters 19999
check "digits are the beginning of numbers" rows_are \
    "> 199990 Händler & Söhne 19999"
check "one of many" holds $count "1 von 20000"
check "the only one is chosen" chosen_last 199990
check "and selected" selects "199990 Händler & Söhne 19999"
check "a field is switched on by it" is_on $year
keys alt+m
letters 120
check "a number that others begin with" selects "120 Händler & Söhne 12"
check "is chosen" chosen_last 120
check "what is typed stays" holds $line 120
keys Down
check "Down leads to the next" selects "1200 Händler & Söhne 120"
check "which the form learns" chosen_last 1200
keys Up Up Up
check "Up ends at the first" selects "120 Händler & Söhne 12"
keys Next
check "a page down" selects_other_than "120 Händler & Söhne 12"
keys Prior
check "and up again" selects "120 Händler & Söhne 12"
keys Home
letters 9
check "Home is of the text" holds $line 9120

keys alt+m
letters m
xdotool key --delay 300 udiaeresis # no key of the keyboard: it is given one for as long
letters ller
check "a part of the name, with umlaut" rows_are "> 70 Müller Übersee GmbH"
check "is chosen, too" chosen_last 70
letters x
check "nothing matches" holds $count "keine Treffer"
check "nothing is chosen" chosen_last -
check "no rows" rows_are ""
keys Down
check "Down finds none" holds $line "müllerx"
keys alt+m BackSpace
check "all are back" holds $count "20000 von 20000"
keys Up
check "from none, Up leads to the last" selects "200000 Händler & Söhne 20000"
keys alt+m

letters "ler "
keys Tab
check "Tab leads to the matches" has_focus $rows
keys Up Up
check "arrows choose among them" selects "199980 Händler & Söhne 19998"
check "as the form learns" chosen_last 199980
letters 19
check "letters go on in the line" has_focus $line
check "behind what was typed" holds $line "ler 19"
keys shift+Tab
check "Shift+Tab leads back" has_focus $kinds
keys alt+m
check "the access key leads to the line" has_focus $line
letters 3
check "and selects its text" holds $line 3

click_row 2
check "a click chooses a row" selects "130 Händler & Söhne 13"
check "the form knows it" chosen_last 130
check "what is typed stays, too" holds $line 3
keys Tab
check "Tab leads on" has_focus $year

keys F7
check "the form clears the line" holds $line ""
check "all entries are on view" holds $count "20000 von 20000"
check "the selection remains" selects "130 Händler & Söhne 13"
keys F8
check "the form selects" selects "200000 Händler & Söhne 20000"
keys F5
check "the form switches it off: the line" is_off $line
check "and the list" is_off $rows
check "the focus is not lost" has_focus $year
keys F5
check "it is on again" is_on $rows
keys F6
check "the form hides it" is_hidden $rows
check "count and all" is_hidden $count
check "everything in its new place" in_place
keys F6
check "it is on view again" is_visible $line
check "with its selection" selects "200000 Händler & Söhne 20000"

keys alt+a Down
check "other entries" rows_are "10 Kanzlei 1,20 Kanzlei 2,30 Kanzlei 3"
check "their count" holds $count "3 von 3"
check "another label" holds 103 "&Kanzlei"
keys Down
check "no entries" holds $count "keine Einträge"
check "an empty list" rows_are ""
keys Up alt+k F1
check "help is the form's" told_times help 1
keys Down Down Return
check "Enter is OK" tells "ok: Kanzlei 2"
check "and closes" ends

show picker
check "the form opens again" opens $title
letters 5
keys Escape
check "Esc cancels" tells cancel
check "and closes, too" ends

show typing
check "each key is answered at once" slowest_key_below 200
check "typing ends" ends
