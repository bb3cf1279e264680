#!/bin/sh
# The menu entry, the AppStream metadata and the dictionary file type as the desktop's own
# tools read them, and the icons in the sizes the menu entry promises.
#   validate_desktop_files.sh PACKAGING_FOLDER APP_ID
set -eu
pkg=$1
id=$2
desktop-file-validate "$pkg/$id.desktop"
appstreamcli validate --no-net --strict "$pkg/$id.metainfo.xml"

# The MIME database is built from the type description as the system would build it.
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
mkdir "$tmp/packages"
cp "$pkg/$id.xml" "$tmp/packages/"
XDG_DATA_DIRS=$(dirname "$tmp") update-mime-database "$tmp"
grep -q 'pattern="\*\.nkd"' "$tmp/application/x-nebkaro-dictionary.xml"

# The three files name the same program and type.
grep -qx "MimeType=application/x-nebkaro-dictionary;" "$pkg/$id.desktop"
grep -qx "Icon=$id" "$pkg/$id.desktop"
grep -q "<launchable type=\"desktop-id\">$id.desktop</launchable>" "$pkg/$id.metainfo.xml"
for size in 16 22 24 32 48 64 128 256; do
  file "$pkg/icons/hicolor/${size}x${size}/apps/$id.png" | grep -q "PNG image data, $size x $size,"
done
grep -q "<svg" "$pkg/icons/hicolor/scalable/apps/$id.svg"
