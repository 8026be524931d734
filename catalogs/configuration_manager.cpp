#include <fl/i18n/catalog_config.hpp>

#include "foundation/never_destroyed.hpp"
#include "foundation/process_singleton.hpp"

#include <boost/throw_exception.hpp>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <utility>

namespace fl::i18n::messagecatalog {

namespace {

constinit process_singleton<ConfigurationManager> process_registry;
constinit never_destroyed<ConfigurationManager::ConfigErrorCategory> const category;

[[noreturn]] void throw_not_found() {
    boost::throw_exception(std::runtime_error("Configuration not found"));
}

template <class T>
std::optional<T> as(std::optional<Config> const & config) {
    return config ? std::optional(std::get<T>(*config)) : std::nullopt;
}

template <class T>
T found(std::optional<T> config) {
    if (!config) {
        throw_not_found();
    }
    return *std::move(config);
}

} // namespace

ConfigurationManager::ConfigurationManager(CreatorKey) {}

std::error_code ConfigurationManager::Set(ConfigKind kind, Config config) {
    // The alternatives of `Config` are in the order of the kinds, which also refuses a kind outside the
    // table.
    if (static_cast<unsigned>(kind) != config.index()) {
        return ConfigError::invalid_type;
    }
    std::unique_lock const lock(mutex_);
    bool const added = configs_.try_emplace(kind, std::move(config)).second;
    if (kind == ConfigKind::double_format) {
        has_double_format_.store(true, std::memory_order_release);
    }
    return added ? ConfigError::success : ConfigError::already_exists;
}

std::error_code ConfigurationManager::SetCriticalCatalogs(CriticalMessageCatalog config) {
    return Set(ConfigKind::critical_catalogs, std::move(config));
}

std::error_code ConfigurationManager::SetDoubleFormat(DoubleFormatProvider config) {
    return Set(ConfigKind::double_format, std::move(config));
}

std::error_code ConfigurationManager::SetSearchPath(MessageSearchPath config) {
    return Set(ConfigKind::search_path, std::move(config));
}

std::optional<Config> ConfigurationManager::find(ConfigKind kind) const {
    std::shared_lock const lock(mutex_);
    auto const position = configs_.find(kind);
    return position != configs_.end() ? std::optional(position->second) : std::nullopt;
}

std::optional<CriticalMessageCatalog> ConfigurationManager::FindCriticalCatalogs() const {
    return as<CriticalMessageCatalog>(find(ConfigKind::critical_catalogs));
}

std::optional<DoubleFormatProvider> ConfigurationManager::FindDoubleFormat() const {
    if (!has_double_format_.load(std::memory_order_acquire)) {
        return std::nullopt;
    }
    return as<DoubleFormatProvider>(find(ConfigKind::double_format));
}

std::optional<MessageSearchPath> ConfigurationManager::FindSearchPath() const {
    return as<MessageSearchPath>(find(ConfigKind::search_path));
}

CriticalMessageCatalog ConfigurationManager::GetCriticalCatalogs() const {
    return found(FindCriticalCatalogs());
}

DoubleFormatProvider ConfigurationManager::GetDoubleFormat() const {
    return found(FindDoubleFormat());
}

MessageSearchPath ConfigurationManager::GetSearchPath() const {
    return found(FindSearchPath());
}

void ConfigurationManager::UpdateSearchPath(std::vector<ustring> const & paths) {
    std::unique_lock const lock(mutex_);
    auto const position = configs_.find(ConfigKind::search_path);
    if (position == configs_.end()) {
        throw_not_found();
    }
    std::get<MessageSearchPath>(position->second).UpdateConfig(paths);
}

char const * ConfigurationManager::ConfigErrorCategory::name() const noexcept {
    return "config_error";
}

std::string ConfigurationManager::ConfigErrorCategory::message(int value) const {
    switch (static_cast<ConfigError>(value)) {
    case ConfigError::success:
        return "Success";
    case ConfigError::already_exists:
        return "Configuration already exists";
    case ConfigError::not_found:
        return "Configuration not found";
    case ConfigError::invalid_type:
        return "Invalid configuration type";
    }
    return "Unknown error";
}

std::error_category const & ConfigurationManager::getConfigErrorCategory() noexcept {
    return category.object;
}

ConfigurationManager & ConfigurationManagerFactory::Get() {
    return process_registry.get(
        [] { return std::make_unique<ConfigurationManager>(ConfigurationManager::CreatorKey()); });
}

std::error_code make_error_code(ConfigError error) noexcept {
    return {static_cast<int>(error), ConfigurationManager::getConfigErrorCategory()};
}

} // namespace fl::i18n::messagecatalog
