#include "tools/fl_i18n/system.hpp"

#include <sys/utsname.h>

namespace fl::tool {

std::string system_version() {
    utsname names;
    return ::uname(&names) == 0 ? std::string(names.sysname) + " " + names.release : std::string();
}

} // namespace fl::tool
