# A text is checked when it is left, once, and never against the person's will to cancel.

show owned
check "the form opens" opens $title
keys alt+j
letters 20
keys Tab
check "leaving an invalid text is met with a message" box_says "vier Ziffern"
check "once" told_times "year refused" 1
check "the focus is back" has_focus 114
letters 2020
keys Tab
check "a valid text may be left" has_focus 116
check "it was asked once" told_times "year valid" 1

keys alt+s BackSpace alt+j
check "an invalid text is not left by access key" box_says "Suchbegriff"
check "the focus is back at it" has_focus 112
check "the field on the way was not asked" told_times "year valid" 1
letters x
keys alt+j
check "valid again" has_focus 114
letters 30
keys Return
check "OK asks the field that has the focus" box_says "vier Ziffern"
check "once each time" told_times "year refused" 2

# Two invalid fields: each is asked when it is left, and there is no way round and round.
keys alt+s
check "still invalid" box_says "vier Ziffern"
check "once more" told_times "year refused" 3

other=$(xdotool search --onlyvisible --name Hauptfenster | tail -n 1)
xdotool windowfocus --sync "$other"
sleep 0.5
check "leaving the program asks nothing" told_times "year refused" 3
xdotool windowactivate --sync "$(xdotool search --onlyvisible --name $title | tail -n 1)"
check "the focus is where it was" has_focus 114
click 2
check "Cancel asks nothing" tells cancel
check "and closes" ends
check "nothing more was asked" told_times "year refused" 3

show owned
check "the form opens again" opens $title
keys alt+j
letters 20
click 1
check "OK by mouse asks the field that is left" box_says "vier Ziffern"
check "once by mouse" told_times "year refused" 1
click 116
check "another field by mouse asks it" box_says "vier Ziffern"
check "once for the list" told_times "year refused" 2
keys Escape
check "Esc asks nothing" tells cancel
check "and closes, too" ends
