// Catalogs to the formats of translators and back.

#include "tools/fl_i18n/command.hpp"
#include "tools/fl_i18n/console.hpp"
#include "tools/fl_i18n/exchange/exchange_file.hpp"
#include "tools/fl_i18n/exchange/message_key.hpp"
#include "tools/fl_i18n/exchange/plural_forms.hpp"
#include "tools/fl_i18n/files.hpp"

#include <fl/filesystem/path.hpp>
#include <fl/i18n/ustring.hpp>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <unicode/plurrule.h>
#include <unicode/unistr.h>

namespace fl::tool {
namespace {

constexpr exchange_format formats[] = {exchange_format::po, exchange_format::xliff1, exchange_format::xliff2};

catalog read(std::string const & xml) {
    std::vector<catalog_fault> faults;
    catalog result = read_catalog(source_text(xml), true, faults);
    EXPECT_TRUE(faults.empty()) << faults[0].text << '\n' << xml;
    return result;
}

/// Imports a file and returns the catalog as it is written.
std::string import_text(std::string const & bytes, std::vector<std::string> * left_out = nullptr) {
    std::vector<std::string> ignored;
    return write_catalog(import_file("f", bytes, std::nullopt, left_out != nullptr ? *left_out : ignored));
}

std::string replace(std::string text, std::string const & from, std::string const & to) {
    std::size_t const at = text.find(from);
    EXPECT_NE(at, text.npos) << from << " in\n" << text;
    return at == text.npos ? text : text.replace(at, from.size(), to);
}

/// Imports and exports a file again, with the change of a part of the catalog.
std::string round_trip(std::string const & bytes, exchange_format format, std::string const & from = "",
                       std::string const & to = "") {
    return export_file(read(replace(import_text(bytes), from, to)), {}, format, "c.xml");
}

using namespace std::string_literals;

std::string const header =
    "msgid \"\"\nmsgstr \"\"\n\"Content-Type: text/plain; charset=UTF-8\\n\"\n\"Language: de\\n\"\n";

TEST(MessageKey, IsAReadableTokenForEachPairOfContextAndText) {
    EXPECT_EQ(make_key(std::nullopt, "Open the file..."), "Open_the_file_rdm5fiuk");
    EXPECT_EQ(make_key("menu", "Open the file..."), "Open_the_file_jnt4dn21");
    std::mt19937 random(1);
    std::set<std::string> keys;
    for (int i = 0; i < 20000; ++i) {
        std::string text = std::to_string(i);
        for (auto length = random() % 40; length > 0; --length) {
            text.insert(text.begin(), static_cast<char>(1 + random() % 255));
        }
        std::string const key = make_key(i % 2 == 0 ? std::nullopt : std::optional<std::string>("c"), text);
        ASSERT_TRUE(is_key(key)) << key;
        ASSERT_TRUE(keys.insert(key).second) << key;
    }
    EXPECT_NE(make_key("", "a"), make_key(std::nullopt, "a"));
    EXPECT_NE(make_key("a", "b"), make_key(std::nullopt, "ab"));
}

// Everything that a PO file can hold, as the tool writes it.
std::string const full_po = R"(# First line
#
#  of the header
#, fuzzy
)" + header + R"(
# translator
#. extracted
#: a.c:1 b.c:2
#, fuzzy, c-format
#| msgctxt "old"
#| msgid "previous"
msgctxt "ctx"
msgid "abc \"{0}\" \\ %d"
msgstr "draft"

msgid "a\tb\r\a\b\f\v\001\177"
msgstr ""
"two\n"
"lines\n"

#~ msgid "gone"
#~ msgstr "weg"

msgid "file"
msgid_plural "files"
msgstr[0] "Datei"
msgstr[1] "Dateien"

msgid "none"
msgid_plural "nones"
msgstr[0] ""
msgstr[1] ""

domain "other"

msgid "file"
msgstr "<Akte>"

#, c-format
#~| msgid "older"
#~ msgctxt "c"
#~ msgid "one"
#~ msgid_plural "many"
#~ msgstr[0] "ein"
#~ msgstr[1] "viele"

# the end
)";

TEST(Po, BecomesACatalogAndTheSameAgain) {
    std::string const expected =
        R"(<?xml version="1.0" encoding="UTF-8"?>
<rsccat version="1.0" xmlns:x="urn:fl:i18n:exchange" x:format="po" )"
        R"(x:header="Content-Type: text/plain; charset=UTF-8\nLanguage: de\n" )"
        R"(x:comments="First line\n\n of the header" x:flags="fuzzy" )"
        R"(x:after="domain &quot;other&quot;\n\n#, c-format\n#~| msgid &quot;older&quot;\n)"
        R"(#~ msgctxt &quot;c&quot;\n#~ msgid &quot;one&quot;\n#~ msgid_plural &quot;many)"
        R"(&quot;\n#~ msgstr[0] &quot;ein&quot;\n#~ msgstr[1] &quot;viele&quot;\n)"
        R"(# the end\n" locale="de">
  <message>
    <entry key="abc_0_d_2on4eqef" x:source="abc &quot;{0}&quot; \\ %d" x:state="fuzzy" x:draft="draft" )"
        R"(x:context="ctx" x:comments="translator" x:extracted="extracted" )"
        R"(x:references="a.c:1 b.c:2" x:flags="fuzzy, c-format" )"
        R"(x:previous="msgctxt &quot;old&quot;\nmsgid &quot;previous&quot;">)"
        R"(abc "{0}" \\ %d</entry>
    <entry key="a_b_afr27fqb" x:source="a\tb\u000D\u0007\u0008\u000C\u000B\u0001\u007F">two\nlines\n</entry>
    <entry key="file_ihe18o3f_0" x:source="file" x:plural="files" x:form="0" )"
        R"(x:before="#~ msgid &quot;gone&quot;\n#~ msgstr &quot;weg&quot;\n">Datei</entry>
    <entry key="file_ihe18o3f_1" x:source="files" x:form="1">Dateien</entry>
    <entry key="none_c3mal8bn_0" x:source="none" x:plural="nones" x:form="0" x:state="untranslated">none</entry>
    <entry key="none_c3mal8bn_1" x:source="nones" x:form="1" x:state="untranslated">nones</entry>
    <entry key="file_5m9i07ek" x:source="file" x:domain="other">&lt;Akte&gt;</entry>
  </message>
