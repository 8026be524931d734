#include "locale/qz_locale_impl.hpp"

#include "locale/locale_name.hpp"
#include "locale/qz_locale_ctx.hpp"

#include <boost/throw_exception.hpp>
#include <unicode/ulocdata.h>
#include <utility>

namespace fl::i18n {

namespace {

/// The paper sizes are numbered as in Windows printer settings.
constexpr int paper_letter = 1;
constexpr int paper_a4 = 9;

std::string const & chosen_or(std::string const & chosen, std::string const & otherwise) {
    return chosen.empty() ? otherwise : chosen;
}

int paper_size(std::string const & locale_name) {
    constexpr int32_t letter_height_mm = 279;
    int32_t height = 0;
    int32_t width = 0;
    UErrorCode status = U_ZERO_ERROR;
    ulocdata_getPaperSize(locale_name.c_str(), &height, &width, &status);
    return U_SUCCESS(status) && height == letter_height_mm ? paper_letter : paper_a4;
}

} // namespace

void check_names(QzLocaleImpl::category_records const & records) {
    for (auto const & record : records) {
        if (!lcmgmt::is_valid_locale_name(record.name)) {
            boost::throw_exception(QzLcInvLcName(record.name));
        }
    }
}

std::size_t category_index(QzLocale::LcCategory category) {
    auto const index = static_cast<std::size_t>(category);
    if (index >= category_count) {
        boost::throw_exception(QzLcInvLcCategory(std::to_string(index)));
    }
    return index;
}

QzLocaleImpl::QzLocaleImpl(lcmgmt::QzLocaleCtx const & context, category_records records)
    : context_(context)
    , records_(std::move(records)) {
    check_names(records_);
    xpg_name_ = context_.xpg_name(record(LcCategory::ctype));
}

QzLocaleImpl::~QzLocaleImpl() {
    delete encoding_.load();
}

std::string const & QzLocaleImpl::encoding() const {
    std::string const * known = encoding_.load(std::memory_order_acquire);
    if (!known) {
        auto found = std::make_unique<std::string const>(context_.encoding(record(LcCategory::ctype)));
        if (encoding_.compare_exchange_strong(known, found.get(), std::memory_order_acq_rel)) {
            known = found.release();
        }
    }
    return *known;
}

bool QzLocaleImpl::operator==(QzLocale const & other) const {
    return records_ == records_of(other) && xpg_name_ == other.getXpgName();
}

bool QzLocaleImpl::operator!=(QzLocale const & other) const {
    return !(*this == other);
}

std::string QzLocaleImpl::getLcName(LcCategory category) const {
    return record(category).name;
}

bool QzLocaleImpl::isUserLocale(LcCategory category) const {
    return !record(category).user_name.empty();
}

std::string QzLocaleImpl::getLanguage(LcCategory category) const {
    return std::string(lcmgmt::split_locale_name(record(category).name).language);
}

std::string QzLocaleImpl::getUserLcName(LcCategory category) const {
    return record(category).user_name;
}

std::string QzLocaleImpl::getTerritory(LcCategory category) const {
    return std::string(lcmgmt::split_locale_name(record(category).name).territory);
}

std::string QzLocaleImpl::getXpgName() const {
    return xpg_name_;
}

std::string QzLocaleImpl::getEncoding() const {
    return encoding();
}

LcOptData QzLocaleImpl::getOptData(LcOptDataType item) const {
    switch (item) {
    case LcOptDataType::jvmencoding:
        return context_.jvm_encoding(record(LcCategory::ctype));
    case LcOptDataType::termencoding:
    case LcOptDataType::termoutputencoding:
        return chosen_or(context_.terminal_output_encoding(), encoding());
    case LcOptDataType::terminputencoding:
        return chosen_or(context_.terminal_input_encoding(), encoding());
    case LcOptDataType::papersize:
        return paper_size(context_.data_name(record(LcCategory::ctype).name));
    }
    boost::throw_exception(QzLcInvLcArgument(std::to_string(static_cast<unsigned>(item))));
}

QzLocaleImpl::category_records records_of(std::string const & name) {
    QzLocaleImpl::category_records records;
    records.fill({name, {}});
    return records;
}

QzLocaleImpl::category_records records_of(QzLocale const & locale) {
    if (auto const * const own = dynamic_cast<QzLocaleImpl const *>(&locale)) {
        return own->records();
    }
    QzLocaleImpl::category_records records;
    for (std::size_t i = 0; i < category_count; ++i) {
        auto const category = static_cast<QzLocale::LcCategory>(i);
        records[i] = {locale.getLcName(category),
                      locale.isUserLocale(category) ? locale.getUserLcName(category) : std::string()};
    }
    return records;
}

} // namespace fl::i18n
