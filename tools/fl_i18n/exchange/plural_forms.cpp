#include "tools/fl_i18n/exchange/plural_forms.hpp"

namespace fl::tool {

namespace {

// One text serves as gettext's expression and as C++.
#define FL_PLURAL_RULE(languages, forms, expression)                                                         \
    plural_rule {                                                                                            \
        languages " ", forms, #expression,                                                                   \
            []([[maybe_unused]] unsigned n) -> std::size_t { return static_cast<std::size_t>(expression); }  \
    }

// clang-format off
constexpr plural_rule rules[] = {
    FL_PLURAL_RULE("bo dz id ig ii ja ka_ ko lo ms my su th to vi wo yo zh yue", 1, 0),
    FL_PLURAL_RULE("af an ast az bg ca ckb da de el en eo es et eu fi fo fur fy gl ha he hu ia is_ it ka kk kl kn ks ku "
                   "ky lb mk_ ml mn mr nb ne nl nn no or os ps pt_PT rm se sq sv sw ta te tk tr ug ur uz xh yi",
                   2, n != 1),
    FL_PLURAL_RULE("am as bn fa gu hi zu", 2, n > 1),
    FL_PLURAL_RULE("be ru uk",
                   3, n % 10 == 1 && n % 100 != 11 ? 0 : n % 10 >= 2 && n % 10 <= 4 && (n % 100 < 12 || n % 100 > 14) ? 1 : 2),
    FL_PLURAL_RULE("bs hr sr",
                   3, n % 10 == 1 && n % 100 != 11 ? 0 : n % 10 >= 2 && n % 10 <= 4 && (n % 100 < 12 || n % 100 > 14) ? 1 : 2),
    FL_PLURAL_RULE("cs sk", 3, n == 1 ? 0 : n >= 2 && n <= 4 ? 1 : 2),
    FL_PLURAL_RULE("pl", 3, n == 1 ? 0 : n % 10 >= 2 && n % 10 <= 4 && (n % 100 < 12 || n % 100 > 14) ? 1 : 2),
    FL_PLURAL_RULE("ro", 3, n == 1 ? 0 : n == 0 || (n % 100 > 0 && n % 100 < 20) ? 1 : 2),
    FL_PLURAL_RULE("lt", 3, n % 10 == 1 && (n % 100 < 11 || n % 100 > 19) ? 0 : n % 10 >= 2 && (n % 100 < 11 || n % 100 > 19) ? 1 : 2),
    FL_PLURAL_RULE("lv", 3, n % 10 == 0 || (n % 100 >= 11 && n % 100 <= 19) ? 0 : n % 10 == 1 && n % 100 != 11 ? 1 : 2),
    FL_PLURAL_RULE("sl", 4, n % 100 == 1 ? 0 : n % 100 == 2 ? 1 : n % 100 == 3 || n % 100 == 4 ? 2 : 3),
    FL_PLURAL_RULE("ga", 5, n == 1 ? 0 : n == 2 ? 1 : n >= 3 && n <= 6 ? 2 : n >= 7 && n <= 10 ? 3 : 4),
    FL_PLURAL_RULE("ar", 6, n == 0 ? 0 : n == 1 ? 1 : n == 2 ? 2 : n % 100 >= 3 && n % 100 <= 10 ? 3 : n % 100 >= 11 ? 4 : 5),
};
// clang-format on

#undef FL_PLURAL_RULE

} // namespace

plural_rule const * find_plural_rule(std::string_view locale) {
    std::string_view name = locale.substr(0, locale.find_first_of(".@"));
    for (; !name.empty();
         name = name.substr(0, name.find_last_of("_-") == name.npos ? 0 : name.find_last_of("_-"))) {
        for (plural_rule const & rule : rules) {
            std::string const all = " " + std::string(rule.languages);
            if (all.find(" " + std::string(name) + " ") != std::string::npos) {
                return &rule;
            }
        }
    }
    return nullptr;
}

std::string plural_forms(std::string_view locale) {
    plural_rule const * const rule = find_plural_rule(locale);
    return rule == nullptr ? std::string()
                           : "nplurals=" + std::to_string(rule->forms) + "; plural=(" +
                                 std::string(rule->expression) + ");";
}

} // namespace fl::tool