</rsccat>
)";
    EXPECT_EQ(import_text(full_po), expected);
    EXPECT_EQ(round_trip(full_po, exchange_format::po), full_po);
}

TEST(Po, IsReadInEverySpelling) {
    std::string const po =
        "\xEF\xBB\xBF#foo\r\n#:a.c\r\n#!fuzzy\r\n#,  c-format \nmsgid \"a\" \"\\142\\x123456789a63 \""
        "msgstr\"\\303\\251\"\n  \"d\" # after\n";
    EXPECT_EQ(import_text(po).find("x:state"), std::string::npos);
    EXPECT_EQ(round_trip(po, exchange_format::po),
              "# foo\n#: a.c\n#, fuzzy\n#,  c-format \nmsgid \"abc \"\nmsgstr \"\xC3\xA9"
              "d\"\n\n# after\n");
}

TEST(Po, KeepsItsHeaderInItsPlace) {
    for (char const * const before : {"msgid \"a\"\nmsgstr \"b\"\n\n", "domain \"d\"\n\n"}) {
        std::string const po = std::string(before) + header + "\nmsgid \"c\"\nmsgstr \"d\"\n";
        EXPECT_EQ(round_trip(po, exchange_format::po), po);
        EXPECT_NE(import_text(po).find("locale=\"de\""), po.npos);
    }
}

TEST(Po, KeepsTheEncodingOfItsFile) {
    std::map<std::string, std::string> const texts = {{"ISO-8859-1", "\xE9"},
                                                      {"EUC-JP", "\xC6\xFC\xCB\xDC"},
                                                      {"KOI8-R", "\xC1\xC2"},
                                                      {"SHIFT_JIS", "\x83\x5C\\\\"},
                                                      {"GB18030", "\x81\x30\x81\x30"}};
    for (auto const & [encoding, bytes] : texts) {
        SCOPED_TRACE(encoding);
        std::string const po =
            replace(header, "UTF-8", encoding) + "\nmsgid \"a\"\nmsgstr \"" + bytes + "\"\n";
        EXPECT_EQ(round_trip(po, exchange_format::po), po);
    }
    for (std::string const & po : {"# charset=KOI8-R\n" + header, "msgid \"charset=KOI8-R\"\nmsgstr \"\"\n"s,
                                   "msgctxt \"c\"\nmsgid \"\"\nmsgstr \"charset=KOI8-R\"\n"s}) {
        EXPECT_NE(import_text(po + "\nmsgid \"a\"\nmsgstr \"\xC3\xA9\"\n").find(">\xC3\xA9<"), po.npos) << po;
    }
    std::string const latin = replace(header, "UTF-8", "ISO-8859-1") + "\nmsgid \"a\"\nmsgstr \"b\"\n";
    EXPECT_THROW(round_trip(latin, exchange_format::po, ">b<", ">\xE3\x81\x82<"), command_failure);
}

