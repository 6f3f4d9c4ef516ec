#!/bin/sh
# Prints the water level that the gauge wrote last.
tail -n 1 "${GAUGE:-/var/spool/gauge/levels.txt}"
