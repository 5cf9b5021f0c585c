# What the groups share that run whole exports with their dialogs, after use_section. To be read behind common.sh and
# windows.sh.

programs=out/build/win64/tests/windows/forms
notes=$PROT_GROUP_FOLDER/opened.txt
samples=$PROT_GROUP_FOLDER/samples
root=$PWD
# Ids of the first controls of a form with clients; the picker's are the line to type in, how many match, and those.
kinds=102 kind_of_client=103 line=104 count=105 rows=106
not_allowed='Unzulässige Aktion'

# Files of these kinds open with a program that notes their names, and no browser or spreadsheet.
register_stand_ins() { # EXTENSION...
    local registration=$PROT_GROUP_FOLDER/stand_ins.reg command extension
    command="\"$(z_path $programs/note_argument.exe)\" \"$(z_path "$notes")\" \"%1\""
    command=${command//\\/\\\\}
    {
        printf 'REGEDIT4\n\n'
        for extension in "$@"; do printf '[HKEY_LOCAL_MACHINE\\Software\\Classes\\%s]\n@="ProtTest.Note"\n\n' "$extension"; done
        printf '[HKEY_LOCAL_MACHINE\\Software\\Classes\\ProtTest.Note\\shell\\open\\command]\n@="%s"\n' "${command//\"/\\\"}"
    } >"$registration"
    scripts/wine reg import "$(z_path "$registration")"
}

opened() { eventually grep -qxF "$(z_path "$1")" "$notes" || { echo "not opened: $1"; cat "$notes"; return 1; }; }
opened_once() { opened "$1" && [ "$(wc -l <"$notes")" -eq 1 ] || { cat "$notes"; return 1; }; }
nothing_opened() { [ ! -s "$notes" ] || { cat "$notes"; return 1; }; }

is_described_in() { diff -u "tests/com/scripts/expected/$1" <(cut -f 1-6 "$seen"); } # the window seen last
# The whole text of a box: its title and its static text, and no others.
box_is() { # TITLE TEXT
    opens "$1" && diff <(printf '%s\n' "$1" "$2") \
        <(awk -F '\t' 'NR == 1 || $1 == "STATIC" && $3 != "" { print $3 }' "$seen")
}
question_is_about() { # RECORDS
    opens "Löschen Stammdatenprotokoll" && grep -qF "wurden $1 Protokollsätze gefunden." "$seen" || { cat "$seen"; return 1; }
}
proposes() { opens Speichern && cut -f 1,3 "$seen" | grep -qxP "(EDIT|COMBOBOX)\t$1" || { cat "$seen"; return 1; }; }

is_selected() { look "$title" 0 && value $rows $entries_field | tr , '\n' | grep -xF "> $1" || { cat "$seen"; return 1; }; }

refuses() { # WHAT TITLE TEXT FOCUS
    check "$1: a message" box_is "$2" "$3"
    keys Return
    check "$1: once" closes "$2"
    check "$1: the focus is at it" has_focus "$4"
}

# start_client SCRIPT ARGUMENT...: `client` in the background; $files and $report are those it uses.
start_client() {
    : >"$notes"
    client "$@" >"$PROT_GROUP_FOLDER/client.log" 2>&1 &
    running=$!
    files=$PROT_GROUP_FOLDER/files
    report=$PROT_GROUP_FOLDER/report.txt
}
ends_with() { # STATUS
    local status=0
    wait $running || status=$?
    [ $status -eq "$1" ] || { echo "status $status"; cat "$PROT_GROUP_FOLDER/client.log"; return 1; }
}
reports_lines() { printf '%s\n' "$@" done | diff -u - "$report"; }
only_file_is() { # EXPECTED FILE
    [ "$(ls -A "${2%/*}")" = "${2##*/}" ] && cmp "$1" "$2" || { ls "${2%/*}"; return 1; }
}

reports_nothing_done() { # LINES of other things before
    diff -u <(printf '%s\n' "error: " "no progress, or all of it" "0 steps" done) <(tail -n +$(($1 + 1)) "$report") && no_file
}

# start_program COMMAND DATABASE [ARGUMENT...]: protcsv.exe on a sample database for $section; an export's file is in
# $files.
start_program() {
    local command=$1 database=$2
    shift 2
    [ "$command" != export ] || set -- --out "$(z_path "$root/$files")" "$@"
    : >"$notes"
    rm -rf "$files"
    mkdir -p "$files"
    (cd "$samples" && exec timeout 90 "$root/scripts/wine" "$root/$programs/start_detached.exe" \
        "$root/out/win64/protcsv.exe" "$command" --db "$database.db" --section "$section" "$@") \
        >"$PROT_GROUP_FOLDER/client.log" 2>&1 &
    running=$!
}