TEST(Po, IsTranslatedByChangesOfItsCatalog) {
    std::string const po =
        header + "\n#, c-format, fuzzy\nmsgid \"a\"\nmsgid_plural \"as\"\nmsgstr[0] \"1\"\nmsgstr[1] \"2\"\n"
                 "\nmsgid \"b\"\nmsgstr \"\"\n\n# end\n";
    EXPECT_EQ(round_trip(po, exchange_format::po, ">as<", ">viele<"),
              replace(replace(po, ", fuzzy", ""), "\"2\"", "\"viele\""));
    EXPECT_EQ(round_trip(po, exchange_format::po, ">b<", ">B<"),
              replace(po, "msgstr \"\"\n\n# end", "msgstr \"B\"\n\n# end"));
}

TEST(Po, IsTranslatedThroughXliff) {
    std::string const po = header + "\nmsgid \"a\"\nmsgstr \"A\"\n\n#, c-format\nmsgid \"b\"\nmsgstr \"\"\n";
    std::string xliff = export_file(read(import_text(po)), {}, exchange_format::xliff1, "c.xml");
    xliff = replace(xliff, "<source>a</source><target state=\"translated\">A<",
                    "<source>a </source><target state=\"needs-review-translation\">AA<");
    xliff = replace(xliff, "<source>b</source>", "<source>b</source><target state=\"new\">B</target>");
    std::string const xml = import_text(xliff);
    EXPECT_EQ(
        export_file(read(xml), {}, exchange_format::po, "c.xml"),
        header + "\n#, fuzzy\nmsgid \"a\"\nmsgstr \"AA\"\n\n#, fuzzy, c-format\nmsgid \"b\"\nmsgstr \"B\"\n");
}

TEST(Exchange, NamesThePlaceOfWhatItRefuses) {
    std::string const xliff = "<xliff version='1.2' xmlns='urn:oasis:names:tc:xliff:document:1.2'>";
    std::string const own = replace(header, "Language", "X-Catalog-Keys: msgctxt\\n\"\n\"Language");
    std::pair<std::string, std::string> const rows[] = {
        {"msgid \"a\"\nmsgstr \"b\n", "f:2:8: the text has no closing quote"},
        {"msgid \"a\"\nmsgstr \"\xC3\xA9\\q\"\n", "f:2:10: an unknown escape"},
        {"msgid \"a\"\nmsgstr \"\\0\"\n", "f:2:9: a null character"},
        {"msgid \"a\"\nmsgid \"b\"\n", "f:2:1: \"msgstr\" is expected"},
        {"msgid \"a\"\nmsgstr\n\nmsgid \"b\"\n", "f:4:1: a text in quotes"},
        {"msgid \"a\"\nmsgid_plural \"b\"\nmsgstr[1] \"c\"\n", "f:3:7: \"[0]\" is expected"},
        {"msgid \"a\"\n# c\nmsgstr \"b\"\n", "f:2:1: \"msgstr\" is expected"},
        {"#~ msgid \"a\"\nmsgstr \"b\"\n", "f:2:1: only a part"},
        {"msgid \"a\"\nmsgstr \"b\"\n#~ \"c\"\n", "f:3:4: only a part"},
        {"nonsense\n", "f:1:1: \"msgid\" is expected"},
        {"msgid \"a\"\nmsgstr \"b\"\n=\n", "f:3:1: neither a keyword"},
        {"msgid \"a\"\nmsgstr \"b\"\n\nmsgid \"a\"\nmsgstr \"b\"\n",
         "f:4:1: the message has the key of the one in line 1"},
        {header + "msgid \"a\"\nmsgstr \"\xFF\"\n",
         "f:6:1: the line is not valid in the file's encoding UTF-8"},
        {replace(header, "UTF-8", "UTF-99"), "f:3:36: the encoding UTF-99 is not known"},
        {own + "\nmsgid \"a\"\nmsgstr \"b\"\n",
         "f:7:1: the messages of a catalog have their keys as context"},
        {own + "\nmsgctxt \"k\"\nmsgid \"a\"\nmsgstr \"b\"\n\nmsgctxt \"k\"\nmsgid \"b\"\nmsgstr \"b\"\n",
         "f:11:1: the key \"k\" is there already"},
        {"<rsccat/>", "f:1:1: the root element is not \"xliff\""},
        {replace(xliff, "1.2", "1.1") + "</xliff>", "f:1:1: the root element is not \"xliff\""},
        {xliff + "<file><body>\n<trans-unit>\n</trans-unit></body></file></xliff>",
         "f:3:1: a unit without source"},
        {xliff + "\n<file></xliff>", "f:2:9: mismatched tag"},
    };
    for (auto const & [bytes, expected] : rows) {
        try {
            import_text(bytes);
            ADD_FAILURE() << bytes;
        } catch (command_failure const & failure) {
            EXPECT_EQ(std::string(failure.what()).substr(0, expected.size()), expected);
            EXPECT_EQ(failure.status(), exit_input_output);
        }
    }
}

