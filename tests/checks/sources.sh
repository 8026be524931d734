#!/usr/bin/env bash
# Tells which sources are compiled with warnings that are no errors, and which hosts are named beside those of schemas.
# Usage: sources.sh SOURCE-DIRECTORY COMPILE-COMMANDS
set -euo pipefail

commands=$(grep '"command": ' "$2" | grep -F " -c $1/" | grep -vE " -c $1/(build|bench/peers)/") || true
lenient=$(grep -vE ' -Wall .* -Werror ' <<<"$commands" | sed 's/.* -c //') || true
hosts=$(cd "$1" && grep -rIhoE --exclude-dir={build,.git} 'https?://[A-Za-z0-9.-]+' . | sort -u |
    grep -vE '^https?://(relaxng\.org|schemas\.microsoft\.com|www\.w3\.org|json\.schemastore\.org)$') || true
if [[ -z $commands || -n $lenient$hosts ]]; then
    printf '%s\n' "compiled with warnings: ${lenient:-none}" "hosts named: ${hosts:-none}" >&2
    exit 1
fi
echo "$(wc -l <<<"$commands") sources are compiled without warnings, no host is named that need not be"
