#!/bin/sh
# relay_check.sh INSTALLATION: is the relay of the last current time test an IEC standard inverse
# (A) with TMS 0.2, accuracy class 5? Leaves the library relay_check.dat.
set -eu
library=relay_check.dat
# The standard characteristic at the loads that serve the chart best, and ten of its points.
zentab-cli curve iec-a --tms 0.2 --from 1.02 --spacing best >standard.tsv
zentab-cli add "$library" "IEC A TMS 0.2" --points standard.tsv --instrument current
zentab-cli thin "$library" "IEC A TMS 0.2" --points 10 >ten.tsv
zentab-cli add "$library" "IEC A in ten points" --points ten.tsv --instrument current
grep '^# deviation=' standard.tsv ten.tsv
# The time test, without the loads at which the relay did not trip within the 60 s.
zentab-cli import --install "$1" --instrument current --pickup 1 --filter 3 --mean 1 |
  awk '$2 < 59' >measured.tsv
zentab-cli add "$library" "Measured" --points measured.tsv --instrument current
# Which characteristic it is, and how the relay keeps to it: against the table, then the formula.
zentab-cli fit "$library" "Measured" --family iec-a --family iec-b --family iec-c
zentab-cli assess "$library" "Measured" --against "$library" "IEC A TMS 0.2" --class 5 >compared.tsv
zentab-cli assess "$library" "Measured" --family iec-a --tms 0.2 --class 5