/// Returns one of a few texts with everything that a text can hold.
i18n::ustring random_text(std::mt19937 & random) {
    static std::u16string const alphabet =
        u" \t\n\r\\'\"<>&]{}#-ax\u0000\u0001\u007F\u0085\u00A0\u00E9\u2028\u3042\xD83D\xDE00\xDE00"
        u"\xD83D\uFEFF\uFFFE\uFFFF"s;
    static char16_t const * const pieces[] = {u"{0}", u"{name}", u"{1,number}", u"{0,plural,other{#}}",
                                              u"it's"};
    i18n::ustring result;
    for (auto count = random() % 7; count > 0; --count) {
        if (random() % 3 == 0) {
            result += pieces[random() % std::size(pieces)];
        } else {
            result += alphabet[random() % alphabet.size()];
        }
    }
    return result;
}

catalog random_catalog(std::mt19937 & random, std::string const & locale) {
    static std::vector<std::string> const comments = {
        " a note ", "tight", " two\n   lines ", "", " <entry/> ", " - ", " x\n"};
    catalog result;
    result.attributes = {{"version", "1.0"}, {"locale", locale}, {"other", "\"<&>' \n\t"}};
    result.instructions = {"pi data"};
    result.head_comments = comments;
    for (int i = 0; i < 300; ++i) {
        catalog_entry entry;
        entry.key = "k" + std::to_string(i) + (i % 50 == 0 ? "\" \xC3\xA9" : "");
        if (random() % 4 == 0) {
            continue; // The other catalog may have it.
        }
        entry.text.units = random_text(random);
        if (random() % 3 == 0) {
            entry.comments.push_back(comments[random() % comments.size()]);
        }
        if (random() % 5 == 0) {
            entry.attributes = {{"translate", "no"}, {"a", "&quot;"}};
        }
        result.entries.push_back(entry);
    }
    result.tail_comments = {" tail ", " more "};
    return result;
}

TEST(Exchange, GivesEveryCatalogBack) {
    std::mt19937 random(1);
    for (int i = 0; i < 30; ++i) {
        catalog const base = random_catalog(random, "en_US");
        catalog const contents = random_catalog(random, "pt_BR");
        for (exchange_format const format : formats) {
            for (bool const with_base : {false, true}) {
                SCOPED_TRACE(std::to_string(static_cast<int>(format)) + (with_base ? " with base" : ""));
                export_settings settings;
                settings.base = with_base ? &base : nullptr;
                std::vector<std::string> left_out;
                ASSERT_EQ(import_text(export_file(contents, settings, format, "c.xml"), &left_out),
                          write_catalog(contents));
                EXPECT_TRUE(left_out.empty());
            }
        }
    }
}

TEST(Exchange, GivesACatalogOfAnotherFormatBack) {
    std::string const xml = import_text(full_po);
    for (exchange_format const format : formats) {
        EXPECT_EQ(import_text(export_file(read(xml), {}, format, "c.xml")), xml);
    }
}

TEST(Exchange, GivesTheShippedCatalogsBack) {
    std::string const root =
        i18n::ustring_to_utf8(display_path(filesystem::get_install_path().string())) + "/resources/fl";
    catalog const base = read_good_catalog(root + "/en_US_POSIX/i18n.xml");
    std::vector<std::string> const files = files_below(root, "i18n.xml");
    EXPECT_EQ(files.size(), 10u);
    for (std::string const & file : files) {
        catalog const contents = read_good_catalog(file);
        export_settings settings;
        settings.base = &base;
        for (exchange_format const format : formats) {
            EXPECT_EQ(import_text(export_file(contents, settings, format, "i18n.xml")),
                      write_catalog(contents))
                << file;
        }
    }
}

std::string const small_catalog = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- Head -->
<rsccat version="1.0" locale="de_DE">
  <message>
    <!-- Mine -->
    <entry key="a" translate="no">A {0}</entry>
    <entry key="b">B {0,number}</entry>
    <entry key="c"></entry>
  </message>
</rsccat>
)";
std::string const small_base = R"(<rsccat locale="en"><message><!-- About it --><entry key="a">a {0}</entry>
<entry key="new">new {name} {0}</entry><entry key="b" translate="no">b {0,number}</entry><entry key="c">\uD800</entry></message></rsccat>)";

std::string export_small(exchange_format format, bool is_template = false) {
    catalog const base = read(small_base);
    export_settings settings;
    settings.base = &base;
    settings.is_template = is_template;
    return export_file(read(small_catalog), settings, format, "ui.xml");
}

