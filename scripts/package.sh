#!/usr/bin/env bash
# Builds the Debian package from a Release build (tests off), checks it with lintian and
# dpkg-deb, installs it with apt-get, runs the installed program and tool as an ordinary user
# (the program under Xvfb: first start, a screenshot, a Save and a Quit), checks that the
# user's files went to ~/.local/share/nebkaro and nothing under the prefix changed, and
# removes the package again. Needs root or sudo for apt-get and the throwaway user.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
dir="${BUILD_DIR:-build-package}"
id=io.github.nebkaro.Nebkaro
prefix=/usr # where Debian packages install
SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
fail() {
  echo "package: $*" >&2
  exit 1
}

echo "== release build"
BUILD_DIR="$dir" BUILD_TYPE=Release scripts/build.sh -DNEBKARO_TESTS=OFF -DCMAKE_INSTALL_PREFIX=$prefix
rm -f "$dir"/nebkaro_*.deb
(cd "$dir" && cpack -G DEB >/dev/null)
deb=$(realpath "$dir"/nebkaro_*.deb)
version=$(dpkg-deb --field "$deb" Version)
echo "built $deb"

echo "== lintian"
# Errors fail; warnings (a program without a manual page, fonts in a program's package) are
# shown for information.
lintian --fail-on error --tag-display-limit 0 "$deb"

echo "== contents"
contents=$(dpkg-deb --contents "$deb" | awk '{print $6}')
expected=(
  .$prefix/bin/nebkaro .$prefix/bin/nebkaro-cli .$prefix/libexec/nebkaro/nebkaro-cli-draw
  .$prefix/share/nebkaro/Lists/BasicList.csv .$prefix/share/nebkaro/Fonts/Transliteration.ttf
  .$prefix/share/nebkaro/Basic/Left/A/A1.GIF .$prefix/share/nebkaro/Extended/Left/A/A1.GIF
  .$prefix/share/nebkaro/System/Settings.nks .$prefix/share/nebkaro/Dictionaries/Words.nkd
  ".$prefix/share/applications/$id.desktop" ".$prefix/share/metainfo/$id.metainfo.xml"
  ".$prefix/share/mime/packages/$id.xml" ".$prefix/share/icons/hicolor/scalable/apps/$id.svg"
  ".$prefix/share/icons/hicolor/16x16/apps/$id.png" ".$prefix/share/icons/hicolor/256x256/apps/$id.png"
  .$prefix/share/doc/nebkaro/copyright .$prefix/share/doc/nebkaro/changelog.gz
)
[ -f data/Help/index.html ] && expected+=(.$prefix/share/nebkaro/Help/index.html)
for f in "${expected[@]}"; do
  grep -qxF "$f" <<<"$contents" || fail "$f is not in the package"
done
depends=$(dpkg-deb --field "$deb" Depends)
echo "Depends: $depends"
grep -q libqt6widgets6 <<<"$depends" || fail "the dependencies were not computed from the binaries"

echo "== install"
$SUDO apt-get install -y "$deb" >/dev/null
made_user=""
cleanup() {
  $SUDO apt-get remove -y nebkaro >/dev/null 2>&1 || true
  [ -n "$made_user" ] && userdel --remove "$made_user" 2>/dev/null || true
}
trap cleanup EXIT
prefix_state() { find "$prefix/share/nebkaro" "$prefix/bin/nebkaro" "$prefix/bin/nebkaro-cli" "$prefix/libexec/nebkaro" -printf '%p %s %T@ %m\n' | sort; }
before=$(prefix_state)

# An ordinary user: a throwaway account when we are root, otherwise ourselves with a fresh
# home folder. Either way the environment is a plain login's.
work=$(mktemp -d)
chmod 755 "$work"
if [ "$(id -u)" -eq 0 ]; then
  user=nebkaro-check
  if ! id "$user" >/dev/null 2>&1; then
    useradd --create-home --shell /bin/bash "$user"
    made_user=$user
  fi
  home=$(getent passwd "$user" | cut -d: -f6)
  rm -rf "$home/.local/share/nebkaro"
  chown "$user" "$work"
  as_user() { runuser -u "$user" -- env -i HOME="$home" PATH=/usr/bin:/bin LANG=C.UTF-8 "$@"; }
