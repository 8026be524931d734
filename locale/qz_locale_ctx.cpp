#include "locale/qz_locale_ctx.hpp"

#include "foundation/ascii.hpp"
#include "foundation/process_singleton.hpp"
#include "foundation/utf8.hpp"
#include "locale/classic_name.hpp"
#include "locale/lc_rsc_exceptions.hpp"
#include "locale/lcdb_parser.hpp"
#include "locale/locale_name.hpp"

#include <algorithm>
#include <array>
#include <boost/throw_exception.hpp>
#include <stdexcept>
#include <utility>

namespace fl::i18n::lcmgmt {

namespace {

constexpr auto messages_index = static_cast<std::size_t>(QzLocale::LcCategory::messages);
constexpr auto ctype_index = static_cast<std::size_t>(QzLocale::LcCategory::ctype);

constexpr int l10n_requested = 1;
constexpr int l10n_refused = 2;

/// The status of a locale that was set though its encoding cannot be opened.
constexpr int no_converter = -1;

constexpr std::string_view init_source = "QzLocaleCtx::initLocaleMgmt";
constexpr std::string_view global_source = "QzLocaleCtx::initGlobalLocale";
constexpr std::string_view messages_source = "QzLocaleCtx::QzLocaleCtx::set_lc_messages";
constexpr std::string_view l10n_source = "QzLocaleCtx::QzLocaleCtx::disable_l10n_rsc";
constexpr std::string_view change_source = "QzLocaleCtx::QzLocaleCtx::change_current_locale";
constexpr std::string_view set_source = "QzLocaleCtx::setLocale";

constinit process_singleton<QzLocaleCtx> context;

char const * database_failure(int kind) {
    switch (kind) {
    case 2:
        return "Failed to open the XML locale database.";
    case 3:
        return "Failed to read the XML locale database.";
    case 4:
        return "Failed to create the parser for the XML locale database.";
    default:
        return "invalid XML locale database.";
    }
}

} // namespace

bool stays_in_icu_data(std::string const & name) {
    // A colon is a drive's or a stream's mark in a file name; the conversion library's own aliases hold some
    // too. It looks for an alias, and for a file, by what stands before the options.
    UErrorCode status = U_ZERO_ERROR;
    return is_safe_encoding_name(name) &&
           (name.find(':') == std::string::npos ||
            ucnv_countAliases(name.substr(0, name.find(',')).c_str(), &status) != 0);
}

icu_converter open_icu_converter(std::string const & name) {
    if (!stays_in_icu_data(name)) {
        return nullptr;
    }
    UErrorCode status = U_ZERO_ERROR;
    icu_converter converter(ucnv_open(name.c_str(), &status));
    return U_FAILURE(status) ? nullptr : std::move(converter);
}

QzLocaleCtx & QzLocaleCtx::get() {
    if (QzLocaleCtx * const made = context.peek()) {
        return *made;
    }
    try {
        // Asked for before anything is locked: the system may take the loader's lock for it, and a thread
        // that initialises a module holds that one while it waits here for a locale.
        startup_inputs inputs{read_environment(), platform::query_locale_settings(),
                              filesystem::get_install_path()};
        return context.get([&] { return std::make_unique<QzLocaleCtx>(std::move(inputs)); });
    } catch (std::exception const &) {
        boost::throw_exception(std::runtime_error("Failed to initialize locale context"));
    }
}

QzLocaleCtx * QzLocaleCtx::peek() {
    return context.peek();
}

QzLocaleCtx::QzLocaleCtx(startup_inputs inputs)
    : inputs_(std::move(inputs)) {
    initQzLcCtx();
    initLocaleMgmt();
}

QzLocaleCtx::~QzLocaleCtx() = default;

void QzLocaleCtx::initQzLcCtx() {
    constexpr std::string_view source = "QzLocaleCtx::initQzLcCtx";
    publication const classic = prepare(records_of(std::string(classic_name)));
    publish(classic);
    if (classic.encoding == nullptr) {
        log_.add_error(source, "Failed to set default locale", no_converter);
    } else {
        log_.add(source, "Locale context was initialized.");
    }
}

void QzLocaleCtx::initLocaleMgmt() {
    log_.add(init_source, "LcMgmt initialization has started.");
    l10n_control_ = read_l10n_control(inputs_.environment["QZLOCALE_L10N_CONTROL"]);
    load_database();
    system_settings_ = read_system_locale(inputs_.settings, tables_, log_);
    resolve_system_encodings();
    initGlobalLocale();
}

void QzLocaleCtx::load_database() {
    filesystem::upath const path = get_lcdata_path(inputs_.environment, inputs_.install_path, log_);
    status_ = LcStatusDefaultsInUse;
    if (path.empty()) {
        warning_message_ = "No XML locale database was loaded.";
        log_.add(init_source, warning_message_);
        return;
    }
    std::size_t const events_before = log_.count();
    try {
        parse_lcdata(LcData(tables_, log_), path);
    } catch (LcRscExceptionBase const & failure) {
        warning_message_ = database_failure(failure.kind());
        log_.add("QzLocaleCtx::initLocaleMgmt::parseLcData", warning_message_);
        return;
    }
    database_path_ = path;
    if (log_.count() == events_before) {
        status_ = LcStatusInitialized;
    } else {
        warning_message_ = "Some entries of the XML locale database were refused.";
    }
    log_.add(init_source, "XML locale database was loaded.");
}

void QzLocaleCtx::resolve_system_encodings() {
    auto const resolve = [this](std::string & encoding) {
        std::string known = known_encoding(encoding);
        if (known.empty() && !encoding.empty()) {
            log_.add(init_source, "The encoding is not known: " + encoding);
        }
        encoding = std::move(known);
    };
    resolve(system_settings_.encoding);
    resolve(system_settings_.terminal_input_encoding);
    resolve(system_settings_.terminal_output_encoding);
    std::string environment_encoding = to_readable_utf8(inputs_.environment["QZLOCALE_TERMINAL_ENCODING"]);
    resolve(environment_encoding);
    if (!environment_encoding.empty()) {
        system_settings_.terminal_input_encoding = environment_encoding;
        system_settings_.terminal_output_encoding = environment_encoding;
    }
}

void QzLocaleCtx::initGlobalLocale() {
    QzLocaleImpl::category_records records;
    std::transform(system_settings_.categories.begin(), system_settings_.categories.end(), records.begin(),
                   [](system_locale::category const & c) {
                       return QzLocaleImpl::category_record{c.name, c.system_name};
                   });
    locales_.push_back(std::make_unique<QzLocaleImpl const>(*this, records));
    publication const system = prepare(std::move(records));
    publish(system);
    if (l10n_control_ == l10n_refused) {
        switch_l10n_off();
    }
    if (system.encoding == nullptr) {
        log_.add_error(global_source, "Failed to set default locale", no_converter);
    }
}

bool QzLocaleCtx::uses_l10n(std::string const & messages_name) const {
    if (l10n_disabled_ || l10n_control_ == l10n_requested) {
        return !l10n_disabled_;
    }
    std::string const name = tables_.resolve_locale(messages_name);
    std::string const disable = ascii::to_lower(tables_.find_locale_option(name, "disable_l10n"));
    constexpr std::array<std::string_view, 4> words{"true", "yes", "on", "1"};
    return std::find(words.begin(), words.end(), disable) == words.end();
}

QzLocaleImpl const & QzLocaleCtx::classic() const {
    std::scoped_lock const lock(mutex_);
    return *locales_.front();
}

QzLocaleImpl const & QzLocaleCtx::system() const {
    std::scoped_lock const lock(mutex_);
    return *locales_[1];
}

void QzLocaleCtx::change_global_locale(QzLocaleImpl::category_records records) {
    std::scoped_lock const lock(mutex_);
    if (refuse_when_locked(set_source)) {
        return;
    }
    change_to(std::move(records));
}

bool QzLocaleCtx::set_global_locale(std::string const & name) {
    std::scoped_lock const lock(mutex_);
    if (refuse_when_locked(set_source)) {
        return false;
    }
    change_to(records_of(name));
    return true;
}

void QzLocaleCtx::lock_global_locale_setting() {
    std::scoped_lock const lock(mutex_);
    global_locked_ = true;
}

bool QzLocaleCtx::set_lc_messages(std::string const & name) {
    std::scoped_lock const lock(mutex_);
    if (refuse_when_locked(messages_source)) {
        return false;
    }
    QzLocaleImpl::category_records records = global().records();
    if (records[messages_index].name == name) {
        log_.add(messages_source, "Provided locale is same as current locale");
        return true;
    }
    records[messages_index] = {name, {}};
    check_names(records);
    if (!uses_l10n(name)) {
        log_.add(messages_source, "No operation was performed");
        return false;
    }
    change_to(std::move(records));
    return true;
}

void QzLocaleCtx::disable_l10n_resource() {
    std::scoped_lock const lock(mutex_);
    if (global_locked_ || l10n_disabled_ || l10n_control_ == l10n_requested) {
        log_.add(l10n_source, "No operation was performed.");
        return;
    }
    switch_l10n_off();
}

bool QzLocaleCtx::get_l10n_resource_status() const {
    std::scoped_lock const lock(mutex_);
    return l10n_in_use_;
}

void QzLocaleCtx::switch_l10n_off() {
    QzLocaleImpl::category_records records = global().records();
    if (records[messages_index].name == classic_name) {
        log_.add(l10n_source, "No need to perform disable operation.");
        l10n_disabled_ = true;
        l10n_in_use_ = false;
        return;
    }
    records[messages_index] = {classic_name, {}};
    publication next = prepare(std::move(records));
    log_.add({{change_source, "Locale setting was changed to disable L10n."},
              {l10n_source, "L10n was disabled."}});
    l10n_disabled_ = true;
    next.localised = false;
    publish(next);
}

bool QzLocaleCtx::refuse_when_locked(std::string_view source) {
    if (global_locked_) {
        log_.add(source, "No operation was performed");
    }
    return global_locked_;
}

void QzLocaleCtx::change_to(QzLocaleImpl::category_records records) {
    publication const next = prepare(std::move(records));
    log_.add(set_source, "Global Locale setting was changed.");
    publish(next);
}

QzLocaleCtx::publication QzLocaleCtx::prepare(QzLocaleImpl::category_records records) {
    check_names(records);
    bool const localised = uses_l10n(records[messages_index].name);
    if (!localised) {
        records[messages_index] = {classic_name, {}};
    }
    QzLocaleImpl const & locale = keep(std::move(records));
    return {&locale, keep_encoding(encoding(locale.records()[ctype_index])), localised};
}

void QzLocaleCtx::publish(publication const & next) noexcept {
    global_.exchange(next.locale, std::memory_order_acq_rel);
    process_encoding_.store(next.encoding, std::memory_order_release);
    l10n_in_use_ = next.localised;
}

QzLocaleImpl const & QzLocaleCtx::keep(QzLocaleImpl::category_records records) {
    auto const found = std::find_if(locales_.begin(), locales_.end(),
                                    [&](auto const & locale) { return locale->records() == records; });
    if (found != locales_.end()) {
        return **found;
    }
    return *locales_.emplace_back(std::make_unique<QzLocaleImpl const>(*this, std::move(records)));
}

kept_encoding const * QzLocaleCtx::keep_encoding(std::string const & name) {
    if (kept_encoding const * const known = encodings_.find(name)) {
        return known;
    }
    icu_converter converter = open_encoding(name);
    return converter ? encodings_.add(name, std::move(converter)) : nullptr;
}

kept_encoding const * QzLocaleCtx::meet_encoding(std::string const & name) {
    if (name.find(',') != std::string::npos) {
        return nullptr;
    }
    std::lock_guard const lock(mutex_);
    return keep_encoding(name);
}

// The tables and the system's settings do not change after the start-up, so the look-ups in them need no
// lock.

std::string QzLocaleCtx::known_encoding(std::string_view name) const {
    if (auto const data = tables_.resolve_encoding(name)) {
        return std::string(data->name);
    }
    std::string given(name);
    return open_icu_converter(given) ? given : std::string();
}

icu_converter QzLocaleCtx::open_encoding(std::string const & name) const {
    if (icu_converter converter = open_icu_converter(name)) {
        return converter;
    }
    auto const data = tables_.resolve_encoding(name);
    if (!data) {
        return nullptr;
    }
    icu_converter converter = open_icu_converter(std::string(data->name));
    return converter ? std::move(converter) : open_icu_converter(std::string(data->compat));
}

std::string QzLocaleCtx::find_standard_encoding_name(std::string_view name) const {
    auto const data = tables_.resolve_encoding(name);
    return data ? std::string(data->name) : std::string();
}

std::string QzLocaleCtx::standard_or_given(std::string_view encoding) const {
    std::string standard = find_standard_encoding_name(encoding);
    return standard.empty() ? std::string(encoding) : standard;
}

std::string QzLocaleCtx::data_name(std::string const & locale_name) const {
    std::string known = tables_.resolve_locale(locale_name);
    return known.empty() ? locale_name : known;
}

std::string QzLocaleCtx::encoding(QzLocaleImpl::category_record const & ctype) const {
    if (!ctype.user_name.empty() && !system_settings_.encoding.empty()) {
        return system_settings_.encoding;
    }
    if (std::string named = known_encoding(split_locale_name(ctype.name).codeset); !named.empty()) {
        return named;
    }
    auto const data = tables_.find_locale(tables_.resolve_locale(ctype.name));
    if (!data) {
        return classic_encoding;
    }
    return standard_or_given(data->encoding);
}

std::string QzLocaleCtx::xpg_name(QzLocaleImpl::category_record const & ctype) const {
    std::string const in_use = encoding(ctype);
    auto const data = tables_.find_locale(tables_.resolve_locale(ctype.name));
    if (data && !data->xpg_name.empty() && standard_or_given(data->encoding) == in_use) {
        return std::string(data->xpg_name);
    }
    std::string name = without_codeset(ctype.name);
    return name.insert(std::min(name.find('@'), name.size()), '.' + in_use);
}

std::string QzLocaleCtx::jvm_encoding(QzLocaleImpl::category_record const & ctype) const {
    std::string const name = encoding(ctype);
    auto const data = tables_.resolve_encoding(name);
    if (data && !data->jvm_name.empty()) {
        return std::string(data->jvm_name);
    }
    if (!data && !open_icu_converter(name)) {
        boost::throw_exception(QzLcDataNotFound(ctype.name));
    }
    return name;
}

std::vector<std::string> QzLocaleCtx::events() const {
    std::scoped_lock const lock(mutex_);
    return log_.entries();
}

std::string QzLocaleCtx::database_path() const {
    return to_readable_utf8(database_path_.string());
}

} // namespace fl::i18n::lcmgmt
