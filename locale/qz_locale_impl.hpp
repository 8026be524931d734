#pragma once

#include <array>
#include <atomic>
#include <fl/i18n/locale.hpp>
#include <string>
#include <string_view>
#include <typeinfo>

namespace fl::i18n {

namespace lcmgmt {
class QzLocaleCtx;
}

inline constexpr std::size_t category_count = 6;

/// Returns the index of a category; throws `QzLcInvLcCategory` for a value out of range.
std::size_t category_index(QzLocale::LcCategory category);

/// The only locale implementation of the library.
class QzLocaleImpl final : public QzLocale {
public:
    struct category_record {
        std::string name;
        std::string user_name; ///< the system's own name where its settings apply, else empty
        bool operator==(category_record const &) const = default;
    };
    using category_records = std::array<category_record, category_count>;

    /// Throws `QzLcInvLcName` for a name that is no locale name.
    QzLocaleImpl(lcmgmt::QzLocaleCtx const & context, category_records records);
    ~QzLocaleImpl() override;

    bool operator==(QzLocale const & other) const override;
    bool operator!=(QzLocale const & other) const override;
    std::string getLcName(LcCategory category) const override;
    bool isUserLocale(LcCategory category) const override;
    std::string getLanguage(LcCategory category) const override;
    std::string getUserLcName(LcCategory category) const override;
    std::string getTerritory(LcCategory category) const override;
    std::string getXpgName() const override;
    std::string getEncoding() const override;
    LcOptData getOptData(LcOptDataType item) const override;

    category_records const & records() const noexcept { return records_; }

private:
    category_record const & record(LcCategory category) const { return records_[category_index(category)]; }
    /// Returns the encoding, which the first call finds out: the classic locale is made before what decides
    /// on it.
    std::string const & encoding() const;

    lcmgmt::QzLocaleCtx const & context_;
    category_records records_;
    std::string xpg_name_;
    mutable std::atomic<std::string const *> encoding_ = nullptr;
};

/// Returns `locale.getLcName(category)` without a copy where the locale is one of the library's own: the
/// view is then of the locale, else of `storage`, which takes the name. `category` is one of the enumerators.
inline std::string_view lc_name(QzLocale const & locale, QzLocale::LcCategory category,
                                std::string & storage) {
    if (typeid(locale) == typeid(QzLocaleImpl)) {
        return static_cast<QzLocaleImpl const &>(locale).records()[static_cast<std::size_t>(category)].name;
    }
    return storage = locale.getLcName(category);
}

/// Throws `QzLcInvLcName` for a name that is no locale name.
void check_names(QzLocaleImpl::category_records const & records);

/// Returns records that have one name for all categories.
QzLocaleImpl::category_records records_of(std::string const & name);

/// Returns the records of any locale.
QzLocaleImpl::category_records records_of(QzLocale const & locale);

} // namespace fl::i18n
