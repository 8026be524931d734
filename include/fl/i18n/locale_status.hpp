#pragma once

#include <fl/i18n/export.hpp>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace fl::i18n {

/// How the start-up of the locale management ended.
enum LcStatusCode : std::int32_t {
    LcStatusInitialized = 0,    ///< the locale database was applied in full
    LcStatusDefaultsInUse = 1,  ///< no database was applied, or only a part of one
    LcStatusNotInitialized = 2, ///< the start-up has not run yet
};

/// Runs the start-up of the locale management if it has not run yet; any thread may call it.
///
/// Every other operation that needs the locale management starts it too. Throws `std::runtime_error` "Failed
/// to initialize locale context" when that is impossible; a later call then tries again.
FL_I18N_API void initLcMgmtSystem();

/// Reports how the start-up went. Any thread may call the operations.
///
/// `getLcStatus` and `getInitStatusMsg` only look; the others run the start-up if it has not run yet.
class FL_I18N_API QzLcUtil {
public:
    QzLcUtil() = delete;

    /// Returns the status of the start-up.
    static LcStatusCode getLcStatus();
    /// Returns the text of the start-up's status.
    static std::string getInitStatusMsg();
    /// Returns the text of a status; empty for a value that is none.
    static std::string getInitStatusMsg(LcStatusCode status);
    /// Returns why the defaults are in use; empty when the database was applied in full.
    static std::string getInitWarningMsg();
    /// Returns the event log, oldest event first: source, " - " and message, for an error " - " and its
    /// status too.
    ///
    /// It holds the first 512 events and the newest 512; where others were between them, one entry says how
    /// many.
    static std::vector<std::string> getEventLog();
    /// Returns the system's locale settings as captured at start-up, by setting name.
    static std::map<std::string, std::string> getLocaleInformation();
    /// Returns the paths of the data files in use: "xml_locale_database_path", empty when no database is.
    static std::map<std::string, std::string> getDataPathNames();
};

} // namespace fl::i18n
