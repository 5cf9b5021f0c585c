# What is on view, at $resolution dots per inch.

show owned
check "$resolution: the form opens" opens $title
has_focus 106 >/dev/null
check "$resolution: controls and their order" \
    diff -u tests/windows/forms/expected_controls.txt <(cut -f 1-6 "$seen")
check "$resolution: everything in its place" in_place
check "$resolution: frames stand around their fields" frames_stand_around
cp "$seen" "$PROT_GROUP_FOLDER/form.txt"
check "$resolution: the owner takes no input" window_is Hauptfenster off
check "$resolution: in the middle of the owner" in_the_middle "$(head -n 1 "$seen" | cut -f 7-10 | tr '\t' ' ')"
keys alt+z Down
check "$resolution: a hidden field comes to sight" is_visible 120
check "$resolution: everything in its new place" in_place
keys alt+v alt+Down
sleep 0.5
keys Escape Escape
check "$resolution: the form closes" ends

show save 'C:\Protokoll.csv'
check "$resolution: the Save dialog opens" opens Speichern
keys Escape
check "$resolution: the Save dialog closes" ends

show progress
check "$resolution: half of the run" tells half
look $title
check "$resolution: the progress in its place" in_place
