#pragma once

#include <fl/i18n/catalog_id.hpp>
#include <fl/i18n/export.hpp>
#include <fl/i18n/numeric_format.hpp>
#include <fl/i18n/ustring_type.hpp>

#include <atomic>
#include <functional>
#include <optional>
#include <shared_mutex>
#include <string>
#include <system_error>
#include <unordered_map>
#include <variant>
#include <vector>

/// The configuration of the message catalogs: a registry that the host fills before it initialises the
/// catalogs.
namespace fl::i18n::messagecatalog {

/// A configuration object.
class FL_I18N_API IConfig {
public:
    virtual ~IConfig();
    /// Tells whether the object cannot be changed once it is made.
    virtual bool IsReadOnly() const = 0;

protected:
    IConfig() = default;
    IConfig(IConfig const &) = default;
    IConfig & operator=(IConfig const &) = default;
};

/// A configuration object that cannot be changed.
class FL_I18N_API IImmutableConfig : public IConfig {
public:
    bool IsReadOnly() const override;
};

/// A configuration object that can be changed.
class FL_I18N_API IMutableConfig : public IConfig {
public:
    bool IsReadOnly() const override;
};

/// The catalogs that the service opens when it is initialised from the registry.
class FL_I18N_API CriticalMessageCatalog : public IImmutableConfig {
public:
    /// Takes the catalogs' identifiers.
    CriticalMessageCatalog(std::vector<CatalogID> ids);

    /// Returns the catalogs' identifiers; the reference is valid while the object lives.
    std::vector<CatalogID> const & GetCriticalCatalogIds() const;

private:
    std::vector<CatalogID> ids_;
};

/// Supplies the numeric format for doubles when a caller gives none.
class FL_I18N_API DoubleFormatProvider : public IImmutableConfig {
public:
    /// Takes the function that chooses.
    DoubleFormatProvider(std::function<numeric_format()> provider);

    /// Returns what the function returns now; its exceptions pass through.
    ///
    /// An empty function raises `std::bad_function_call`. Threads may call it at the same time.
    numeric_format GetORBLANDoubleFormat() const;

private:
    std::function<numeric_format()> provider_;
};

/// The directories below which catalogs are searched, in order.
class FL_I18N_API MessageSearchPath : public IMutableConfig {
public:
    /// Takes the directories.
    MessageSearchPath(std::vector<ustring> const & paths);

    /// Returns the directories; the reference is valid while the object lives and is not changed.
    std::vector<ustring> const & GetSearchPaths() const;
    /// Replaces the whole list, or leaves it as it was when there is no memory.
    void UpdateConfig(std::vector<ustring> const & paths);

private:
    std::vector<ustring> paths_;
};

/// A kind of configuration, the key of the registry.
enum class ConfigKind : unsigned { critical_catalogs = 0, double_format = 1, search_path = 2 };

/// What became of a registration.
enum class ConfigError : int { success = 0, already_exists = 1, not_found = 2, invalid_type = 3 };

/// An object of any kind, in the order of `ConfigKind`.
using Config = std::variant<CriticalMessageCatalog, DoubleFormatProvider, MessageSearchPath>;

class ConfigurationManagerFactory;

/// The registry: at most one object of each kind, which is never removed. Any thread may use it.
///
/// Objects go in and out as copies.
class FL_I18N_API ConfigurationManager {
public:
    /// The right to make a registry, which only the factory has.
    class CreatorKey {
        friend class ConfigurationManagerFactory;
        CreatorKey() {}
    };

    /// The category of `ConfigError` codes, named "config_error".
    class FL_I18N_API ConfigErrorCategory : public std::error_category {
    public:
        /// Returns "config_error".
        char const * name() const noexcept override;
        /// Returns the English text of a code; "Unknown error" for a value that is none.
        std::string message(int value) const override;
    };

    /// Makes an empty registry.
    explicit ConfigurationManager(CreatorKey);
    ConfigurationManager(ConfigurationManager const &) = delete;
    ConfigurationManager & operator=(ConfigurationManager const &) = delete;

    /// Registers an object. Returns `already_exists` when its kind is registered, and `invalid_type` when the
    /// kind is none of the three or the object is of another kind; the registry is then unchanged.
    std::error_code Set(ConfigKind kind, Config config);
    /// Registers the critical catalogs, as `Set` does.
    std::error_code SetCriticalCatalogs(CriticalMessageCatalog config);
    /// Registers the provider of the numeric format, as `Set` does.
    std::error_code SetDoubleFormat(DoubleFormatProvider config);
    /// Registers the search path, as `Set` does.
    std::error_code SetSearchPath(MessageSearchPath config);

    /// Returns the registered catalogs; throws `std::runtime_error` "Configuration not found" when there are
    /// none.
    CriticalMessageCatalog GetCriticalCatalogs() const;
    /// Returns the registered provider; throws as `GetCriticalCatalogs` does.
    DoubleFormatProvider GetDoubleFormat() const;
    /// Returns the registered search path; throws as `GetCriticalCatalogs` does.
    MessageSearchPath GetSearchPath() const;

    /// Returns the registered catalogs, if there are any.
    std::optional<CriticalMessageCatalog> FindCriticalCatalogs() const;
    /// Returns the registered provider, if there is one.
    std::optional<DoubleFormatProvider> FindDoubleFormat() const;
    /// Returns the registered search path, if there is one.
    std::optional<MessageSearchPath> FindSearchPath() const;

    /// Replaces the list of the registered search path; throws `std::runtime_error` "Configuration not found"
    /// when none is registered.
    void UpdateSearchPath(std::vector<ustring> const & paths);

    /// Returns the one category of `ConfigError` codes.
    static std::error_category const & getConfigErrorCategory() noexcept;

private:
    std::optional<Config> find(ConfigKind kind) const;

    std::unordered_map<ConfigKind, Config> configs_;
    mutable std::shared_timed_mutex mutex_;
    std::atomic<bool> has_double_format_ = false; // doubles ask for a format far more often than there is one
};

/// Hands out the registry of the process.
class FL_I18N_API ConfigurationManagerFactory {
public:
    /// Returns the registry, which lives until the library is unloaded. Any thread may call it.
    static ConfigurationManager & Get();
};

/// Returns the error code of a value.
FL_I18N_API std::error_code make_error_code(ConfigError error) noexcept;

} // namespace fl::i18n::messagecatalog

template <>
struct std::is_error_code_enum<fl::i18n::messagecatalog::ConfigError> : std::true_type {};
