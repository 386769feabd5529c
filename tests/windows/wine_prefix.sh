#!/bin/sh
# The wine prefix the Windows tests run in.
#   wine_prefix.sh setup WINE WINESERVER PREFIX   creates the prefix when missing (wineboot takes
#                                                 several seconds, so once per build tree) and
#                                                 makes wine draw windows with its null driver
#   wine_prefix.sh stop WINE WINESERVER PREFIX    stops the prefix's wine server
set -eu
[ $# -eq 4 ] || { echo "usage: wine_prefix.sh setup|stop WINE WINESERVER PREFIX" >&2; exit 2; }
mode=$1 wine=$2 wineserver=$3
WINEPREFIX=$4
WINEDEBUG=-all
export WINEPREFIX WINEDEBUG
case "$mode" in
  setup)
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
      mkdir -p "$WINEPREFIX"
      "$wine" wineboot -i
    fi
    # Windows are created, sized, enabled and focused by the wine server alone, with no X server
    # behind them: the tests run headless, and a DISPLAY in the environment opens nothing.
    "$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null
    ;;
  stop)
    # Nothing may be left running after the tests; no server running is fine too.
    "$wineserver" -k 2>/dev/null || true
    "$wineserver" -w 2>/dev/null || true
    ;;
  *) echo "wine_prefix.sh: unknown mode '$mode' (setup or stop)" >&2; exit 2 ;;
esac
