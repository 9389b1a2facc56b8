#!/usr/bin/env bash
# Brings up the CUPS scheduler and a PDF queue (cups-pdf) for the printing tests.
# Exit 0 when the queue "$1" (default PDF) accepts jobs; otherwise non-zero with the reason on stderr.
set -u
queue="${1:-PDF}"

if ! command -v lpstat >/dev/null || ! command -v cupsd >/dev/null; then
  echo "CUPS is not installed (cups, printer-driver-cups-pdf)" >&2
  exit 2
fi

sudo=""
if [ "$(id -u)" -ne 0 ]; then
  if sudo -n true 2>/dev/null; then sudo="sudo -n"; fi
fi

# lpstat -r exits 0 either way: its text tells.
running() { lpstat -r 2>/dev/null | grep -q "scheduler is running"; }

if ! running; then
  $sudo cupsd >/dev/null 2>&1 || { echo "cupsd does not start" >&2; exit 3; }
  for _ in $(seq 1 50); do
    running && break
    sleep 0.2
  done
  running || { echo "the CUPS scheduler is not running" >&2; exit 3; }
fi

if ! lpstat -p "$queue" >/dev/null 2>&1; then
  ppd=$(ls /usr/share/ppd/cups-pdf/*.ppd 2>/dev/null | head -n 1)
  if [ -z "$ppd" ] || [ ! -e /usr/lib/cups/backend/cups-pdf ]; then
    echo "cups-pdf is not installed" >&2
    exit 4
  fi
  $sudo lpadmin -p "$queue" -E -v cups-pdf:/ -P "$ppd" 2>&1 >&2 || { echo "cannot add the queue $queue" >&2; exit 5; }
fi
$sudo cupsenable "$queue" 2>/dev/null
$sudo cupsaccept "$queue" 2>/dev/null
lpstat -p "$queue" >/dev/null 2>&1 || { echo "the queue $queue does not exist" >&2; exit 5; }
exit 0
