#include "locale/classic_name.hpp"
#include "locale/qz_locale_ctx.hpp"
#include "locale/qz_locale_impl.hpp"

#include <algorithm>
#include <array>
#include <boost/throw_exception.hpp>
#include <fl/i18n/locale.hpp>
#include <string_view>

namespace fl::i18n {

namespace {

using lcmgmt::QzLocaleCtx;
using category_records = QzLocaleImpl::category_records;

// In the order of the values.
constexpr std::array<std::string_view, category_count> category_names{"ctype",   "collate",  "time",
                                                                      "numeric", "monetary", "messages"};
constexpr std::array<std::string_view, 5> item_names{"jvmencoding", "termencoding", "terminputencoding",
                                                     "termoutputencoding", "papersize"};

std::shared_ptr<QzLocale const> make_locale(category_records records) {
    return std::make_shared<QzLocaleImpl const>(QzLocaleCtx::get(), std::move(records));
}

std::shared_ptr<QzLocale const> make_locale(category_records records,
                                            std::vector<QzLocale::CategoryContext> const & categories) {
    for (auto const & [category, name] : categories) {
        records[category_index(category)] = {name, {}};
    }
    return make_locale(std::move(records));
}

} // namespace

QzLocale::QzLocale() = default;
QzLocale::~QzLocale() = default;

QzLocale const & QzLocale::classic() {
    return QzLocaleCtx::get().classic();
}

QzLocale const & QzLocale::system() {
    return QzLocaleCtx::get().system();
}

QzLocale const & QzLocale::global() {
    return QzLocaleCtx::get().global();
}

std::shared_ptr<QzLocale const> QzLocale::createLocale(std::string const & name) {
    return make_locale(records_of(name));
}

std::shared_ptr<QzLocale const> QzLocale::createLocale(std::string const & name,
                                                       std::vector<CategoryContext> const & categories) {
    return make_locale(records_of(name), categories);
}

std::shared_ptr<QzLocale const> QzLocale::createLocale(std::string const & name, LcCategory category,
                                                       std::string const & category_name) {
    return make_locale(records_of(name), {{category, category_name}});
}

std::shared_ptr<QzLocale const> QzLocale::createLocale(QzLocale const & base) {
    return make_locale(records_of(base));
}

std::shared_ptr<QzLocale const> QzLocale::createLocale(QzLocale const & base,
                                                       std::vector<CategoryContext> const & categories) {
    return make_locale(records_of(base), categories);
}

std::shared_ptr<QzLocale const> QzLocale::createLocale(QzLocale const & base, LcCategory category,
                                                       std::string const & category_name) {
    return make_locale(records_of(base), {{category, category_name}});
}

std::shared_ptr<QzLocale const> QzLocale::createLocale(QzLocale const & base, LcCategory category,
                                                       QzLocale const & other) {
    std::size_t const index = category_index(category);
    category_records records = records_of(base);
    records[index] = records_of(other)[index];
    return make_locale(std::move(records));
}

std::shared_ptr<QzLocale const> QzLocale::createLocaleWithCForNumeric(std::string const & name) {
    return createLocale(name, LcCategory::numeric, lcmgmt::classic_name);
}

QzLocale::LcCategory QzLocale::getLcCategory(std::string const & name) {
    auto const found = std::find(category_names.begin(), category_names.end(), name);
    if (found == category_names.end()) {
        boost::throw_exception(QzLcInvLcCategory(name));
    }
    return static_cast<LcCategory>(found - category_names.begin());
}

std::string QzLocale::getLcCategoryName(LcCategory category) {
    return std::string(category_names[category_index(category)]);
}

LcOptDataType QzLcOptDataCtx::getOptDataType(std::string const & name) {
    auto const found = std::find(item_names.begin(), item_names.end(), name);
    if (found == item_names.end()) {
        boost::throw_exception(QzLcInvLcArgument(name));
    }
    return static_cast<LcOptDataType>(found - item_names.begin());
}

} // namespace fl::i18n
