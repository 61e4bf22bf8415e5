#!/bin/sh
# manual.sh ORBEL VERSION OUT: writes the manual pages of the command ORBEL into OUT/man1 and its completion into
# OUT/completion, from what the command tells by --help.
set -eu
orbel="$1" version="$2" out="$3"
here="$(dirname "$0")"
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
rm -rf "$out/man1" "$out/completion"
mkdir -p "$out/man1" "$out/completion"

help="$out/help.txt"
"$orbel" --help >"$help"
subcommands="$(sed -n '/^Subcommands:/,/^$/ s/^  \([a-z]*\) .*/\1/p' "$help")"
for subcommand in $subcommands; do
    "$orbel" "$subcommand" --help >>"$help"
done

# page WANTED FILE
page() {
    awk -f "$here/help.awk" -f "$here/manual.awk" -v WANTED="$1" -v VERSION="$version" "$help" | gzip -9n >"$out/man1/$2.1.gz"
}
page orbel orbel
for subcommand in $subcommands; do
    page "orbel $subcommand" "orbel-$subcommand"
done

for shell in bash zsh fish; do
    awk -f "$here/help.awk" -f "$here/completion.awk" -v SHELL="$shell" "$help" >"$out/completion/$shell"
done
