# Sourced: the environment in which everything runs under Wine.
# shellcheck shell=bash
export WINEPREFIX=${KVT_WINE_PREFIX:-$BUILD/wine}
export WINEARCH=win64
export WINEDEBUG=${WINEDEBUG:--all}
# Without the crash debugger a crash ends the process; with it, it would wait for a click.
export WINEDLLOVERRIDES="winedbg.exe=d;mscoree=;mshtml="
# The locale gives the ANSI code page: 936.
export LOCPATH=$BUILD/locale
# The shell itself doesn't look into LOCPATH and would warn.
{ export LC_ALL=zh_CN.UTF-8; } 2>/dev/null
unset LANG LANGUAGE
