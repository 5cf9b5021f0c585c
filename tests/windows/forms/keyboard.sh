# The keyboard alone is enough.

show owned
check "the form opens" opens $title
check "the first focus is the form's" has_focus 106
for next in 108 112 114 116 118 1 2 102 106; do
    keys Tab
    check "Tab leads to $next" has_focus $next
done
keys shift+Tab
check "Shift+Tab leads back" has_focus 102

for key in v:106 b:108 s:112 j:114 w:116 z:118 o:102; do
    keys "alt+${key%:*}"
    check "Alt+${key%:*} leads to ${key#*:}" has_focus "${key#*:}"
done

keys alt+j
check "a text is reached by its access key" has_focus 114
letters 1999
check "what is typed replaces the selected text" holds 114 1999
check "the form knows it" tells "year: 1999"
keys Home shift+End
letters 20251
check "no more characters than the field may have" holds 114 2025

keys alt+b
letters 1
keys alt+w
letters cz
check "letters select the entry that begins with them" holds 116 CZK
check "the form knows the entry" tells "currency: CZK"
sleep 1.2
letters c
check "a letter goes to the next entry" holds 116 CHF
keys alt+Down Down Down Escape
check "Esc closes the list and leaves the form open" has_focus 116
# Systems differ in whether the list takes its old entry back.
check "the form knows what the list holds" eventually last_currency_is_on_view

keys F1
check "F1 is the form's" told_times help 1
keys shift+F1
check "with the keys that are held" told_times "help shift" 1
keys Return
check "Enter is OK" tells "ok: 10000 Größer & Söhne GmbH 0 / 2025"
check "and closes" ends
