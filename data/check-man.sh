#!/bin/sh
# Renders a manual page as man does and fails on any warning of the formatter.
set -eu
warnings=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 "$1" 2>&1 >/dev/null)
if [ -n "$warnings" ]; then
  printf '%s\n' "$warnings" >&2
  exit 1
fi
