#!/usr/bin/env bash
# Usage: schemas.sh SOURCE-DIR
set -uo pipefail

source_dir=$1
command -v xmllint >/dev/null || { echo "skipped: xmllint is not installed" && exit 77; }
failures=0

# Says whether a document is valid; under the XML syntax of RELAX NG and the W3C schema alike, or there is no answer.
verdict_of() { # SCHEMA-WITHOUT-ENDING FILE
    local relaxng=refused w3c=refused
    xmllint --noout --nonet --relaxng "$1.rng" "$2" 2>/dev/null && relaxng=accepted
    xmllint --noout --nonet --schema "$1.xsd" "$2" 2>/dev/null && w3c=accepted
    [[ $relaxng == "$w3c" ]] && echo "$w3c" || echo "$relaxng by RELAX NG, $w3c by the W3C schema"
}

expect() { # WHAT EXPECTED ACTUAL
    [[ $2 == "$3" ]] && return
    printf '%s: expected %s, is %s\n' "$@"
    ((++failures))
}

# Each shipped file names the schema that it follows.
while read -r file; do
    schema=$(sed -n 's/^<?xml-model href="\(.*\)\.rnc" type="application\/relax-ng-compact-syntax"?>$/\1/p' "$file")
    [[ -f $(dirname "$file")/$schema.rnc ]] || schema="(no schema)"
    expect "$file" accepted "$(verdict_of "$(dirname "$file")/$schema" "$file")"
done < <(find "$source_dir/resources" "$source_dir/tests/consumer" -name '*.xml')

# "verdict schema name document" a line.
file=$(mktemp)
trap 'rm -f "$file"' EXIT
while read -r verdict schema name document; do
    echo "$document" >"$file"
    expect "$schema, $name" "$verdict" "$(verdict_of "$source_dir/schemas/$schema" "$file")"
done <<'TABLE'
accepted catalog no_entries <rsccat><message/></rsccat>
accepted catalog empty_text <rsccat version="1.0" locale="be_BY@latin"><message><entry key="_k1"/></message></rsccat>
accepted catalog exchange_data <rsccat xmlns:x="urn:fl:i18n:exchange" x:a="1"><message x:b="2"><entry key="k" translate="no" x:c="3">{0}</entry></message></rsccat>
refused catalog other_root <catalog><message/></catalog>
refused catalog no_message <rsccat/>
refused catalog two_messages <rsccat><message/><message/></rsccat>
refused catalog entry_outside_message <rsccat><entry key="k"/></rsccat>
refused catalog nested_entry <rsccat><message><entry key="k"><entry key="l"/></entry></message></rsccat>
refused catalog text_in_message <rsccat><message>text</message></rsccat>
refused catalog no_key <rsccat><message><entry>text</entry></message></rsccat>
refused catalog empty_key <rsccat><message><entry key="">text</entry></message></rsccat>
refused catalog key_of_two_tokens <rsccat><message><entry key="a:b"/></message></rsccat>
refused catalog key_from_digit <rsccat><message><entry key="1a"/></message></rsccat>
refused catalog unknown_attribute <rsccat><message><entry key="k" note="n"/></message></rsccat>
refused catalog translate_perhaps <rsccat><message><entry key="k" translate="perhaps"/></message></rsccat>
refused catalog foreign_element <rsccat><message><n xmlns="urn:n"/></message></rsccat>
refused catalog locale_with_slash <rsccat locale="../ja"><message/></rsccat>
accepted catalog_map two_names <MessageCatalogMap><entry key="fl:i18n"/><entry key="a:b_1:c"/></MessageCatalogMap>
refused catalog_map one_token <MessageCatalogMap><entry key="fl"/></MessageCatalogMap>
refused catalog_map no_key <MessageCatalogMap><entry/></MessageCatalogMap>
refused catalog_map other_root <map/>
accepted lcdata empty <lcdata/>
accepted lcdata mixed_order <lcdata><codeset/><locale name="a" disable_user_locale="x"><l10n disable="off"/><alias name="b"/></locale></lcdata>
refused lcdata nameless_locale <lcdata><locale encoding="UTF-8"/></lcdata>
refused lcdata alias_in_root <lcdata><alias name="a"/></lcdata>
refused lcdata encoding_in_root <lcdata><encoding name="a"/></lcdata>
refused lcdata nameless_encoding <lcdata><codeset><encoding compat="a"/></codeset></lcdata>
refused lcdata nameless_encoding_alias <lcdata><codeset><encoding name="a"><encoding_alias/></encoding></codeset></lcdata>
refused lcdata switch_perhaps <lcdata><locale name="a"><l10n disable="perhaps"/></locale></lcdata>
refused lcdata blank_in_name <lcdata><locale name="a"><region_alias name="New Zealand"/></locale></lcdata>
refused lcdata text <lcdata>text</lcdata>
TABLE
echo '<rsccat><message><entry key="k"/><entry key="k"/></message></rsccat>' >"$file"
expect "the same key twice" "accepted by RELAX NG, refused by the W3C schema" \
    "$(verdict_of "$source_dir/schemas/catalog" "$file")"

# The compact syntax, which nothing here reads, has the names and values of the XML syntax that is made of it.
for schema in catalog catalog_map lcdata; do
    compact=$(sed 's/^ *#.*//; /^default namespace\|^namespace\|^datatypes/d' "$source_dir/schemas/$schema.rnc" |
        grep -oE '(element|attribute) [A-Za-z0-9_]+|"[^"]*"' | sed 's/.* //; s/"//g' | sort)
    xml=$(grep -oE '<(element|attribute) name="[^"]*|<(value|param)[^<]*' "$source_dir/schemas/$schema.rng" |
        sed 's/.*name="\([^">]*\)$/\1/; s/.*>//' | sort)
    expect "$schema.rng" "$compact" "$xml"
done

((failures == 0)) && echo "all as expected"
