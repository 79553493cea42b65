#!/bin/sh
# SPDX-License-Identifier: MIT
# Feeds every check of this folder something that is wrong in one way, and expects it to say so.
#
# usage: checks_can_fail.sh C_COMPILER CXX_COMPILER PYTHON SOURCE_FOLDER
set -eu
CC=$1 CXX=$2 PYTHON=$3 SOURCE=$4
HERE=$SOURCE/tests/interface
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export PYTHONDONTWRITEBYTECODE=1
failures=0

# expect FINDING COMMAND...: the command fails and reports the finding.
expect() {
    finding=$1
    shift
    if said=$("$@" 2>&1); then
        echo "accepted, though it is wrong ($finding): $*"
        failures=$((failures + 1))
    elif ! printf '%s\n' "$said" | grep -qF -- "$finding"; then
        printf 'failed without saying "%s": %s\n%s\n' "$finding" "$*" "$said"
        failures=$((failures + 1))
    fi
}

check() {
    script=$1
    shift
    "$PYTHON" "$HERE/$script.py" "$@"
}

# shared CODE [LINKER_OPTION...]: bad.so, right but for what the arguments make wrong.
shared() {
    printf '%s\n' "$1" > bad.c
    shift
    "$CC" -shared -fPIC bad.c -Wl,-soname,libqv8numeric.so.1 -Wl,-z,relro,-z,now "$@" -o bad.so
}

code='int rand(void); int f(void) { return rand(); }'
printf '%s\n' f > names

shared "$code"
check linkage bad.so  # the base that the next ones differ from is right
shared "$code" -Wl,--no-as-needed -lm
expect 'needs [' check linkage bad.so
shared "$code" -Wl,-soname,libother.so.1
expect 'is named [' check linkage bad.so
shared "$code __asm__(\".text\\n.quad f\\n\");" -Wl,-z,notext
expect 'has text relocations' check linkage bad.so
shared "$code" -Wl,-z,lazy
expect 'does not bind its symbols when loaded' check linkage bad.so
shared "$code" -Wl,-z,norelro
expect 'leaves its relocations writable' check linkage bad.so
shared "$code" -Wl,-z,execstack
expect 'both writable and executable' check linkage bad.so
shared "$code" -Wl,-rpath,/lib
expect 'has a search path of its own' check linkage bad.so

# exports SCRIPT_NAMES: a version script, and bad.so linked with it.
exports() {
    printf 'QV8NUMERIC_1 {\n    global: %s\n    local: *;\n};\n' "$1" > bad.map
    shared "$code int g(void) { return 1; }" -Wl,--version-script=bad.map
}

exports 'f;'
check exports bad.so bad.map names
exports 'f; g;'
expect 'the library has g@@QV8NUMERIC_1 besides' check exports bad.so bad.map names
expect 'the version script has g besides' check exports bad.so bad.map names
exports 'g;'
expect 'the library lacks f@@QV8NUMERIC_1' check exports bad.so bad.map names
expect 'the version script lacks f' check exports bad.so bad.map names
exports 'f;'
shared 'int f(void) { return 1; } int g(void) { return f(); }' -Wl,--version-script=bad.map
expect 'the library looks up f' check exports bad.so bad.map names
shared "$code"
expect 'the library has f besides' check exports bad.so bad.map names

# archive CODE: bad.a.
archive() {
    printf '%s\n' "$1" > bad.c
    rm -f bad.a
    "$CC" -O1 -fno-builtin -c bad.c -o bad.o
    ar rc bad.a bad.o
}

archive 'int f(void) { return 1; }'
check archive bad.a names
archive 'int g(void) { return 1; }'
expect 'lacks f' check archive bad.a names
expect 'defines g' check archive bad.a names
archive 'void* malloc(unsigned long n); void* f(void) { return malloc(1); }'
expect 'needs malloc' check archive bad.a names
archive 'static int calls = 1; int f(void) { return ++calls; }'
expect 'keeps state: 4 bytes of .data' check archive bad.a names
archive "$code __attribute__((constructor)) static void early(void) { rand(); }"
expect 'runs code at start or end' check archive bad.a names

archive "$code"
expect 'undefined reference' check static_link "$CC" "$folder/bad.a" "$SOURCE/include" names

# dll NEEDED EXPORT: a tool that says so of any DLL.
dll() {
    printf '#!/bin/sh\ncat <<END\n\tDLL Name: %s\n[Ordinal/Name Pointer] Table\n\t[   0] %s\nEND\n' "$1" "$2" > objdump
    chmod +x objdump
}

export OBJDUMP="$folder/objdump"
dll KERNEL32.dll f
check dll any.dll names
dll KERNEL32.dll g
expect 'lacks f' check dll any.dll names
expect 'exports g besides' check dll any.dll names
dll other.dll f
expect 'needs other.dll' check dll any.dll names

# header SED_COMMAND: the public header with one change.
header() {
    sed "$1" "$SOURCE/include/qv8numeric.h" > qv8numeric.h
    ! cmp -s qv8numeric.h "$SOURCE/include/qv8numeric.h" || { echo "nothing to change by $1"; exit 1; }
}

header 's/^    int64_t high;/    int64_t high, higher;/'
expect 'the layout: refused' check header "$CC" "$CXX" qv8numeric.h
header 's/^#ifndef QV8NUMERIC_H/#if 1/'
expect 'included twice: refused' check header "$CC" "$CXX" qv8numeric.h
header 's/^struct NumberParseState;/struct NumberParseState { int token; };/'
expect 'a look into the parse state: accepted' check header "$CC" "$CXX" qv8numeric.h
header 's/^typedef int32_t NumericStatus;/& typedef long NumericLong;/'
expect 'the header uses the type long' check header "$CC" "$CXX" qv8numeric.h
header 's/^#define QV8NUMERIC_VERSION_STRING "1/#define QV8NUMERIC_VERSION_STRING "2/'
expect 'the version is' check header "$CC" "$CXX" qv8numeric.h

mkdir tree
printf 'no licence \n' > tree/file
expect 'file:1: no "SPDX' check conventions tree
expect 'file:1: blanks at the end of the line' check conventions tree
printf 'no line end' > tree/file
expect 'file:1: the file does not end' check conventions tree

printf '#include <stdlib.h>\nvoid* volatile p;\nconst char* call_every_function(void) { p = malloc(1); return NULL; }\n' > bad.c
"$CC" -I "$HERE" bad.c "$HERE/no_allocation.c" -o bad
expect '1 allocations in the library' ./bad

mkdir host
printf 'add_custom_target(stray)\n' > host/CMakeLists.txt
expect 'targets: stray' cmake -S "$SOURCE/tests/install/subproject" -B build -DQV8NUMERIC_SOURCE_DIR="$folder/host"

exit "$failures"
