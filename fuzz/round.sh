#!/bin/sh
# round.sh TARGET CORPUS: the seeds, then FUZZ_SECONDS (5) of new inputs. What it finds stays in a
# folder of its own; the seeds are not touched.
set -e
found=$(mktemp -d)
trap 'rm -rf "$found"' EXIT
dictionary="$2.dict"
if [ -f "$dictionary" ]; then set -- "$1" "$2" "-dict=$dictionary"; fi
target=$1
seeds=$2
shift 2
cd "$found"
mkdir new
"$target" new "$seeds" "-max_total_time=${FUZZ_SECONDS:-5}" -timeout=20 -rss_limit_mb=4096 \
  -malloc_limit_mb=3000 -print_final_stats=1 "$@" || {
  status=$?
  for input in crash-* timeout-* oom-* leak-*; do
    [ -f "$input" ] && echo "input of the failure, $input:" && base64 "$input"
  done
  exit $status
}
