#pragma once

#include <fl/i18n/export.hpp>

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace fl::i18n {

/// Identifies an exception of the locale family.
enum class QzLcExcpId : int {
    invalid_locale_name = 1,
    data_not_found = 2,
    invalid_category = 3,
    invalid_argument = 4,
};

/// The base of all exceptions that locale operations throw.
class FL_I18N_API QzLcMgmtExceptionBase : public std::exception {
public:
    /// Takes the texts and the kind of a derived class, and the name that was refused.
    QzLcMgmtExceptionBase(char const * msg_id, char const * msg_text, std::string locale_name, QzLcExcpId id);
    ~QzLcMgmtExceptionBase() override;
    /// Copies an exception, as carrying it to another thread does.
    QzLcMgmtExceptionBase(QzLcMgmtExceptionBase const &);
    /// Replaces an exception by a copy of another one.
    QzLcMgmtExceptionBase & operator=(QzLcMgmtExceptionBase const &);

    /// Returns the English text, as `getMsgText` does.
    char const * what() const noexcept override;
    /// Returns the identifier under which the library's catalog holds the text.
    std::string getMsgId() const;
    /// Returns the English text.
    std::string getMsgText() const;
    /// Returns the locale name, category name or item name that was refused; empty when none was involved.
    std::string getLocaleName() const;
    /// Returns the numeric kind of the exception.
    QzLcExcpId get_excp_id() const noexcept;

private:
    std::string msg_id_;
    std::string msg_text_;
    std::string locale_name_;
    QzLcExcpId id_;
};

/// A locale name holds characters that no locale name has, or is too long.
class FL_I18N_API QzLcInvLcName : public QzLcMgmtExceptionBase {
public:
    /// Takes the name that was refused.
    explicit QzLcInvLcName(std::string locale_name = {});
};

/// The data asked for is known neither to the tables nor to the conversion library.
class FL_I18N_API QzLcDataNotFound : public QzLcMgmtExceptionBase {
public:
    /// Takes the name of the locale that the data was asked of.
    explicit QzLcDataNotFound(std::string locale_name = {});
};

/// A category name or value is none of the six.
class FL_I18N_API QzLcInvLcCategory : public QzLcMgmtExceptionBase {
public:
    /// Takes the category's name that was refused.
    explicit QzLcInvLcCategory(std::string category_name = {});
};

/// Another argument is out of its range.
class FL_I18N_API QzLcInvLcArgument : public QzLcMgmtExceptionBase {
public:
    /// Takes the argument that was refused.
    explicit QzLcInvLcArgument(std::string argument = {});
};

/// An optional data item of a locale.
enum class LcOptDataType : unsigned {
    jvmencoding = 0,
    termencoding = 1,
    terminputencoding = 2,
    termoutputencoding = 3,
    papersize = 4,
};

/// The value of an optional data item: the paper size is a number, the other items are strings.
using LcOptData = std::variant<std::string, int>;

/// Maps the names of optional data items.
class FL_I18N_API QzLcOptDataCtx {
public:
    /// Returns the item of a name ("jvmencoding" to "papersize"); throws `QzLcInvLcArgument` for any other
    /// name.
    static LcOptDataType getOptDataType(std::string const & name);
};

/// An immutable locale: one locale name for each category.
///
/// Locales are made by the factory functions and shared; any thread may use them. The references that
/// `classic`, `system` and `global` return stay valid until the library is unloaded.
class FL_I18N_API QzLocale {
public:
    /// What a locale name governs.
    enum class LcCategory : unsigned {
        ctype = 0,
        collate = 1,
        time = 2,
        numeric = 3,
        monetary = 4,
        messages = 5
    };

    /// A category and the locale name that it is to have.
    struct CategoryContext {
        LcCategory category; ///< the category
        std::string name;    ///< its locale name
    };

    QzLocale(QzLocale const &) = delete;
    QzLocale & operator=(QzLocale const &) = delete;

    virtual ~QzLocale();
    /// Tells whether both locales have the same names, the same system settings and the same XPG-style name.
    virtual bool operator==(QzLocale const & other) const = 0;
    /// Tells the opposite.
    virtual bool operator!=(QzLocale const & other) const = 0;
    /// Returns the locale name of a category, such as "ja_JP"; throws `QzLcInvLcCategory` for a value out of
    /// range.
    virtual std::string getLcName(LcCategory category) const = 0;
    /// Tells whether the user's own system settings apply in a category.
    virtual bool isUserLocale(LcCategory category) const = 0;
    /// Returns the language of a category's locale name, such as "ja"; empty when the name has none.
    virtual std::string getLanguage(LcCategory category) const = 0;
    /// Returns the operating system's own name of a category's locale; empty unless the system chose it.
    virtual std::string getUserLcName(LcCategory category) const = 0;
    /// Returns the territory of a category's locale name, such as "JP"; empty when the name has none.
    virtual std::string getTerritory(LcCategory category) const = 0;
    /// Returns the XPG-style name of the ctype category with its encoding, such as "ja_JP.UTF-8".
    virtual std::string getXpgName() const = 0;
    /// Returns the name of the encoding of narrow text in this locale: the standard name, or the spelling of
    /// the locale name or database where the tables know none.
    virtual std::string getEncoding() const = 0;
    /// Returns an optional data item.
    ///
    /// Throws `QzLcInvLcArgument` for a value that is no item and, for `jvmencoding`, `QzLcDataNotFound` when
    /// the encoding is unknown to the tables and to the conversion library.
    virtual LcOptData getOptData(LcOptDataType item) const = 0;

    /// Returns the classic locale: "en_US_POSIX" in every category, encoding "UTF-8".
    static QzLocale const & classic();
    /// Returns the locale that the operating system's settings gave at start-up.
    static QzLocale const & system();
    /// Returns the global locale in force.
    static QzLocale const & global();

    /// Returns a locale with one name for all categories.
    ///
    /// The name is kept as given; it need not be known. It may hold ASCII letters, digits and the characters
    /// "_-.@=;", at most 157 of them and never ".."; any other name throws `QzLcInvLcName`. A category value
    /// out of range throws `QzLcInvLcCategory`. The same holds for the other factory functions.
    static std::shared_ptr<QzLocale const> createLocale(std::string const & name);
    /// Returns a locale with one name for all categories but those listed.
    static std::shared_ptr<QzLocale const> createLocale(std::string const & name,
                                                        std::vector<CategoryContext> const & categories);
    /// Returns a locale with one name for all categories but one.
    static std::shared_ptr<QzLocale const> createLocale(std::string const & name, LcCategory category,
                                                        std::string const & category_name);
    /// Returns a copy of a locale.
    static std::shared_ptr<QzLocale const> createLocale(QzLocale const & base);
    /// Returns a copy of a locale with the listed categories replaced.
    static std::shared_ptr<QzLocale const> createLocale(QzLocale const & base,
                                                        std::vector<CategoryContext> const & categories);
    /// Returns a copy of a locale with one category replaced.
    static std::shared_ptr<QzLocale const> createLocale(QzLocale const & base, LcCategory category,
                                                        std::string const & category_name);
    /// Returns a copy of a locale with one category taken from another locale.
    static std::shared_ptr<QzLocale const> createLocale(QzLocale const & base, LcCategory category,
                                                        QzLocale const & other);
    /// Returns the locale of a name with "en_US_POSIX" as its numeric category.
    static std::shared_ptr<QzLocale const> createLocaleWithCForNumeric(std::string const & name);

    /// Returns the category of a name ("ctype" to "messages"); throws `QzLcInvLcCategory` for any other name.
    static LcCategory getLcCategory(std::string const & name);
    /// Returns the name of a category; throws `QzLcInvLcCategory` for a value out of range.
    static std::string getLcCategoryName(LcCategory category);

protected:
    QzLocale();
};

/// Makes a locale the global one, unless global changes are locked.
///
/// While localised resources are disabled the messages category stays the classic one. Any thread may call
/// it; readers see the old locale or the new one. Each different locale that becomes the global one, by this
/// function or another, stays in memory until the process ends, with up to 2 KiB.
FL_I18N_API void change_global_locale(QzLocale const & locale);

/// Ignores all later changes of the global locale: those that return `bool` return false, each attempt is
/// recorded in the event log.
FL_I18N_API void lock_global_locale_setting();

/// Changes the messages category of the global locale.
///
/// Returns true when the name is in force afterwards, and false, with nothing changed, when global changes
/// are locked or localised resources are disabled. Throws `QzLcInvLcName` unless changes are locked.
FL_I18N_API bool set_lc_messages(std::string const & name);

/// Switches localised resources off: the messages category of the global locale becomes the classic one.
///
/// Nothing happens when the user has asked for localised resources through QZLOCALE_L10N_CONTROL, or when
/// changes of the global locale are locked.
FL_I18N_API void disable_l10n_resource();

/// Tells whether localised resources are in use: they are switched off by `disable_l10n_resource`, by
/// QZLOCALE_L10N_CONTROL, or by the locale database for the messages locale.
FL_I18N_API bool get_l10n_resource_status();

/// Operations whose names and rules are not settled yet.
namespace experimental {

/// Makes the locale of a name the global one.
///
/// Returns false, with nothing changed, when global changes are locked; otherwise throws `QzLcInvLcName` for
/// a name that is none.
FL_I18N_API bool set_global_locale(std::string const & name);

} // namespace experimental

} // namespace fl::i18n
