#!/bin/sh
# Checks that a program carries Debian's hardening, as lintian and
# hardening-check look for it: position independent, read-only relocations
# bound at start, stack protector, fortified libc calls, no executable stack.
# Usage: check_hardening.sh PROGRAM
set -u
bin=$1
failures=0
fail() {
  echo "FAIL: $*"
  failures=$((failures + 1))
}
command -v readelf >/dev/null 2>&1 || { echo "FAIL: readelf is missing (binutils)"; exit 1; }
[ -f "$bin" ] || { echo "FAIL: no program at $bin"; exit 1; }

readelf -hW "$bin" | grep -q 'Type:[[:space:]]*DYN' || fail "not position independent (ELF type is not DYN)"
readelf -dW "$bin" | grep -q 'FLAGS_1.*PIE' || fail "not linked as a PIE executable"
readelf -lW "$bin" | grep -q 'GNU_RELRO' || fail "no RELRO segment (-z relro)"
readelf -dW "$bin" | grep -Eq '\(BIND_NOW\)|FLAGS[^_].*BIND_NOW|FLAGS_1.*NOW' || fail "symbols are not bound at start (-z now)"
readelf -lW "$bin" | grep 'GNU_STACK' | grep -q 'RWE' && fail "the stack is executable"
syms=$(readelf --dyn-syms -W "$bin")
printf '%s\n' "$syms" | grep -q '__stack_chk_fail' || fail "no stack protector (-fstack-protector-strong)"
printf '%s\n' "$syms" | grep -Eq '__[a-z]+_chk(@|$| )' || fail "no fortified libc calls (-D_FORTIFY_SOURCE=2)"

[ $failures -eq 0 ] || exit 1
echo "hardened: PIE, full RELRO, stack protector, fortified calls"