TEST(Po, OfACatalogIsForTranslators) {
    std::string const fields = R"(msgid ""
msgstr ""
"Project-Id-Version: \n"
"PO-Revision-Date: \n"
"Last-Translator: \n"
"Language-Team: \n"
"Language: de_DE\n"
"MIME-Version: 1.0\n"
"Content-Type: text/plain; charset=UTF-8\n"
"Content-Transfer-Encoding: 8bit\n"
"Plural-Forms: nplurals=2; plural=(n != 1);\n"
"X-Catalog-Keys: msgctxt\n"
)";
    EXPECT_EQ(export_small(exchange_format::po),
              "# Head\n# <rsccat version=\"1.0\" locale=\"de_DE\"/>\n" + fields + R"(
# Mine
# <entry key="a" translate="no"/>
#. About it
#, python-brace-format
msgctxt "a"
msgid "a {0}"
msgstr "A {0}"

#, python-brace-format
msgctxt "new"
msgid "new {name} {0}"
msgstr ""

msgctxt "b"
msgid "b {0,number}"
msgstr "B {0,number}"

# <entry key="c" x:escaped="yes" x:empty="yes"/>
msgctxt "c"
msgid "\\uD800"
msgstr ""
)");
    std::string const pot = export_small(exchange_format::po, true);
    EXPECT_EQ(pot.find("msgstr \"A"), pot.npos);
    EXPECT_NE(pot.find("#. About it\n#, python-brace-format\nmsgctxt \"a\"\nmsgid \"a {0}\"\nmsgstr \"\"\n"),
              pot.npos);
}

TEST(Po, OfACatalogBringsTheWorkOfTranslators) {
    std::string po = export_small(exchange_format::po);
    po = replace(po, "Team: ", "Team: Germans");
    po = replace(po, "# Mine\n", "# Mine\n# a translator's -- note\n# another\n");
    po = replace(po, "#, python-brace-format\nmsgctxt \"new",
                 "#: ui.c:1\n#, fuzzy, python-brace-format\n#| msgid \"old\"\nmsgctxt \"new");
    po = replace(po, "{name} {0}\"\nmsgstr \"", "{name} {0}\"\nmsgstr \"neu?");
    po = replace(po, "\"B {0,number}", "\"");
    po = replace(po, "msgctxt \"b\"", "# lost\nmsgctxt \"b\"") + "\n#~ msgid \"x\"\n#~ msgstr \"y\"\n";
    std::vector<std::string> left_out;
    std::string xml = replace(
        small_catalog, "locale=\"de_DE\"",
        R"(locale="de_DE" xmlns:x="urn:fl:i18n:exchange" x:header="Project-Id-Version: \nPO-Revision-Date: \nLast-Translator: \nLanguage-Team: Germans\n)"
        R"(Language: de_DE\nMIME-Version: 1.0\nContent-Type: text/plain; charset=UTF-8\nContent-Transfer-Encoding: 8bit\n)"
        R"(Plural-Forms: nplurals=2; plural=(n != 1);\nX-Catalog-Keys: msgctxt\n" x:after="#~ msgid &quot;x&quot;\n#~ msgstr )"
        R"(&quot;y&quot;\n")");
    xml = replace(xml, "Mine -->", "Mine -->\n    <!-- another -->");
    xml = replace(xml, "\"no\">", "\"no\" x:comments=\"a translator's -- note\">");
    xml = replace(xml, "<entry key=\"b\">B {0,number}",
                  "<entry key=\"new\" x:state=\"fuzzy\" x:source=\"new {name} {0}\" x:draft=\"neu?\" "
                  "x:references=\"ui.c:1\" x:previous=\"msgid &quot;old&quot;\">new {name} {0}");
    EXPECT_EQ(import_text(po, &left_out), xml);
    EXPECT_EQ(left_out, std::vector<std::string>{"the comments on \"b\", which has no translation"});
    for (exchange_format const format : formats) {
        EXPECT_EQ(import_text(export_file(read(xml), {}, format, "c.xml")), xml);
    }
    std::string const accepted = replace(export_file(read(xml), {}, exchange_format::xliff1, "c.xml"),
                                         "needs-review-translation", "translated");
    EXPECT_EQ(import_text(accepted),
              replace(replace(replace(xml, " x:state=\"fuzzy\"", ""), " x:draft=\"neu?\"", ""),
                      "\">new {name} {0}<", "\">neu?<"));
}

TEST(Po, OfACatalogFollowsItsBase) {
    auto const po = [](std::string const & context, std::string const & id, std::string const & text) {
        return "#, fuzzy\nmsgctxt \"" + context + "\"\nmsgid \"" + id + "\"\nmsgstr \"" + text + "\"\n";
    };
    // As gettext's tools propose them, the second with the comments of another message.
    std::string const own = replace(header, "Language", "X-Catalog-Keys: msgctxt\\n\"\n\"Language") + "\n";
    std::string const tag = "# <entry key=\"k\" a=\"b\"/>\n";
    catalog const contents =
        read(import_text(own + tag + po("k", "old", "alt") + "\n" + tag + po("l", "more", "mehr")));
    ASSERT_EQ(contents.entries.size(), 2u);
    EXPECT_EQ(contents.entries[0].attributes.front().name, "a");
    EXPECT_EQ(contents.entries[1].attributes.front().name, "x:state");

    catalog const base = read("<rsccat><message><entry key='k'>new</entry></message></rsccat>");
    export_settings settings;
    settings.base = &base;
    for (exchange_format const format : formats) {
        std::string const second = import_text(export_file(contents, settings, format, "c.xml"));
        EXPECT_NE(second.find("x:source=\"new\" x:draft=\"alt\">new<"), second.npos) << second;
    }
    std::string const merged =
        replace(export_file(contents, {}, exchange_format::po, "c.xml"), "msgid \"old", "msgid \"newest");
    std::string const third = import_text(merged);
    EXPECT_NE(third.find("x:source=\"newest\" x:draft=\"alt\">newest<"), third.npos) << third;
}

