#include "files/temp_directory.hpp"

#include "foundation/filesystem/native_form.hpp"
#include "foundation/filesystem/system_error.hpp"
#include "platform/platform.hpp"

#include <boost/throw_exception.hpp>
#include <cerrno>
#include <exception>
#include <fl/filesystem/exceptions.hpp>
#include <fl/filesystem/file.hpp>
#include <fl/i18n/environment.hpp>

namespace fl::filesystem {

using i18n::ustring;

namespace detail {

namespace {

/// Returns 0 for a directory that serves, else the code that tells why it does not.
int refusal(upath const & directory, directory_queries const & queries) {
    file_status const found = queries.status(directory);
    if (!found.exists) {
        return ENOENT;
    }
    return found.is_directory ? queries.writability(directory) : ENOTDIR;
}

} // namespace

ustring choose_temp_directory(std::vector<ustring> const & candidates, directory_queries const & queries) {
    if (candidates.empty()) {
        boost::throw_exception(TempEnvNotSpecified());
    }
    int code = 0;
    std::exception_ptr thrown;
    for (ustring const & candidate : candidates) {
        try {
            code = refusal(candidate, queries);
            if (code == 0) {
                return candidate;
            }
        } catch (FsysExceptionBase const &) {
            thrown = std::current_exception();
        }
    }
    if (thrown) {
        std::rethrow_exception(thrown);
    }
    // Deliberately the errno value as if it were the system's code: callers know these results.
    throw_system_error(static_cast<std::uint32_t>(code), candidates.back());
}

} // namespace detail

namespace {

std::vector<ustring> candidates_of(std::vector<std::string> names) {
    names.insert(names.end(), {"TMPDIR", "TMP", "TEMP", "USERPROFILE"});
    std::vector<ustring> candidates;
    auto const add_unless_empty = [&](ustring directory) {
        if (!directory.empty()) {
            candidates.push_back(std::move(directory));
        }
    };
    for (std::string const & name : names) {
        add_unless_empty(i18n::getenv(name));
    }
    add_unless_empty(upath(platform::system_temporary_directory()).string());
    return candidates;
}

int query_writability(upath const & directory) {
    return platform::query_writability(detail::make_query_form(directory));
}

} // namespace

ustring temp_directory_name() {
    return temp_directory_name({});
}

ustring temp_directory_name(std::vector<std::string> const & variable_names) {
    return detail::choose_temp_directory(candidates_of(variable_names), {status, query_writability});
}

} // namespace fl::filesystem
