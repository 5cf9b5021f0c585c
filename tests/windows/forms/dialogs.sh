# The Save dialog, the finished file, the progress.

drive=$PROTCSV_WINEPREFIX/drive_c/protokolle
rm -rf "$drive"
mkdir -p "$drive"

show save 'C:\protokolle\neu.csv'
check "the Save dialog opens" opens Speichern
keys Return
check "the proposed name" tells 'file: C:\protokolle\neu.csv'
check "closed" ends
check "nothing was written" test ! -e "$drive/neu.csv"

show save 'C:\protokolle\neu.csv'
check "the Save dialog opens again" opens Speichern
keys ctrl+a
letters anders
keys Return
check "a name without extension is a CSV file" tells 'file: C:\protokolle\anders.csv'
check "closed, too" ends

show save 'Prot<?>.csv'
check "a suggestion that is no file name: the dialog opens" opens Speichern
keys Escape
check "Esc: no file" tells "no file"
check "closed after Esc" ends

scripts/wine "$programs/form_demo.exe" hold 'C:\protokolle\offen.csv' >"$PROT_GROUP_FOLDER/held.txt" 2>/dev/null &
eventually grep -q held "$PROT_GROUP_FOLDER/held.txt"
show save 'C:\protokolle\offen.csv'
check "a file that is open: the dialog opens" opens Speichern
keys Return
check "the system asks before it replaces" asks_to_replace
keys alt+j
check "a file that is open: a message" opens Protokollierung
check "it names the path" grep -qF 'C:\protokolle\offen.csv' "$seen"
check "it says why" grep -qF 'in einem anderen Programm' "$seen"
keys Return
check "the dialog comes again" opens Speichern
keys Escape
check "cancelled" tells "no file"
check "ended" ends

: >"$drive/fertig.unbekannt"
show open 'C:\protokolle\fertig.unbekannt'
check "a file that no program opens: a message" opens Protokollierung
check "that names the path" grep -qF 'C:\protokolle\fertig.unbekannt' "$seen"
keys Return
check "the message closes" ends

show progress
check "half of the run" tells half
check "the progress window is there" opens $title
check "how many" grep -qP '\t10000 von 20000 Datensätzen\t' "$seen"
check "the share" grep -qP '\t50 %\t' "$seen"
keys Escape
check "Esc does not close it" look $title 1