TEST(Xliff, OfACatalogIsForTranslators) {
    std::string const units1 =
        R"(<trans-unit id="a" resname="a" translate="no"><source>a <ph id="1">{0}</ph></source><target state="translated">A <ph id="1">{0}</ph></target><note> Mine </note><note from="source"> About it </note><x:entry>&lt;entry translate=&quot;no&quot;/&gt;</x:entry></trans-unit>
      <trans-unit id="new" resname="new"><source>new <ph id="1">{name}</ph> <ph id="2">{0}</ph></source></trans-unit>
      <trans-unit id="b" resname="b" translate="no"><source>b <ph id="1">{0,number}</ph></source><target state="translated">B <ph id="1">{0,number}</ph></target></trans-unit>
      <trans-unit id="c" resname="c"><source><ph id="1" ctype="x-character">\uD800</ph></source><target state="translated"></target></trans-unit>)";
    std::string const units2 =
        R"(<unit id="a" name="a" translate="no"><x:entry>&lt;entry translate=&quot;no&quot;/&gt;</x:entry><notes><note> Mine </note><note category="source"> About it </note></notes><segment state="translated"><source>a <ph id="1" equiv="{0}" disp="{0}"/></source><target>A <ph id="1" equiv="{0}" disp="{0}"/></target></segment></unit>
    <unit id="new" name="new"><segment><source>new <ph id="1" equiv="{name}" disp="{name}"/> <ph id="2" equiv="{0}" disp="{0}"/></source></segment></unit>)";
    std::string const xliff1 = export_small(exchange_format::xliff1);
    std::string const xliff2 = export_small(exchange_format::xliff2);
    EXPECT_NE(xliff1.find(units1), xliff1.npos) << xliff1;
    EXPECT_NE(xliff2.find(units2), xliff2.npos) << xliff2;
    EXPECT_NE(xliff2.find("<source><cp hex=\"D800\"/></source><target></target>"), xliff2.npos) << xliff2;
    EXPECT_NE(xliff1.find("source-language=\"en\" target-language=\"de-DE\""), xliff1.npos) << xliff1;
}

TEST(Xliff, OfACatalogBringsTheWorkOfTranslators) {
    for (exchange_format const format : {exchange_format::xliff1, exchange_format::xliff2}) {
        bool const first = format == exchange_format::xliff1;
        std::string xliff = export_small(format);
        xliff = replace(xliff, "de-DE\"", "de-AT\"");
        xliff = replace(xliff, "translated\"", "final\"");
        xliff = replace(xliff, "<note> Mine </note>", "<note> Mine </note><note>so-</note>");
        std::string const draft =
            first ? "<target state=\"needs-adaptation\">neu?</target>" : "<target>neu?</target>";
        xliff = replace(xliff, first ? "{0}</ph></source></trans-unit>" : "disp=\"{0}\"/></source></segment>",
                        first ? "{0}</ph></source>" + draft +
                                    "<alt-trans><target>x</target></alt-trans></trans-unit>"
                              : "disp=\"{0}\"/></source>" + draft + "</segment>");
        xliff = first ? xliff
                      : replace(xliff, "<unit id=\"new\" name=\"new\"><segment>",
                                "<unit id=\"new\" name=\"new\"><mda:metadata/><segment state=\"initial\">");
        std::string xml = replace(small_catalog, "de_DE\"", "de_AT\" xmlns:x=\"urn:fl:i18n:exchange\"");
        xml = replace(xml, "\"no\">", "\"no\" x:target-state=\"final\" x:comments=\"so-\">");
        xml = replace(
            xml, "    <entry key=\"b\"",
            std::string(
                "    <entry key=\"new\" x:state=\"fuzzy\" x:source=\"new {name} {0}\" x:draft=\"neu?\"") +
                (first ? " x:target-state=\"needs-adaptation\"" : "") +
                ">new {name} {0}</entry>\n    <entry key=\"b\"");
        std::vector<std::string> left_out;
        EXPECT_EQ(import_text(xliff, &left_out), xml);
        EXPECT_EQ(left_out, std::vector<std::string>{first ? "1 \"alt-trans\"" : "1 \"mda:metadata\""});
        EXPECT_EQ(import_text(export_file(read(xml), {}, format, "c.xml")), xml);
    }
}

