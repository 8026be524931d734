#pragma once

#include <fl/i18n/catalog_id.hpp>
#include <fl/i18n/export.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/numeric_format.hpp>
#include <fl/i18n/ustring_type.hpp>
#include <resource_core/identifiers.hpp>

#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace fl::i18n {

/// A catalog of localised messages, and the service that finds, loads and keeps the catalogs of the process.
///
/// Catalogs are immutable and shared. Any thread may use the operations, `FlushCatalogFromCache` aside.
///
/// The service searches below its roots: the catalog "a:b:c" of the locale "ja" is the file
/// `resources\a\ja\b\c.xml` of the first root that has it. Without initialisation the first lookup makes the
/// library's installation directory the root.
class FL_I18N_API MessageCatalog {
public:
    /// The value for a hole: an integer, UTF-8 text, UTF-16 text or a double.
    using Argument = std::variant<std::int64_t, std::string, ustring, double>;

    /// Sets the elements of an argument list for a message, given with their number.
    using ArgumentFiller =
        std::function<void(std::vector<Argument> &, std::pair<ustring const &, std::uint64_t const> const &)>;

    /// A lookup found no roots.
    class FL_I18N_API MessageCatalogNotInitialized : public std::exception {
    public:
        /// Returns "Message Catalog has not been initialized by a successful call to
        /// MessageCatalog::MessageCatalogInit".
        char const * what() const noexcept override;
    };

    /// An initialisation had no usable root.
    class FL_I18N_API MessageCatalogIncorrectRoot : public std::exception {
    public:
        /// Returns "Incorrect Message Root Set".
        char const * what() const noexcept override;
    };

    /// A catalog's file is missing or could not be loaded.
    class FL_I18N_API MessageCatalogLoadFailed : public std::exception {
    public:
        /// Takes the catalog's identifier.
        explicit MessageCatalogLoadFailed(std::string const & catalog);
        /// Returns the English text with the catalog.
        char const * what() const noexcept override;

    private:
        std::string text_;
    };

    /// A catalog does not hold a key.
    class FL_I18N_API MessageNotFound : public std::exception {
    public:
        /// Takes the catalog's identifier and the key.
        MessageNotFound(std::string const & catalog, std::string const & key);
        /// Returns the English text with the key and the catalog.
        char const * what() const noexcept override;

    private:
        std::string text_;
    };

    /// A text is not a path.
    class FL_I18N_API InvalidPathSupplied : public std::exception {
    public:
        /// Returns "Path is not valid!".
        char const * what() const noexcept override;
    };

    /// A directory has no subdirectory "resources".
    class FL_I18N_API ResDirNotPresent : public std::exception {
    public:
        /// Returns "Resource directory not found on the path!".
        char const * what() const noexcept override;
    };

    /// A path is none of the additional resource locations.
    class FL_I18N_API ResourcePathNotFound : public std::exception {
    public:
        /// Returns "Resource path not found!".
        char const * what() const noexcept override;
    };

    /// The removal of an additional resource location failed otherwise.
    class FL_I18N_API ResPathRemovalUnknownError : public std::exception {
    public:
        /// Takes the text of the error.
        explicit ResPathRemovalUnknownError(std::string const & error);
        /// Returns the English text with that of the error.
        char const * what() const noexcept override;

    private:
        std::string text_;
    };

    /// A message is not a valid pattern or beyond a limit of `fl/i18n/limits.hpp`, or an argument does not
    /// fit the format of its hole.
    class FL_I18N_API MessageFormatIncorrect : public std::exception {
    public:
        /// Returns "Incorrect Message Formatting Attempted".
        char const * what() const noexcept override;
    };

    /// The number of arguments is not that of the holes.
    class FL_I18N_API IncorrectHoleCount : public std::exception {
    public:
        /// Takes the number of holes and that of arguments.
        IncorrectHoleCount(std::uint64_t expected, std::uint64_t found);
        /// Returns the English text with both numbers.
        char const * what() const noexcept override;
        /// Returns the number of distinct holes, 0 for named ones; from `GetCustomHoleType` the hole asked
        /// for.
        std::uint64_t getNumHolesExpected() const noexcept;
        /// Returns the number of arguments given; from `GetCustomHoleType` that of the distinct holes.
        std::uint64_t getNumHolesFound() const noexcept;

    private:
        std::uint64_t expected_;
        std::uint64_t found_;
        std::string text_;
    };

    MessageCatalog(MessageCatalog const &) = delete;
    MessageCatalog & operator=(MessageCatalog const &) = delete;

    /// Returns a message, formatted without arguments.
    ///
    /// Throws `MessageNotFound` when the identifier names another catalog, and as `text` and
    /// `GetFormattedMessage`.
    virtual ustring message(MessageID const & id) const = 0;
    /// Returns the text of a key as the catalog holds it.
    ///
    /// Throws `MessageCatalogLoadFailed` when the catalog is not loaded, `MessageNotFound` when it has no
    /// such key.
    virtual ustring text(std::string const & key) const = 0;
    /// Returns all keys, in no order; none when the catalog is not loaded.
    virtual std::vector<std::string> keys() const = 0;

