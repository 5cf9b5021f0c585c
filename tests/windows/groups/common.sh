# What the groups of Windows tests share. Each group is a program of its own that scripts/test-windows runs at the
# repository's root, after the build; $PROT_GROUP_FOLDER is empty and its own. A group calls `check` for each thing it
# claims and ends with `finish`. Exit status 77 and a line of reason: nothing was tested.

: "${PROT_GROUP_FOLDER:?is set by scripts/test-windows}" "${PROTCSV_WINEPREFIX:?is set by scripts/test-windows}"
checks=0
failures=0
recordings=out/windows-tests/recordings

# check WHAT COMMAND...: counts, and says what failed together with the command's output.
check() {
    local what=$1
    shift
    checks=$((checks + 1))
    if ! "$@" >"$PROT_GROUP_FOLDER/check.log" 2>&1; then
        failures=$((failures + 1))
        echo "FAILED: $what"
        cat "$PROT_GROUP_FOLDER/check.log"
    fi
}

finish() {
    echo "checks: $checks"
    [ "$checks" -gt 0 ] && [ "$failures" -eq 0 ]
    exit
}

skip() {
    [ "$failures" -eq 0 ] || finish
    echo "$1"
    exit 77
}

# A path as Windows programs under Wine read it.
z_path() {
    local path
    path=$(realpath -m "$1")
    printf 'Z:%s' "${path//\//\\}"
}

# record NAME CASE [ARGUMENT...]: makes the recording NAME of the golden case, once (see record_run), although another group
# may want it at the same time.
record() {
    local name=$1
    shift
    (
        flock 9
        [ -f "$recordings/$name/recording.txt" ] || out/build/linux/tests/com/record_run "$recordings/$name" "$@"
    ) 9>"$recordings.lock" || {
        echo "FAILED: recording $name"
        exit 1
    }
}

recording() { z_path "$recordings/$1/recording.txt"; }

# client SCRIPT ARGUMENT...: runs a client in a fresh folder, $files, where its export lands; what it reports is in
# $report, a plain file with "done" in its last line when the script reached its end.
client() {
    local script=$1 program
    shift
    files=$PROT_GROUP_FOLDER/files
    report=$PROT_GROUP_FOLDER/report.txt
    program=$PROT_GROUP_FOLDER/client.${script##*.}
    rm -rf "$files" "$report"
    mkdir -p "$files"
    : >"$report"
    case $script in
    *.vbs) cat tests/com/scripts/host.vbs "tests/com/scripts/$script" >"$program" ;;
    *) cp "tests/com/scripts/$script" "$program" ;;
    esac
    PROTCSV_AUSGABE=$(z_path "$files") PROTTEST_REPORT=$(z_path "$report") \
        timeout 60 scripts/wine "${PROT_CSCRIPT:-cscript}" //nologo "$(z_path "$program")" "$@"
}

# The client reached its end, and everything it looked at was as it should be.
all_well() {
    [ "$(tail -n 1 "$report")" = done ] && ! grep -q -e '^NOT ' -e '^error' "$report" || { cat "$report"; return 1; }
}

# The version as the source of an error begins with it; $STAMP stands for it in what is expected.
stamp=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' out/build/win64/CMakeCache.txt |
    awk -F . '{ printf "%04d%04d%04d", $1, $2, $3 }')
expected() { sed "s/\$STAMP/$stamp/" "tests/com/scripts/expected/$1"; }

reports() { diff -u <(expected "$1") "$report"; }

# use_section NUMBER: $section is the number, $section_word its word in the names of files, $title that of its form.
use_section() {
    read -r section _ section_word _ _ title < <(grep "^$1 " scripts/sections.txt)
    title="Protokollausgabe $title"
}
use_section 15

# The one file that the client's export wrote, under the name of an unattended run of $section.
exported_file() {
    local found=("$files"/*)
    [ ${#found[@]} -eq 1 ] && [[ ${found[0]##*/} =~ ^Prot_${section_word}_[0-9]{8}_[0-9]{6}\.csv$ ]] || {
        echo "expected one export, found: ${found[*]##*/}" >&2
        return 1
    }
    printf '%s' "${found[0]}"
}

exports() {
    local file
    file=$(exported_file) && cmp "$1" "$file"
}

no_file() { [ -z "$(ls -A "$files")" ] || { ls "$files"; return 1; }; }

# register_components BITS [FOLDER]: registers the server and the tests' own component, by the tools in the system's
# FOLDER.
register_components() {
    local dll registration=$PROT_GROUP_FOLDER/prottest.reg folder=${2:-'C:\windows\system32'}
    dll=$(z_path "out/build/win$1/tests/com/prottest.dll")
    sed "s|@DLL@|${dll//\\/\\\\\\\\}|" tests/com/component/prottest.reg.in >"$registration"
    scripts/wine "$folder\\reg.exe" import "$(z_path "$registration")" &&
        scripts/wine "$folder\\regsvr32.exe" /s "$(z_path "out/win$1/srvprotqrbcsv.dll")"
}