else
  home="$work/home"
  mkdir -p "$home"
  as_user() { env -i HOME="$home" PATH=/usr/bin:/bin LANG=C.UTF-8 "$@"; }
fi
mine="$home/.local/share/nebkaro"
shot="$work/installed.png"
xvfb=(xvfb-run -a -s "-screen 0 1280x1024x24")

echo "== run as $(as_user id -un)"
[ "$(as_user $prefix/bin/nebkaro-cli --version)" = "nebkaro-cli $version" ] || fail "nebkaro-cli --version"
[ "$(as_user $prefix/bin/nebkaro --version)" = "nebkaro $version" ] || fail "nebkaro --version"
as_user $prefix/bin/nebkaro --help | grep -q -- "--screenshot" || fail "nebkaro --help"
as_user $prefix/bin/nebkaro-cli info $prefix/share/nebkaro/Dictionaries/Words.nkd >/dev/null
# Drawing is handed over to the helper in libexec, which finds the same shipped pictures.
as_user $prefix/bin/nebkaro-cli render $prefix/share/nebkaro/Dictionaries/Words.nkd 1 -o "$work/word.png" ||
  fail "nebkaro-cli render"
as_user "${xvfb[@]}" $prefix/bin/nebkaro --screenshot "$shot" >"$work/out" 2>"$work/err" ||
  { cat "$work/err"; fail "the installed program did not start"; }
grep -q "are kept in $mine" "$work/err" || fail "the first start did not say where the user's files are"
cmp -s "$mine/Dictionaries/Words.nkd" $prefix/share/nebkaro/Dictionaries/Words.nkd ||
  fail "the starter dictionary was not copied to $mine"
[ -f "$mine/System/Settings.nks" ] && [ -d "$mine/Images" ] || fail "$mine is incomplete"
# The installed program draws the same window as the build folder's, on the same starter
# dictionary and default settings.
reference="$work/build.png"
env -u QT_QPA_PLATFORM "${xvfb[@]}" "$dir/nebkaro" --screenshot "$reference" >/dev/null 2>&1
cmp -s "$shot" "$reference" || fail "the installed program's window differs from the build's ($shot, $reference)"
# A second start says nothing about the user folder.
as_user "${xvfb[@]}" $prefix/bin/nebkaro --screenshot "$work/again.png" >/dev/null 2>"$work/err"
! grep -q "are kept in" "$work/err" || fail "the first-start notice came again"

echo "== a Store, a Duplicate, a Save and a Quit write the user's files"
count() { as_user $prefix/bin/nebkaro-cli info "$1" | sed -n 's/^words: //p'; }
words=$(count "$mine/Dictionaries/Words.nkd")
settings=$(stat -c '%i %.9Y' "$mine/System/Settings.nks")
cp tests/packaging/store_and_save.sh "$work/"
as_user "${xvfb[@]}" "$work/store_and_save.sh" $prefix/bin/nebkaro >"$work/drive" 2>&1 ||
  { cat "$work/drive"; fail "driving the installed program failed"; }
[ "$(count "$mine/Dictionaries/Words.nkd")" = $((words + 1)) ] || fail "Save wrote no new word in $mine"
[ "$(stat -c '%i %.9Y' "$mine/System/Settings.nks")" != "$settings" ] || fail "Quit wrote no settings in $mine"

echo "== nothing under the prefix changed"
$SUDO dpkg --verify nebkaro || fail "installed files were changed"
[ "$(prefix_state)" = "$before" ] || fail "files under /usr changed"

echo "== the file manager opens dictionaries with the program"
default=$(as_user xdg-mime query default application/x-nebkaro-dictionary)
[ "$default" = "$id.desktop" ] || fail "xdg-mime names '$default' for dictionaries"
# The shared MIME database learnt the type (xdg-mime's own file-type query asks `file`,
# which knows no .nkd).
grep -q "application/x-nebkaro-dictionary:\*\.nkd" $prefix/share/mime/globs2 ||
  fail "the MIME database does not know *.nkd"

echo "== remove"
trap - EXIT
$SUDO apt-get remove -y nebkaro >/dev/null
[ ! -e $prefix/bin/nebkaro ] && [ ! -e $prefix/share/nebkaro ] || fail "the package left files behind"
[ -z "$made_user" ] || userdel --remove "$made_user" 2>/dev/null || true
rm -rf "$work"
echo "package: $deb built, installed, run as an ordinary user and removed"
