#pragma once

#include "foundation/icu_converter.hpp"
#include "locale/encoding_registry.hpp"
#include "locale/event_log.hpp"
#include "locale/lc_tables.hpp"
#include "locale/lcdata_path.hpp"
#include "locale/qz_locale_impl.hpp"
#include "locale/system_locale.hpp"
#include "platform/platform.hpp"

#include <atomic>
#include <fl/filesystem/path.hpp>
#include <fl/i18n/locale.hpp>
#include <fl/i18n/locale_status.hpp>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace fl::i18n::lcmgmt {

/// What the start-up reads from outside.
struct startup_inputs {
    environment_snapshot environment;
    platform::locale_settings settings;
    filesystem::upath install_path; ///< empty when unknown
};

/// The locale management context: all locale state of a process.
///
/// Construction runs the whole start-up, which never fails for a bad database, environment or system setting:
/// each such problem ends in the event log. Afterwards any thread may call the operations; one mutex guards
/// the state, and the global locale is swapped atomically. Locales and encodings handed out live as long as
/// the context.
class QzLocaleCtx {
public:
    explicit QzLocaleCtx(startup_inputs inputs);
    ~QzLocaleCtx();
    QzLocaleCtx(QzLocaleCtx const &) = delete;
    QzLocaleCtx & operator=(QzLocaleCtx const &) = delete;

    /// Returns the context of the process, which the first call creates; throws `std::runtime_error`.
    static QzLocaleCtx & get();

    /// Returns the context of the process, or null before its creation.
    static QzLocaleCtx * peek();

    QzLocaleImpl const & classic() const;
    QzLocaleImpl const & system() const;
    QzLocaleImpl const & global() const { return *global_.load(std::memory_order_acquire); }

    void change_global_locale(QzLocaleImpl::category_records records);
    bool set_global_locale(std::string const & name);
    void lock_global_locale_setting();
    bool set_lc_messages(std::string const & name);
    void disable_l10n_resource();
    bool get_l10n_resource_status() const;

    /// Returns the name under which there is data for a locale: what it is an alias of, else the name itself.
    std::string data_name(std::string const & locale_name) const;

    /// Return what holds for a locale with this ctype record.
    std::string encoding(QzLocaleImpl::category_record const & ctype) const;
    std::string xpg_name(QzLocaleImpl::category_record const & ctype) const;
    std::string jvm_encoding(QzLocaleImpl::category_record const & ctype) const;

    /// Return what the system or the environment chose for the terminal; empty where that is the locale's
    /// encoding.
    std::string const & terminal_input_encoding() const { return system_settings_.terminal_input_encoding; }
    std::string const & terminal_output_encoding() const { return system_settings_.terminal_output_encoding; }

    /// Returns the standard name of an encoding name or alias; empty when the tables do not know it.
    std::string find_standard_encoding_name(std::string_view name) const;

    /// Opens a converter by the conversion library's rules, failing that by the standard name and the
    /// compatibility encoding that the tables give; null when all fail.
    icu_converter open_encoding(std::string const & name) const;

    /// Returns what is kept of the encoding that a converter is opened for by `open_encoding`; null for a
    /// name with options, which nobody else may ask for, and when none can be opened. Takes no lock for a
    /// name seen before.
    kept_encoding const * find_encoding(std::string const & name) {
        kept_encoding const * const known = encodings_.find(name);
        return known ? known : meet_encoding(name);
    }

    /// Returns what is kept of the global locale's encoding; null when that encoding cannot be opened.
    kept_encoding const * process_encoding() const {
        return process_encoding_.load(std::memory_order_acquire);
    }

    LcStatusCode status() const { return status_; }
    std::string const & warning_message() const { return warning_message_; }
    std::vector<std::string> events() const;
    std::map<std::string, std::string> const & locale_information() const { return inputs_.settings.details; }
    std::string database_path() const;

private:
    /// A locale about to become the global one.
    struct publication {
        QzLocaleImpl const * locale;
        kept_encoding const * encoding; ///< null when that cannot be opened
        bool localised;
    };

    void initQzLcCtx();
    void initLocaleMgmt();
    void load_database();
    void initGlobalLocale();
    void resolve_system_encodings();
    std::string known_encoding(std::string_view name) const;
    std::string standard_or_given(std::string_view encoding) const;

    // These expect the mutex to be held, or the start-up to run.
    /// Tells whether localised resources are used for a messages locale.
    bool uses_l10n(std::string const & messages_name) const;
    /// Gets all that making a locale the global one takes; nothing is changed when this throws.
    publication prepare(QzLocaleImpl::category_records records);
    /// Makes a prepared locale the global one.
    void publish(publication const & next) noexcept;
    /// Makes a locale the global one and records that.
    void change_to(QzLocaleImpl::category_records records);
    QzLocaleImpl const & keep(QzLocaleImpl::category_records records);
    kept_encoding const * keep_encoding(std::string const & name);
    kept_encoding const * meet_encoding(std::string const & name);
    bool refuse_when_locked(std::string_view source);
    void switch_l10n_off();

    startup_inputs inputs_;
    LcStatusCode status_ = LcStatusNotInitialized;
    std::string warning_message_;
    filesystem::upath database_path_;
    lc_tables tables_;
    system_locale system_settings_;
    std::vector<std::unique_ptr<QzLocaleImpl const>>
        locales_; ///< the classic locale first, then the system's
    std::atomic<QzLocaleImpl const *> global_ = nullptr;
    encoding_registry encodings_;
    std::atomic<kept_encoding const *> process_encoding_ = nullptr;
    int l10n_control_ = 0;
    bool l10n_disabled_ = false;
    bool l10n_in_use_ = true;
    bool global_locked_ = false;
    event_log log_;
    mutable std::mutex mutex_;
};

/// Tells whether the conversion library may be asked for a converter of this name: it looks for no file
/// outside its data then.
bool stays_in_icu_data(std::string const & name);

/// Opens a converter by the conversion library's own alias rules; null for a name that it does not know or
/// that could lead it outside its data.
icu_converter open_icu_converter(std::string const & name);

} // namespace fl::i18n::lcmgmt