TEST(Xliff, OfACatalogIsReadAsToolsWriteIt) {
    std::string const target1 = "<target state=\"translated\">A <ph id=\"1\">{0}</ph></target>";
    std::string const source2 = "<source>a <ph id=\"1\" equiv=\"{0}\" disp=\"{0}\"/></source>";
    std::string const target2 = "<target>A <ph id=\"1\" equiv=\"{0}\" disp=\"{0}\"/></target>";
    struct {
        exchange_format format;
        std::string from;
        std::string to;
        std::string expected; // a part of the catalog, or of what is said against the file
    } const rows[] = {
        {exchange_format::xliff1, target1, "<target><x id=\"1\"/> A</target>", ">{0} A<"},
        {exchange_format::xliff2, target2, "<target><ph id=\"1\"/> A</target>", ">{0} A<"},
        {exchange_format::xliff2, target2, "<target>A<pc id=\"1\">b</pc></target>", ">A{0}b<"},
        {exchange_format::xliff1, target1, "<target/>", "  <message>\n    <entry key=\"b\""},
        {exchange_format::xliff2, " state=\"translated\">" + source2 + target2,
         ">" + source2 + "<target></target>", "  <message>\n    <entry key=\"b\""},
        {exchange_format::xliff1, target1, "<q:target>x</q:target>" + target1, ">A {0}<"},
        {exchange_format::xliff1, target1, "<target>A <x id=\"2\"/></target>",
         "the target of \"a\" has an element that is none of the source: <x id=\"2\"/>"},
        {exchange_format::xliff2, "</segment>", "</segment><segment><source>x</source></segment>",
         "the unit has been cut into segments"},
    };
    for (auto const & row : rows) {
        std::string xliff = replace(export_small(row.format), row.from, row.to);
        xliff = replace(xliff, " translate=\"no\">", ">");
        xliff = replace(
            xliff,
            xliff.substr(xliff.find("<x:entry>"), xliff.find("</x:entry>") + 10 - xliff.find("<x:entry>")),
            "");
        std::string result;
        try {
            result = import_text(xliff);
        } catch (command_failure const & failure) {
            result = failure.what();
        }
        EXPECT_NE(result.find(row.expected), result.npos) << row.to << '\n' << result;
    }
}

struct foreign_xliff {
    char const * name;
    exchange_format format;
    std::string document;
    std::string texts; // "key=text|" of each entry
};

std::vector<foreign_xliff> const foreign_xliffs = {
    {"v1", exchange_format::xliff1, R"(<?xml version="1.0"?>
<!-- kept --><xliff xmlns="urn:oasis:names:tc:xliff:document:1.2" version="1.2" xmlns:q='u'><file original="f.c" target-language="pt-BR">
<header><skl><internal-file>..</internal-file></skl></header><body><group id="g">
 <trans-unit id="1" resname="Open"><source>Open &amp; close</source><q:target>q</q:target><seg-source><mrk mtype="seg">Open</mrk></seg-source>
   <target state='signed-off' q:x='>'><![CDATA[A & B]]> &#x41;</target ><note>n</note></trans-unit>
 <trans-unit id="2"><source>At <x id="N" equiv-text="{{n}}"/> <g id="2">all <ph id="3">{0}</ph></g><x id="4"/></source></trans-unit>
 <trans-unit id="u3"><source>new</source><target state="new">neu</target><alt-trans><source>s</source><target>t</target></alt-trans></trans-unit>
 <trans-unit id="Open"><source>empty</source><target/></trans-unit></group></body></file></xliff>
)",
     "Open=A & B A|At_n_all_0_x_id_4_rnk2fjed=At {{n}} all {0}<x id=\"4\"/>|u3=new|empty_8ntfvqr9=empty|"},
    {"v2", exchange_format::xliff2,
     R"(<f:xliff version="2.0" xmlns:f="urn:oasis:names:tc:xliff:document:2.0" srcLang="en" trgLang="de">
<f:file id="f"><f:unit id="a"><f:originalData><f:data id="d">&lt;b></f:data><f:data id="e">&lt;/b></f:data></f:originalData>
<f:segment><f:source>One <f:pc id="1" dataRefStart="d" dataRefEnd="e">bold<f:cp hex="0007"/></f:pc></f:source></f:segment>
<f:ignorable><f:source> </f:source></f:ignorable>
<f:segment state="initial"><f:source>Two</f:source><f:target>Zwei</f:target></f:segment>
<f:segment><f:source><f:pc id="1" dataRefStart="d" dataRefEnd="e">3</f:pc></f:source><f:target><f:pc id="1" dataRefStart="d" dataRefEnd="e">drei</f:pc></f:target></f:segment></f:unit></f:file></f:xliff>)",
     "a_0=One <b>bold\a</b>|a_1=Two|a_2=<b>drei</b>|"}};

