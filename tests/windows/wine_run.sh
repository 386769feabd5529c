#!/bin/sh
# Runs a Windows test program under wine; cross builds use this as their emulator, so every
# test program of tests/ runs through it.
#   wine_run.sh WINE WINESERVER PREFIX PROGRAM [ARGS...]
# The wine prefix PREFIX (in the build tree) is created on first use, once even when tests start
# in parallel; creating it takes wine half a minute. Windows are drawn by wine's null display
# driver: they are created, sized, enabled and focused by the wine server alone, so the tests
# run without an X server and never open one, whatever DISPLAY says. The wine server ends by
# itself when its last program has ended.
set -eu
[ $# -ge 4 ] || { echo "usage: wine_run.sh WINE WINESERVER PREFIX PROGRAM [ARGS...]" >&2; exit 2; }
wine=$1
wineserver=$2
WINEPREFIX=$3
shift 3
WINEDEBUG=-all
export WINEPREFIX WINEDEBUG

ready="$WINEPREFIX/.grainsmith-ready"
if [ ! -f "$ready" ]; then
  mkdir -p "$(dirname "$WINEPREFIX")"
  (
    flock 9
    if [ ! -f "$ready" ]; then
      # A prefix left half made by an interrupted run is made again.
      rm -rf "$WINEPREFIX"
      mkdir -p "$WINEPREFIX"
      "$wine" wineboot -i >/dev/null 2>&1
      "$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1
      # The desktop that wineboot started chose its driver before the setting existed: the
      # programs that run next start a new server and desktop, which read it.
      "$wineserver" -k 2>/dev/null || true
      "$wineserver" -w 2>/dev/null || true
      touch "$ready"
    fi
  ) 9>"$WINEPREFIX.lock"
fi
exec "$wine" "$@"
