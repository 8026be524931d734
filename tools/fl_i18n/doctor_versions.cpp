#include "tools/fl_i18n/doctor.hpp"
#include "tools/fl_i18n/system.hpp"

#include <boost/version.hpp>
#include <expat.h>
#include <unicode/icudataver.h>
#include <unicode/uchar.h>
#include <unicode/ulocdata.h>
#include <unicode/uversion.h>

namespace fl::tool {

namespace {

std::string to_string(UVersionInfo const & version) {
    char text[U_MAX_VERSION_STRING_LENGTH];
    u_versionToString(version, text);
    return text;
}

std::string to_string(XML_Expat_Version const & version) {
    return std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
           std::to_string(version.micro);
}

void examine_icu(diagnosis & result) {
    UVersionInfo version;
    u_getVersion(version);
    result.facts.push_back({"ICU", to_string(version), "compiled with " U_ICU_VERSION});
    if (version[0] != U_ICU_VERSION_MAJOR_NUM) {
        result.problems.push_back("ICU is " + to_string(version) +
                                  ", but the program was compiled with " U_ICU_VERSION
                                  ": install the library's own ICU beside it");
    }
    UErrorCode status = U_ZERO_ERROR;
    UVersionInfo data = {};
    u_getDataVersion(data, &status);
    bool const has_data = U_SUCCESS(status);
    result.facts.push_back({"ICU data", has_data ? to_string(data) : "missing", {}});
    if (!has_data) {
        result.problems.emplace_back(
            "ICU has no data: install its data library, with the version of ICU itself");
    } else if (data[0] != version[0]) {
        result.problems.push_back("The data of ICU is of version " + to_string(data) + ", ICU of " +
                                  to_string(version) + ": install the data library of the same version");
    }
    u_getUnicodeVersion(data);
    result.facts.push_back({"Unicode", to_string(data), {}});
    ulocdata_getCLDRVersion(data, &status);
    result.facts.push_back({"CLDR", U_SUCCESS(status) ? to_string(data) : "unknown", {}});
}

std::string boost_version() {
    return std::to_string(BOOST_VERSION / 100000) + "." + std::to_string(BOOST_VERSION / 100 % 1000);
}

} // namespace

void examine_versions(diagnosis & result) {
    result.facts.push_back({"library", FL_I18N_VERSION, {}});
    result.facts.push_back({"system", system_version(), {}});
    examine_icu(result);
    XML_Expat_Version const expat = XML_ExpatVersionInfo();
    XML_Expat_Version const compiled = {XML_MAJOR_VERSION, XML_MINOR_VERSION, XML_MICRO_VERSION};
    result.facts.push_back({"Expat", to_string(expat), "compiled with " + to_string(compiled)});
    if (expat.major != compiled.major || expat.minor < compiled.minor) {
        result.problems.push_back("Expat is " + to_string(expat) +
                                  ", older than what the program was compiled with: install " +
                                  to_string(compiled) + " or a later one");
    }
    result.facts.push_back({"Boost", boost_version(), "compiled with"});
}

} // namespace fl::tool