TEST(Xliff, OfOthersIsKeptAsItIs) {
    for (foreign_xliff const & each : foreign_xliffs) {
        SCOPED_TRACE(each.name);
        std::string texts;
        for (catalog_entry const & entry : read(import_text(each.document)).entries) {
            texts += entry.key + "=" + i18n::ustring_to_utf8(entry.text.units) + "|";
        }
        EXPECT_EQ(texts, each.texts);
        EXPECT_EQ(round_trip(each.document, each.format), each.document);
    }
    std::string const & first = foreign_xliffs[0].document;
    std::string const & second = foreign_xliffs[1].document;
    EXPECT_EQ(
        round_trip(first, exchange_format::xliff1, ">new<", ">\\u0007&lt;<"),
        replace(first, "new\">neu", "translated\"><ph id=\"1\" ctype=\"x-character\">\\u0007</ph>&lt;"));
    EXPECT_EQ(round_trip(first, exchange_format::xliff1, ">A &amp; B A<", ">B<"),
              replace(first, "<![CDATA[A & B]]> &#x41;</target >", "B</target>"));
    EXPECT_EQ(round_trip(first, exchange_format::xliff1, ">empty</entry>", ">x</entry>"),
              replace(first, "<target/>", "<target>x</target>"));
    EXPECT_EQ(
        round_trip(second, exchange_format::xliff2, ">One ", ">Eins "),
        replace(second, "</f:pc></f:source>",
                "</f:pc></f:source><f:target>Eins &lt;b&gt;bold<cp hex=\"0007\"/>&lt;/b&gt;</f:target>"));
    EXPECT_EQ(round_trip(second, exchange_format::xliff2, ">Two<", ">2<"),
              replace(replace(second, "initial", "translated"), "Zwei", "2"));
    EXPECT_THROW(round_trip(replace(first, "<![CDATA[A & B]]>", "<g id='1'>A</g>"), exchange_format::xliff1,
                            ">A A<", ">B<"),
                 command_failure);
    std::string const latin = replace(first, "?>", " encoding='ISO-8859-1'?>");
    EXPECT_EQ(round_trip(replace(latin, "neu", "n\xEB"), exchange_format::xliff1),
              replace(replace(latin, "neu", "n\xC3\xAB"), "ISO-8859-1", "UTF-8"));
}

TEST(Exchange, TakesEveryBeginningOfAFileOrRefusesIt) {
    std::size_t refused = 0;
    std::size_t taken = 0;
    for (auto const & [bytes, format] : {std::pair(full_po, exchange_format::po),
                                         std::pair(export_small(exchange_format::po), exchange_format::po),
                                         std::pair(foreign_xliffs[0].document, exchange_format::xliff1)}) {
        for (std::size_t length = 0; length <= bytes.size(); ++length) {
            try {
                std::string const xml = import_text(bytes.substr(0, length));
                EXPECT_EQ(import_text(export_file(read(xml), {}, format, "c.xml")), xml)
                    << bytes.substr(0, length);
                ++taken;
            } catch (command_failure const & failure) {
                EXPECT_EQ(failure.status(), exit_input_output);
                ++refused;
            }
        }
    }
    EXPECT_GT(taken, 100u);
    EXPECT_GT(refused, 1000u);
}

TEST(PluralForms, AreThoseOfTheLanguage) {
    for (std::string const language :
         {"ja", "vi", "de", "en", "sv", "tr", "fa", "hi", "ru", "uk",    "sr",   "hr",
          "cs", "sk", "pl", "ro", "lt", "lv", "sl", "ga", "ar", "zh_CN", "pt_PT"}) {
        SCOPED_TRACE(language);
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::PluralRules> const rules(
            icu::PluralRules::forLocale(icu::Locale(language.c_str()), status));
        plural_rule const * const rule = find_plural_rule(language + ".UTF-8");
        ASSERT_TRUE(U_SUCCESS(status) && rule != nullptr);
        std::map<std::string, std::size_t> forms; // by ICU's category
        std::set<std::size_t> used;
        for (int n = 0; n < 1000; ++n) {
            std::string category;
            rules->select(n).toUTF8String(category);
            std::size_t const form = rule->choose(static_cast<unsigned>(n));
            ASSERT_EQ(forms.emplace(category, form).first->second, form) << n;
            used.insert(form);
        }
        EXPECT_EQ(used.size(), rule->forms);
        EXPECT_EQ(forms.size(), rule->forms);
    }
    EXPECT_EQ(find_plural_rule("qq"), nullptr);
}

} // namespace
} // namespace fl::tool
