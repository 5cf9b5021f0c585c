# The form's functions change it while it is open, and the window follows.

show owned
check "the form opens" opens $title
keys alt+o Down
check "the next option is chosen" holds 103 "Kreditoren (*)"
check "the one before is not" holds 102 "Debitoren (Kunden && Interessenten)"
check "lists are filled anew" holds 106 "20000 Größer & Söhne GmbH 0"
check "with their selections" holds 108 "20002 Größer & Söhne GmbH 2"
check "a label says something else" holds 109 "3 Konten"
keys Down
check "an empty list" holds 106 ""
check "fields are switched off" is_off 106
check "their labels too" is_off 105
check "OK is switched off" is_off 1
keys Return
check "Enter presses no button that is off" has_focus 104
keys Up Up
check "fields are switched on" is_on 106
check "OK is switched on" is_on 1
check "the lists are full again" holds 108 "10299 Größer & Söhne GmbH 299"

keys alt+z Down
check "a field is shown" is_visible 120
check "everything in its place" in_place
keys Up
check "a field is hidden" is_hidden 120
check "everything in its place again" in_place

keys alt+w
letters u
check "a function moves the focus" has_focus 114
letters 7
check "and its text was selected" holds 114 7
letters 777
keys alt+v End alt+b Home Return
check "a message of OK" box_says "vor dem Konto"
check "the focus where OK sent it" has_focus 108
keys Escape
check "Esc cancels" told_times cancel 1
check "the owner is switched on" tells "owner enabled"
check "the owner is active" tells "owner active"
check "the form is gone" ends
