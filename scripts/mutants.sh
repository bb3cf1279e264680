#!/usr/bin/env bash
# The mutation gate: applies each small fault of scripts/mutants.txt to the logic, one at a
# time, rebuilds the fast suite (nebkaro_tests and the nebkaro-cli it drives) in its own build
# folder, runs it and restores the file. One line per fault:
#
#   ID  FILE  WHAT  CAUGHT | SURVIVED | STALE | BUILD-FAIL
#
# STALE: the text to change no longer occurs exactly once (the code moved on: update the list).
# Then a summary line. The exit status is 0 when the run completed, whatever survived.
#
#   scripts/mutants.sh [ID...]        only the named faults
#   scripts/mutants.sh --check        only report STALE entries, no build
#
# Environment: MUTANTS_BUILD (default build-mutants), MUTANTS_TIMEOUT seconds per suite run
# (default 300), MUTANTS_LIST (default scripts/mutants.txt). Other work shares the machine:
# run it as `nice -n 19 scripts/mutants.sh`.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
list=${MUTANTS_LIST:-scripts/mutants.txt}
build=${MUTANTS_BUILD:-build-mutants}
timeout_s=${MUTANTS_TIMEOUT:-300}
check_only=false
declare -A wanted=()
for arg in "$@"; do
    case $arg in
    --check) check_only=true ;;
    -h | --help)
        sed -n '2,17p' "$0" | sed 's/^# \{0,1\}//'
        exit 0
        ;;
    *) wanted[$arg]=1 ;;
    esac
done

# The list, read into parallel arrays.
ids=() files=() froms=() tos=() whats=()
parse() {
    local id="" file="" from="" to="" what="" have_to=false line key value
    flush() {
        if [[ -n $id ]]; then
            if [[ -z $file || -z $from || $have_to == false ]]; then
                echo "mutants: entry '$id' lacks file, from or to" >&2
                exit 2
            fi
            ids+=("$id") files+=("$file") froms+=("$from") tos+=("$to") whats+=("$what")
        fi
        id="" file="" from="" to="" what="" have_to=false
    }
    while IFS= read -r line || [[ -n $line ]]; do
        [[ $line =~ ^# ]] && continue
        if [[ -z ${line//[[:space:]]/} ]]; then
            flush
            continue
        fi
        key=${line%%:*}
        value=${line#*:}
        value=${value#"${value%%[![:space:]]*}"}
        value=${value%"${value##*[![:space:]]}"}
        case $key in
        id) id=$value ;;
        file) file=$value ;;
        what) what=$value ;;
        from) from=$value ;;
        to)
            to=$value
            have_to=true
            ;;
        *)
            echo "mutants: unknown key '$key' in $list" >&2
            exit 2
            ;;
        esac
    done <"$list"
    flush
}
parse

# Replaces the one occurrence of FROM in FILE by TO. Exit status 3 when FROM does not occur
# exactly once (the file is then left alone).
apply() {
    python3 - "$1" "$2" "$3" <<'EOF'
import sys
path, old, new = sys.argv[1:4]
with open(path, encoding="utf-8", newline="") as f:
    text = f.read()
if text.count(old) != 1:
    sys.exit(3)
with open(path, "w", encoding="utf-8", newline="") as f:
    f.write(text.replace(old, new, 1))
EOF
}

occurs_once() {
    python3 - "$1" "$2" <<'EOF'
import sys
path, old = sys.argv[1:3]
try:
    with open(path, encoding="utf-8", newline="") as f:
        sys.exit(0 if f.read().count(old) == 1 else 1)
except OSError:
    sys.exit(1)
EOF
}

selected() { [[ ${#wanted[@]} -eq 0 || -n ${wanted[$1]:-} ]]; }

report() { printf '%-24s %-38s %-92s %s\n' "$1" "$2" "$3" "$4"; }

if $check_only; then
    stale=0
    for i in "${!ids[@]}"; do
        selected "${ids[$i]}" || continue
        if ! occurs_once "${files[$i]}" "${froms[$i]}"; then
            report "${ids[$i]}" "${files[$i]}" "${whats[$i]}" STALE
            stale=$((stale + 1))
        fi
    done
    echo "${#ids[@]} mutants listed, $stale stale"
    exit 0
fi

# A file with changes of its own would be overwritten by the restore: refuse.
mapfile -t mutated < <(printf '%s\n' "${files[@]}" | sort -u)
dirty=$(git status --porcelain -- "${mutated[@]}")
if [[ -n $dirty ]]; then
    echo "mutants: these files have uncommitted changes; commit or stash them first:" >&2
    echo "$dirty" >&2
    exit 2
fi

# The file being mutated and its saved copy: whatever ends the run puts it back.
backup_dir=$(mktemp -d)
current=""
restore() {
    if [[ -n $current ]]; then
        cp "$backup_dir/original" "$current"
        current=""
    fi
}
cleanup() {
    restore
    rm -rf "$backup_dir"
}
trap cleanup EXIT
trap 'echo "mutants: interrupted; the source is restored" >&2; exit 130' INT TERM HUP

cmake_args=(-G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER_LAUNCHER=ccache
    -DNEBKARO_GUI=OFF -DNEBKARO_TESTS=ON)
if [[ ! -f $build/build.ninja ]]; then
    cmake -S . -B "$build" "${cmake_args[@]}" >/dev/null
fi
log=$build/mutants.log
: >"$log"

build_suite() { cmake --build "$build" --target nebkaro_tests >>"$log" 2>&1; }
run_suite() {
    (cd "$build/tests" && LC_ALL=C.UTF-8 timeout --kill-after=10 "$timeout_s" \
        ./nebkaro_tests --gtest_brief=1 --gtest_fail_fast >>"$root/$log" 2>&1)
}

# The suite must pass on the unchanged tree, or every fault would look caught.
if ! build_suite; then
    echo "mutants: the unchanged tree does not build; see $log" >&2
    exit 2
fi
if ! run_suite; then
    echo "mutants: the suite fails on the unchanged tree; see $log" >&2
    exit 2
fi

caught=0 survived=0 stale=0 buildfail=0 total=0
caught_ids=() survived_ids=()
for i in "${!ids[@]}"; do
    id=${ids[$i]} file=${files[$i]}
    selected "$id" || continue
    total=$((total + 1))
    echo "=== $id" >>"$log"
    if [[ ! -f $file ]]; then
        report "$id" "$file" "${whats[$i]}" STALE
        stale=$((stale + 1))
        continue
    fi
    cp "$file" "$backup_dir/original"
    current=$file
    set +e
    apply "$file" "${froms[$i]}" "${tos[$i]}"
    rc=$?
    set -e
    if [[ $rc -ne 0 ]]; then
        restore
        report "$id" "$file" "${whats[$i]}" STALE
        stale=$((stale + 1))
        continue
    fi
    if ! build_suite; then
        status=BUILD-FAIL
        buildfail=$((buildfail + 1))
    elif run_suite; then
        status=SURVIVED
        survived=$((survived + 1))
        survived_ids+=("$id")
    else
        status=CAUGHT
        caught=$((caught + 1))
        caught_ids+=("$id")
    fi
    restore
    report "$id" "$file" "${whats[$i]}" "$status"
done

echo "$total mutants: $caught caught, $survived survived, $stale stale, $buildfail build-fail"
[[ ${#survived_ids[@]} -eq 0 ]] || echo "survived: ${survived_ids[*]}"
# Leave the build folder matching the restored tree.
build_suite || true
