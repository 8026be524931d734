#!/usr/bin/env bash
# Runs cases that together go through every part of the library under memcheck; any error, or memory that nothing leads to
# any more, is a failure.
# Usage: valgrind.sh BUILD-DIRECTORY
set -euo pipefail

bin=$1/bin
# Left out: cases that need a process or time of their own, and those of tens of thousands of texts, of which others have some.
public='-Corpus.*:ProcessStartUp.*:EncodingDiagnostics.*:temp_directory_mixtures.*:Concurrency.*'
public+=':Compare.Agrees*:Transform.NormalizesLong*:UnicodeForms.AgreeOnAll*:Ctype.Follows*'
public+=':FormattingByIcu.Messages*:FormattingByIcu.Doubles*:CaseMapping.IsThat*'
internal='-Encodings.ConvertAs*:Utf8Decoding.Treats*:BuiltinTables.AreFound*:Utf8Forms.Treat*'

# What is no fault: GoogleTest shows the padding of parameters; the C library compares wide texts by whole vectors, which
# do not leave a page.
suppressions=$(mktemp)
trap 'rm -f "$suppressions"' EXIT
for rule in 'Value8 fun:*PrintByteSegmentInObjectTo*' 'Cond fun:*PrintByteSegmentInObjectTo*' 'Addr32 fun:__wmemcmp_*'; do
    # shellcheck disable=SC2086
    printf '{\n   known\n   Memcheck:%s\n   ...\n   %s\n}\n' $rule
done >"$suppressions"

count=0
for suite in "fl_i18n_tests $public" "fl_i18n_internal_tests $internal"; do
    read -r program filter <<<"$suite"
    log=$(valgrind --quiet --error-exitcode=9 --leak-check=full --show-leak-kinds=definite,indirect \
        --errors-for-leak-kinds=definite,indirect --suppressions="$suppressions" \
        "$bin/$program" --gtest_brief=1 --gtest_filter="$filter" 2>&1) || {
        printf '%s\n' "$log" "valgrind: $program failed" >&2
        exit 1
    }
    tests=$(sed -nE 's/^\[==========\] ([0-9]+) tests? .* ran.*/\1/p' <<<"$log")
    ((count += tests))
done
((count > 0))
echo "valgrind: $count tests, 0 errors"
