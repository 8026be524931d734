#include <boost/date_time/posix_time/posix_time_types.hpp>
#include <boost/throw_exception.hpp>
#include <fl/i18n/date_time.hpp>

namespace fl::i18n::date_time {

namespace {

namespace posix_time = boost::posix_time;

/// The first file time after the year 9999, the last year of `ptime`.
constexpr std::uint64_t file_time_limit = 2'650'467'744'000'000'000;
constexpr std::uint64_t intervals_per_microsecond = 10;

posix_time::ptime file_time_epoch() {
    return posix_time::ptime(boost::gregorian::date(1601, 1, 1));
}

} // namespace

date_time_exception_base::date_time_exception_base(char const * msg_id, char const * text,
                                                   date_time_excp_id id)
    : msg_id_(msg_id)
    , text_(text)
    , id_(id) {}

date_time_exception_base::~date_time_exception_base() = default;
date_time_exception_base::date_time_exception_base(date_time_exception_base const &) = default;
date_time_exception_base & date_time_exception_base::operator=(date_time_exception_base const &) = default;

char const * date_time_exception_base::what() const noexcept {
    return text_.c_str();
}

std::string date_time_exception_base::getMsgId() const {
    return msg_id_;
}

date_time_excp_id date_time_exception_base::get_excp_id() const noexcept {
    return id_;
}

DateTimeOutOfRange::DateTimeOutOfRange()
    : date_time_exception_base("fl:i18n:DateTimeOutOfRange", "Date and time out of range.",
                               date_time_excp_out_of_range) {}

std::uint64_t ptime_to_filetime(posix_time::ptime const & time) {
    if (time.is_special() || time < file_time_epoch()) {
        boost::throw_exception(DateTimeOutOfRange());
    }
    auto const microseconds = static_cast<std::uint64_t>((time - file_time_epoch()).total_microseconds());
    if (microseconds >= file_time_limit / intervals_per_microsecond) {
        boost::throw_exception(DateTimeOutOfRange());
    }
    return microseconds * intervals_per_microsecond;
}

posix_time::ptime filetime_to_ptime(std::uint64_t file_time) {
    if (file_time >= file_time_limit) {
        boost::throw_exception(DateTimeOutOfRange());
    }
    auto const microseconds = static_cast<std::int64_t>(file_time / intervals_per_microsecond);
    return file_time_epoch() + posix_time::microseconds(microseconds);
}

} // namespace fl::i18n::date_time
