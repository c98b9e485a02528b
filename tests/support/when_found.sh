#!/bin/sh
# SPDX-License-Identifier: MIT
# when_found.sh "tool..." command...: runs the command when every tool is on the PATH; else says which
# one is missing and ends with 77, the code ctest reports as a skipped test.
for tool in $1; do
  command -v "$tool" >/dev/null 2>&1 || { echo "skipped: $tool not found"; exit 77; }
done
shift
exec "$@"
