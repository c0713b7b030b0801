#!/bin/sh
# night_test.sh INSTALLATION: the last current time test as a curve of the library night.dat
set -eu
zentab-cli import --install "$1" --instrument current --catalogue "$1/Zentab1.txt" \
  --pickup 1 --diff 3 --filter 3 --mean 5 >points.tsv
zentab-cli add night.dat "Feeder 12" --points points.tsv --instrument current
zentab-cli grh night.dat "Feeder 12" --pickup 1 -o feeder12.grh
zentab-cli check night.dat
