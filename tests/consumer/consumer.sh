#!/usr/bin/env bash
# Builds the consumer against an installation, runs it and compares what it prints.
# Usage: consumer.sh cmake WORK-DIR CMAKE-OPTION...
#        consumer.sh pkg-config WORK-DIR COMPILER OPTION...     (PKG_CONFIG_PATH names the installation)
# In the environment: RUN_DIR, where the program shall be to find its DLLs; RUNNER, which runs it.
set -euo pipefail

method=$1 work=$2
shift 2
sources=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
rm -rf "$work"
mkdir -p "$work"
if [[ $method == cmake ]]; then
    cmake -S "$sources" -B "$work" -G Ninja "$@"
    cmake --build "$work"
else
    read -ra flags < <(pkg-config --cflags --libs fl_i18n)
    "$@" -std=c++20 "$sources/main.cpp" "${flags[@]}" -o "$work/consumer${RUN_DIR:+.exe}"
fi

program=$work/consumer
if [[ -n ${RUN_DIR:-} ]]; then
    program=$RUN_DIR/consumer-$method.exe
    cp "$work/consumer.exe" "$program"
fi
cd "$sources"
printed=$(${RUNNER:-} "$program" . | tr -d '\r')
diff - <<<"$printed" <(
    cat <<'TEXT'
5 個中 3 個のファイルを開きました。
not found: Message Key Closed was not found in the catalog app:ui
TEXT
)
