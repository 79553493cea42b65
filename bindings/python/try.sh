#!/bin/sh
# SPDX-License-Identifier: MIT
# Starts Python with the package and a library: try.sh LIBRARY [ARG...]. Without arguments all names are imported.
set -eu
QV8NUMERIC_LIBRARY=$(realpath "$1")
PYTHONPATH=$(realpath "$(dirname "$0")")/src
export QV8NUMERIC_LIBRARY PYTHONPATH
shift
[ $# -gt 0 ] || set -- -i -c 'from qv8numeric import *'
exec python3 -B "$@"
