#include "locale/qz_locale_ctx.hpp"

#include <fl/i18n/locale_status.hpp>

namespace fl::i18n {

using lcmgmt::QzLocaleCtx;

void initLcMgmtSystem() {
    QzLocaleCtx::get();
}

LcStatusCode QzLcUtil::getLcStatus() {
    QzLocaleCtx const * const context = QzLocaleCtx::peek();
    return context != nullptr ? context->status() : LcStatusNotInitialized;
}

std::string QzLcUtil::getInitStatusMsg() {
    return getInitStatusMsg(getLcStatus());
}

std::string QzLcUtil::getInitStatusMsg(LcStatusCode status) {
    switch (status) {
    case LcStatusInitialized:
        return "Zantrel locale management system initialized.";
    case LcStatusDefaultsInUse:
        return "Failed to load Zantrel locale database. Using Zantrel default locale setting instead.";
    case LcStatusNotInitialized:
        return "Zantrel locale management system not initialized.";
    }
    return {};
}

std::string QzLcUtil::getInitWarningMsg() {
    return QzLocaleCtx::get().warning_message();
}

std::vector<std::string> QzLcUtil::getEventLog() {
    return QzLocaleCtx::get().events();
}

std::map<std::string, std::string> QzLcUtil::getLocaleInformation() {
    return QzLocaleCtx::get().locale_information();
}

std::map<std::string, std::string> QzLcUtil::getDataPathNames() {
    return {{"xml_locale_database_path", QzLocaleCtx::get().database_path()}};
}

} // namespace fl::i18n
