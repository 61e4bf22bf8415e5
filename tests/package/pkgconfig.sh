#!/bin/sh
# pkgconfig.sh PKG-CONFIG COMPILER LIBDIR SOURCE: builds the consumer by pkg-config alone, and runs it.
set -eu
export PKG_CONFIG_PATH="$3/pkgconfig"
program="$(mktemp)"
trap 'rm -f "$program"' EXIT
# Words are meant to be split here: these are lists of options.
"$2" -std=c++17 -fPIC "$4" -o "$program" $("$1" --cflags --libs orbelparser) -Wl,-rpath,"$3"
"$program"