    /// Sets the roots, in search order, and returns whether there were none before.
    ///
    /// A root without a subdirectory "resources" is left out. The additional resource locations follow the
    /// given ones. Throws `MessageCatalogIncorrectRoot` when no root is left, or when the first call gives
    /// none, and exceptions of the file system; the roots then stay as they were. Catalogs already in the
    /// cache stay there.
    static bool MessageCatalogInit(ustring const & root);
    /// Sets the roots, as the function for one root does.
    static bool MessageCatalogInit(std::vector<ustring> const & roots);
    /// Sets the roots and opens catalogs for the global locale.
    ///
    /// An identifier that is malformed, or a null pointer, throws `CatalogID::badCatalogIDException`. When
    /// anything throws, the roots and the catalogs that are kept stay as they were.
    static bool
    MessageCatalogInit(std::vector<ustring> const & roots,
                       std::vector<resource_core::BaseCatalogID const *> const & criticalCatalogs);
    /// Sets one root and opens catalogs, as the function for several roots does.
    static bool
    MessageCatalogInit(ustring const & root,
                       std::vector<resource_core::BaseCatalogID const *> const & criticalCatalogs);
    /// Sets the roots and opens catalogs as the configuration registry says.
    ///
    /// Throws `std::runtime_error` "Configuration not found" when it has no search path. Without critical
    /// catalogs none is opened.
    static bool MessageCatalogInitFromConfigManager();

    /// Returns a catalog for a locale's messages category.
    ///
    /// The first call loads the file, later ones return the same object. A missing or malformed file shows
    /// when a text is asked for. Throws `MessageCatalogIncorrectRoot` when the roots are to be set from the
    /// installation directory and it is no root, and exceptions of the file system; the cache is then
    /// unchanged.
    static boost::shared_ptr<MessageCatalog const> GetMessageCatalog(CatalogID const & id,
                                                                     QzLocale const & locale);
    /// Returns a catalog for the global locale, as the function with a locale does.
    static boost::shared_ptr<MessageCatalog const> GetMessageCatalog(CatalogID const & id);
    /// Does the same for an identifier carrier; a malformed one throws `CatalogID::badCatalogIDException`.
    static boost::shared_ptr<MessageCatalog const> openCatalog(resource_core::BaseCatalogID const & id,
                                                               QzLocale const & locale);
    /// Does the same for the global locale.
    static boost::shared_ptr<MessageCatalog const> openCatalog(resource_core::BaseCatalogID const & id);

    /// Returns a message, formatted without arguments, for a locale.
    ///
    /// Throws as `GetMessageCatalog`, `text` and `GetFormattedMessage`; a malformed identifier carrier throws
    /// `MessageID::badMessageIDException`.
    static ustring get_message(resource_core::BaseMsgID const & id, QzLocale const & locale,
                               std::optional<numeric_format> const & format);
    /// Returns a message for the global locale, as the first function of the name does.
    static ustring get_message(resource_core::BaseMsgID const & id);
    /// Returns a message, as the first function of the name does without a numeric format.
    static ustring get_message(MessageID const & id, QzLocale const & locale);
    /// Returns a message for the global locale, as the first function of the name does.
    static ustring get_message(MessageID const & id);
    /// Returns a message for the classic locale.
    static ustring get_default_locale_message(resource_core::BaseMsgID const & id);

    /// Removes a catalog from the cache, for all locales. Pointers to it stay valid.
    ///
    /// It takes no lock: no other operation of the service may run beside it.
    static void FlushCatalogFromCache(CatalogID const & id);

    /// Replaces the list of directories that the next initialisation adds to its roots.
    ///
    /// An entry that is no path or has no subdirectory "resources" throws `ResDirNotPresent`; the list is
    /// then unchanged.
    static void set_additional_resource_locations(std::vector<ustring> const & locations);
    /// Removes a directory from that list, whether or not it still exists.
    ///
    /// Throws `InvalidPathSupplied` when the text is no path, `ResDirNotPresent` when the directory is not in
    /// the list and has no subdirectory "resources", `ResourcePathNotFound` when it has one, and
    /// `ResPathRemovalUnknownError` for any other failure.
    static void remove_additional_resource_location(ustring const & location);

    /// Fills the holes of a message, a pattern of ICU's `MessageFormat` in which a single apostrophe is text.
    ///
    /// Element 0 of the arguments fills hole 0, and a named hole beside numbered ones. `format` is for
    /// doubles in holes without a format of their own; by default the registered provider chooses, else it is
    /// `numeric_format::simple_short`. A message whose first hole has a name that begins with a letter takes
    /// no arguments and is returned unchanged.
    ///
    /// Throws `IncorrectHoleCount` when the number of arguments is not that of the distinct holes,
    /// `MessageFormatIncorrect` when the message is no pattern, an argument does not fit its hole or one is
    /// beyond a limit, and `boost::numeric::positive_overflow` for a text of more than 2147483647 units.
    /// Exceptions of the provider pass through.
    static ustring GetFormattedMessage(ustring const & message, std::vector<Argument> const & args,
                                       std::optional<numeric_format> const & format = std::nullopt);
    /// Does the same with `count` arguments that `fill` sets.
    ///
    /// Throws `MessageFormatIncorrect` for an empty `fill` when `count` is not zero; its exceptions pass
    /// through.
    static ustring GetFormattedMessage(ustring const & message, std::uint64_t count, ArgumentFiller fill,
                                       std::optional<numeric_format> const & format);
    /// Returns the format type written in the first hole with a number, such as "number"; empty when it has
    /// none.
    ///
    /// Throws `MessageFormatIncorrect` and `boost::numeric::positive_overflow` as above, and
    /// `IncorrectHoleCount` for a hole number above the number of distinct holes.
    static ustring GetCustomHoleType(ustring const & message, std::uint64_t hole);

protected:
    MessageCatalog();
    ~MessageCatalog();
};

} // namespace fl::i18n
